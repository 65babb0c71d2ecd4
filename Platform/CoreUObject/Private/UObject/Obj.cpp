#include "UObject/Object.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"
#include "CoreUObjectLog.h"
#include "ObjectConstruction.h"

using namespace UE::CoreUObject::Private;

UObject::UObject()
{
}

UObject::UObject(const FObjectInitializer& ObjectInitializer)
{
}

UObject::~UObject()
{
}

void UObject::PostInitProperties()
{
}

void UObject::PostLoad()
{
}

void UObject::BeginDestroy()
{
	SetFlags(RF_BeginDestroyed);
}

void UObject::FinishDestroy()
{
	SetFlags(RF_FinishDestroyed);
}

#if WITH_EDITOR
void UObject::PreEditChange(FProperty* PropertyAboutToChange)
{
}

void UObject::PostEditChangeProperty(FPropertyChangedEvent& PropertyChangedEvent)
{
}

void UObject::PostEditChange()
{
	FPropertyChangedEvent EmptyPropertyChangedEvent(nullptr);
	PostEditChangeProperty(EmptyPropertyChangedEvent);
}

bool UObject::CanEditChange(const FProperty* InProperty) const
{
	if (InProperty == nullptr)
	{
		return true;
	}
	if (InProperty->HasAnyPropertyFlags(CPF_EditConst))
	{
		return false;
	}
	const bool bIsTemplate = IsTemplate();
	return !(bIsTemplate && InProperty->HasAnyPropertyFlags(CPF_DisableEditOnTemplate))
		&& !(!bIsTemplate && InProperty->HasAnyPropertyFlags(CPF_DisableEditOnInstance));
}
#endif

bool UObject::Rename(const TCHAR* InName, UObject* NewOuter, ERenameFlags Flags)
{
	UObject* TargetOuter = NewOuter != nullptr ? NewOuter : GetOuter();
	const FName NewName = InName != nullptr ? FName(InName) : (NewOuter != nullptr ? GetFName() : MakeUniqueObjectName(TargetOuter, GetClass()));
	if (NewName.IsNone())
	{
		return false;
	}
	UObject* Existing = StaticFindObjectFast(nullptr, TargetOuter, NewName);
	if (Existing != nullptr && Existing != this)
	{
		if (!(Flags & REN_Test))
		{
			UE_LOG(LogObj, Error, TEXT("Can't rename %s to %s: that name is taken in %s"), *GetFullName(), *NewName.ToString(), TargetOuter ? *TargetOuter->GetPathName() : TEXT("None"));
		}
		return false;
	}
	if (TargetOuter == this || (TargetOuter != nullptr && TargetOuter->IsIn(this)))
	{
		UE_LOG(LogObj, Error, TEXT("Can't rename %s into itself"), *GetFullName());
		return false;
	}
	if (!(Flags & REN_Test))
	{
		FObjectBaseAccess::Rename(this, NewName, TargetOuter);
	}
	return true;
}

UObject* UObject::GetArchetype() const
{
	UClass* Class = GetClass();
	if (Class == nullptr)
	{
		return nullptr;
	}
	if (HasAnyFlags(RF_ClassDefaultObject))
	{
		UClass* SuperClass = Class->GetSuperClass();
		return SuperClass != nullptr ? SuperClass->GetDefaultObject() : nullptr;
	}
	return Class->GetDefaultObject();
}

bool UObject::IsAsset() const
{
	UObject* Outer = GetOuter();
	return !IsTemplate() && HasAnyFlags(RF_Public) && !HasAnyFlags(RF_Transient) && Outer != nullptr
		&& Outer->IsA(UPackage::StaticClass()) && !Outer->HasAnyFlags(RF_Transient);
}

void* UObject::GetInterfaceAddress(UClass* InterfaceClass)
{
	if (InterfaceClass == nullptr || !InterfaceClass->HasAnyClassFlags(CLASS_Interface))
	{
		return nullptr;
	}
	for (UClass* Class = GetClass(); Class != nullptr; Class = Class->GetSuperClass())
	{
		for (const FImplementedInterface& Interface : Class->Interfaces)
		{
			if (Interface.Class != nullptr && Interface.Class->IsChildOf(InterfaceClass))
			{
				return reinterpret_cast<uint8*>(this) + Interface.PointerOffset;
			}
		}
	}
	return nullptr;
}
