#include "ToolMenus.h"

namespace
{
	struct FStartupCallback
	{
		FSimpleMulticastDelegate::FDelegate Delegate;
		FDelegateHandle Handle;
	};

	struct FStartupState
	{
		bool bMenusReady = false;
		TArray<FStartupCallback> Waiting;
		// Kept after they ran, so that UnRegisterStartupCallback has something to remove, as in the engine.
		TArray<FStartupCallback> Registered;
	};

	FStartupState& StartupState()
	{
		static FStartupState State;
		return State;
	}
}

// ---- Entries ---------------------------------------------------------------------------------------------

FToolMenuEntry FToolMenuEntry::InitMenuEntry(const TSharedPtr<const FUICommandInfo>& InCommand, const TAttribute<FText>& InLabelOverride,
	const TAttribute<FText>& InToolTipOverride, const TAttribute<FSlateIcon>& InIconOverride, const FName InTutorialHighlightName, const TOptional<FName> InNameOverride)
{
	FToolMenuEntry Entry;
	Entry.Type = EMultiBlockType::MenuEntry;
	Entry.Command = InCommand;
	Entry.Name = InNameOverride.IsSet() ? InNameOverride.GetValue() : (InCommand.IsValid() ? InCommand->GetCommandName() : NAME_None);
	Entry.Label = InLabelOverride;
	Entry.ToolTip = InToolTipOverride;
	Entry.Icon = InIconOverride;
	Entry.TutorialHighlightName = InTutorialHighlightName;
	return Entry;
}

FToolMenuEntry FToolMenuEntry::InitMenuEntry(const FName InName, const TAttribute<FText>& InLabel, const TAttribute<FText>& InToolTip,
	const TAttribute<FSlateIcon>& InIcon, const FToolUIActionChoice& InAction, const EUserInterfaceActionType UserInterfaceActionType, const FName InTutorialHighlightName)
{
	FToolMenuEntry Entry;
	Entry.Type = EMultiBlockType::MenuEntry;
	Entry.Name = InName;
	Entry.Label = InLabel;
	Entry.ToolTip = InToolTip;
	Entry.Icon = InIcon;
	Entry.Action = InAction;
	Entry.UserInterfaceActionType = UserInterfaceActionType;
	Entry.TutorialHighlightName = InTutorialHighlightName;
	return Entry;
}

FToolMenuEntry FToolMenuEntry::InitMenuEntryWithCommandList(const TSharedPtr<const FUICommandInfo>& InCommand, const TSharedPtr<const FUICommandList>& InCommandList,
	const TAttribute<FText>& InLabelOverride, const TAttribute<FText>& InToolTipOverride, const TAttribute<FSlateIcon>& InIconOverride,
	const FName InTutorialHighlightName, const TOptional<FName> InNameOverride)
{
	FToolMenuEntry Entry = InitMenuEntry(InCommand, InLabelOverride, InToolTipOverride, InIconOverride, InTutorialHighlightName, InNameOverride);
	Entry.SetCommandList(InCommandList);
	return Entry;
}

FToolMenuEntry FToolMenuEntry::InitToolBarButton(const TSharedPtr<const FUICommandInfo>& InCommand, const TAttribute<FText>& InLabelOverride,
	const TAttribute<FText>& InToolTipOverride, const TAttribute<FSlateIcon>& InIconOverride, FName InTutorialHighlightName, const TOptional<FName> InNameOverride)
{
	FToolMenuEntry Entry = InitMenuEntry(InCommand, InLabelOverride, InToolTipOverride, InIconOverride, InTutorialHighlightName, InNameOverride);
	Entry.Type = EMultiBlockType::ToolBarButton;
	return Entry;
}

