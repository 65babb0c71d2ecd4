#include "Widget/TavrineWidget.h"

#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "Brushes/SlateColorBrush.h"
#include "HAL/PlatformTime.h"
#include "Input/Events.h"
#include "InputCoreTypes.h"
#include "Styling/AppStyle.h"
#include "Styling/CoreStyle.h"
#include "TavrineSettings.h"
#include "Widget/TavrineSavedMode.h"
#include "Widgets/Input/SButton.h"
#include "Widgets/Input/SComboBox.h"
#include "Widgets/Layout/SBorder.h"
#include "Widgets/Layout/SBox.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/SBoxPanel.h"
#include "Widgets/Text/SMultiLineEditableText.h"
#include "Widgets/Text/STextBlock.h"

bool STavrineWidget::bUserScrolled = false;
float STavrineWidget::LastUserScrollTime = 0.0f;

namespace
{
	const FLinearColor SecondaryLabelColor(0.7f, 0.7f, 0.7f, 1.0f);
	const FLinearColor DisabledButtonColor(0.2f, 0.2f, 0.2f, 0.5f);
	const FLinearColor PauseBaseColor(0.7f, 0.5f, 0.0f, 1.0f);
	const FLinearColor EndBaseColor(1.0f, 0.392f, 0.392f, 1.0f);

	const TCHAR* const WelcomeText =
		TEXT(" [ Tavrine ] \n\n")
		TEXT("I'm Tavrine, your AI-powered assistant for Unreal Engine 5.4+, here to accelerate gameplay mechanics development. As a \"project-aware\" assistant, I understand your game, enabling me to support your mechanics development workflow\u2014from generating fresh gameplay variations to implementing entire systems, troubleshooting, and optimizing\u2014helping you find the fun faster.\n\n")
		TEXT("\nHere's how I can help:\n\n")
		TEXT("  1. \U0001F6E0\uFE0F UE5 Assistant \u2013 Navigate your project with intelligent file search, dependency tracing, diagnostics, and UE5 feature integration best practices.\n\n")
		TEXT("  2. \U0001F4BB Code Copilot \u2013 Assist with building, refactoring, debugging, and analyzing C++ code, ensuring it follows your game's architecture and guidelines.\n\n")
		TEXT("  3. \U0001F539 Blueprint Designer \u2013 Get step-by-step instructions for building, optimizing, and debugging gameplay logic and AI using UE5's visual scripting.\n\n")
		TEXT("\nTips for Working with Me:\n\n")
		TEXT("  1. Provide context \u2013 The more I know about your goal, the better I can help. Start with what you're trying to build before giving instructions.\n\n")
		TEXT("  2. Be specific \u2013 Think of me like a teammate. Clear, direct instructions work best.\n\n")
		TEXT("  3. Reference key files \u2013 I can search your project, but if you know relevant classes, files, or assets, let me know!\n\n")
		TEXT("  4. Access past chats \u2013 You can find conversation history in the \"Logs\" folder of your tavrine-unreal plugin.\n\n")
		TEXT("\nLet's build something amazing! \U0001F680\n");

	/** The states in which the turn is the user's: the prompt box and "Continue" are open. */
	bool IsUsersTurn(EAgentState State)
	{
		return State == EAgentState::Idle || State == EAgentState::Pause || State == EAgentState::AwaitingUpdate || State == EAgentState::AwaitingApproval;
	}

	EAgentState GetAgentState()
	{
		return FAgent::Get().GetState();
	}

	/** Plain colour brushes: darker at rest, the base colour under the mouse, lighter when pressed. */
	void FillButtonStyle(FButtonStyle& Style, const FLinearColor& Base)
	{
		const FLinearColor Normal(Base.R - 0.3f, Base.G - 0.3f, Base.B - 0.3f, 1.0f);
		const FLinearColor Pressed(Base.R + 0.1f, Base.G + 0.1f, Base.B + 0.1f, 1.0f);
		Style.SetNormal(FSlateColorBrush(Normal))
			.SetHovered(FSlateColorBrush(Base))
			.SetPressed(FSlateColorBrush(Pressed))
			.SetDisabled(FSlateColorBrush(DisabledButtonColor));
	}
}

template<typename ValueType>
TAttribute<ValueType> STavrineWidget::Poll(ValueType (STavrineWidget::*Getter)() const)
{
	return TAttribute<ValueType>::Create(TAttribute<ValueType>::FGetter::CreateSP(this, Getter));
}

