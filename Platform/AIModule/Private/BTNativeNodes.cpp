// The engine's own composites, tasks, decorators and services: their default names and values.
#include "BehaviorTree/Composites/BTComposite_Selector.h"
#include "BehaviorTree/Composites/BTComposite_Sequence.h"
#include "BehaviorTree/Composites/BTComposite_SimpleParallel.h"
#include "BehaviorTree/Decorators/BTDecorator_Blackboard.h"
#include "BehaviorTree/Decorators/BTDecorator_Cooldown.h"
#include "BehaviorTree/Decorators/BTDecorator_Loop.h"
#include "BehaviorTree/Services/BTService_DefaultFocus.h"
#include "BehaviorTree/Tasks/BTTask_MoveTo.h"
#include "BehaviorTree/Tasks/BTTask_RunBehavior.h"
#include "BehaviorTree/Tasks/BTTask_Wait.h"

UBTComposite_Selector::UBTComposite_Selector(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Selector");
}

UBTComposite_Sequence::UBTComposite_Sequence(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Sequence");
}

UBTComposite_SimpleParallel::UBTComposite_SimpleParallel(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Simple Parallel");
	FinishMode = EBTParallelMode::AbortBackground;
}

UBTTask_Wait::UBTTask_Wait(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, WaitTime(5.0f)
	, RandomDeviation(0.f)
{
	NodeName = TEXT("Wait");
}

UBTTask_MoveTo::UBTTask_MoveTo(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Move To");
	AcceptableRadius = 5.f;
	bAllowStrafe = false;
	bAllowPartialPath = true;
	bTrackMovingGoal = true;
	bProjectGoalLocation = true;
}

UBTTask_RunBehavior::UBTTask_RunBehavior(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Run Behavior");
}

UBTDecorator_Blackboard::UBTDecorator_Blackboard(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Blackboard Based Condition");
	IntValue = 0;
	FloatValue = 0.f;
	OperationType = 0;
	NotifyObserver = EBTBlackboardRestart::ResultChange;
}

UBTDecorator_Cooldown::UBTDecorator_Cooldown(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Cooldown");
	CoolDownTime = 5.0f;
	// A cooldown has nothing to observe, so it aborts nothing.
	FlowAbortMode = EBTFlowAbortMode::None;
}

UBTDecorator_Loop::UBTDecorator_Loop(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Loop");
	NumLoops = 3;
	bInfiniteLoop = false;
	InfiniteLoopTimeoutTime = -1.f;
}

UBTService_DefaultFocus::UBTService_DefaultFocus(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	NodeName = TEXT("Set default focus");
	FocusPriority = 0;
}
