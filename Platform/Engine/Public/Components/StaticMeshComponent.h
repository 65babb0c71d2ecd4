// UStaticMeshComponent: draws a static mesh.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Components/MeshComponent.h"
#include "StaticMeshComponent.generated.h"

class UStaticMesh;

/**
 * StaticMeshComponent is used to create an instance of a UStaticMesh.
 */
UCLASS(ClassGroup = (Rendering, Common), HideCategories = (Object, Activation, "Components|Activation"), ShowCategories = (Mobility), meta = (BlueprintSpawnableComponent))
class ENGINE_API UStaticMeshComponent : public UMeshComponent
{
	GENERATED_BODY()

public:
	UStaticMeshComponent(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The static mesh that this component uses to render. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = StaticMesh)
	TObjectPtr<UStaticMesh> StaticMesh;

	/** Change the StaticMesh used by this instance. */
	UFUNCTION(BlueprintCallable, Category = "Components|StaticMesh")
	virtual bool SetStaticMesh(UStaticMesh* NewMesh);

	UFUNCTION(BlueprintPure, Category = "Components|StaticMesh")
	UStaticMesh* GetStaticMesh() const
	{
		return StaticMesh;
	}
};