FToolMenuEntry FToolMenuEntry::InitToolBarButton(const FName InName, const FToolUIActionChoice& InAction, const TAttribute<FText>& InLabel,
	const TAttribute<FText>& InToolTip, const TAttribute<FSlateIcon>& InIcon, const EUserInterfaceActionType UserInterfaceActionType, FName InTutorialHighlightName)
{
	FToolMenuEntry Entry = InitMenuEntry(InName, InLabel, InToolTip, InIcon, InAction, UserInterfaceActionType, InTutorialHighlightName);
	Entry.Type = EMultiBlockType::ToolBarButton;
	return Entry;
}

FToolMenuEntry FToolMenuEntry::InitSeparator(const FName InName)
{
	FToolMenuEntry Entry;
	Entry.Type = EMultiBlockType::Separator;
	Entry.Name = InName;
	return Entry;
}

FText FToolMenuEntry::GetDisplayLabel() const
{
	if (Label.IsSet())
	{
		return Label.Get();
	}
	return Command.IsValid() ? Command->GetLabel() : FText::FromName(Name);
}

FText FToolMenuEntry::GetDisplayToolTip() const
{
	if (ToolTip.IsSet())
	{
		return ToolTip.Get();
	}
	return Command.IsValid() ? Command->GetDescription() : FText::GetEmpty();
}

FSlateIcon FToolMenuEntry::GetDisplayIcon() const
{
	if (Icon.IsSet())
	{
		return Icon.Get();
	}
	return Command.IsValid() ? Command->GetIcon() : FSlateIcon();
}

bool FToolMenuEntry::Execute() const
{
	if (Command.IsValid())
	{
		return CommandList.IsValid() && CommandList->ExecuteAction(Command.ToSharedRef());
	}
	return Action.Action.Execute();
}

// ---- Sections and menus ----------------------------------------------------------------------------------

FToolMenuEntry& FToolMenuSection::AddEntry(const FToolMenuEntry& Args)
{
	TSharedRef<FToolMenuEntry> Entry = MakeShared<FToolMenuEntry>(Args);
	if (!Entry->Owner.IsSet())
	{
		Entry->Owner = UToolMenus::Get()->CurrentOwner();
	}
	// An entry of the same name replaces the old one, in its place.
	for (TSharedRef<FToolMenuEntry>& Existing : Blocks)
	{
		if (!Entry->Name.IsNone() && Existing->Name == Entry->Name)
		{
			Existing = Entry;
			return Entry.Get();
		}
	}
	Blocks.Add(Entry);
	return Entry.Get();
}

FToolMenuEntry& FToolMenuSection::AddMenuEntry(const TSharedPtr<const FUICommandInfo>& InCommand, const TAttribute<FText>& InLabelOverride,
	const TAttribute<FText>& InToolTipOverride, const TAttribute<FSlateIcon>& InIconOverride, const FName InTutorialHighlightName, const TOptional<FName> InNameOverride)
{
	return AddEntry(FToolMenuEntry::InitMenuEntry(InCommand, InLabelOverride, InToolTipOverride, InIconOverride, InTutorialHighlightName, InNameOverride));
}

FToolMenuEntry& FToolMenuSection::AddMenuEntry(const FName InName, const TAttribute<FText>& InLabel, const TAttribute<FText>& InToolTip,
	const TAttribute<FSlateIcon>& InIcon, const FToolUIActionChoice& InAction, const EUserInterfaceActionType UserInterfaceActionType, const FName InTutorialHighlightName)
{
	return AddEntry(FToolMenuEntry::InitMenuEntry(InName, InLabel, InToolTip, InIcon, InAction, UserInterfaceActionType, InTutorialHighlightName));
}

FToolMenuEntry& FToolMenuSection::AddMenuEntryWithCommandList(const TSharedPtr<const FUICommandInfo>& InCommand, const TSharedPtr<const FUICommandList>& InCommandList,
	const TAttribute<FText>& InLabelOverride, const TAttribute<FText>& InToolTipOverride, const TAttribute<FSlateIcon>& InIconOverride,
	const FName InTutorialHighlightName, const TOptional<FName> InNameOverride)
{
	return AddEntry(FToolMenuEntry::InitMenuEntryWithCommandList(InCommand, InCommandList, InLabelOverride, InToolTipOverride, InIconOverride, InTutorialHighlightName, InNameOverride));
}

