#include "Components/SceneComponent.h"

USceneComponent::USceneComponent(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, RelativeScale3D(1.0, 1.0, 1.0)
	, Mobility(EComponentMobility::Movable)
{
	bVisible = true;
	bHiddenInGame = false;
}

FTransform USceneComponent::GetComponentTransform() const
{
	FTransform Result = GetRelativeTransform();
	// Each parent places the child's transform in its own space; the loop stops at a cycle's start.
	int32 Depth = 0;
	for (const USceneComponent* Parent = AttachParent; Parent != nullptr && Parent != this && Depth < 256; Parent = Parent->AttachParent, ++Depth)
	{
		const FTransform ParentTransform = Parent->GetRelativeTransform();
		Result = FTransform(ParentTransform.GetRotation() * Result.GetRotation(), ParentTransform.TransformPosition(Result.GetLocation()), ParentTransform.GetScale3D() * Result.GetScale3D());
	}
	return Result;
}

void USceneComponent::SetRelativeLocation(FVector NewLocation, bool bSweep, FHitResult* OutSweepHitResult, ETeleportType Teleport)
{
	SetRelativeLocationAndRotation(NewLocation, RelativeRotation, bSweep, OutSweepHitResult, Teleport);
}

void USceneComponent::SetRelativeRotation(FRotator NewRotation, bool bSweep, FHitResult* OutSweepHitResult, ETeleportType Teleport)
{
	SetRelativeLocationAndRotation(RelativeLocation, NewRotation, bSweep, OutSweepHitResult, Teleport);
}

void USceneComponent::SetRelativeLocationAndRotation(FVector NewLocation, FRotator NewRotation, bool bSweep, FHitResult* OutSweepHitResult, ETeleportType Teleport)
{
	if (OutSweepHitResult != nullptr)
	{
		*OutSweepHitResult = FHitResult();
	}
	RelativeLocation = NewLocation;
	RelativeRotation = NewRotation;
}

void USceneComponent::SetRelativeTransform(const FTransform& NewTransform, bool bSweep, FHitResult* OutSweepHitResult, ETeleportType Teleport)
{
	SetRelativeLocationAndRotation(NewTransform.GetTranslation(), NewTransform.Rotator(), bSweep, OutSweepHitResult, Teleport);
	SetRelativeScale3D(NewTransform.GetScale3D());
}

void USceneComponent::SetRelativeScale3D(FVector NewScale3D)
{
	RelativeScale3D = NewScale3D;
}

void USceneComponent::SetMobility(EComponentMobility::Type NewMobility)
{
	Mobility = NewMobility;
}

void USceneComponent::SetVisibility(bool bNewVisibility, bool bPropagateToChildren)
{
	bVisible = bNewVisibility;
	if (bPropagateToChildren)
	{
		for (USceneComponent* Child : AttachChildren)
		{
			if (Child != nullptr)
			{
				Child->SetVisibility(bNewVisibility, true);
			}
		}
	}
}

FVector USceneComponent::K2_GetComponentLocation() const
{
	return GetComponentLocation();
}

USceneComponent* USceneComponent::GetAttachParent() const
{
	return AttachParent;
}

void USceneComponent::SetupAttachment(USceneComponent* InParent, FName InSocketName)
{
	if (InParent == this || InParent == AttachParent)
	{
		return;
	}
	if (AttachParent != nullptr)
	{
		AttachParent->AttachChildren.Remove(this);
	}
	AttachParent = InParent;
	AttachSocketName = InSocketName;
	if (InParent != nullptr)
	{
		InParent->AttachChildren.AddUnique(this);
	}
}

void USceneComponent::PostLoad()
{
	Super::PostLoad();
	// The children list isn't saved; a loaded component joins its parent's again.
	if (AttachParent != nullptr)
	{
		AttachParent->AttachChildren.AddUnique(this);
	}
}
