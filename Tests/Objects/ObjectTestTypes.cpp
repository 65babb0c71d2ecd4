#include "ObjectTestTypes.h"

AObjectTestDoor::AObjectTestDoor(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	Frame = CreateDefaultSubobject<USceneComponent>(TEXT("Frame"));
	RootComponent = Frame;
	Panel = CreateDefaultSubobject<UStaticMeshComponent>(TEXT("Panel"));
	Panel->SetupAttachment(Frame);
}

void UObjectTestBlueprintAsset::GetAssetRegistryTags(TArray<FAssetRegistryTag>& OutTags) const
{
	Super::GetAssetRegistryTags(OutTags);
	OutTags.Add(FAssetRegistryTag(FName(TEXT("GeneratedClass")), GeneratedClassPath, FAssetRegistryTag::TT_Hidden));
	if (ParentClass != nullptr)
	{
		OutTags.Add(FAssetRegistryTag(FName(TEXT("ParentClass")), ParentClass->GetPathName(), FAssetRegistryTag::TT_Hidden));
	}
}