FToolMenuEntry& FToolMenuSection::AddSeparator(const FName InName)
{
	return AddEntry(FToolMenuEntry::InitSeparator(InName));
}

FToolMenuEntry* FToolMenuSection::FindEntry(const FName InName)
{
	for (const TSharedRef<FToolMenuEntry>& Entry : Blocks)
	{
		if (Entry->Name == InName)
		{
			return &Entry.Get();
		}
	}
	return nullptr;
}

int32 FToolMenuSection::RemoveEntriesByOwner(const FToolMenuOwner InOwner)
{
	return Blocks.RemoveAll([&InOwner](const TSharedRef<FToolMenuEntry>& Entry) { return Entry->Owner == InOwner; });
}

FToolMenuSection& UToolMenu::FindOrAddSection(const FName SectionName)
{
	return FindOrAddSection(SectionName, TAttribute<FText>());
}

FToolMenuSection& UToolMenu::FindOrAddSection(const FName SectionName, const TAttribute<FText>& InLabel, const FToolMenuInsert InPosition)
{
	if (FToolMenuSection* Found = FindSection(SectionName))
	{
		return *Found;
	}
	return AddSection(SectionName, InLabel, InPosition);
}

FToolMenuSection& UToolMenu::AddSection(const FName SectionName, const TAttribute<FText>& InLabel, const FToolMenuInsert InPosition)
{
	if (FToolMenuSection* Found = FindSection(SectionName))
	{
		Found->Label = InLabel;
		return *Found;
	}
	TSharedRef<FToolMenuSection> Section = MakeShared<FToolMenuSection>();
	Section->Name = SectionName;
	Section->Label = InLabel;
	Section->Owner = UToolMenus::Get()->CurrentOwner();
	Sections.Add(Section);
	return Section.Get();
}

FToolMenuSection* UToolMenu::FindSection(const FName SectionName)
{
	for (const TSharedRef<FToolMenuSection>& Section : Sections)
	{
		if (Section->Name == SectionName)
		{
			return &Section.Get();
		}
	}
	return nullptr;
}

void UToolMenu::AddMenuEntry(const FName SectionName, const FToolMenuEntry& Args)
{
	FindOrAddSection(SectionName).AddEntry(Args);
}

void UToolMenu::RemoveSection(const FName SectionName)
{
	Sections.RemoveAll([SectionName](const TSharedRef<FToolMenuSection>& Section) { return Section->Name == SectionName; });
}

// ---- UToolMenus ------------------------------------------------------------------------------------------

UToolMenus* UToolMenus::Get()
{
	static UToolMenus Instance;
	return &Instance;
}

UToolMenus* UToolMenus::TryGet()
{
	return Get();
}

bool UToolMenus::IsToolMenuUIEnabled()
{
	return StartupState().bMenusReady;
}

FDelegateHandle UToolMenus::RegisterStartupCallback(const FSimpleMulticastDelegate::FDelegate& InDelegate)
{
	FStartupState& State = StartupState();
	FStartupCallback Callback{InDelegate, FDelegateHandle(FDelegateHandle::GenerateNewHandle)};
	State.Registered.Add(Callback);
	if (State.bMenusReady)
	{
		InDelegate.ExecuteIfBound();
	}
	else
	{
		State.Waiting.Add(Callback);
	}
	return Callback.Handle;
}

void UToolMenus::UnRegisterStartupCallback(FDelegateHandle InHandle)
{
	FStartupState& State = StartupState();
	auto Matches = [&InHandle](const FStartupCallback& Callback) { return Callback.Handle == InHandle; };
	State.Waiting.RemoveAll(Matches);
	State.Registered.RemoveAll(Matches);
}