void STavrineWidget::Construct(const FArguments& InArgs)
{
	FTavrineInterface& Interface = FTavrineInterface::Get();
	StatusMessageHandle = Interface.OnAddStatusMessageDelegate.AddSP(this, &STavrineWidget::OnAddStatusMessage);
	DiffMessageHandle = Interface.OnAddDiffMessageDelegate.AddSP(this, &STavrineWidget::OnAddDiffMessage);
	StateChangedHandle = FAgent::Get().OnStateChanged.AddSP(this, &STavrineWidget::OnAgentStateChanged);

	ModeOptions.Add(MakeShared<FString>(TEXT("Explainer Mode")));
	ModeOptions.Add(MakeShared<FString>(TEXT("Explainer And Implementer Mode")));
	BuildButtonStyles();

	const FSlateBrush* Background = FAppStyle::Get().GetBrush(TEXT("Menu.Background"));
	PromptTextBox = SNew(SMultiLineEditableText)
		.TextStyle(&FAppStyle::Get().GetWidgetStyle<FTextBlockStyle>(TEXT("NormalText")))
		.AutoWrapText(true)
		.IsEnabled(this, &STavrineWidget::IsPromptEnabled);
	PromptTextBox->SetHintText(FText::FromString(TEXT("Enter your prompt here...")));
	// The text box sees keys first; without this, it would take Enter as a line end of its own.
	PromptTextBox->SetOnKeyDownHandler(FOnKeyDown::CreateSP(this, &STavrineWidget::OnKeyDown));

	ChildSlot
	[
		SNew(SVerticalBox)
		+ SVerticalBox::Slot()
		.FillHeight(1.0f)
		.Padding(4.0f)
		[
			SNew(SBorder)
			.BorderImage(Background)
			[
				SAssignNew(ChatScrollBox, SScrollBox)
				.OnUserScrolled(this, &STavrineWidget::OnUserScrolled)
			]
		]
		+ SVerticalBox::Slot()
		.AutoHeight()
		.Padding(4.0f, 0.0f, 4.0f, 4.0f)
		[
			SNew(SBorder)
			.BorderImage(Background)
			.Padding(6.0f)
			[
				SNew(SBox)
				.MinDesiredHeight(60.0f)
				.MaxDesiredHeight(200.0f)
				[
					PromptTextBox.ToSharedRef()
				]
			]
		]
		+ SVerticalBox::Slot()
		.AutoHeight()
		.Padding(4.0f, 0.0f, 4.0f, 4.0f)
		[
			SNew(SHorizontalBox)
			+ SHorizontalBox::Slot().AutoWidth().Padding(0.0f, 0.0f, 4.0f, 0.0f)
			[
				MakeButton(TEXT("[ Start ]"), &PrimaryButtonStyle, FLinearColor::White, &StartButton, &STavrineWidget::OnStartClicked,
					Poll(&STavrineWidget::IsStartEnabled), EVisibility::Visible)
			]
			+ SHorizontalBox::Slot().AutoWidth().Padding(0.0f, 0.0f, 4.0f, 0.0f)
			[
				MakeButton(TEXT("Continue"), &PrimaryButtonStyle, SecondaryLabelColor, &ContinueButton, &STavrineWidget::OnContinueClicked,
					Poll(&STavrineWidget::CanContinue), Poll(&STavrineWidget::GetContinueVisibility))
			]
			+ SHorizontalBox::Slot().AutoWidth().Padding(0.0f, 0.0f, 4.0f, 0.0f)
			[
				MakeButton(TEXT("Pause"), &PauseButtonStyle, SecondaryLabelColor, &PauseButton, &STavrineWidget::OnPauseClicked,
					Poll(&STavrineWidget::IsPauseEnabled), Poll(&STavrineWidget::GetPauseVisibility))
			]
			+ SHorizontalBox::Slot().AutoWidth().Padding(0.0f, 0.0f, 4.0f, 0.0f)
			[
				MakeButton(TEXT("Undo"), &PrimaryButtonStyle, SecondaryLabelColor, nullptr, &STavrineWidget::OnUndoClicked,
					Poll(&STavrineWidget::IsUndoEnabled), EVisibility::Visible)
			]
			+ SHorizontalBox::Slot().AutoWidth().Padding(0.0f, 0.0f, 4.0f, 0.0f)
			[
				MakeButton(TEXT("Redo"), &PrimaryButtonStyle, SecondaryLabelColor, nullptr, &STavrineWidget::OnRedoClicked,
					Poll(&STavrineWidget::IsRedoEnabled), EVisibility::Visible)
			]
			+ SHorizontalBox::Slot().AutoWidth().Padding(0.0f, 0.0f, 4.0f, 0.0f)
			[
				MakeButton(TEXT("[ End ]"), &EndButtonStyle, SecondaryLabelColor, &EndButton, &STavrineWidget::OnEndClicked,
					Poll(&STavrineWidget::IsEndEnabled), EVisibility::Visible)
			]
			+ SHorizontalBox::Slot().FillWidth(1.0f)
			[
				SNew(SBox)
			]
			+ SHorizontalBox::Slot().AutoWidth()
			[
				MakeModeSelector()
			]
		]
	];

	OnAddStatusMessage(WelcomeText, FTavrineInterface::TavrineColor, FTavrineInterface::BoldFontName, FTavrineInterface::TavrineFontSize);
}

