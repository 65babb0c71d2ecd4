#include "Agent/BlueprintUtils.h"

#include "AssetRegistry/AssetData.h"
#include "BehaviorTree/BehaviorTree.h"
#include "BehaviorTree/BehaviorTreeTypes.h"
#include "BehaviorTree/BlackboardData.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Enum.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_NativeEnum.h"
#include "BehaviorTree/Blackboard/BlackboardKeyType_Object.h"
#include "BehaviorTree/BTCompositeNode.h"
#include "BehaviorTree/BTDecorator.h"
#include "BehaviorTree/BTService.h"
#include "BehaviorTree/BTTaskNode.h"
#include "BehaviorTree/Decorators/BTDecorator_BlueprintBase.h"
#include "BehaviorTree/Services/BTService_BlueprintBase.h"
#include "BehaviorTree/Tasks/BTTask_BlueprintBase.h"
#include "Templates/Casts.h"
#include "Templates/Function.h"

namespace
{
	TSharedPtr<FJsonObject> ReadBlackboardKey(const FBlackboardEntry& Entry)
	{
		TSharedPtr<FJsonObject> Key = MakeShared<FJsonObject>();
		Key->SetStringField(TEXT("Name"), Entry.EntryName.ToString());
		Key->SetBoolField(TEXT("IsInstanceSynced"), Entry.bInstanceSynced != 0);
		const UBlackboardKeyType* KeyType = Entry.KeyType;
		if (KeyType == nullptr)
		{
			return Key;
		}
		Key->SetStringField(TEXT("Type"), KeyType->GetClass()->GetName());
		if (const UBlackboardKeyType_Object* ObjectKey = Cast<UBlackboardKeyType_Object>(KeyType))
		{
			if (ObjectKey->BaseClass != nullptr)
			{
				Key->SetStringField(TEXT("BaseClass"), ObjectKey->BaseClass->GetName());
			}
		}
		else if (const UBlackboardKeyType_Enum* EnumKey = Cast<UBlackboardKeyType_Enum>(KeyType))
		{
			Key->SetStringField(TEXT("EnumType"), EnumKey->EnumType != nullptr ? EnumKey->EnumType->GetName() : FString(TEXT("None")));
		}
		else if (const UBlackboardKeyType_NativeEnum* NativeEnumKey = Cast<UBlackboardKeyType_NativeEnum>(KeyType))
		{
			if (NativeEnumKey->EnumType != nullptr)
			{
				Key->SetStringField(TEXT("EnumType"), NativeEnumKey->EnumType->GetName());
			}
		}
		return Key;
	}

	TSharedPtr<FJsonObject> ReadBlackboard(const UBlackboardData& Blackboard)
	{
		TSharedPtr<FJsonObject> Document = MakeShared<FJsonObject>();
		Document->SetStringField(TEXT("Name"), Blackboard.GetName());
		Document->SetStringField(TEXT("Path"), Blackboard.GetPathName());
		// This asset's own keys only; a parent blackboard's keys are not followed.
		TArray<TSharedPtr<FJsonValue>> Keys;
		for (const FBlackboardEntry& Entry : Blackboard.Keys)
		{
			Keys.Add(MakeShared<FJsonValueObject>(ReadBlackboardKey(Entry)));
		}
		Document->SetArrayField(TEXT("Keys"), Keys);
		return Document;
	}

	void AddNodeObject(TArray<TSharedPtr<FJsonValue>>& Array, const TSharedPtr<FJsonObject>& Object)
	{
		if (Object.IsValid())
		{
			Array.Add(MakeShared<FJsonValueObject>(Object));
		}
	}
}

UBehaviorTree* FTavrineBlueprintUtils::GetBehaviorTreeFromBehaviorTreeName(const FString& BehaviorTreeName)
{
	FAssetData AssetData;
	if (!FindAssetDataByName(UBehaviorTree::StaticClass(), BehaviorTreeName, AssetData))
	{
		return nullptr;
	}
	return Cast<UBehaviorTree>(AssetData.GetAsset());
}

