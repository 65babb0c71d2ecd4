// UMeshComponent: the base of components that draw a mesh.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Components/PrimitiveComponent.h"
#include "MeshComponent.generated.h"

/**
 * MeshComponent is an abstract base for any component that is an instance of a renderable collection of triangles.
 */
UCLASS(abstract, ShowCategories = (VirtualTexture))
class ENGINE_API UMeshComponent : public UPrimitiveComponent
{
	GENERATED_BODY()

public:
	UMeshComponent(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());
};
