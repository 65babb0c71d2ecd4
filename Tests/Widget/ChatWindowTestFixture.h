#pragma once

#include "AgentTestFixture.h"
#include "Widget/TavrineWidget.h"

class SButton;
class SMultiLineEditableText;
class SScrollBox;

/** A chat window over an agent that the test plays the backend for, with its controls found in the tree. */
class FChatWindowTest : public FAgentTest
{
protected:
	void SetUp() override;
	void TearDown() override;

	/** The widgets of one type under Root, in tree order. */
	static TArray<TSharedRef<SWidget>> FindAll(const TSharedRef<SWidget>& Root, const TCHAR* Type);
	/** The texts of all text widgets under Root, in tree order. */
	static TArray<FString> TextsUnder(const TSharedRef<SWidget>& Root);

	/** The conversation's entries, one for each slot of the scroll box. */
	TArray<TSharedRef<SWidget>> Entries() const;
	/** The text each entry shows (a diff block's path). */
	TArray<FString> EntryTexts() const;
	SButton& Button(const TCHAR* Label) const;
	bool IsShown(const TCHAR* Label) const;

	void Type(const FString& Text);
	FString Typed() const;
	bool PressEnter(bool bShift = false);
	void Click(const TCHAR* Label);
	/** Runs the window's timers at the manual clock's reading after Seconds more. */
	void Wait(double Seconds);

	TSharedPtr<STavrineWidget> Window;
	TSharedPtr<SScrollBox> ScrollBox;
	TSharedPtr<SMultiLineEditableText> Prompt;
};