void UToolMenus::UnRegisterStartupCallback(const void* UserPointer)
{
	FStartupState& State = StartupState();
	auto Matches = [UserPointer](const FStartupCallback& Callback) { return Callback.Delegate.IsBoundToObject(UserPointer); };
	State.Waiting.RemoveAll(Matches);
	State.Registered.RemoveAll(Matches);
}

void UToolMenus::UnregisterOwner(FToolMenuOwner Owner)
{
	// Entries added outside an owner's scope belong to nobody; nobody can take them away.
	if (!Owner.IsSet())
	{
		return;
	}
	for (const TSharedRef<UToolMenu>& Menu : Get()->Menus)
	{
		for (int32 Index = 0; Index < Menu->NumSections(); ++Index)
		{
			Menu->GetSection(Index).RemoveEntriesByOwner(Owner);
		}
	}
}

void UToolMenus::UnregisterOwnerByName(FName InOwnerName)
{
	UnregisterOwner(FToolMenuOwner(InOwnerName));
}

UToolMenu* UToolMenus::ExtendMenu(const FName Name)
{
	if (UToolMenu* Found = FindMenu(Name))
	{
		return Found;
	}
	TSharedRef<UToolMenu> Menu = MakeShared<UToolMenu>(Name);
	Menus.Add(Menu);
	return &Menu.Get();
}

UToolMenu* UToolMenus::RegisterMenu(const FName Name)
{
	return ExtendMenu(Name);
}

UToolMenu* UToolMenus::FindMenu(const FName Name)
{
	for (const TSharedRef<UToolMenu>& Menu : Menus)
	{
		if (Menu->GetMenuName() == Name)
		{
			return &Menu.Get();
		}
	}
	return nullptr;
}

bool UToolMenus::IsMenuRegistered(const FName Name) const
{
	return Menus.ContainsByPredicate([Name](const TSharedRef<UToolMenu>& Menu) { return Menu->GetMenuName() == Name; });
}

void UToolMenus::AddEntry(const FName MenuName, const FName SectionName, const FToolMenuEntry& Entry)
{
	ExtendMenu(MenuName)->AddMenuEntry(SectionName, Entry);
}

FToolMenuOwner UToolMenus::CurrentOwner() const
{
	return OwnerStack.Num() > 0 ? OwnerStack.Last() : FToolMenuOwner();
}

void UToolMenus::PushOwner(const FToolMenuOwner InOwner)
{
	OwnerStack.Add(InOwner);
}

void UToolMenus::PopOwner(const FToolMenuOwner InOwner)
{
	if (OwnerStack.Num() > 0 && OwnerStack.Last() == InOwner)
	{
		OwnerStack.Pop();
	}
}

void UToolMenus::StandInSetMenusReady(bool bReady)
{
	FStartupState& State = StartupState();
	State.bMenusReady = bReady;
	if (!bReady)
	{
		return;
	}
	// A callback may register another: take the list first.
	TArray<FStartupCallback> ToRun = MoveTemp(State.Waiting);
	State.Waiting.Empty();
	for (const FStartupCallback& Callback : ToRun)
	{
		Callback.Delegate.ExecuteIfBound();
	}
}

int32 UToolMenus::GetStandInStartupCallbackCount()
{
	return StartupState().Registered.Num();
}

TArray<UToolMenu*> UToolMenus::GetStandInMenus()
{
	TArray<UToolMenu*> Result;
	for (const TSharedRef<UToolMenu>& Menu : Menus)
	{
		Result.Add(&Menu.Get());
	}
	return Result;
}

int32 UToolMenus::GetStandInEntryCount() const
{
	int32 Count = 0;
	for (const TSharedRef<UToolMenu>& Menu : Menus)
	{
		for (int32 Index = 0; Index < Menu->NumSections(); ++Index)
		{
			Count += Menu->GetSection(Index).NumEntries();
		}
	}
	return Count;
}
