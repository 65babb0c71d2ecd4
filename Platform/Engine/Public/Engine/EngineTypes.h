// Small types the engine's classes share: mobility, teleport modes, attachment rules.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "EngineTypes.generated.h"

/** Whether a component may move while the game runs. */
UENUM(BlueprintType)
namespace EComponentMobility
{
	enum Type : int
	{
		/** Placed once, never moved; lighting may be baked. */
		Static,
		/** May change, but not move. */
		Stationary,
		/** May move and change at any time. */
		Movable
	};
}

/** Whether a move carries physics state along. */
UENUM()
enum class ETeleportType : uint8
{
	None,
	TeleportPhysics,
	ResetPhysics
};

/** How a component's transform follows its new parent when attached. */
UENUM()
enum class EAttachmentRule : uint8
{
	KeepRelative,
	KeepWorld,
	SnapToTarget
};
