// UActorComponent: a reusable part that an actor is made of.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Templates/Casts.h"
#include "ActorComponent.generated.h"

class AActor;

/** How a component came to be on its actor. */
UENUM()
enum class EComponentCreationMethod : uint8
{
	/** Made by the actor's C++ constructor. */
	Native,
	/** Made from the actor's Blueprint components list. */
	SimpleConstructionScript,
	/** Made by the Blueprint's construction script. */
	UserConstructionScript,
	/** Added to one actor only. */
	Instance,
};

/**
 * ActorComponent is the base class for components that define reusable behavior that can be added to different types of Actors.
 */
UCLASS(DefaultToInstanced, BlueprintType, abstract, meta = (ShortTooltip = "An ActorComponent is a reusable component that can be added to any actor."))
class ENGINE_API UActorComponent : public UObject
{
	GENERATED_BODY()

public:
	UActorComponent(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** Array of tags that can be used for grouping and categorizing. */
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = Tags)
	TArray<FName> ComponentTags;

	/** Whether the component is activated at creation or must be explicitly activated. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Activation)
	uint8 bAutoActivate : 1;

	/** Whether this component only exists in the editor. */
	UPROPERTY()
	uint8 bIsEditorOnly : 1;

	UPROPERTY()
	EComponentCreationMethod CreationMethod = EComponentCreationMethod::Native;

	/** The actor that owns this component. */
	UFUNCTION(BlueprintCallable, Category = "Components")
	AActor* GetOwner() const;

	/** Activates the component. */
	UFUNCTION(BlueprintCallable, Category = "Components|Activation")
	virtual void Activate(bool bReset = false);

	/** Deactivates the component. */
	UFUNCTION(BlueprintCallable, Category = "Components|Activation")
	virtual void Deactivate();

	/** Whether the component is active. */
	UFUNCTION(BlueprintCallable, Category = "Components|Activation")
	bool IsActive() const
	{
		return bIsActive;
	}

	template<class T>
	T* GetOwner() const
	{
		return Cast<T>(GetOwner());
	}

	// A component whose outer is an actor becomes one of its components.
	virtual void PostInitProperties() override;
	virtual void BeginDestroy() override;

private:
	bool bIsActive = false;
};
