#include "Framework/Commands/Commands.h"
#include "Framework/Commands/UICommandList.h"

void FUICommandInfo::MakeCommandInfo(const TSharedRef<FBindingContext>& InContext, TSharedPtr<FUICommandInfo>& OutCommand, const FName InCommandName,
	const FText& InCommandLabel, const FText& InCommandDesc, const FSlateIcon& InIcon, const EUserInterfaceActionType InUserInterfaceType,
	const FInputChord& InDefaultChord, const FInputChord& InAlternateDefaultChord)
{
	OutCommand = MakeShared<FUICommandInfo>(InContext->GetContextName());
	OutCommand->CommandName = InCommandName;
	OutCommand->Label = InCommandLabel;
	OutCommand->Description = InCommandDesc;
	OutCommand->Icon = InIcon;
	OutCommand->UserInterfaceType = InUserInterfaceType;
	OutCommand->DefaultChords[0] = InDefaultChord;
	OutCommand->DefaultChords[1] = InAlternateDefaultChord;
}

void MakeUICommand_InternalUseOnly(FBindingContext* This, TSharedPtr<FUICommandInfo>& OutCommand, const TCHAR* InSubNamespace, const TCHAR* InCommandName,
	const TCHAR* InCommandNameUnderscoreTooltip, const ANSICHAR* DotCommandName, const TCHAR* FriendlyName, const TCHAR* InDescription,
	const EUserInterfaceActionType CommandType, const FInputChord& InDefaultChord, const FInputChord& InAlternateDefaultChord)
{
	// The texts are localisable: the namespace is the file's, qualified by the context, as the engine keys them.
	const FString Namespace = FString(InSubNamespace).IsEmpty() ? FString(TEXT("UICommands")) : FString(TEXT("UICommands.")) + InSubNamespace;
	const FText Label = FText::FromLiteral(FriendlyName, *Namespace, InCommandName);
	const FText Description = FText::FromLiteral(InDescription, *Namespace, InCommandNameUnderscoreTooltip);
	const FName ContextName = This->GetContextName();
	const FSlateIcon Icon(This->GetStyleSetName(), FName(*(ContextName.ToString() + FString(DotCommandName))));
	FUICommandInfo::MakeCommandInfo(This->AsShared(), OutCommand, InCommandName, Label, Description, Icon, CommandType, InDefaultChord, InAlternateDefaultChord);
}

void FUICommandList::MapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo, const FUIAction& InUIAction)
{
	if (!InUICommandInfo.IsValid())
	{
		return;
	}
	UnmapAction(InUICommandInfo);
	Actions.Add(TPair<TSharedPtr<const FUICommandInfo>, FUIAction>(InUICommandInfo, InUIAction));
}

void FUICommandList::MapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo, FExecuteAction ExecuteAction, EUIActionRepeatMode RepeatMode)
{
	MapAction(InUICommandInfo, FUIAction(ExecuteAction, RepeatMode));
}

void FUICommandList::MapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo, FExecuteAction ExecuteAction, FCanExecuteAction CanExecuteAction,
	EUIActionRepeatMode RepeatMode)
{
	MapAction(InUICommandInfo, FUIAction(ExecuteAction, CanExecuteAction, RepeatMode));
}

void FUICommandList::UnmapAction(const TSharedPtr<const FUICommandInfo> InUICommandInfo)
{
	Actions.RemoveAll([&InUICommandInfo](const TPair<TSharedPtr<const FUICommandInfo>, FUIAction>& Pair) { return Pair.Key.Get() == InUICommandInfo.Get(); });
}

const FUIAction* FUICommandList::GetActionForCommand(TSharedPtr<const FUICommandInfo> Command) const
{
	for (const TPair<TSharedPtr<const FUICommandInfo>, FUIAction>& Pair : Actions)
	{
		if (Pair.Key.Get() == Command.Get())
		{
			return &Pair.Value;
		}
	}
	for (const TSharedRef<FUICommandList>& Appended : AppendedLists)
	{
		if (const FUIAction* Found = Appended->GetActionForCommand(Command))
		{
			return Found;
		}
	}
	return nullptr;
}

bool FUICommandList::IsActionMapped(const TSharedPtr<const FUICommandInfo> InUICommandInfo) const
{
	return GetActionForCommand(InUICommandInfo) != nullptr;
}

bool FUICommandList::ExecuteAction(const TSharedRef<const FUICommandInfo> InUICommandInfo) const
{
	const FUIAction* Action = GetActionForCommand(InUICommandInfo.ToSharedPtr());
	return Action && Action->Execute();
}

bool FUICommandList::TryExecuteAction(const TSharedRef<const FUICommandInfo> InUICommandInfo) const
{
	return ExecuteAction(InUICommandInfo);
}

bool FUICommandList::CanExecuteAction(const TSharedRef<const FUICommandInfo> InUICommandInfo) const
{
	const FUIAction* Action = GetActionForCommand(InUICommandInfo.ToSharedPtr());
	return Action && Action->CanExecute();
}

void FUICommandList::Append(const TSharedRef<FUICommandList>& InCommandsToAppend)
{
	AppendedLists.Add(InCommandsToAppend);
}
