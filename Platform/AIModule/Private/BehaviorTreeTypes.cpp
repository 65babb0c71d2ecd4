#include "BehaviorTree/BehaviorTreeTypes.h"
#include "UObject/Class.h"

FString UBehaviorTreeTypes::DescribeFlowAbortMode(EBTFlowAbortMode::Type FlowAbortMode)
{
	switch (FlowAbortMode)
	{
	case EBTFlowAbortMode::None:
		return TEXT("None");
	case EBTFlowAbortMode::LowerPriority:
		return TEXT("Lower Priority");
	case EBTFlowAbortMode::Self:
		return TEXT("Self");
	case EBTFlowAbortMode::Both:
		return TEXT("Both");
	default:
		return FString();
	}
}

FString UBehaviorTreeTypes::DescribeNodeResult(EBTNodeResult::Type NodeResult)
{
	switch (NodeResult)
	{
	case EBTNodeResult::Succeeded:
		return TEXT("Succeeded");
	case EBTNodeResult::Failed:
		return TEXT("Failed");
	case EBTNodeResult::Aborted:
		return TEXT("Aborted");
	case EBTNodeResult::InProgress:
		return TEXT("InProgress");
	default:
		return FString();
	}
}

FString UBehaviorTreeTypes::GetShortTypeName(const UObject* Ob)
{
	if (Ob == nullptr)
	{
		return FString();
	}
	const UClass* Class = Ob->GetClass();
	FString TypeName = Class->GetName();
	if (Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint))
	{
		return TypeName.EndsWith(TEXT("_C"), ESearchCase::CaseSensitive) ? TypeName.LeftChop(2) : TypeName;
	}
	const int32 Separator = TypeName.Find(TEXT("_"), ESearchCase::CaseSensitive);
	return Separator == INDEX_NONE ? TypeName : TypeName.Mid(Separator + 1);
}