STavrineWidget::~STavrineWidget()
{
	FTavrineInterface& Interface = FTavrineInterface::Get();
	Interface.OnAddStatusMessageDelegate.Remove(StatusMessageHandle);
	Interface.OnAddDiffMessageDelegate.Remove(DiffMessageHandle);
	FAgent::Get().OnStateChanged.Remove(StateChangedHandle);
}

void STavrineWidget::BuildButtonStyles()
{
	FillButtonStyle(PrimaryButtonStyle, FTavrineInterface::UserColor);
	FillButtonStyle(PauseButtonStyle, PauseBaseColor);
	FillButtonStyle(EndButtonStyle, EndBaseColor);
	ButtonTextStyle = FTextBlockStyle(FAppStyle::Get().GetWidgetStyle<FTextBlockStyle>(TEXT("NormalText")))
		.SetFont(FCoreStyle::GetDefaultFontStyle(TEXT("Bold"), 10.0f));
}

TSharedRef<SWidget> STavrineWidget::MakeButton(const FString& Label, const FButtonStyle* Style, const FLinearColor& LabelColor, TSharedPtr<SButton>* OutButton,
	FReply (STavrineWidget::*OnClicked)(), const TAttribute<bool>& Enabled, const TAttribute<EVisibility>& Visibility)
{
	const TSharedRef<SButton> Button = SNew(SButton)
		.ButtonStyle(Style)
		.ContentPadding(FMargin(8.0f, 3.0f))
		.OnClicked(FOnClicked::CreateSP(this, OnClicked))
		.IsEnabled(Enabled)
		.Visibility(Visibility)
		[
			SNew(STextBlock)
			.Text(FText::FromString(Label))
			.TextStyle(&ButtonTextStyle)
			.ColorAndOpacity(LabelColor)
		];
	if (OutButton)
	{
		*OutButton = Button;
	}
	// The box follows the button, so that a collapsed button leaves no gap in the row.
	return SNew(SBox)
		.Visibility(Visibility)
		[
			Button
		];
}

TSharedRef<SWidget> STavrineWidget::MakeModeSelector()
{
	const int32 Current = static_cast<int32>(GetDefault<UTavrineSettings>()->Mode);
	return SNew(SBox)
	[
		SNew(SComboBox<TSharedPtr<FString>>)
		.OptionsSource(&ModeOptions)
		.InitiallySelectedItem(ModeOptions.IsValidIndex(Current) ? ModeOptions[Current] : ModeOptions[0])
		.OnGenerateWidget_Lambda([](TSharedPtr<FString> Option) -> TSharedRef<SWidget>
		{
			return SNew(STextBlock).Text(FText::FromString(Option.IsValid() ? *Option : FString()));
		})
		.OnSelectionChanged(this, &STavrineWidget::OnModeSelected)
		.ToolTipText(FText::FromString(TEXT("Explainer Mode waits for your approval before each tool call; Explainer And Implementer Mode runs them at once.")))
		[
			SNew(STextBlock)
			.Text(Poll(&STavrineWidget::GetModeLabel))
			.TextStyle(&ButtonTextStyle)
			.ColorAndOpacity(SecondaryLabelColor)
		]
	];
}

bool STavrineWidget::IsPromptEnabled() const
{
	return IsUsersTurn(GetAgentState());
}

bool STavrineWidget::IsStartEnabled() const
{
	return !GetPromptText().IsEmpty() && GetAgentState() == EAgentState::Idle;
}

EVisibility STavrineWidget::GetContinueVisibility() const
{
	return IsUsersTurn(GetAgentState()) ? EVisibility::Visible : EVisibility::Collapsed;
}

bool STavrineWidget::CanContinue() const
{
	const EAgentState State = GetAgentState();
	if (GetPromptText().IsEmpty())
	{
		return State == EAgentState::Pause;
	}
	return State == EAgentState::Pause || State == EAgentState::AwaitingUpdate || State == EAgentState::AwaitingApproval;
}

EVisibility STavrineWidget::GetPauseVisibility() const
{
	// Pause stands where Continue stands while the agent works, so the two take turns at one place.
	if (FAgent::Get().IsPaused() && GetContinueVisibility() != EVisibility::Visible)
	{
		return EVisibility::Visible;
	}
	return IsUsersTurn(GetAgentState()) ? EVisibility::Collapsed : EVisibility::Visible;
}

bool STavrineWidget::IsPauseEnabled() const
{
	return !FAgent::Get().IsPaused() && !IsUsersTurn(GetAgentState());
}

