#pragma once

#include "CoreMinimal.h"
#include "ToolMenuSection.h"

/** A menu or tool bar, by name ("LevelEditor.MainMenu.Window"); its sections hold the entries. */
class UToolMenu
{
public:
	explicit UToolMenu(FName InMenuName)
		: MenuName(InMenuName)
	{
	}

	TOOLMENUS_API FToolMenuSection& FindOrAddSection(const FName SectionName);
	/** The label and position apply only when the section is made here. */
	TOOLMENUS_API FToolMenuSection& FindOrAddSection(const FName SectionName, const TAttribute<FText>& InLabel, const FToolMenuInsert InPosition = FToolMenuInsert());
	TOOLMENUS_API FToolMenuSection& AddSection(const FName SectionName, const TAttribute<FText>& InLabel = TAttribute<FText>(), const FToolMenuInsert InPosition = FToolMenuInsert());
	TOOLMENUS_API FToolMenuSection* FindSection(const FName SectionName);
	TOOLMENUS_API void AddMenuEntry(const FName SectionName, const FToolMenuEntry& Args);
	TOOLMENUS_API void RemoveSection(const FName SectionName);
	FName GetMenuName() const
	{
		return MenuName;
	}
	int32 NumSections() const
	{
		return Sections.Num();
	}
	FToolMenuSection& GetSection(int32 Index)
	{
		return *Sections[Index];
	}

private:
	FName MenuName;
	TArray<TSharedRef<FToolMenuSection>> Sections;
};
