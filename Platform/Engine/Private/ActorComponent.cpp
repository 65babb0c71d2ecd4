#include "Components/ActorComponent.h"
#include "GameFramework/Actor.h"

UActorComponent::UActorComponent(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	bAutoActivate = false;
	bIsEditorOnly = false;
}

AActor* UActorComponent::GetOwner() const
{
	return GetTypedOuter<AActor>();
}

void UActorComponent::Activate(bool bReset)
{
	bIsActive = true;
}

void UActorComponent::Deactivate()
{
	bIsActive = false;
}

void UActorComponent::PostInitProperties()
{
	Super::PostInitProperties();
	if (AActor* Owner = GetOwner())
	{
		Owner->AddOwnedComponent(this);
	}
	if (bAutoActivate)
	{
		Activate();
	}
}

void UActorComponent::BeginDestroy()
{
	if (AActor* Owner = GetOwner(); Owner != nullptr && !Owner->HasAnyFlags(RF_BeginDestroyed))
	{
		Owner->RemoveOwnedComponent(this);
	}
	Super::BeginDestroy();
}
