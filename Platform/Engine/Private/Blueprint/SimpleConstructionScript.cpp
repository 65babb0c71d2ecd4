#include "Engine/SimpleConstructionScript.h"
#include "Engine/SCS_Node.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Components/ActorComponent.h"
#include "Components/SceneComponent.h"
#include "GameFramework/Actor.h"

const FString USimpleConstructionScript::ComponentTemplateNameSuffix(TEXT("_GEN_VARIABLE"));

USimpleConstructionScript::USimpleConstructionScript(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

USCS_Node* USimpleConstructionScript::CreateNode(UClass* NewComponentClass, FName NewComponentVariableName)
{
	if (NewComponentClass == nullptr || !NewComponentClass->IsChildOf(UActorComponent::StaticClass()) || NewComponentClass->HasAnyClassFlags(CLASS_Abstract))
	{
		return nullptr;
	}
	const FName VariableName = GenerateNewComponentName(NewComponentClass, NewComponentVariableName);
	USCS_Node* Node = NewObject<USCS_Node>(this, NAME_None, RF_Transactional);
	Node->ComponentClass = NewComponentClass;
	Node->VariableGuid = FGuid::NewGuid();
	Node->ComponentTemplate = NewObject<UActorComponent>(this, NewComponentClass, FName(*(VariableName.ToString() + ComponentTemplateNameSuffix)), RF_ArchetypeObject | RF_Public | RF_Transactional);
	Node->SetVariableName(VariableName, false);
	return Node;
}

void USimpleConstructionScript::AddNode(USCS_Node* Node)
{
	if (Node == nullptr || RootNodes.Contains(Node))
	{
		return;
	}
	Modify();
	RootNodes.Add(Node);
	AllNodes.AddUnique(Node);
	for (USCS_Node* Child : Node->GetAllNodes())
	{
		AllNodes.AddUnique(Child);
	}
}

void USimpleConstructionScript::RemoveNode(USCS_Node* Node, bool bValidateSceneRootNodes)
{
	if (Node == nullptr)
	{
		return;
	}
	Modify();
	if (USCS_Node* Parent = FindParentNode(Node))
	{
		Parent->RemoveChildNode(Node, false);
	}
	RootNodes.Remove(Node);
	for (USCS_Node* Inner : Node->GetAllNodes())
	{
		AllNodes.Remove(Inner);
	}
	if (DefaultSceneRootNode == Node)
	{
		DefaultSceneRootNode = nullptr;
	}
}

void USimpleConstructionScript::RemoveNodeAndPromoteChildren(USCS_Node* Node)
{
	if (Node == nullptr)
	{
		return;
	}
	Modify();
	USCS_Node* Parent = FindParentNode(Node);
	const TArray<USCS_Node*> Children = Node->GetChildNodes();
	Node->Modify();
	for (USCS_Node* Child : Children)
	{
		Node->RemoveChildNode(Child, false);
		if (Parent != nullptr)
		{
			Parent->AddChildNode(Child, false);
		}
		else
		{
			RootNodes.Add(Child);
		}
	}
	RemoveNode(Node);
}

USCS_Node* USimpleConstructionScript::FindSCSNode(const FName InName) const
{
	for (USCS_Node* Node : AllNodes)
	{
		if (Node != nullptr && Node->GetVariableName() == InName)
		{
			return Node;
		}
	}
	return nullptr;
}

USCS_Node* USimpleConstructionScript::FindSCSNodeByGuid(const FGuid Guid) const
{
	for (USCS_Node* Node : AllNodes)
	{
		if (Node != nullptr && Node->VariableGuid == Guid)
		{
			return Node;
		}
	}
	return nullptr;
}

USCS_Node* USimpleConstructionScript::FindParentNode(USCS_Node* InNode) const
{
	for (USCS_Node* Node : AllNodes)
	{
		if (Node != nullptr && Node->ChildNodes.Contains(InNode))
		{
			return Node;
		}
	}
	return nullptr;
}

UBlueprint* USimpleConstructionScript::GetBlueprint() const
{
	for (UObject* Outer = GetOuter(); Outer != nullptr; Outer = Outer->GetOuter())
	{
		if (UBlueprint* Blueprint = Cast<UBlueprint>(Outer))
		{
			return Blueprint;
		}
		if (UClass* Class = Cast<UClass>(Outer))
		{
			return Cast<UBlueprint>(Class->ClassGeneratedBy);
		}
	}
	return nullptr;
}

UClass* USimpleConstructionScript::GetOwnerClass() const
{
	const UBlueprint* Blueprint = GetBlueprint();
	return Blueprint != nullptr ? Blueprint->GeneratedClass.Get() : nullptr;
}

FName USimpleConstructionScript::GenerateNewComponentName(const UClass* ComponentClass, FName DesiredName) const
{
	if (!DesiredName.IsNone() && FindSCSNode(DesiredName) == nullptr)
	{
		return DesiredName;
	}
	FString Base = DesiredName.IsNone() ? ComponentClass->GetName() : DesiredName.ToString();
	Base.RemoveFromEnd(TEXT("Component"));
	if (Base.IsEmpty())
	{
		Base = TEXT("Component");
	}
	for (int32 Counter = DesiredName.IsNone() ? 0 : 1;; ++Counter)
	{
		const FName Candidate(*(Counter == 0 ? Base : FString::Printf(TEXT("%s%d"), *Base, Counter)));
		if (FindSCSNode(Candidate) == nullptr)
		{
			return Candidate;
		}
	}
}

void USimpleConstructionScript::ExecuteScriptOnActor(AActor* Actor) const
{
	if (Actor == nullptr)
	{
		return;
	}
	TFunction<void(const USCS_Node*, USceneComponent*)> Spawn = [&Spawn, Actor](const USCS_Node* Node, USceneComponent* Parent)
	{
		if (Node == nullptr || Node->ComponentTemplate == nullptr)
		{
			return;
		}
		UActorComponent* Component = NewObject<UActorComponent>(Actor, Node->ComponentTemplate->GetClass(), Node->GetVariableName(), RF_Transactional, Node->ComponentTemplate);
		Component->CreationMethod = EComponentCreationMethod::SimpleConstructionScript;
		Actor->BlueprintCreatedComponents.Add(Component);
		USceneComponent* Scene = Cast<USceneComponent>(Component);
		if (Scene != nullptr)
		{
			if (Parent != nullptr)
			{
				Scene->SetupAttachment(Parent, Node->AttachToName);
			}
			else if (Actor->RootComponent == nullptr)
			{
				Actor->RootComponent = Scene;
			}
			else if (Actor->RootComponent != Scene)
			{
				Scene->SetupAttachment(Actor->RootComponent, Node->AttachToName);
			}
		}
		for (const USCS_Node* Child : Node->GetChildNodes())
		{
			Spawn(Child, Scene != nullptr ? Scene : Parent);
		}
	};
	for (const USCS_Node* Root : GetRootNodes())
	{
		Spawn(Root, nullptr);
	}
}

USCS_Node::USCS_Node(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void USCS_Node::SetVariableName(const FName& NewName, bool bRenameTemplate)
{
	Modify();
	InternalVariableName = NewName;
	if (bRenameTemplate && ComponentTemplate != nullptr)
	{
		ComponentTemplate->Rename(*(NewName.ToString() + USimpleConstructionScript::ComponentTemplateNameSuffix), nullptr, REN_DontCreateRedirectors);
	}
}

TArray<USCS_Node*> USCS_Node::GetAllNodes()
{
	TArray<USCS_Node*> Result;
	Result.Add(this);
	for (int32 Index = 0; Index < Result.Num(); ++Index)
	{
		for (USCS_Node* Child : Result[Index]->ChildNodes)
		{
			if (Child != nullptr)
			{
				Result.Add(Child);
			}
		}
	}
	return Result;
}

void USCS_Node::AddChildNode(USCS_Node* InNode, bool bAddToAllNodes)
{
	if (InNode == nullptr || ChildNodes.Contains(InNode))
	{
		return;
	}
	Modify();
	ChildNodes.Add(InNode);
	if (bAddToAllNodes)
	{
		if (USimpleConstructionScript* Script = GetSCS())
		{
			Script->Modify();
			for (USCS_Node* Inner : InNode->GetAllNodes())
			{
				Script->AllNodes.AddUnique(Inner);
			}
		}
	}
}

void USCS_Node::RemoveChildNode(USCS_Node* InNode, bool bRemoveFromAllNodes)
{
	Modify();
	if (ChildNodes.Remove(InNode) > 0 && bRemoveFromAllNodes)
	{
		if (USimpleConstructionScript* Script = GetSCS())
		{
			Script->Modify();
			for (USCS_Node* Inner : InNode->GetAllNodes())
			{
				Script->AllNodes.Remove(Inner);
			}
		}
	}
}

void USCS_Node::SetParent(USCS_Node* InParentNode)
{
	Modify();
	ParentComponentOrVariableName = InParentNode != nullptr ? InParentNode->GetVariableName() : NAME_None;
	bIsParentComponentNative = false;
}

void USCS_Node::SetParent(const USceneComponent* InParentComponent)
{
	Modify();
	ParentComponentOrVariableName = InParentComponent != nullptr ? InParentComponent->GetFName() : NAME_None;
	bIsParentComponentNative = InParentComponent != nullptr;
}

USimpleConstructionScript* USCS_Node::GetSCS() const
{
	return Cast<USimpleConstructionScript>(GetOuter());
}

bool USCS_Node::IsRootNode() const
{
	const USimpleConstructionScript* Script = GetSCS();
	return Script != nullptr && Script->GetRootNodes().Contains(const_cast<USCS_Node*>(this));
}
