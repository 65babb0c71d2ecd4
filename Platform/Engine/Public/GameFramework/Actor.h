// AActor: an object that can be placed or spawned in a level, made of components.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Templates/Casts.h"
#include "Templates/SubclassOf.h"
#include "Components/ActorComponent.h"
#include "Components/SceneComponent.h"
#include "Actor.generated.h"

/**
 * Actor is the base class for an Object that can be placed or spawned in a level.
 * Actors may contain a collection of ActorComponents, which can be used to control how actors move, how they are rendered, etc.
 */
UCLASS(BlueprintType, Blueprintable, meta = (ShortTooltip = "An Actor is an object that can be placed or spawned in the world."))
class ENGINE_API AActor : public UObject
{
	GENERATED_BODY()

public:
	AActor(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The component that defines the transform (location, rotation, scale) of this Actor in the world. */
	UPROPERTY(BlueprintGetter = K2_GetRootComponent, Category = "Utilities|Transformation")
	TObjectPtr<USceneComponent> RootComponent;

	/** Array of tags that can be used for grouping and categorizing. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, AdvancedDisplay, Category = Actor)
	TArray<FName> Tags;

	/** Allows us to only see this Actor in the Editor, and not in the actual game. */
	UPROPERTY(Interp, EditAnywhere, Category = Rendering, BlueprintReadOnly, meta = (DisplayName = "Actor Hidden In Game"))
	uint8 bHidden : 1;

	/** If true, this actor will replicate to remote machines. */
	UPROPERTY(EditDefaultsOnly, BlueprintReadOnly, Category = Replication)
	uint8 bReplicates : 1;

	/** How long this Actor lives before dying, 0=forever. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = Actor)
	float InitialLifeSpan = 0.0f;

	/** Components added to this actor alone, not by its class. */
	UPROPERTY(Instanced)
	TArray<TObjectPtr<UActorComponent>> InstanceComponents;

	/** Components made by the Blueprint's construction script. */
	UPROPERTY()
	TArray<TObjectPtr<UActorComponent>> BlueprintCreatedComponents;

	/** Runs when the actor is placed or spawned, before BeginPlay; a Blueprint's "Construction Script". */
	UFUNCTION(BlueprintImplementableEvent, meta = (BlueprintInternalUseOnly = "true", DisplayName = "Construction Script"))
	void UserConstructionScript();

	/** Event when play begins for this actor. */
	UFUNCTION(BlueprintImplementableEvent, meta = (DisplayName = "BeginPlay"))
	void ReceiveBeginPlay();

	/** Event called every frame, if ticking is enabled. */
	UFUNCTION(BlueprintImplementableEvent, meta = (DisplayName = "Tick"))
	void ReceiveTick(float DeltaSeconds);

	/** Returns the location of the RootComponent of this Actor. */
	UFUNCTION(BlueprintCallable, meta = (DisplayName = "GetActorLocation", ScriptName = "GetActorLocation"), Category = "Utilities|Transformation")
	FVector K2_GetActorLocation() const;

	/** Returns rotation of the RootComponent of this Actor. */
	UFUNCTION(BlueprintCallable, meta = (DisplayName = "GetActorRotation", ScriptName = "GetActorRotation"), Category = "Utilities|Transformation")
	FRotator K2_GetActorRotation() const;

	/** Returns the RootComponent of this Actor. */
	UFUNCTION(BlueprintGetter)
	USceneComponent* K2_GetRootComponent() const;

	/** Sets the actor to be hidden in the game. */
	UFUNCTION(BlueprintCallable, Category = "Rendering", meta = (DisplayName = "Set Actor Hidden In Game", Keywords = "Visible Hidden Show Hide"))
	virtual void SetActorHiddenInGame(bool bNewHidden);

	/** Returns the first component of that class, or null. */
	UFUNCTION(BlueprintCallable, Category = "Actor", meta = (ComponentClass = "/Script/Engine.ActorComponent"))
	UActorComponent* GetComponentByClass(TSubclassOf<UActorComponent> ComponentClass) const;

	USceneComponent* GetRootComponent() const
	{
		return RootComponent;
	}
	bool SetRootComponent(USceneComponent* NewRootComponent);
	FTransform GetActorTransform() const;
	FVector GetActorLocation() const;
	FRotator GetActorRotation() const;
	FVector GetActorScale3D() const;

	// The components this actor owns, in the order they were made.
	const TSet<UActorComponent*>& GetComponents() const
	{
		return OwnedComponents;
	}
	void GetComponents(TArray<UActorComponent*>& OutComponents, bool bIncludeFromChildActors = false) const;
	template<class ComponentType>
	void GetComponents(TArray<ComponentType*>& OutComponents, bool bIncludeFromChildActors = false) const
	{
		OutComponents.Reset();
		for (UActorComponent* Component : OwnedComponents)
		{
			if (ComponentType* Typed = Cast<ComponentType>(Component))
			{
				OutComponents.Add(Typed);
			}
		}
	}
	UActorComponent* FindComponentByClass(const TSubclassOf<UActorComponent> ComponentClass) const;
	template<class T>
	T* FindComponentByClass() const
	{
		return static_cast<T*>(FindComponentByClass(T::StaticClass()));
	}

	// Components tell their actor when they are made and destroyed.
	void AddOwnedComponent(UActorComponent* Component);
	void RemoveOwnedComponent(UActorComponent* Component);

	// Reports the owned components, which the reflected properties don't list.
	static void AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector);

private:
	TSet<UActorComponent*> OwnedComponents;
};
