// UBlackboardData: the keys of a blackboard, the memory that a behaviour tree reads and writes.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/DataAsset.h"
#include "BlackboardData.generated.h"

class UBlackboardKeyType;

/** blackboard entry definition */
USTRUCT()
struct FBlackboardEntry
{
	GENERATED_BODY()

	UPROPERTY(EditAnywhere, Category = Blackboard)
	FName EntryName;

#if WITH_EDITORONLY_DATA
	UPROPERTY(EditAnywhere, Category = Blackboard, meta = (ToolTip = "Optional description to explain what this blackboard entry does."))
	FString EntryDescription;

	UPROPERTY(EditAnywhere, Category = Blackboard)
	FName EntryCategory;
#endif

	/** key type and additional properties */
	UPROPERTY(EditAnywhere, Instanced, Category = Blackboard)
	TObjectPtr<UBlackboardKeyType> KeyType = nullptr;

	/** if set to true then this field will be synchronized across all instances of this blackboard */
	UPROPERTY(EditAnywhere, Category = Blackboard)
	uint32 bInstanceSynced : 1;

	FBlackboardEntry()
		: bInstanceSynced(0)
	{
	}
};

UCLASS(BlueprintType, AutoExpandCategories = (Blackboard), MinimalAPI)
class UBlackboardData : public UDataAsset
{
	GENERATED_BODY()

public:
	/** parent blackboard (keys can be overridden) */
	UPROPERTY(EditAnywhere, Category = Parent)
	TObjectPtr<UBlackboardData> Parent;

	/** blackboard keys */
	UPROPERTY(EditAnywhere, Category = Blackboard)
	TArray<FBlackboardEntry> Keys;

	/** the keys of the parents, gathered by UpdateParentKeys */
	UPROPERTY()
	TArray<FBlackboardEntry> ParentKeys;

	// Keys of this asset and of its parents.
	int32 GetNumKeys() const
	{
		return ParentKeys.Num() + Keys.Num();
	}
	AIMODULE_API bool IsChildOf(const UBlackboardData& OtherAsset) const;
	AIMODULE_API void UpdateParentKeys();
	// The entry of that name, in this asset or a parent; null when there is none.
	AIMODULE_API const FBlackboardEntry* FindKey(const FName& KeyName) const;
};
