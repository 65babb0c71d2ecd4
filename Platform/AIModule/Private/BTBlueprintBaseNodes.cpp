// Parents of Blueprint nodes.
#include "BehaviorTree/Decorators/BTDecorator_BlueprintBase.h"
#include "BehaviorTree/Services/BTService_BlueprintBase.h"
#include "BehaviorTree/Tasks/BTTask_BlueprintBase.h"
#include "BehaviorTree/BehaviorTreeTypes.h"
#include "UObject/Class.h"

namespace
{
	void NameAfterBlueprint(UBTNode& Node)
	{
		if (Node.NodeName.IsEmpty() && Node.GetClass()->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
		{
			Node.NodeName = UBehaviorTreeTypes::GetShortTypeName(&Node);
		}
	}
}

UBTTask_BlueprintBase::UBTTask_BlueprintBase(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	bShowPropertyDetails = true;
}

UBTDecorator_BlueprintBase::UBTDecorator_BlueprintBase(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	bShowPropertyDetails = true;
}

UBTService_BlueprintBase::UBTService_BlueprintBase(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	bShowPropertyDetails = true;
}

void UBTTask_BlueprintBase::PostInitProperties()
{
	Super::PostInitProperties();
	NameAfterBlueprint(*this);
}

void UBTDecorator_BlueprintBase::PostInitProperties()
{
	Super::PostInitProperties();
	NameAfterBlueprint(*this);
}

void UBTService_BlueprintBase::PostInitProperties()
{
	Super::PostInitProperties();
	NameAfterBlueprint(*this);
}
