#include "Engine/StaticMeshActor.h"
#include "Components/StaticMeshComponent.h"

AStaticMeshActor::AStaticMeshActor(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	StaticMeshComponent = CreateDefaultSubobject<UStaticMeshComponent>(TEXT("StaticMeshComponent0"));
	RootComponent = StaticMeshComponent.Get();
}
