// How the chat turns status and diff messages into widgets.
#include "Widget/TavrineWidget.h"

#include "Agent/TavrineInterface.h"
#include "Brushes/SlateColorBrush.h"
#include "Styling/AppStyle.h"
#include "Styling/CoreStyle.h"
#include "TavrineSettings.h"
#include "Widgets/Layout/SBorder.h"
#include "Widgets/Layout/SBox.h"
#include "Widgets/Layout/SScrollBox.h"
#include "Widgets/SBoxPanel.h"
#include "Widgets/Text/SMultiLineEditableText.h"
#include "Widgets/Text/STextBlock.h"

namespace
{
	/** Tool names and bold markers: the chat shows the assistant's text without them. */
	const TCHAR* const CleanedTokens[] =
	{
		TEXT("execute_unreal_engine_api_python_script"),
		TEXT("create_cpp_file"),
		TEXT("update_and_replace_cpp_file"),
		TEXT("delete_cpp_file"),
		TEXT("read_file"),
		TEXT("get_filesystem_tree"),
		TEXT("create_blueprint"),
		TEXT("read_blueprint"),
		TEXT("modify_blueprint"),
		TEXT("modify_behavior_tree"),
		TEXT("read_behavior_tree"),
		TEXT("save_and_compile_all_dirty_blueprints"),
		TEXT("find_reference_in_all_files"),
		TEXT("get_blueprint_subset_by_keywords"),
		TEXT("get_blueprint_summary"),
		TEXT("**"),
	};

	/** A line that ends so is a passing notice: it animates and goes when the next real message comes. */
	const TCHAR* const NoticeEnding = TEXT("...");
	constexpr float AnimationPeriodSeconds = 0.5f;

	const FLinearColor DiffBackgroundColor(0.1f, 0.1f, 0.1f, 0.6f);
	const FLinearColor DiffColumnColor(0.3f, 0.3f, 0.3f, 1.0f);
	const FLinearColor DiffPathColor(0.9f, 0.9f, 0.9f, 1.0f);
	const FLinearColor AddedBackgroundColor(0.0f, 0.2f, 0.0f, 0.3f);
	const FLinearColor RemovedBackgroundColor(0.2f, 0.0f, 0.0f, 0.3f);
	const FLinearColor AddedTextColor(0.2f, 0.8f, 0.2f, 1.0f);
	const FLinearColor RemovedTextColor(0.8f, 0.2f, 0.2f, 1.0f);
	constexpr float LineNumberColumnWidth = 45.0f;

	const FSlateBrush* GetMenuBackground()
	{
		return FAppStyle::Get().GetBrush(TEXT("Menu.Background"));
	}

	/** A white brush that a border tints with its background colour. */
	const FSlateBrush* GetPlainBrush()
	{
		static const FSlateColorBrush Brush(FLinearColor::White);
		return &Brush;
	}

	/** One font for all three columns of a diff, so that their rows line up. */
	FSlateFontInfo GetDiffFont()
	{
		return FCoreStyle::GetDefaultFontStyle(TEXT("Mono"), 9.0f);
	}

	/**
	 * Drops the first line when it repeats the header of the last message, so that a speaker's name shows
	 * once for several messages in a row. Gives false when nothing is left to show.
	 */
	bool DropRepeatedHeader(FString& Message, FString& LastMessageHeader)
	{
		TArray<FString> Lines;
		Message.ParseIntoArrayLines(Lines, false);
		if (Lines.Num() == 0)
		{
			return true;
		}
		if (LastMessageHeader.IsEmpty() || !Lines[0].Equals(LastMessageHeader, ESearchCase::IgnoreCase))
		{
			LastMessageHeader = Lines[0];
			return true;
		}
		Lines.RemoveAt(0);
		if (Lines.Num() > 0 && Lines.Last().IsEmpty())
		{
			Lines.Pop();
		}
		if (Lines.Num() == 0)
		{
			return false;
		}
		Message = FString::Join(Lines, TEXT("\n")).TrimStart();
		return true;
	}

	/** A row of a diff column: its background by the line's kind, and the same padding in every column. */
	TSharedRef<SWidget> MakeDiffRow(const FLinearColor& Background, const TSharedRef<SWidget>& Content)
	{
		return SNew(SBorder)
			.BorderImage(GetPlainBrush())
			.BorderBackgroundColor(Background)
			.Padding(FMargin(4.0f, 2.0f, 0.0f, 0.0f))
			[
				Content
			];
	}

