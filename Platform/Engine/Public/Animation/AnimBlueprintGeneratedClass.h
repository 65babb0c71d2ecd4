// UAnimBlueprintGeneratedClass: the class an Animation Blueprint's compile makes.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "AnimBlueprintGeneratedClass.generated.h"

class USkeleton;

UCLASS()
class ENGINE_API UAnimBlueprintGeneratedClass : public UBlueprintGeneratedClass
{
	GENERATED_BODY()

public:
	UAnimBlueprintGeneratedClass(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UPROPERTY()
	TObjectPtr<USkeleton> TargetSkeleton;

	USkeleton* GetTargetSkeleton() const
	{
		return TargetSkeleton;
	}
};
