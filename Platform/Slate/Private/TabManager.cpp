#include "Framework/Docking/TabManager.h"

#include "Widgets/Docking/SDockTab.h"

DEFINE_LOG_CATEGORY_STATIC(LogTabManager, Log, All);

FTabSpawnerEntry& FTabManager::RegisterTabSpawner(const FName TabId, const FOnSpawnTab& OnSpawnTab, const FCanSpawnTab& CanSpawnTab)
{
	if (HasTabSpawner(TabId))
	{
		UE_LOG(LogTabManager, Error, TEXT("A tab spawner with the id '%s' is registered already; it is replaced"), *TabId.ToString());
		UnregisterTabSpawner(TabId);
	}
	TSharedRef<FTabSpawnerEntry> Entry = MakeShared<FTabSpawnerEntry>(TabId, OnSpawnTab, CanSpawnTab);
	TabSpawners.Add(Entry);
	return Entry.Get();
}

bool FTabManager::UnregisterTabSpawner(const FName TabId)
{
	return TabSpawners.RemoveAll([TabId](const TSharedRef<FTabSpawnerEntry>& Entry) { return Entry->TabType == TabId; }) > 0;
}

bool FTabManager::HasTabSpawner(FName TabId) const
{
	return TabSpawners.ContainsByPredicate([TabId](const TSharedRef<FTabSpawnerEntry>& Entry) { return Entry->TabType == TabId; });
}

TSharedPtr<FTabSpawnerEntry> FTabManager::FindTabSpawnerFor(FName TabId)
{
	for (const TSharedRef<FTabSpawnerEntry>& Entry : TabSpawners)
	{
		if (Entry->TabType == TabId)
		{
			return Entry;
		}
	}
	return nullptr;
}

TSharedPtr<SDockTab> FTabManager::FindExistingLiveTab(const FTabId& TabId) const
{
	for (const TSharedRef<SDockTab>& Tab : LiveTabs)
	{
		if (Tab->GetLayoutIdentifier().TabType == TabId.TabType)
		{
			return Tab;
		}
	}
	return nullptr;
}

TSharedPtr<SDockTab> FTabManager::TryInvokeTab(const FTabId& TabId, bool bInvokeAsInactive)
{
	if (TSharedPtr<SDockTab> Existing = FindExistingLiveTab(TabId))
	{
		if (!bInvokeAsInactive)
		{
			Existing->FlashTab();
		}
		return Existing;
	}
	TSharedPtr<FTabSpawnerEntry> Spawner = FindTabSpawnerFor(TabId.TabType);
	if (!Spawner.IsValid() || !Spawner->OnSpawnTab.IsBound())
	{
		UE_LOG(LogTabManager, Warning, TEXT("No tab spawner is registered for '%s'"), *TabId.ToString());
		return nullptr;
	}
	const FSpawnTabArgs Args(nullptr, TabId);
	if (Spawner->CanSpawnTab.IsBound() && !Spawner->CanSpawnTab.Execute(Args))
	{
		return nullptr;
	}
	TSharedRef<SDockTab> Tab = Spawner->OnSpawnTab.Execute(Args);
	Tab->StandInSetLayoutIdentifier(TabId);
	Tab->StandInMarkOpen(true);
	if (Tab->GetTabLabel().IsEmpty())
	{
		Tab->SetLabel(Spawner->GetDisplayName());
	}
	Spawner->SpawnedTabPtr = Tab;
	LiveTabs.Add(Tab);
	return Tab;
}

TArray<TSharedRef<SDockTab>> FTabManager::GetStandInLiveTabs() const
{
	return LiveTabs;
}

TArray<FName> FTabManager::GetStandInSpawnerIds() const
{
	TArray<FName> Ids;
	for (const TSharedRef<FTabSpawnerEntry>& Entry : TabSpawners)
	{
		Ids.Add(Entry->TabType);
	}
	return Ids;
}

void FTabManager::StandInOnTabClosed(const TSharedRef<SDockTab>& Tab)
{
	LiveTabs.RemoveAll([&Tab](const TSharedRef<SDockTab>& Live) { return &Live.Get() == &Tab.Get(); });
}

const TSharedRef<FGlobalTabmanager>& FGlobalTabmanager::Get()
{
	static const TSharedRef<FGlobalTabmanager> Instance = MakeShared<FGlobalTabmanager>();
	return Instance;
}

FTabSpawnerEntry& FGlobalTabmanager::RegisterNomadTabSpawner(const FName TabId, const FOnSpawnTab& OnSpawnTab, const FCanSpawnTab& CanSpawnTab)
{
	return RegisterTabSpawner(TabId, OnSpawnTab, CanSpawnTab);
}

void FGlobalTabmanager::UnregisterNomadTabSpawner(const FName TabId)
{
	UnregisterTabSpawner(TabId);
}