	/** A column with one row for each line of the hunks, and a gap row between two hunks. */
	template<typename RowMakerType>
	TSharedRef<SWidget> MakeDiffColumn(const TArray<FDiffHunk>& Hunks, const FString& GapText, RowMakerType&& MakeRow)
	{
		TSharedRef<SVerticalBox> Column = SNew(SVerticalBox);
		for (int32 HunkIndex = 0; HunkIndex < Hunks.Num(); ++HunkIndex)
		{
			if (HunkIndex > 0)
			{
				Column->AddSlot()
				.AutoHeight()
				[
					MakeDiffRow(FLinearColor::Transparent, SNew(STextBlock).Text(FText::FromString(GapText)).Font(GetDiffFont()).ColorAndOpacity(DiffColumnColor))
				];
			}
			for (const FDiffLine& Line : Hunks[HunkIndex])
			{
				Column->AddSlot()
				.AutoHeight()
				[
					MakeRow(Line)
				];
			}
		}
		return Column;
	}
}

void STavrineWidget::OnAddStatusMessage(const FString& Text, const FLinearColor& Color, const FName& FontName, float Size)
{
	if (!ChatScrollBox.IsValid())
	{
		return;
	}

	FString Message = Text;
	if (!Message.EndsWith(NoticeEnding) && !DropRepeatedHeader(Message, LastMessageHeader))
	{
		return;
	}
	for (const TCHAR* Token : CleanedTokens)
	{
		Message = Message.Replace(Token, TEXT(""), ESearchCase::IgnoreCase);
	}
	if (Message.IsEmpty())
	{
		return;
	}

	TSharedPtr<SBorder> Border;
	TSharedPtr<SMultiLineEditableText> TextWidget;
	ChatScrollBox->AddSlot()
	.Padding(FMargin(0.0f, 0.0f, 0.0f, 8.0f))
	[
		SAssignNew(Border, SBorder)
		.BorderImage(GetMenuBackground())
		.BorderBackgroundColor(Color)
		.Padding(8.0f)
		[
			SAssignNew(TextWidget, SMultiLineEditableText)
			.Text(FText::FromString(Message))
			.TextStyle(&FAppStyle::Get().GetWidgetStyle<FTextBlockStyle>(TEXT("NormalText")))
			.Font(FCoreStyle::GetDefaultFontStyle(FontName, Size))
			.AutoWrapText(true)
			.IsReadOnly(true)
		]
	];

	if (Message.EndsWith(NoticeEnding))
	{
		// A notice is neither logged nor a reason to move the view.
		StartAnimation(TextWidget, Border, Message);
		return;
	}

	StopAnimation();
	if (!bUserScrolled)
	{
		ChatScrollBox->ScrollToEnd();
	}
	FTavrineInterface& Interface = FTavrineInterface::Get();
	Interface.TavrineInterfaceLogString(Message, Interface.GetPromptLogFilePath(), true);
}

void STavrineWidget::StartAnimation(const TSharedPtr<SMultiLineEditableText>& Text, const TSharedPtr<SBorder>& Border, const FString& FullText)
{
	StopAnimation();
	AnimatedText = Text;
	AnimatedBorder = Border;
	AnimationBaseText = FullText.Len() >= 3 ? FullText.LeftChop(3) : FString();
	AnimationDotCount = 0;
	AnimationTimer = RegisterActiveTimer(AnimationPeriodSeconds, FWidgetActiveTimerDelegate::CreateSP(this, &STavrineWidget::AnimateDots));
}

EActiveTimerReturnType STavrineWidget::AnimateDots(double InCurrentTime, float InDeltaTime)
{
	const TSharedPtr<SMultiLineEditableText> Text = AnimatedText.Pin();
	if (!Text.IsValid())
	{
		// Returning Stop ends this timer; StopAnimation must not unregister it a second time.
		AnimationTimer.Reset();
		StopAnimation();
		return EActiveTimerReturnType::Stop;
	}
	AnimationDotCount = (AnimationDotCount + 1) % 4;
	Text->SetText(FText::FromString(AnimationBaseText + FString(NoticeEnding).Left(AnimationDotCount)));
	return EActiveTimerReturnType::Continue;
}

void STavrineWidget::StopAnimation()
{
	if (AnimationTimer.IsValid())
	{
		UnRegisterActiveTimer(AnimationTimer.ToSharedRef());
		AnimationTimer.Reset();
	}
	if (ChatScrollBox.IsValid() && AnimatedBorder.IsValid())
	{
		ChatScrollBox->RemoveSlot(AnimatedBorder.ToSharedRef());
		ChatScrollBox->Invalidate(EInvalidateWidgetReason::Layout);
	}
	AnimatedText.Reset();
	AnimatedBorder.Reset();
	AnimationBaseText.Empty();
}

