// AStaticMeshActor: an actor that shows one static mesh, through the component its constructor makes.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "GameFramework/Actor.h"
#include "StaticMeshActor.generated.h"

class UStaticMeshComponent;

UCLASS(Blueprintable)
class ENGINE_API AStaticMeshActor : public AActor
{
	GENERATED_BODY()

public:
	AStaticMeshActor(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The component that shows the mesh; the actor's root. */
	UPROPERTY(Category = StaticMeshActor, VisibleAnywhere, BlueprintReadOnly)
	TObjectPtr<UStaticMeshComponent> StaticMeshComponent;

	UStaticMeshComponent* GetStaticMeshComponent() const
	{
		return StaticMeshComponent;
	}
};
