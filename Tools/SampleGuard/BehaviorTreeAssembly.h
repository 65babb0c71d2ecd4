// Putting behaviour trees together in code, as the behaviour tree editor leaves them: keys of a
// blackboard, children of a composite linked to their parent, and node settings by their text.
#pragma once

#include "CoreMinimal.h"
#include "BehaviorTree/BlackboardData.h"
#include "BehaviorTree/BTCompositeNode.h"
#include "BehaviorTree/BTTaskNode.h"
#include "Templates/Casts.h"
#include "UObject/UnrealType.h"

#include <cstdio>

namespace BehaviorTreeAssembly
{
	inline FBlackboardEntry MakeKey(const TCHAR* Name, UBlackboardKeyType* KeyType, bool bInstanceSynced = false)
	{
		FBlackboardEntry Entry;
		Entry.EntryName = FName(Name);
		Entry.KeyType = KeyType;
		Entry.bInstanceSynced = bInstanceSynced;
		return Entry;
	}

	/** Adds a composite or a task as the last child of Parent; its decorators go on the entry returned. */
	inline FBTCompositeChild& AddChild(UBTCompositeNode* Parent, UBTNode* Child)
	{
		FBTCompositeChild& Entry = Parent->Children.AddDefaulted_GetRef();
		if (UBTCompositeNode* Composite = Cast<UBTCompositeNode>(Child))
		{
			Entry.ChildComposite = Composite;
		}
		else
		{
			Entry.ChildTask = Cast<UBTTaskNode>(Child);
		}
		Child->InitializeNode(Parent, 0, 0, 0);
		return Entry;
	}

	/** Sets a property by its text, as the details panel does; nodes keep most of theirs protected. */
	inline bool SetPropertyText(UObject* Object, const TCHAR* Name, const TCHAR* Text)
	{
		FProperty* Property = Object->GetClass()->FindPropertyByName(FName(Name));
		if (Property == nullptr || Property->ImportText_Direct(Text, Property->ContainerPtrToValuePtr<void>(Object), Object, PPF_None) == nullptr)
		{
			std::fprintf(stderr, "can't set %s of %s\n", TCHAR_TO_UTF8(Name), TCHAR_TO_UTF8(*Object->GetName()));
			return false;
		}
		return true;
	}
}
