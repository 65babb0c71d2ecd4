// UStaticMesh: a mesh asset. The stand-in keeps no geometry, only what identifies the asset.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "StaticMesh.generated.h"

/**
 * A StaticMesh is a piece of geometry that consists of a static set of polygons.
 */
UCLASS(hidecategories = Object, BlueprintType)
class ENGINE_API UStaticMesh : public UObject
{
	GENERATED_BODY()

public:
	/** Number of levels of detail the mesh was imported with. */
	UPROPERTY(EditAnywhere, AssetRegistrySearchable, Category = StaticMesh)
	int32 NumLODs = 1;

	/** Size of the mesh's bounds. */
	UPROPERTY(EditAnywhere, Category = StaticMesh)
	FVector BoundsExtent;
};
