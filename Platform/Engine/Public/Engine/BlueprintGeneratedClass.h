// UBlueprintGeneratedClass: the class a Blueprint's compile makes.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Class.h"
#include "BlueprintGeneratedClass.generated.h"

class USimpleConstructionScript;
class UTimelineTemplate;

UCLASS()
class ENGINE_API UBlueprintGeneratedClass : public UClass
{
	GENERATED_BODY()

public:
	UBlueprintGeneratedClass(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The components the class's objects are made with. */
	UPROPERTY()
	TObjectPtr<USimpleConstructionScript> SimpleConstructionScript;

	UPROPERTY()
	TArray<TObjectPtr<UTimelineTemplate>> Timelines;

	/** How many of the class's properties its Blueprint declared itself (not its parents'). */
	UPROPERTY()
	int32 NumReplicatedProperties = 0;

	// The Blueprint classes from this one up, the closest first; false when a class on the way isn't one.
	static bool GetGeneratedClassesHierarchy(const UClass* InClass, TArray<const UBlueprintGeneratedClass*>& OutBPGClasses);
	// Objects of the class get their construction script's components (see the actor's PostInitProperties).
	virtual bool IsAsset() const override
	{
		return false;
	}
};
