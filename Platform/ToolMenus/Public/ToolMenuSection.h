#pragma once

#include "CoreMinimal.h"
#include "ToolMenuEntry.h"

struct FToolMenuInsert
{
	FToolMenuInsert() = default;
	FName Name;
};

/** A named group of entries in a menu. */
struct FToolMenuSection
{
	TOOLMENUS_API FToolMenuEntry& AddEntry(const FToolMenuEntry& Args);
	TOOLMENUS_API FToolMenuEntry& AddMenuEntry(const TSharedPtr<const FUICommandInfo>& InCommand, const TAttribute<FText>& InLabelOverride = TAttribute<FText>(),
		const TAttribute<FText>& InToolTipOverride = TAttribute<FText>(), const TAttribute<FSlateIcon>& InIconOverride = TAttribute<FSlateIcon>(),
		const FName InTutorialHighlightName = NAME_None, const TOptional<FName> InNameOverride = TOptional<FName>());
	TOOLMENUS_API FToolMenuEntry& AddMenuEntry(const FName InName, const TAttribute<FText>& InLabel, const TAttribute<FText>& InToolTip,
		const TAttribute<FSlateIcon>& InIcon, const FToolUIActionChoice& InAction, const EUserInterfaceActionType UserInterfaceActionType = EUserInterfaceActionType::Button,
		const FName InTutorialHighlightName = NAME_None);
	TOOLMENUS_API FToolMenuEntry& AddMenuEntryWithCommandList(const TSharedPtr<const FUICommandInfo>& InCommand, const TSharedPtr<const FUICommandList>& InCommandList,
		const TAttribute<FText>& InLabelOverride = TAttribute<FText>(), const TAttribute<FText>& InToolTipOverride = TAttribute<FText>(),
		const TAttribute<FSlateIcon>& InIconOverride = TAttribute<FSlateIcon>(), const FName InTutorialHighlightName = NAME_None,
		const TOptional<FName> InNameOverride = TOptional<FName>());
	TOOLMENUS_API FToolMenuEntry& AddSeparator(const FName InName);
	TOOLMENUS_API FToolMenuEntry* FindEntry(const FName InName);
	/** Removes the entries of this owner; gives how many. */
	TOOLMENUS_API int32 RemoveEntriesByOwner(const FToolMenuOwner InOwner);
	int32 NumEntries() const
	{
		return Blocks.Num();
	}
	const FToolMenuEntry& GetEntry(int32 Index) const
	{
		return *Blocks[Index];
	}

	FName Name;
	TAttribute<FText> Label;
	FToolMenuOwner Owner;

private:
	// Held by pointer: AddEntry gives a reference that must outlive later additions.
	TArray<TSharedRef<FToolMenuEntry>> Blocks;
};
