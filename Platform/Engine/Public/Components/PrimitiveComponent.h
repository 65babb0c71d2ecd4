// UPrimitiveComponent: a scene component with geometry: something that is drawn or collides.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Components/SceneComponent.h"
#include "PrimitiveComponent.generated.h"

/**
 * PrimitiveComponents are SceneComponents that contain or generate some sort of geometry, generally to be rendered or used as collision data.
 */
UCLASS(abstract, HideCategories = (Mobility, VirtualTexture), ShowCategories = (PhysicsVolume))
class ENGINE_API UPrimitiveComponent : public USceneComponent
{
	GENERATED_BODY()

public:
	UPrimitiveComponent(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** Controls whether the primitive component should cast a shadow or not. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Lighting)
	uint8 CastShadow : 1;

	/** If true, this component will generate overlap events when it is overlapping other components. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Collision)
	uint8 bGenerateOverlapEvents : 1;

	/** The collision profile this component uses. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Collision)
	FName CollisionProfileName;

	/** Changes the value of CastShadow. */
	UFUNCTION(BlueprintCallable, Category = "Rendering")
	void SetCastShadow(bool NewCastShadow);
};
