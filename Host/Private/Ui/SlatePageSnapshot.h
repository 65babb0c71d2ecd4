#pragma once

#include "CoreMinimal.h"
#include "Widgets/SWidget.h"

class FJsonObject;
struct FToolMenuEntry;

/**
 * One frame of the page: the widget tree of every shown root (the open tabs), with each widget's looks,
 * state and slots, and the menus' entries. Remembers the widgets and menu entries it named, so that the
 * page's events can name them back. Game thread only.
 */
class FSlatePageSnapshot
{
public:
	/** The frame as JSON text; Ack is the last page event handled before it. */
	FString Build(int64 Ack);

	/** A widget of the last frame, or null when it is gone or wasn't in it. */
	TSharedPtr<SWidget> FindWidget(uint64 Id) const;
	/** A menu entry of the last frame, by the id the frame gave it. */
	const FToolMenuEntry* FindMenuEntry(const FString& Id) const;
	/** The image files the last frame's brushes name: the only files the page may fetch. */
	const TSet<FString>& GetImageFiles() const
	{
		return ImageFiles;
	}

private:
	TSharedRef<FJsonObject> DescribeWidget(const TSharedRef<SWidget>& Widget, bool bParentEnabled);
	void NoteImages(const FJsonObject& Object);
	TSharedRef<FJsonObject> DescribeMenus();

	TMap<uint64, TWeakPtr<SWidget>> Widgets;
	TMap<FString, FToolMenuEntry*> MenuEntries;
	TSet<FString> ImageFiles;
};
