// Enums and text helpers that the behaviour tree classes share.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "BehaviorTreeTypes.generated.h"

// Keep in sync with UBehaviorTreeTypes::DescribeFlowAbortMode.
UENUM()
namespace EBTFlowAbortMode
{
	enum Type : int
	{
		None UMETA(DisplayName = "Nothing"),
		LowerPriority UMETA(DisplayName = "Lower Priority"),
		Self UMETA(DisplayName = "Self"),
		Both UMETA(DisplayName = "Both"),
	};
}

/** Result of a node's execution. */
UENUM(BlueprintType)
namespace EBTNodeResult
{
	enum Type : int
	{
		Succeeded,
		Failed,
		Aborted,
		InProgress,
	};
}

/** How a simple parallel node finishes. */
UENUM()
namespace EBTParallelMode
{
	enum Type : int
	{
		AbortBackground UMETA(DisplayName = "Immediate"),
		WaitForBackground UMETA(DisplayName = "Delayed"),
	};
}

UCLASS(Abstract, MinimalAPI)
class UBehaviorTreeTypes : public UObject
{
	GENERATED_BODY()

public:
	static AIMODULE_API FString DescribeFlowAbortMode(EBTFlowAbortMode::Type FlowAbortMode);
	static AIMODULE_API FString DescribeNodeResult(EBTNodeResult::Type NodeResult);

	// The node's class name past its first '_' ("BTTask_Wait" is "Wait"); a Blueprint class loses its "_C".
	static AIMODULE_API FString GetShortTypeName(const UObject* Ob);
};