bool STavrineWidget::IsUndoEnabled() const
{
	return FTavrineInterface::Get().CanUndo();
}

bool STavrineWidget::IsRedoEnabled() const
{
	return FTavrineInterface::Get().CanRedo();
}

bool STavrineWidget::IsEndEnabled() const
{
	return GetAgentState() != EAgentState::Idle;
}

FText STavrineWidget::GetModeLabel() const
{
	const int32 Index = static_cast<int32>(GetDefault<UTavrineSettings>()->Mode);
	return ModeOptions.IsValidIndex(Index) ? FText::FromString(*ModeOptions[Index]) : FText::GetEmpty();
}

FReply STavrineWidget::OnStartClicked()
{
	const FString Text = GetPromptText().ToString();
	if (!Text.IsEmpty())
	{
		FTavrineInterface& Interface = FTavrineInterface::Get();
		const EAgentState State = GetAgentState();
		if (State == EAgentState::Idle)
		{
			Interface.InitialRequest(Text);
			ClearPrompt();
		}
		else if (State == EAgentState::AwaitingUpdate)
		{
			Interface.RegularRequest(Text);
			ClearPrompt();
		}
	}
	ScrollToEnd();
	return FReply::Handled();
}

FReply STavrineWidget::OnContinueClicked()
{
	FTavrineInterface::Get().Continue(GetPromptText().ToString());
	ClearPrompt();
	ScrollToEnd();
	return FReply::Handled();
}

FReply STavrineWidget::OnPauseClicked()
{
	FTavrineInterface::Get().PauseRequest();
	return FReply::Handled();
}

FReply STavrineWidget::OnUndoClicked()
{
	FTavrineInterface::Get().UndoLastOperation();
	return FReply::Handled();
}

FReply STavrineWidget::OnRedoClicked()
{
	FTavrineInterface::Get().RedoLastOperation();
	return FReply::Handled();
}

FReply STavrineWidget::OnEndClicked()
{
	if (EndButton.IsValid() && EndButton->IsEnabled() && GetAgentState() != EAgentState::Idle)
	{
		FTavrineInterface::Get().EndRequest(FString());
	}
	ScrollToEnd();
	return FReply::Handled();
}

void STavrineWidget::OnModeSelected(TSharedPtr<FString> Option, ESelectInfo::Type SelectInfo)
{
	const int32 Index = ModeOptions.IndexOfByKey(Option);
	if (Index == INDEX_NONE)
	{
		return;
	}
	GetMutableDefault<UTavrineSettings>()->Mode = static_cast<ETavrineMode>(Index);
	FTavrineSavedMode::Save();
}

void STavrineWidget::OnUserScrolled(float ScrollOffset)
{
	bUserScrolled = true;
	LastUserScrollTime = static_cast<float>(FPlatformTime::Seconds());
}

void STavrineWidget::OnAgentStateChanged()
{
	// The controls poll the state each frame; nothing to do on the event itself.
}

void STavrineWidget::Tick(const FGeometry& AllottedGeometry, const double InCurrentTime, const float InDeltaTime)
{
	SCompoundWidget::Tick(AllottedGeometry, InCurrentTime, InDeltaTime);
	const UTavrineSettings* Settings = GetDefault<UTavrineSettings>();
	const float HoldSeconds = Settings ? Settings->AutoScrollResumeSeconds : 10.0f;
	if (bUserScrolled && FPlatformTime::Seconds() - LastUserScrollTime > HoldSeconds)
	{
		bUserScrolled = false;
	}
}

FReply STavrineWidget::OnKeyDown(const FGeometry& MyGeometry, const FKeyEvent& InKeyEvent)
{
	bShiftPressed = InKeyEvent.IsLeftShiftDown() || InKeyEvent.IsRightShiftDown();
	if (InKeyEvent.GetKey() == EKeys::Enter)
	{
		if (bShiftPressed)
		{
			// The line end goes behind the text, wherever the caret is.
			if (PromptTextBox.IsValid())
			{
				PromptTextBox->SetText(FText::FromString(PromptTextBox->GetText().ToString() + TEXT("\n")));
			}
			return FReply::Handled();
		}
		if (GetAgentState() == EAgentState::Idle)
		{
			return OnStartClicked();
		}
		if (CanContinue())
		{
			return OnContinueClicked();
		}
	}
	return FReply::Unhandled();
}

FText STavrineWidget::GetPromptText() const
{
	return PromptTextBox.IsValid() ? PromptTextBox->GetText() : FText::GetEmpty();
}

void STavrineWidget::ClearPrompt()
{
	if (PromptTextBox.IsValid())
	{
		PromptTextBox->SetText(FText::GetEmpty());
	}
}

void STavrineWidget::ScrollToEnd()
{
	if (ChatScrollBox.IsValid())
	{
		ChatScrollBox->ScrollToEnd();
	}
}
