#pragma once

#include "CoreMinimal.h"
#include "Framework/Commands/UIAction.h"
#include "Framework/Commands/UICommandInfo.h"

/** Actions mapped to commands. */
class FUICommandList : public TSharedFromThis<FUICommandList>
{
public:
	SLATE_API void MapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo, const FUIAction& InUIAction);
	SLATE_API void MapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo, FExecuteAction ExecuteAction,
		EUIActionRepeatMode RepeatMode = EUIActionRepeatMode::RepeatDisabled);
	SLATE_API void MapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo, FExecuteAction ExecuteAction, FCanExecuteAction CanExecuteAction,
		EUIActionRepeatMode RepeatMode = EUIActionRepeatMode::RepeatDisabled);
	SLATE_API void UnmapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo);
	SLATE_API bool IsActionMapped(const TSharedPtr<const FUICommandInfo> InUICommandInfo) const;
	SLATE_API const FUIAction* GetActionForCommand(TSharedPtr<const FUICommandInfo> Command) const;

	/** Runs the mapped action if it may run; gives whether it ran. */
	SLATE_API bool ExecuteAction(const TSharedRef<const FUICommandInfo> InUICommandInfo) const;
	SLATE_API bool TryExecuteAction(const TSharedRef<const FUICommandInfo> InUICommandInfo) const;
	SLATE_API bool CanExecuteAction(const TSharedRef<const FUICommandInfo> InUICommandInfo) const;
	SLATE_API void Append(const TSharedRef<FUICommandList>& InCommandsToAppend);

private:
	TArray<TPair<TSharedPtr<const FUICommandInfo>, FUIAction>> Actions;
	TArray<TSharedRef<FUICommandList>> AppendedLists;
};
