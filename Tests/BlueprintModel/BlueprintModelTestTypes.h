// Native types the Blueprint tests derive from and call: an actor with a function of each kind, and an interface.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Interface.h"
#include "GameFramework/Actor.h"
#include "BlueprintModelTestTypes.generated.h"

UINTERFACE(Blueprintable)
class UBlueprintTestOpenable : public UInterface
{
	GENERATED_BODY()
};

class IBlueprintTestOpenable
{
	GENERATED_BODY()

public:
	UFUNCTION(BlueprintImplementableEvent, Category = "Door")
	void Open(float Speed);
};

UCLASS(Blueprintable)
class ABlueprintTestPawn : public AActor
{
	GENERATED_BODY()

public:
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Pawn")
	int32 Lives = 3;

	/** Moves by the offset; gives whether it moved. */
	UFUNCTION(BlueprintCallable, Category = "Pawn")
	bool MoveBy(FVector Offset, float Speed = 2.f);

	UFUNCTION(BlueprintPure, Category = "Pawn")
	int32 GetLives() const
	{
		return Lives;
	}
};
