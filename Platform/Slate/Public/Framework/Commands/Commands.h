#pragma once

#include "CoreMinimal.h"
#include "Framework/Commands/InputChord.h"
#include "Framework/Commands/UICommandInfo.h"

/** Used by UI_COMMAND; makes the command with its localisable label and tooltip. */
SLATE_API void MakeUICommand_InternalUseOnly(FBindingContext* This, TSharedPtr<FUICommandInfo>& OutCommand, const TCHAR* InSubNamespace,
	const TCHAR* InCommandName, const TCHAR* InCommandNameUnderscoreTooltip, const ANSICHAR* DotCommandName, const TCHAR* FriendlyName,
	const TCHAR* InDescription, const EUserInterfaceActionType CommandType, const FInputChord& InDefaultChord,
	const FInputChord& InAlternateDefaultChord = FInputChord());

#define UI_COMMAND(CommandId, FriendlyName, InDescription, CommandType, InDefaultChord, ...) \
	MakeUICommand_InternalUseOnly(this, CommandId, TEXT(LOCTEXT_NAMESPACE), TEXT(#CommandId), TEXT(#CommandId) TEXT("_ToolTip"), "." #CommandId, \
		TEXT(FriendlyName), TEXT(InDescription), CommandType, InDefaultChord, ##__VA_ARGS__);

/** A commands class: a singleton binding context that Register makes and Unregister drops. */
template<typename CommandContextType>
class TCommands : public FBindingContext
{
public:
	TCommands(const FName InContextName, const FText& InContextDesc, const FName InContextParent, const FName InStyleSetName)
		: FBindingContext(InContextName, InContextDesc, InContextParent, InStyleSetName)
	{
	}

	static void Register()
	{
		if (!Instance.IsValid())
		{
			Instance = MakeShared<CommandContextType>();
			Instance->RegisterCommands();
		}
	}
	static void Unregister()
	{
		Instance.Reset();
	}
	static const CommandContextType& Get()
	{
		check(Instance.IsValid());
		return *Instance;
	}
	static bool IsRegistered()
	{
		return Instance.IsValid();
	}

	virtual void RegisterCommands() = 0;

private:
	static inline TSharedPtr<CommandContextType> Instance;
};
