#include "UObject/Object.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"
#include "UObject/ObjectSaveContext.h"
#include "Misc/ITransaction.h"
#include "CoreUObjectLog.h"
#include "ObjectConstruction.h"

using namespace UE::CoreUObject::Private;

namespace
{
	bool HoldsObjectReferences(const FProperty* Property)
	{
		if (Property == nullptr)
		{
			return false;
		}
		if (CastField<FObjectPropertyBase>(Property) || CastField<FInterfaceProperty>(Property) || CastField<FDelegateProperty>(Property) || CastField<FMulticastDelegateProperty>(Property))
		{
			return true;
		}
		if (const FArrayProperty* Array = CastField<FArrayProperty>(Property))
		{
			return HoldsObjectReferences(Array->Inner);
		}
		if (const FSetProperty* Set = CastField<FSetProperty>(Property))
		{
			return HoldsObjectReferences(Set->ElementProp);
		}
		if (const FMapProperty* Map = CastField<FMapProperty>(Property))
		{
			return HoldsObjectReferences(Map->KeyProp) || HoldsObjectReferences(Map->ValueProp);
		}
		if (const FStructProperty* Struct = CastField<FStructProperty>(Property))
		{
			for (FProperty* Inner = Struct->Struct != nullptr ? Struct->Struct->PropertyLink : nullptr; Inner != nullptr; Inner = Inner->PropertyLinkNext)
			{
				if (HoldsObjectReferences(Inner))
				{
					return true;
				}
			}
		}
		return false;
	}
}

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
		if (!(Flags & REN_NonTransactional))
		{
			// The open transaction keeps the old name and outer, so that undo puts the object back.
			Modify(!(Flags & REN_DoNotDirty));
		}
		UObject* OldOuter = GetOuter();
		const FName OldName = GetFName();
		FObjectBaseAccess::Rename(this, NewName, TargetOuter);
		PostRename(OldOuter, OldName);
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

// Transactions, dirty packages and saving

bool UObject::CanModify() const
{
	return !HasAnyFlags(RF_NeedInitialization | RF_BeginDestroyed) && !IsGarbage();
}

bool UObject::Modify(bool bAlwaysMarkDirty)
{
	bool bSavedToTransactionBuffer = false;
	if (CanModify())
	{
		if (GUndo != nullptr && HasAnyFlags(RF_Transactional))
		{
			GUndo->SaveObject(this);
			bSavedToTransactionBuffer = true;
		}
		if (bAlwaysMarkDirty)
		{
			MarkPackageDirty();
		}
	}
	return bSavedToTransactionBuffer;
}

bool UObject::MarkPackageDirty() const
{
	UPackage* Package = GetOutermost();
	if (Package == nullptr || Package->HasAnyFlags(RF_Transient) || Package->HasAnyPackageFlags(PKG_CompiledIn) || HasAnyFlags(RF_Transient))
	{
		return false;
	}
	Package->SetDirtyFlag(true);
	return true;
}

#if WITH_EDITOR
void UObject::PreEditUndo()
{
	PreEditChange(nullptr);
}

void UObject::PostEditUndo()
{
	PostEditChange();
}
#endif

void UObject::PostRename(UObject* OldOuter, const FName OldName)
{
}

void UObject::PreSave(FObjectPreSaveContext SaveContext)
{
}

void UObject::PostDuplicate(bool bDuplicateForPIE)
{
}

void UObject::GetAssetRegistryTags(TArray<FAssetRegistryTag>& OutTags) const
{
	for (FProperty* Property = GetClass()->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (!Property->HasAnyPropertyFlags(CPF_AssetRegistrySearchable))
		{
			continue;
		}
		FString Value;
		Property->ExportTextItem_InContainer(Value, this, nullptr, const_cast<UObject*>(this), PPF_None);
		const bool bNumeric = CastField<FNumericProperty>(Property) != nullptr && !CastField<FNumericProperty>(Property)->IsEnum();
		OutTags.Add(FAssetRegistryTag(Property->GetFName(), Value, bNumeric ? FAssetRegistryTag::TT_Numerical : FAssetRegistryTag::TT_Alphabetical));
	}
}

void UObject::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
}

void UObject::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
}

void UObject::AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector)
{
}

UObject* UObject::CreateDefaultSubobject(FName SubobjectFName, UClass* ReturnType, UClass* ClassToCreateByDefault, bool bIsRequired, bool bIsTransient)
{
	UClass* ClassToCreate = ClassToCreateByDefault != nullptr ? ClassToCreateByDefault : ReturnType;
	if (ClassToCreate == nullptr || SubobjectFName.IsNone())
	{
		UE_LOG(LogObj, Error, TEXT("CreateDefaultSubobject in %s needs a class and a name"), *GetFullName());
		return nullptr;
	}
	const EObjectFlags Flags = RF_DefaultSubObject | (GetMaskedFlags(RF_PropagateToSubObjects | RF_ClassDefaultObject) & ~RF_ClassDefaultObject) | (HasAnyFlags(RF_ClassDefaultObject) ? RF_ArchetypeObject : RF_NoFlags) | (bIsTransient ? RF_Transient : RF_NoFlags);
	UObject* Subobject = NewObject<UObject>(this, ClassToCreate, SubobjectFName, Flags);
	if (Subobject == nullptr || HasAnyFlags(RF_ClassDefaultObject))
	{
		return Subobject;
	}
	// Values set on the class default object's subobject carry over; its references to other subobjects
	// of the defaults would point into the wrong object, so they are left as the constructor made them.
	UObject* ClassDefaults = GetClass()->GetDefaultObject(false);
	UObject* Archetype = ClassDefaults != nullptr && ClassDefaults != this ? StaticFindObjectFast(ClassToCreate, ClassDefaults, SubobjectFName) : nullptr;
	UObject* SubobjectDefaults = ClassToCreate->GetDefaultObject();
	if (Archetype != nullptr && SubobjectDefaults != nullptr)
	{
		for (FProperty* Property = ClassToCreate->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			if (HoldsObjectReferences(Property))
			{
				continue;
			}
			bool bDiffers = false;
			for (int32 Index = 0; Index < Property->ArrayDim && !bDiffers; ++Index)
			{
				bDiffers = !Property->Identical_InContainer(Archetype, SubobjectDefaults, Index);
			}
			if (bDiffers)
			{
				Property->CopyCompleteValue_InContainer(Subobject, Archetype);
			}
		}
	}
	return Subobject;
}

bool UObjectBaseUtility::IsNative() const
{
	for (const UObject* Object = static_cast<const UObject*>(static_cast<const UObjectBase*>(this)); Object != nullptr; Object = Object->GetOuter())
	{
		if (Object->IsA(UClass::StaticClass()) && static_cast<const UClass*>(Object)->HasAnyClassFlags(CLASS_Native))
		{
			return true;
		}
		if (Object->IsA(UScriptStruct::StaticClass()) && (static_cast<const UScriptStruct*>(Object)->StructFlags & STRUCT_Native) != 0)
		{
			return true;
		}
	}
	return false;
}
