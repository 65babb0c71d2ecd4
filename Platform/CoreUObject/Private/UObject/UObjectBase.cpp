#include "UObject/UObjectBase.h"
#include "CoreUObjectLog.h"
#include "ObjectConstruction.h"
#include "ObjectRegistry.h"

using namespace UE::CoreUObject::Private;

UObjectBase::UObjectBase()
	: ObjectFlags(RF_NoFlags)
	, InternalIndex(INDEX_NONE)
	, ClassPrivate(nullptr)
	, OuterPrivate(nullptr)
	, bRooted(false)
{
	FObjectInitializer* Initializer = FObjectConstruction::TopInitializer();
	if (Initializer == nullptr || static_cast<void*>(Initializer->Obj) != static_cast<void*>(this))
	{
		UE_LOG(LogObj, Error, TEXT("An object was constructed outside of NewObject; it has no class, name or outer"));
		return;
	}
	ObjectFlags = Initializer->PendingFlags;
	ClassPrivate = Initializer->PendingClass;
	NamePrivate = Initializer->PendingName;
	OuterPrivate = Initializer->PendingOuter;
	bRooted = (ObjectFlags & RF_MarkAsRootSet) != 0;
	InternalIndex = FObjectRegistry::Get().Add(this, NamePrivate, OuterPrivate);
}

UObjectBase::~UObjectBase()
{
	if (InternalIndex != INDEX_NONE)
	{
		FObjectRegistry::Get().Remove(this, InternalIndex, NamePrivate, OuterPrivate);
		InternalIndex = INDEX_NONE;
	}
}

bool UObjectBase::IsValidLowLevel() const
{
	return ClassPrivate != nullptr && FObjectRegistry::Get().Contains(this, InternalIndex);
}

void UObjectBase::LowLevelRename(FName NewName, UObject* NewOuter)
{
	if (InternalIndex != INDEX_NONE)
	{
		FObjectRegistry::Get().Move(this, NamePrivate, OuterPrivate, NewName, NewOuter);
	}
	NamePrivate = NewName;
	OuterPrivate = NewOuter;
}
