#pragma once

#include "CoreMinimal.h"
#include "Framework/SlateDelegates.h"
#include "Styling/SlateTypes.h"
#include "Widgets/SCompoundWidget.h"
#include "Widgets/Text/STextBlock.h"

/** The part of a combo box that does not depend on the option type: what the stand-in's page uses. */
class SComboBoxBase : public SCompoundWidget
{
public:
	/** Labels of the options, as their generated widgets show them (the text of the first text block). */
	virtual TArray<FString> GetStandInOptionLabels() const = 0;
	/** Index of the selected option, or -1. */
	virtual int32 GetStandInSelectedIndex() const = 0;
	/** The user picked an option in the page. */
	virtual void StandInUserSelected(int32 OptionIndex) = 0;
	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

protected:
	static SLATE_API FString FindLabel(const TSharedRef<SWidget>& Widget);
};

/** A button that shows the selected option and opens the list of options. */
template<typename OptionType>
class SComboBox : public SComboBoxBase
{
public:
	using NullableOptionType = OptionType;
	DECLARE_DELEGATE_RetVal_OneParam(TSharedRef<SWidget>, FOnGenerateWidget, OptionType);
	DECLARE_DELEGATE_TwoParams(FOnSelectionChanged, OptionType, ESelectInfo::Type);
	DECLARE_DELEGATE(FOnComboBoxOpening);

	SLATE_BEGIN_ARGS(SComboBox)
		: _Content()
		, _ComboBoxStyle(nullptr)
		, _ButtonStyle(nullptr)
		, _OptionsSource(nullptr)
		, _InitiallySelectedItem()
		, _ContentPadding(FMargin(4.0f, 2.0f))
		, _HasDownArrow(true)
		, _IsFocusable(true)
		, _MaxListHeight(450.0f)
		{}
		SLATE_DEFAULT_SLOT(FArguments, Content)
		SLATE_STYLE_ARGUMENT(FComboBoxStyle, ComboBoxStyle)
		SLATE_STYLE_ARGUMENT(FButtonStyle, ButtonStyle)
		SLATE_ARGUMENT(const TArray<OptionType>*, OptionsSource)
		SLATE_EVENT(FOnGenerateWidget, OnGenerateWidget)
		SLATE_EVENT(FOnSelectionChanged, OnSelectionChanged)
		SLATE_EVENT(FOnComboBoxOpening, OnComboBoxOpening)
		SLATE_ARGUMENT(OptionType, InitiallySelectedItem)
		SLATE_ATTRIBUTE(FMargin, ContentPadding)
		SLATE_ARGUMENT(bool, HasDownArrow)
		SLATE_ARGUMENT(bool, IsFocusable)
		SLATE_ARGUMENT(float, MaxListHeight)
		SLATE_ATTRIBUTE(FSlateColor, ForegroundColor)
	SLATE_END_ARGS()

	void Construct(const FArguments& InArgs)
	{
		OptionsSource = InArgs._OptionsSource;
		OnGenerateWidget = InArgs._OnGenerateWidget;
		OnSelectionChanged = InArgs._OnSelectionChanged;
		SelectedItem = InArgs._InitiallySelectedItem;
		if (InArgs._ButtonStyle)
		{
			ButtonStyle = *InArgs._ButtonStyle;
		}
		else if (InArgs._ComboBoxStyle)
		{
			ButtonStyle = InArgs._ComboBoxStyle->ButtonStyle;
		}
		ChildSlot.SetPadding(InArgs._ContentPadding);
		ChildSlot[InArgs._Content.Widget];
	}

	void SetSelectedItem(OptionType InSelectedItem)
	{
		if (!(SelectedItem == InSelectedItem))
		{
			SelectedItem = InSelectedItem;
			OnSelectionChanged.ExecuteIfBound(SelectedItem, ESelectInfo::Direct);
		}
	}
	OptionType GetSelectedItem() const
	{
		return SelectedItem;
	}
	void ClearSelection()
	{
		SetSelectedItem(OptionType());
	}
	void RefreshOptions()
	{
		Invalidate(EInvalidateWidgetReason::Layout);
	}
	void SetOptionsSource(const TArray<OptionType>* InOptionsSource)
	{
		OptionsSource = InOptionsSource;
	}
	void SetOnSelectionChanged(FOnSelectionChanged InOnSelectionChanged)
	{
		OnSelectionChanged = InOnSelectionChanged;
	}
	const FButtonStyle& GetStandInButtonStyle() const
	{
		return ButtonStyle;
	}

	virtual TArray<FString> GetStandInOptionLabels() const override
	{
		TArray<FString> Labels;
		if (OptionsSource)
		{
			for (const OptionType& Option : *OptionsSource)
			{
				Labels.Add(OnGenerateWidget.IsBound() ? FindLabel(OnGenerateWidget.Execute(Option)) : FString());
			}
		}
		return Labels;
	}
	virtual int32 GetStandInSelectedIndex() const override
	{
		if (OptionsSource)
		{
			for (int32 Index = 0; Index < OptionsSource->Num(); ++Index)
			{
				if ((*OptionsSource)[Index] == SelectedItem)
				{
					return Index;
				}
			}
		}
		return -1;
	}
	virtual void StandInUserSelected(int32 OptionIndex) override
	{
		if (OptionsSource && OptionIndex >= 0 && OptionIndex < OptionsSource->Num())
		{
			SelectedItem = (*OptionsSource)[OptionIndex];
			OnSelectionChanged.ExecuteIfBound(SelectedItem, ESelectInfo::OnMouseClick);
		}
	}

private:
	const TArray<OptionType>* OptionsSource = nullptr;
	FOnGenerateWidget OnGenerateWidget;
	FOnSelectionChanged OnSelectionChanged;
	OptionType SelectedItem = OptionType();
	FButtonStyle ButtonStyle;
};