FString FTavrineBlueprintUtils::ReadBehaviorTree(const FString& BehaviorTreeName)
{
	const UBehaviorTree* Tree = GetBehaviorTreeFromBehaviorTreeName(BehaviorTreeName);
	TSharedPtr<FJsonObject> Document = MakeShared<FJsonObject>();
	if (Tree == nullptr)
	{
		Document->SetStringField(TEXT("Error"), FString::Printf(TEXT("BehaviorTree '%s' not found."), *BehaviorTreeName));
		return SerializeJson(Document);
	}

	Document->SetStringField(TEXT("Name"), Tree->GetName());
	Document->SetStringField(TEXT("Path"), Tree->GetPathName());
	if (const UBlackboardData* Blackboard = Tree->BlackboardAsset)
	{
		Document->SetObjectField(TEXT("Blackboard"), ReadBlackboard(*Blackboard));
	}
	if (Tree->RootNode != nullptr)
	{
		Document->SetObjectField(TEXT("RootNode"), ReadBehaviorTreeComposite(Tree->RootNode));
	}
	return SerializeJson(Document);
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::ReadBehaviorTreeNode(const UBTNode* Node)
{
	if (Node == nullptr)
	{
		return nullptr;
	}
	TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
	Object->SetStringField(TEXT("Type"), Node->GetClass()->GetName());
	Object->SetStringField(TEXT("NodeName"), Node->GetNodeName());

	// Only nodes made as Blueprints say what kind they are; native ones are known by their type.
	const UClass* NodeClass = Node->GetClass();
	if (NodeClass->IsChildOf(UBTTask_BlueprintBase::StaticClass()))
	{
		Object->SetStringField(TEXT("NodeType"), TEXT("Task"));
		if (const UBTCompositeNode* Parent = Node->GetParentNode())
		{
			Object->SetStringField(TEXT("ParentNode"), Parent->GetNodeName());
		}
	}
	else if (NodeClass->IsChildOf(UBTDecorator_BlueprintBase::StaticClass()))
	{
		const UBTDecorator* Decorator = static_cast<const UBTDecorator*>(Node);
		Object->SetStringField(TEXT("NodeType"), TEXT("Decorator"));
		Object->SetBoolField(TEXT("IsInversed"), Decorator->IsInversed());
		Object->SetStringField(TEXT("FlowAbortMode"), UBehaviorTreeTypes::DescribeFlowAbortMode(Decorator->GetFlowAbortMode()));
	}
	else if (NodeClass->IsChildOf(UBTService_BlueprintBase::StaticClass()))
	{
		Object->SetStringField(TEXT("NodeType"), TEXT("Service"));
		Object->SetStringField(TEXT("ServiceName"), Node->GetNodeName());
	}

	// Values of this node, not of its class's defaults.
	Object->SetObjectField(TEXT("Properties"), ReadShownProperties(NodeClass, Node));
	return Object;
}

TSharedPtr<FJsonObject> FTavrineBlueprintUtils::ReadBehaviorTreeComposite(const UBTCompositeNode* Composite)
{
	const TFunction<TSharedPtr<FJsonObject>(const UBTCompositeNode*)> ReadComposite = [&ReadComposite](const UBTCompositeNode* Node) -> TSharedPtr<FJsonObject>
	{
		TSharedPtr<FJsonObject> Object = ReadBehaviorTreeNode(Node);
		if (!Object.IsValid())
		{
			return nullptr;
		}
		Object->SetStringField(TEXT("NodeType"), TEXT("Composite"));

		// Decorators of all children, child by child, then the composite's own services.
		TArray<TSharedPtr<FJsonValue>> AuxiliaryNodes;
		for (const FBTCompositeChild& Child : Node->Children)
		{
			for (const UBTDecorator* Decorator : Child.Decorators)
			{
				AddNodeObject(AuxiliaryNodes, ReadBehaviorTreeNode(Decorator));
			}
		}
		for (const UBTService* Service : Node->Services)
		{
			AddNodeObject(AuxiliaryNodes, ReadBehaviorTreeNode(Service));
		}
		if (AuxiliaryNodes.Num() > 0)
		{
			Object->SetArrayField(TEXT("AuxiliaryNodes"), AuxiliaryNodes);
		}

		TArray<TSharedPtr<FJsonValue>> Children;
		for (const FBTCompositeChild& Child : Node->Children)
		{
			if (Child.ChildComposite != nullptr)
			{
				AddNodeObject(Children, ReadComposite(Child.ChildComposite));
			}
			else if (Child.ChildTask != nullptr)
			{
				AddNodeObject(Children, ReadBehaviorTreeNode(Child.ChildTask));
			}
		}
		if (Children.Num() > 0)
		{
			Object->SetArrayField(TEXT("Children"), Children);
		}
		return Object;
	};
	return ReadComposite(Composite);
}
