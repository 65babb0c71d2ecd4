#pragma once

#include "CoreMinimal.h"
#include "Misc/Attribute.h"
#include "Textures/SlateIcon.h"
#include "Widgets/SWidget.h"

class SDockTab;
class FTabManager;

enum class ETabIdFlags : uint8
{
	None = 0,
	SaveLayout = 1 << 0
};

enum class ETabActivationCause : uint8
{
	UserClickedOnTab,
	SetDirectly
};

struct FTabId
{
	FTabId() = default;
	FTabId(const FName InTabType)
		: TabType(InTabType)
	{
	}
	FTabId(const FName InTabType, const int32 InInstanceId)
		: TabType(InTabType)
		, InstanceId(InInstanceId)
	{
	}
	FTabId(const FName InTabType, const ETabIdFlags InFlags)
		: TabType(InTabType)
	{
	}

	bool operator==(const FTabId& Other) const
	{
		return TabType == Other.TabType && InstanceId == Other.InstanceId;
	}
	FString ToString() const
	{
		return InstanceId == INDEX_NONE ? TabType.ToString() : FString::Printf(TEXT("%s : %d"), *TabType.ToString(), InstanceId);
	}
	FText ToText() const
	{
		return FText::FromString(ToString());
	}

	FName TabType;
	int32 InstanceId = INDEX_NONE;
};

namespace ETabSpawnerMenuType
{
	enum Type
	{
		Enabled,
		Disabled,
		Hidden
	};
}

class FSpawnTabArgs
{
public:
	FSpawnTabArgs(const TSharedPtr<SWidget>& InOwnerWindow, const FTabId& InTabBeingSpawenedId)
		: OwnerWindow(InOwnerWindow)
		, TabIdBeingSpawned(InTabBeingSpawenedId)
	{
	}
	const FTabId& GetTabId() const
	{
		return TabIdBeingSpawned;
	}
	TSharedPtr<SWidget> GetOwnerWindow() const
	{
		return OwnerWindow;
	}

private:
	TSharedPtr<SWidget> OwnerWindow;
	FTabId TabIdBeingSpawned;
};

DECLARE_DELEGATE_RetVal_OneParam(TSharedRef<SDockTab>, FOnSpawnTab, const FSpawnTabArgs&);
DECLARE_DELEGATE_RetVal_OneParam(bool, FCanSpawnTab, const FSpawnTabArgs&);

class FWorkspaceItem : public TSharedFromThis<FWorkspaceItem>
{
public:
	virtual ~FWorkspaceItem() = default;
	const FText& GetDisplayName() const
	{
		return DisplayName;
	}
	const FText& GetTooltipText() const
	{
		return TooltipText;
	}
	const FSlateIcon& GetIcon() const
	{
		return Icon;
	}

protected:
	FText DisplayName;
	FText TooltipText;
	FSlateIcon Icon;
};

struct FTabSpawnerEntry : public FWorkspaceItem
{
	FTabSpawnerEntry(const FName& InTabType, const FOnSpawnTab& InSpawnTabMethod, const FCanSpawnTab& InCanSpawnTab)
		: TabType(InTabType)
		, OnSpawnTab(InSpawnTabMethod)
		, CanSpawnTab(InCanSpawnTab)
		, MenuType(ETabSpawnerMenuType::Enabled)
	{
	}

	FTabSpawnerEntry& SetDisplayName(const FText& InLegibleName)
	{
		DisplayName = InLegibleName;
		return *this;
	}
	FTabSpawnerEntry& SetDisplayNameAttribute(const TAttribute<FText>& InLegibleName)
	{
		DisplayName = InLegibleName.Get(FText::GetEmpty());
		return *this;
	}
	FTabSpawnerEntry& SetTooltipText(const FText& InTooltipText)
	{
		TooltipText = InTooltipText;
		return *this;
	}
	FTabSpawnerEntry& SetIcon(const FSlateIcon& InIcon)
	{
		Icon = InIcon;
		return *this;
	}
	FTabSpawnerEntry& SetMenuType(const TAttribute<ETabSpawnerMenuType::Type>& InMenuType)
	{
		MenuType = InMenuType;
		return *this;
	}
	FTabSpawnerEntry& SetGroup(const TSharedRef<FWorkspaceItem>& InGroup)
	{
		return *this;
	}
	FTabSpawnerEntry& SetAutoGenerateMenuEntry(bool bInAutoGenerateMenuEntry)
	{
		return *this;
	}
	FTabSpawnerEntry& SetCanSidebarTab(bool bInCanSidebarTab)
	{
		return *this;
	}
	FName GetTabType() const
	{
		return TabType;
	}
	ETabSpawnerMenuType::Type GetMenuType() const
	{
		return MenuType.Get(ETabSpawnerMenuType::Enabled);
	}

private:
	friend class FTabManager;
	FName TabType;
	FOnSpawnTab OnSpawnTab;
	FCanSpawnTab CanSpawnTab;
	TAttribute<ETabSpawnerMenuType::Type> MenuType;
	// The tab this spawner made, while it is open: invoking again brings it to the front.
	TWeakPtr<SDockTab> SpawnedTabPtr;
};

/** Keeps the tab spawners and the open tabs. */
class FTabManager : public TSharedFromThis<FTabManager>
{
public:
	virtual ~FTabManager() = default;

	/** An id already registered is replaced, with an error in the log, as the engine's ensure reports it. */
	SLATE_API FTabSpawnerEntry& RegisterTabSpawner(const FName TabId, const FOnSpawnTab& OnSpawnTab, const FCanSpawnTab& CanSpawnTab = FCanSpawnTab());
	SLATE_API bool UnregisterTabSpawner(const FName TabId);
	SLATE_API bool HasTabSpawner(FName TabId) const;
	SLATE_API TSharedPtr<FTabSpawnerEntry> FindTabSpawnerFor(FName TabId);

	/** Opens the tab, or brings the open one to the front; null when no spawner makes it. */
	SLATE_API virtual TSharedPtr<SDockTab> TryInvokeTab(const FTabId& TabId, bool bInvokeAsInactive = false);
	SLATE_API TSharedPtr<SDockTab> FindExistingLiveTab(const FTabId& TabId) const;

	// ---- Stand-in only ----------------------------------------------------------------------------------
	/** The open tabs, in the order they were opened. */
	SLATE_API TArray<TSharedRef<SDockTab>> GetStandInLiveTabs() const;
	/** The registered spawners' ids, in the order of registration. */
	SLATE_API TArray<FName> GetStandInSpawnerIds() const;
	/** Called by a tab that closes. */
	SLATE_API void StandInOnTabClosed(const TSharedRef<SDockTab>& Tab);

protected:
	TArray<TSharedRef<FTabSpawnerEntry>> TabSpawners;
	TArray<TSharedRef<SDockTab>> LiveTabs;
};

/** The editor's tab manager, which also keeps the nomad tabs (tabs that may dock anywhere). */
class FGlobalTabmanager : public FTabManager
{
public:
	static SLATE_API const TSharedRef<FGlobalTabmanager>& Get();

	SLATE_API FTabSpawnerEntry& RegisterNomadTabSpawner(const FName TabId, const FOnSpawnTab& OnSpawnTab, const FCanSpawnTab& CanSpawnTab = FCanSpawnTab());
	SLATE_API void UnregisterNomadTabSpawner(const FName TabId);
	SLATE_API bool HasNomadTabSpawner(FName TabId) const
	{
		return HasTabSpawner(TabId);
	}
};
