#pragma once

#include "CoreMinimal.h"
#include "Framework/Commands/UIAction.h"
#include "Framework/Commands/UICommandInfo.h"
#include "Framework/Commands/UICommandList.h"
#include "Misc/Attribute.h"
#include "Textures/SlateIcon.h"
#include "ToolMenuOwner.h"

enum class EMultiBlockType : uint8
{
	None,
	ButtonRow,
	ToolBarButton,
	ToolBarComboButton,
	ToolBarSeparator,
	Heading,
	MenuEntry,
	Separator,
	Widget
};

/** An action the entry runs: a plain action, or a command through a command list. */
struct FToolUIActionChoice
{
	FToolUIActionChoice() = default;
	FToolUIActionChoice(const FUIAction& InAction)
		: Action(InAction)
	{
	}
	FToolUIActionChoice(const FExecuteAction& InExecuteAction)
		: Action(InExecuteAction)
	{
	}
	FUIAction Action;
};

/** One entry of a menu or a tool bar. */
struct FToolMenuEntry
{
	FToolMenuEntry() = default;

	static TOOLMENUS_API FToolMenuEntry InitMenuEntry(const TSharedPtr<const FUICommandInfo>& InCommand, const TAttribute<FText>& InLabelOverride = TAttribute<FText>(),
		const TAttribute<FText>& InToolTipOverride = TAttribute<FText>(), const TAttribute<FSlateIcon>& InIconOverride = TAttribute<FSlateIcon>(),
		const FName InTutorialHighlightName = NAME_None, const TOptional<FName> InNameOverride = TOptional<FName>());
	static TOOLMENUS_API FToolMenuEntry InitMenuEntry(const FName InName, const TAttribute<FText>& InLabel, const TAttribute<FText>& InToolTip,
		const TAttribute<FSlateIcon>& InIcon, const FToolUIActionChoice& InAction, const EUserInterfaceActionType UserInterfaceActionType = EUserInterfaceActionType::Button,
		const FName InTutorialHighlightName = NAME_None);
	static TOOLMENUS_API FToolMenuEntry InitMenuEntryWithCommandList(const TSharedPtr<const FUICommandInfo>& InCommand, const TSharedPtr<const FUICommandList>& InCommandList,
		const TAttribute<FText>& InLabelOverride = TAttribute<FText>(), const TAttribute<FText>& InToolTipOverride = TAttribute<FText>(),
		const TAttribute<FSlateIcon>& InIconOverride = TAttribute<FSlateIcon>(), const FName InTutorialHighlightName = NAME_None,
		const TOptional<FName> InNameOverride = TOptional<FName>());
	static TOOLMENUS_API FToolMenuEntry InitToolBarButton(const TSharedPtr<const FUICommandInfo>& InCommand, const TAttribute<FText>& InLabelOverride = TAttribute<FText>(),
		const TAttribute<FText>& InToolTipOverride = TAttribute<FText>(), const TAttribute<FSlateIcon>& InIconOverride = TAttribute<FSlateIcon>(),
		FName InTutorialHighlightName = NAME_None, const TOptional<FName> InNameOverride = TOptional<FName>());
	static TOOLMENUS_API FToolMenuEntry InitToolBarButton(const FName InName, const FToolUIActionChoice& InAction, const TAttribute<FText>& InLabel = TAttribute<FText>(),
		const TAttribute<FText>& InToolTip = TAttribute<FText>(), const TAttribute<FSlateIcon>& InIcon = TAttribute<FSlateIcon>(),
		const EUserInterfaceActionType UserInterfaceActionType = EUserInterfaceActionType::Button, FName InTutorialHighlightName = NAME_None);
	static TOOLMENUS_API FToolMenuEntry InitSeparator(const FName InName);

	void SetCommandList(const TSharedPtr<const FUICommandList>& InCommandList)
	{
		CommandList = InCommandList;
	}
	const TSharedPtr<const FUICommandInfo>& GetCommand() const
	{
		return Command;
	}
	const TSharedPtr<const FUICommandList>& GetCommandList() const
	{
		return CommandList;
	}
	/** The label shown: the override, else the command's label. */
	TOOLMENUS_API FText GetDisplayLabel() const;
	TOOLMENUS_API FText GetDisplayToolTip() const;
	TOOLMENUS_API FSlateIcon GetDisplayIcon() const;
	/** Runs the entry's action (through its command list for a command); gives whether it ran. */
	TOOLMENUS_API bool Execute() const;

	FName Name;
	FToolMenuOwner Owner;
	EMultiBlockType Type = EMultiBlockType::None;
	EUserInterfaceActionType UserInterfaceActionType = EUserInterfaceActionType::Button;
	FName TutorialHighlightName;
	TAttribute<FText> Label;
	TAttribute<FText> ToolTip;
	TAttribute<FSlateIcon> Icon;
	FToolUIActionChoice Action;

private:
	TSharedPtr<const FUICommandInfo> Command;
	TSharedPtr<const FUICommandList> CommandList;
};
