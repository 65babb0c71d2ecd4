// UBlueprintCore: the part of a Blueprint that runtime code knows: the class it generates.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Templates/SubclassOf.h"
#include "BlueprintCore.generated.h"

UCLASS()
class ENGINE_API UBlueprintCore : public UObject
{
	GENERATED_BODY()

public:
	UBlueprintCore(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The class the last compile generated. */
	UPROPERTY()
	TSubclassOf<UObject> GeneratedClass;

	/** The class made for the editor before a full compile; not saved and not part of undo. */
	UPROPERTY(Transient, NonTransactional)
	TSubclassOf<UObject> SkeletonGeneratedClass;

	/** Whether the Blueprint is loaded for the editor's use of its graphs. */
	UPROPERTY()
	bool bLegacyNeedToPurgeSkelRefs = true;
};
