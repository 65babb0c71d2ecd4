// The editor's menus and tool bars, extended by name.
#pragma once

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"
#include "ToolMenu.h"
#include "ToolMenuEntry.h"
#include "ToolMenuOwner.h"
#include "ToolMenuSection.h"

class UToolMenus
{
public:
	static TOOLMENUS_API UToolMenus* Get();
	static TOOLMENUS_API UToolMenus* TryGet();
	static TOOLMENUS_API bool IsToolMenuUIEnabled();

	/** Runs the callback once the menus are ready: at once when they are, else when they become so. */
	static TOOLMENUS_API FDelegateHandle RegisterStartupCallback(const FSimpleMulticastDelegate::FDelegate& InDelegate);
	static TOOLMENUS_API void UnRegisterStartupCallback(FDelegateHandle InHandle);
	static TOOLMENUS_API void UnRegisterStartupCallback(const void* UserPointer);
	/** Removes every entry that owner added, in every menu. */
	static TOOLMENUS_API void UnregisterOwner(FToolMenuOwner Owner);
	static TOOLMENUS_API void UnregisterOwnerByName(FName InOwnerName);

	/** The menu of that name, made empty if it doesn't exist yet; never null. */
	TOOLMENUS_API UToolMenu* ExtendMenu(const FName Name);
	TOOLMENUS_API UToolMenu* RegisterMenu(const FName Name);
	TOOLMENUS_API UToolMenu* FindMenu(const FName Name);
	TOOLMENUS_API bool IsMenuRegistered(const FName Name) const;
	TOOLMENUS_API void AddEntry(const FName MenuName, const FName SectionName, const FToolMenuEntry& Entry);
	void RefreshAllWidgets()
	{
	}

	/** The owner of the entries added in the current scope (see FToolMenuOwnerScoped). */
	TOOLMENUS_API FToolMenuOwner CurrentOwner() const;
	TOOLMENUS_API void PushOwner(const FToolMenuOwner InOwner);
	TOOLMENUS_API void PopOwner(const FToolMenuOwner InOwner);

	// ---- Stand-in only ----------------------------------------------------------------------------------
	/** The editor's UI is up: runs the waiting startup callbacks, and later ones at once. */
	static TOOLMENUS_API void StandInSetMenusReady(bool bReady = true);
	static TOOLMENUS_API int32 GetStandInStartupCallbackCount();
	/** The menus, in the order they were first named. */
	TOOLMENUS_API TArray<UToolMenu*> GetStandInMenus();
	/** Entries in all menus; zero once every owner has unregistered. */
	TOOLMENUS_API int32 GetStandInEntryCount() const;

private:
	TArray<TSharedRef<UToolMenu>> Menus;
	TArray<FToolMenuOwner> OwnerStack;
};

/** Entries added while this lives belong to the owner. */
struct FToolMenuOwnerScoped
{
	FToolMenuOwnerScoped(const FToolMenuOwner InOwner)
		: Owner(InOwner)
	{
		UToolMenus::Get()->PushOwner(InOwner);
	}
	~FToolMenuOwnerScoped()
	{
		UToolMenus::Get()->PopOwner(Owner);
	}
	FToolMenuOwner GetOwner() const
	{
		return Owner;
	}

private:
	FToolMenuOwner Owner;
};