void STavrineWidget::OnAddDiffMessage(const FString& Path, const FString& Old, const FString& New)
{
	const UTavrineSettings* Settings = GetDefault<UTavrineSettings>();
	if ((Settings && !Settings->bDisplayFileChangesInChat) || !ChatScrollBox.IsValid())
	{
		return;
	}

	const TArray<FDiffHunk> Hunks = BuildDiffHunks(Old, New);
	auto InColumnBorder = [](const TSharedRef<SWidget>& Content) -> TSharedRef<SWidget>
	{
		return SNew(SBorder)
			.BorderImage(GetPlainBrush())
			.BorderBackgroundColor(DiffColumnColor)
			[
				Content
			];
	};
	auto NumberColumn = [this, &Hunks, &InColumnBorder](bool bOld) -> TSharedRef<SWidget>
	{
		return InColumnBorder(
			SNew(SBox)
			.WidthOverride(LineNumberColumnWidth)
			.Padding(4.0f)
			[
				MakeLineNumberColumn(Hunks, bOld)
			]);
	};

	ChatScrollBox->AddSlot()
	.Padding(5.0f)
	[
		SNew(SBorder)
		.BorderImage(GetMenuBackground())
		.BorderBackgroundColor(DiffBackgroundColor)
		.Padding(4.0f)
		[
			SNew(SVerticalBox)
			+ SVerticalBox::Slot()
			.AutoHeight()
			.Padding(FMargin(0.0f, 0.0f, 0.0f, 4.0f))
			[
				SNew(STextBlock)
				.Text(FText::FromString(Path))
				.ColorAndOpacity(DiffPathColor)
				.Font(FCoreStyle::GetDefaultFontStyle(FTavrineInterface::BoldFontName, 10.0f))
			]
			+ SVerticalBox::Slot()
			.AutoHeight()
			[
				SNew(SHorizontalBox)
				+ SHorizontalBox::Slot().AutoWidth()[ NumberColumn(true) ]
				+ SHorizontalBox::Slot().AutoWidth()[ NumberColumn(false) ]
				+ SHorizontalBox::Slot().FillWidth(1.0f)[ InColumnBorder(MakeDiffTextColumn(Hunks)) ]
			]
		]
	];

	FTavrineInterface& Interface = FTavrineInterface::Get();
	const FString LogPath = Interface.GetPromptLogFilePath();
	Interface.TavrineInterfaceLogString(Path, LogPath, true);
	Interface.TavrineInterfaceLogString(New, LogPath, true);
	if (!bUserScrolled)
	{
		ChatScrollBox->ScrollToEnd();
	}
}

TSharedRef<SWidget> STavrineWidget::MakeDiffTextColumn(const TArray<FDiffHunk>& Hunks) const
{
	return MakeDiffColumn(Hunks, TEXT("  \u22EF"), [](const FDiffLine& Line) -> TSharedRef<SWidget>
	{
		const bool bAdded = Line.Type == FDiffLine::Added;
		const bool bRemoved = Line.Type == FDiffLine::Removed;
		const FLinearColor Background = bAdded ? AddedBackgroundColor : bRemoved ? RemovedBackgroundColor : FLinearColor::Transparent;
		const FLinearColor TextColor = bAdded ? AddedTextColor : bRemoved ? RemovedTextColor : FLinearColor::White;
		const TCHAR* Prefix = bAdded ? TEXT("+ ") : bRemoved ? TEXT("- ") : TEXT("  ");
		return MakeDiffRow(Background,
			SNew(SHorizontalBox)
			+ SHorizontalBox::Slot()
			.AutoWidth()
			[
				SNew(STextBlock).Text(FText::FromString(Prefix)).Font(GetDiffFont()).ColorAndOpacity(TextColor)
			]
			+ SHorizontalBox::Slot()
			.FillWidth(1.0f)
			[
				SNew(STextBlock).Text(FText::FromString(Line.Text)).Font(GetDiffFont()).ColorAndOpacity(TextColor)
			]);
	});
}

TSharedRef<SWidget> STavrineWidget::MakeLineNumberColumn(const TArray<FDiffHunk>& Hunks, bool bOld) const
{
	return MakeDiffColumn(Hunks, FString(), [bOld](const FDiffLine& Line) -> TSharedRef<SWidget>
	{
		// A line has a number on the side it belongs to: the old side for all but added lines, the new side for all but removed ones.
		const int32 OtherSide = bOld ? FDiffLine::Added : FDiffLine::Removed;
		const bool bShown = Line.Type != OtherSide;
		const bool bHighlighted = Line.Type == (bOld ? FDiffLine::Removed : FDiffLine::Added);
		const FLinearColor Background = !bHighlighted ? FLinearColor::Transparent : bOld ? RemovedBackgroundColor : AddedBackgroundColor;
		const int32 Number = bOld ? Line.OldLineNumber : Line.NewLineNumber;
		return MakeDiffRow(Background,
			SNew(STextBlock)
			.Text(bShown ? FText::FromString(FString::FromInt(Number)) : FText::GetEmpty())
			.Font(GetDiffFont())
			.ColorAndOpacity(DiffPathColor));
	});
}
