#pragma once

#include "CoreMinimal.h"
#include "Styling/SlateTypes.h"
#include "Types/SlateEnums.h"
#include "Widget/DiffHunks.h"
#include "Widgets/DeclarativeSyntaxSupport.h"
#include "Widgets/SCompoundWidget.h"

class SBorder;
class SButton;
class SMultiLineEditableText;
class SScrollBox;
class STextBlock;
class SVerticalBox;

/**
 * The chat tab: the conversation in a scroll box, the prompt box and the buttons that drive the agent.
 * Everything it does goes through FTavrineInterface; the buttons poll the agent's state each frame.
 */
class STavrineWidget : public SCompoundWidget
{
public:
	SLATE_BEGIN_ARGS(STavrineWidget) {}
	SLATE_END_ARGS()

	void Construct(const FArguments& InArgs);
	virtual ~STavrineWidget() override;

	virtual void Tick(const FGeometry& AllottedGeometry, const double InCurrentTime, const float InDeltaTime) override;
	virtual FReply OnKeyDown(const FGeometry& MyGeometry, const FKeyEvent& InKeyEvent) override;

	/** Shows a line of the conversation; a line ending in "..." is a passing notice that animates. */
	void OnAddStatusMessage(const FString& Text, const FLinearColor& Color, const FName& FontName, float Size);
	/** Shows a file change as numbered hunks. */
	void OnAddDiffMessage(const FString& Path, const FString& Old, const FString& New);

	/** The names of the modes, in the order of ETavrineMode. */
	const TArray<TSharedPtr<FString>>& GetModeOptions() const { return ModeOptions; }

	/** Set by a user's scroll of any chat; while it holds, new messages leave the view where it is. */
	static bool bUserScrolled;
	static float LastUserScrollTime;

private:
	/** An attribute that asks this window's Getter each frame. */
	template<typename ValueType>
	TAttribute<ValueType> Poll(ValueType (STavrineWidget::*Getter)() const);

	TSharedRef<SWidget> MakeButton(const FString& Label, const FButtonStyle* Style, const FLinearColor& LabelColor, TSharedPtr<SButton>* OutButton,
		FReply (STavrineWidget::*OnClicked)(), const TAttribute<bool>& Enabled, const TAttribute<EVisibility>& Visibility);
	TSharedRef<SWidget> MakeModeSelector();
	void BuildButtonStyles();

	// Rules of the controls, evaluated each frame.
	bool IsPromptEnabled() const;
	bool IsStartEnabled() const;
	EVisibility GetContinueVisibility() const;
	bool CanContinue() const;
	EVisibility GetPauseVisibility() const;
	bool IsPauseEnabled() const;
	bool IsUndoEnabled() const;
	bool IsRedoEnabled() const;
	bool IsEndEnabled() const;
	FText GetModeLabel() const;

	FReply OnStartClicked();
	FReply OnContinueClicked();
	FReply OnPauseClicked();
	FReply OnUndoClicked();
	FReply OnRedoClicked();
	FReply OnEndClicked();
	void OnModeSelected(TSharedPtr<FString> Option, ESelectInfo::Type SelectInfo);
	void OnUserScrolled(float ScrollOffset);
	void OnAgentStateChanged();

	FText GetPromptText() const;
	void ClearPrompt();
	void ScrollToEnd();

	void StartAnimation(const TSharedPtr<SMultiLineEditableText>& Text, const TSharedPtr<SBorder>& Border, const FString& FullText);
	void StopAnimation();
	EActiveTimerReturnType AnimateDots(double InCurrentTime, float InDeltaTime);

	TSharedRef<SWidget> MakeLineNumberColumn(const TArray<FDiffHunk>& Hunks, bool bOld) const;
	TSharedRef<SWidget> MakeDiffTextColumn(const TArray<FDiffHunk>& Hunks) const;

	TArray<TSharedPtr<FString>> ModeOptions;
	TSharedPtr<SMultiLineEditableText> PromptTextBox;
	TSharedPtr<SScrollBox> ChatScrollBox;
	TSharedPtr<SButton> StartButton;
	TSharedPtr<SButton> EndButton;
	TSharedPtr<SButton> ContinueButton;
	TSharedPtr<SButton> PauseButton;
	bool bShiftPressed = false;
	FButtonStyle PrimaryButtonStyle;
	FButtonStyle PauseButtonStyle;
	FButtonStyle EndButtonStyle;
	FTextBlockStyle ButtonTextStyle;

	FString LastMessageHeader;
	TWeakPtr<SMultiLineEditableText> AnimatedText;
	TSharedPtr<SBorder> AnimatedBorder;
	TSharedPtr<FActiveTimerHandle> AnimationTimer;
	FString AnimationBaseText;
	int32 AnimationDotCount = 0;

	FDelegateHandle StatusMessageHandle;
	FDelegateHandle DiffMessageHandle;
	FDelegateHandle StateChangedHandle;
};
