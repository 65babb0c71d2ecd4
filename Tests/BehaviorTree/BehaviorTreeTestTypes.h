// Nodes of the behaviour tree tests that stand for nodes made as Blueprints: the classes derive from the
// Blueprint bases, with one property a Blueprint can see and one it can't.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/Decorators/BTDecorator_BlueprintBase.h"
#include "BehaviorTree/Services/BTService_BlueprintBase.h"
#include "BehaviorTree/Tasks/BTTask_BlueprintBase.h"
#include "BehaviorTreeTestTypes.generated.h"

UENUM(BlueprintType)
enum class EGuardAlertness : uint8
{
	Calm,
	Suspicious,
	Alarmed,
};

UCLASS()
class UBTTask_TestPatrol : public UBTTask_BlueprintBase
{
	GENERATED_BODY()

public:
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Patrol")
	float PatrolRadius = 300.f;

private:
	UPROPERTY()
	int32 VisitedPoints = 0;
};

UCLASS()
class UBTDecorator_TestCanSee : public UBTDecorator_BlueprintBase
{
	GENERATED_BODY()

public:
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Sight")
	float SightRange = 1500.f;
};

UCLASS()
class UBTService_TestScan : public UBTService_BlueprintBase
{
	GENERATED_BODY()
};
