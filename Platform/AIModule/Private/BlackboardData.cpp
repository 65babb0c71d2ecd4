#include "BehaviorTree/BlackboardData.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType.h"

bool UBlackboardData::IsChildOf(const UBlackboardData& OtherAsset) const
{
	// A chain of parents that loops back is cut by the visit count, so a bad asset can't hang the editor.
	int32 Steps = 0;
	for (const UBlackboardData* Asset = this; Asset != nullptr && Steps < 1024; Asset = Asset->Parent, ++Steps)
	{
		if (Asset == &OtherAsset)
		{
			return true;
		}
	}
	return false;
}

void UBlackboardData::UpdateParentKeys()
{
	ParentKeys.Reset();
	TArray<const UBlackboardData*> Chain;
	for (const UBlackboardData* Asset = Parent; Asset != nullptr && Asset != this && !Chain.Contains(Asset); Asset = Asset->Parent)
	{
		Chain.Add(Asset);
	}
	// The farthest parent's keys come first, as their ids do.
	for (int32 Index = Chain.Num() - 1; Index >= 0; --Index)
	{
		ParentKeys.Append(Chain[Index]->Keys);
	}
}

const FBlackboardEntry* UBlackboardData::FindKey(const FName& KeyName) const
{
	for (const FBlackboardEntry& Entry : Keys)
	{
		if (Entry.EntryName == KeyName)
		{
			return &Entry;
		}
	}
	for (const FBlackboardEntry& Entry : ParentKeys)
	{
		if (Entry.EntryName == KeyName)
		{
			return &Entry;
		}
	}
	return nullptr;
}
