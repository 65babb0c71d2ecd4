// USceneComponent: a component with a place (a transform relative to its parent) in the world.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Components/ActorComponent.h"
#include "Engine/EngineTypes.h"
#include "Engine/HitResult.h"
#include "SceneComponent.generated.h"

/**
 * A SceneComponent has a transform and supports attachment, but has no rendering or collision capabilities.
 */
UCLASS(ClassGroup = (Utility, Common), BlueprintType, HideCategories = (Trigger, PhysicsVolume), meta = (BlueprintSpawnableComponent, IgnoreCategoryKeywordsInSubclasses, ShortTooltip = "A Scene Component is a component that has a scene transform and can be attached to other scene components."))
class ENGINE_API USceneComponent : public UActorComponent
{
	GENERATED_BODY()

public:
	USceneComponent(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** Location of the component relative to its parent. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Transform, meta = (AllowPrivateAccess = "true", LinearDeltaSensitivity = "1", Delta = "1.0"))
	FVector RelativeLocation;

	/** Rotation of the component relative to its parent. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Transform, meta = (AllowPrivateAccess = "true", LinearDeltaSensitivity = "1", Delta = "1.0"))
	FRotator RelativeRotation;

	/** Non-uniform scaling of the component relative to its parent. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Transform, meta = (AllowPrivateAccess = "true", LinearDeltaSensitivity = "1", Delta = "0.0025"))
	FVector RelativeScale3D;

	/** How often this component is allowed to move. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Mobility)
	TEnumAsByte<EComponentMobility::Type> Mobility;

	/** Whether to completely draw the primitive; if false, the primitive is not drawn. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Rendering)
	uint8 bVisible : 1;

	/** Whether to hide the primitive in game, if the primitive is Visible. */
	UPROPERTY(EditAnywhere, BlueprintReadOnly, Category = Rendering)
	uint8 bHiddenInGame : 1;

	/** What we are currently attached to. */
	UPROPERTY()
	TObjectPtr<USceneComponent> AttachParent;

	/** Optional socket name on AttachParent that we are attached to. */
	UPROPERTY()
	FName AttachSocketName;

	/** List of child SceneComponents that are attached to us. */
	UPROPERTY(Transient)
	TArray<TObjectPtr<USceneComponent>> AttachChildren;

	FVector GetRelativeLocation() const
	{
		return RelativeLocation;
	}
	FRotator GetRelativeRotation() const
	{
		return RelativeRotation;
	}
	FVector GetRelativeScale3D() const
	{
		return RelativeScale3D;
	}
	FTransform GetRelativeTransform() const
	{
		return FTransform(RelativeRotation, RelativeLocation, RelativeScale3D);
	}
	// The component's transform in the world, through its parents.
	FTransform GetComponentTransform() const;
	FVector GetComponentLocation() const
	{
		return GetComponentTransform().GetLocation();
	}

	// There is no physics here: a sweep never hits anything, and OutSweepHitResult reports no hit.
	void SetRelativeLocation(FVector NewLocation, bool bSweep = false, FHitResult* OutSweepHitResult = nullptr, ETeleportType Teleport = ETeleportType::None);
	void SetRelativeRotation(FRotator NewRotation, bool bSweep = false, FHitResult* OutSweepHitResult = nullptr, ETeleportType Teleport = ETeleportType::None);
	void SetRelativeLocationAndRotation(FVector NewLocation, FRotator NewRotation, bool bSweep = false, FHitResult* OutSweepHitResult = nullptr, ETeleportType Teleport = ETeleportType::None);
	void SetRelativeTransform(const FTransform& NewTransform, bool bSweep = false, FHitResult* OutSweepHitResult = nullptr, ETeleportType Teleport = ETeleportType::None);

	/** Set the non-uniform scale of the component relative to its parent. */
	UFUNCTION(BlueprintCallable, Category = "Utilities|Transformation")
	virtual void SetRelativeScale3D(FVector NewScale3D);

	/** Set how often this component is allowed to move during runtime. */
	virtual void SetMobility(EComponentMobility::Type NewMobility);

	/** Set visibility of the component, if during game use this to turn on/off. */
	UFUNCTION(BlueprintCallable, Category = "Rendering")
	void SetVisibility(bool bNewVisibility, bool bPropagateToChildren = false);

	/** Get the location of the component in world space. */
	UFUNCTION(BlueprintCallable, meta = (DisplayName = "Get World Location"), Category = "Utilities|Transformation")
	FVector K2_GetComponentLocation() const;

	/** Get the SceneComponent we are attached to. */
	UFUNCTION(BlueprintCallable, Category = "Components")
	USceneComponent* GetAttachParent() const;

	// Sets where this component will be attached when it is registered; for use in constructors.
	void SetupAttachment(USceneComponent* InParent, FName InSocketName = NAME_None);
	const TArray<TObjectPtr<USceneComponent>>& GetAttachChildren() const
	{
		return AttachChildren;
	}

	virtual void PostLoad() override;
};
