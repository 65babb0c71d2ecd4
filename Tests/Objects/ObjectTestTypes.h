// Engine-side classes of the object tests: an actor with components made in its constructor, a mesh
// subclass, and an asset that describes its class in registry tags the way Blueprints do.
#pragma once

#include "CoreMinimal.h"
#include "GameFramework/Actor.h"
#include "Components/SceneComponent.h"
#include "Components/StaticMeshComponent.h"
#include "Engine/StaticMesh.h"
#include "ObjectTestTypes.generated.h"

UCLASS()
class AObjectTestDoor : public AActor
{
	GENERATED_BODY()

public:
	AObjectTestDoor(const FObjectInitializer& ObjectInitializer);

	UPROPERTY(VisibleAnywhere, Category = "Door")
	TObjectPtr<USceneComponent> Frame;

	UPROPERTY(VisibleAnywhere, Category = "Door")
	TObjectPtr<UStaticMeshComponent> Panel;

	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Door")
	float OpenAngle = 90.0f;
};

UCLASS()
class UObjectTestSpecialMesh : public UStaticMesh
{
	GENERATED_BODY()

public:
	UPROPERTY(EditAnywhere, Category = "Special")
	FString Purpose;
};

// Stands for a Blueprint asset: the class it made and the class it derives from are registry tags.
UCLASS()
class UObjectTestBlueprintAsset : public UObject
{
	GENERATED_BODY()

public:
	UPROPERTY()
	FString GeneratedClassPath;

	UPROPERTY()
	TObjectPtr<UClass> ParentClass;

	virtual void GetAssetRegistryTags(TArray<FAssetRegistryTag>& OutTags) const override;
};
