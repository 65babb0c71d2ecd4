#pragma once

#include "CoreMinimal.h"
#include "Framework/Commands/InputChord.h"
#include "Textures/SlateIcon.h"

enum class EUserInterfaceActionType : uint8
{
	None,
	Button,
	ToggleButton,
	RadioButton,
	Check,
	CollapsedButton
};

enum class EMultipleKeyBindingIndex : uint8
{
	Primary = 0,
	Secondary,
	NumChords
};

/** A named group of commands (a commands class is one). */
class FBindingContext : public TSharedFromThis<FBindingContext>
{
public:
	FBindingContext(const FName InContextName, const FText& InContextDesc, const FName InContextParent, const FName InStyleSetName)
		: ContextName(InContextName)
		, ContextParent(InContextParent)
		, ContextDesc(InContextDesc)
		, StyleSetName(InStyleSetName)
	{
	}
	virtual ~FBindingContext() = default;

	FName GetContextName() const
	{
		return ContextName;
	}
	FName GetContextParent() const
	{
		return ContextParent;
	}
	const FText& GetContextDesc() const
	{
		return ContextDesc;
	}
	FName GetStyleSetName() const
	{
		return StyleSetName;
	}

protected:
	FName ContextName;
	FName ContextParent;
	FText ContextDesc;
	FName StyleSetName;
};

/** One command: its name, label, tooltip, icon, kind and default key. */
class FUICommandInfo
{
public:
	FUICommandInfo(const FName InBindingContext)
		: BindingContext(InBindingContext)
	{
	}

	const FText& GetLabel() const
	{
		return Label;
	}
	const FText& GetDescription() const
	{
		return Description;
	}
	const FSlateIcon& GetIcon() const
	{
		return Icon;
	}
	EUserInterfaceActionType GetUserInterfaceType() const
	{
		return UserInterfaceType;
	}
	FName GetCommandName() const
	{
		return CommandName;
	}
	FName GetBindingContext() const
	{
		return BindingContext;
	}
	const FInputChord& GetDefaultChord(const EMultipleKeyBindingIndex InChordIndex) const
	{
		return DefaultChords[static_cast<int32>(InChordIndex)];
	}
	bool HasDefaultChord(const FInputChord& InChord) const
	{
		return DefaultChords[0] == InChord || DefaultChords[1] == InChord;
	}

	static SLATE_API void MakeCommandInfo(const TSharedRef<FBindingContext>& InContext, TSharedPtr<FUICommandInfo>& OutCommand, const FName InCommandName,
		const FText& InCommandLabel, const FText& InCommandDesc, const FSlateIcon& InIcon, const EUserInterfaceActionType InUserInterfaceType,
		const FInputChord& InDefaultChord, const FInputChord& InAlternateDefaultChord = FInputChord());

private:
	FName BindingContext;
	FName CommandName;
	FText Label;
	FText Description;
	FSlateIcon Icon;
	EUserInterfaceActionType UserInterfaceType = EUserInterfaceActionType::Button;
	FInputChord DefaultChords[2];
};
