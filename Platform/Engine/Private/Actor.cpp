#include "GameFramework/Actor.h"
#include "Engine/Engine.h"

AActor::AActor(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	bHidden = false;
	bReplicates = false;
}

FVector AActor::K2_GetActorLocation() const
{
	return GetActorLocation();
}

FRotator AActor::K2_GetActorRotation() const
{
	return GetActorRotation();
}

USceneComponent* AActor::K2_GetRootComponent() const
{
	return RootComponent;
}

void AActor::SetActorHiddenInGame(bool bNewHidden)
{
	bHidden = bNewHidden;
}

UActorComponent* AActor::GetComponentByClass(TSubclassOf<UActorComponent> ComponentClass) const
{
	return FindComponentByClass(ComponentClass);
}

bool AActor::SetRootComponent(USceneComponent* NewRootComponent)
{
	// The root must be one of this actor's own components.
	if (NewRootComponent != nullptr && NewRootComponent->GetOwner() != this)
	{
		return false;
	}
	RootComponent = NewRootComponent;
	return true;
}

FTransform AActor::GetActorTransform() const
{
	return RootComponent != nullptr ? RootComponent->GetComponentTransform() : FTransform::Identity;
}

FVector AActor::GetActorLocation() const
{
	return GetActorTransform().GetLocation();
}

FRotator AActor::GetActorRotation() const
{
	return GetActorTransform().Rotator();
}

FVector AActor::GetActorScale3D() const
{
	return GetActorTransform().GetScale3D();
}

void AActor::GetComponents(TArray<UActorComponent*>& OutComponents, bool bIncludeFromChildActors) const
{
	OutComponents.Reset();
	for (UActorComponent* Component : OwnedComponents)
	{
		OutComponents.Add(Component);
	}
}

UActorComponent* AActor::FindComponentByClass(const TSubclassOf<UActorComponent> ComponentClass) const
{
	UClass* Class = ComponentClass.Get();
	if (Class == nullptr)
	{
		return nullptr;
	}
	for (UActorComponent* Component : OwnedComponents)
	{
		if (Component != nullptr && Component->IsA(Class))
		{
			return Component;
		}
	}
	return nullptr;
}

void AActor::AddOwnedComponent(UActorComponent* Component)
{
	if (Component != nullptr)
	{
		OwnedComponents.Add(Component);
	}
}

void AActor::RemoveOwnedComponent(UActorComponent* Component)
{
	OwnedComponents.Remove(Component);
}

void AActor::AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector)
{
	AActor* This = static_cast<AActor*>(InThis);
	for (UActorComponent* Component : This->OwnedComponents)
	{
		UActorComponent* Reference = Component;
		Collector.AddReferencedObject(Reference, This);
	}
	Super::AddReferencedObjects(InThis, Collector);
}

// The engine object

UEngine* GEngine = nullptr;

DEFINE_LOG_CATEGORY_STATIC(LogEngine, Log, All);

UEngine::UEngine(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void UEngine::Init()
{
	bIsInitialized = true;
	// The stand-in's loop has no engine tick of its own: the core ticker stands in for it.
	DeferredCommandsTickHandle = FTSTicker::GetCoreTicker().AddTicker(TEXT("DeferredCommands"), 0.0f, [this](float)
	{
		TickDeferredCommands();
		return true;
	});
}

void UEngine::PreExit()
{
	FTSTicker::RemoveTicker(DeferredCommandsTickHandle);
	DeferredCommandsTickHandle.Reset();
	bIsInitialized = false;
}

void UEngine::TickDeferredCommands()
{
	// A command queued by one of these waits for the next tick.
	const TArray<FString> Commands = MoveTemp(DeferredCommands);
	DeferredCommands.Reset();
	for (const FString& Command : Commands)
	{
		UE_LOG(LogEngine, Log, TEXT("Deferred command: %s"), *Command);
	}
}
