// Values whose text the Blueprint reader must fall back on.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/SoftObjectPtr.h"
#include "BlueprintUtilsTestTypes.generated.h"

UCLASS()
class UBlueprintUtilsValueHolder : public UObject
{
	GENERATED_BODY()

public:
	UPROPERTY(Transient)
	int32 TransientCount = 7;

	UPROPERTY(EditAnywhere)
	TObjectPtr<UObject> NoObject;

	UPROPERTY(EditAnywhere)
	TObjectPtr<UObject> SomeObject;

	UPROPERTY(EditAnywhere)
	TSoftObjectPtr<UObject> NoSoftObject;

	UPROPERTY(EditAnywhere)
	float Speed = 1.5f;

	UPROPERTY(EditAnywhere)
	TArray<int32> Numbers;
};

/** An object that is no Blueprint. */
UCLASS()
class UBlueprintUtilsTestMarker : public UObject
{
	GENERATED_BODY()
};
