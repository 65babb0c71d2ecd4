// Buttons, combo boxes and tabs.
#include "Dom/JsonObject.h"
#include "Framework/Application/SlateApplication.h"
#include "SlateStandInDescription.h"
#include "Widgets/Docking/SDockTab.h"
#include "Widgets/Input/SButton.h"
#include "Widgets/Input/SComboBox.h"
#include "Styling/CoreStyle.h"
#include "Widgets/Text/STextBlock.h"

using namespace SlateStandInDescription;

// ---- SButton ---------------------------------------------------------------------------------------------

SButton::SButton()
	: Style(FButtonStyle::GetDefault())
{
}

void SButton::Construct(const FArguments& InArgs)
{
	Style = InArgs._ButtonStyle ? *InArgs._ButtonStyle : FButtonStyle::GetDefault();
	OnClicked = InArgs._OnClicked;
	bIsFocusable = InArgs._IsFocusable;

	// Without content, the text becomes a label in the text style.
	TSharedRef<SWidget> Content = InArgs._Content.Widget;
	if (&Content.Get() == &SNullWidget::NullWidget.Get() && InArgs._Text.IsSet())
	{
		Content = SNew(STextBlock).Text(InArgs._Text).TextStyle(InArgs._TextStyle);
	}
	SBorder::Construct(SBorder::FArguments()
		.BorderImage(&Style.Normal)
		.BorderBackgroundColor(InArgs._ButtonColorAndOpacity)
		.ForegroundColor(InArgs._ForegroundColor)
		.Padding(InArgs._ContentPadding)
		.HAlign(InArgs._HAlign)
		.VAlign(InArgs._VAlign)
		[
			Content
		]);
}

FReply SButton::ExecuteOnClick()
{
	return OnClicked.IsBound() ? OnClicked.Execute() : FReply::Unhandled();
}

void SButton::SetButtonStyle(const FButtonStyle* InButtonStyle)
{
	Style = InButtonStyle ? *InButtonStyle : FButtonStyle::GetDefault();
	SetBorderImage(&Style.Normal);
}

void SButton::DescribeForStandIn(FJsonObject& Out) const
{
	SBorder::DescribeForStandIn(Out);
	Out.SetStringField(TEXT("kind"), TEXT("button"));
	Out.SetField(TEXT("normal"), Brush(&Style.Normal));
	Out.SetField(TEXT("hovered"), Brush(&Style.Hovered));
	Out.SetField(TEXT("pressed"), Brush(&Style.Pressed));
	Out.SetField(TEXT("disabled"), Brush(&Style.Disabled));
	Out.SetField(TEXT("normalForeground"), SlateColor(Style.NormalForeground));
	Out.SetField(TEXT("disabledForeground"), SlateColor(Style.DisabledForeground));
}

// ---- SComboBox -------------------------------------------------------------------------------------------

FString SComboBoxBase::FindLabel(const TSharedRef<SWidget>& Widget)
{
	if (Widget->GetType() == TEXT("STextBlock"))
	{
		return static_cast<const STextBlock&>(Widget.Get()).GetText().ToString();
	}
	FChildren* Children = Widget->GetChildren();
	for (int32 Index = 0; Children && Index < Children->Num(); ++Index)
	{
		const FString Label = FindLabel(Children->GetChildAt(Index));
		if (!Label.IsEmpty())
		{
			return Label;
		}
	}
	return FString();
}

void SComboBoxBase::DescribeForStandIn(FJsonObject& Out) const
{
	SCompoundWidget::DescribeForStandIn(Out);
	Out.SetStringField(TEXT("kind"), TEXT("combo"));
	TArray<TSharedPtr<FJsonValue>> Labels;
	for (const FString& Label : GetStandInOptionLabels())
	{
		Labels.Add(MakeShared<FJsonValueString>(Label));
	}
	Out.SetArrayField(TEXT("options"), Labels);
	Out.SetNumberField(TEXT("selected"), GetStandInSelectedIndex());
}

// ---- SDockTab --------------------------------------------------------------------------------------------

SDockTab::SDockTab() = default;

void SDockTab::Construct(const FArguments& InArgs)
{
	TabRole = InArgs._TabRole;
	TabLabel = InArgs._Label;
	TabIcon = InArgs._Icon;
	OnTabClosed = InArgs._OnTabClosed;
	OnCanCloseTab = InArgs._OnCanCloseTab;
	bCanEverClose = InArgs._CanEverClose;
	bShouldAutosize = InArgs._ShouldAutosize;
	SBorder::Construct(SBorder::FArguments()
		.BorderImage(FCoreStyle::Get().GetBrush(TEXT("Brushes.Panel")))
		.Padding(InArgs._ContentPadding)
		.ForegroundColor(InArgs._ForegroundColor.IsSet() ? InArgs._ForegroundColor : TAttribute<FSlateColor>(FSlateColor::UseForeground()))
		[
			InArgs._Content.Widget
		]);
}

bool SDockTab::CanCloseTab() const
{
	return bCanEverClose && (!OnCanCloseTab.IsBound() || OnCanCloseTab.Execute());
}

bool SDockTab::RequestCloseTab()
{
	if (!CanCloseTab())
	{
		return false;
	}
	StandInForceCloseTab();
	return true;
}

void SDockTab::StandInForceCloseTab()
{
	TSharedRef<SDockTab> Self = StaticCastSharedRef<SDockTab>(AsShared());
	bIsOpen = false;
	FGlobalTabmanager::Get()->StandInOnTabClosed(Self);
	OnTabClosed.ExecuteIfBound(Self);
}

void SDockTab::DescribeForStandIn(FJsonObject& Out) const
{
	SBorder::DescribeForStandIn(Out);
	Out.SetStringField(TEXT("kind"), TEXT("tab"));
	Out.SetStringField(TEXT("label"), GetTabLabel().ToString());
	Out.SetField(TEXT("icon"), Brush(TabIcon));
	Out.SetBoolField(TEXT("canClose"), bCanEverClose);
	Out.SetNumberField(TEXT("flashes"), FlashCount);
}
