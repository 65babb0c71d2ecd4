// The class objects of CoreUObject's own classes, which are declared by hand rather than by the header tool.
#include "UObject/CodeGenParams.h"
#include "UObject/Interface.h"
#include "UObject/Package.h"
#include "UObject/NoExportTypes.h"

#define IMPLEMENT_INTRINSIC_CLASS(TClass) \
	UClass* TClass::GetPrivateStaticClass() \
	{ \
		static UClass* Class = nullptr; \
		if (Class == nullptr) \
		{ \
			UECodeGen_Private::FClassParams Params; \
			Params.Name = TEXT(#TClass) + 1; \
			Params.PackageName = TClass::StaticPackage(); \
			Params.Size = sizeof(TClass); \
			Params.Alignment = alignof(TClass); \
			Params.ClassFlags = TClass::StaticClassFlags; \
			Params.CastFlags = TClass::StaticClassCastFlags(); \
			Params.ConfigName = TClass::StaticConfigName(); \
			Params.ClassConstructor = &InternalConstructor<TClass>; \
			Params.SuperClassFunc = &TClass::Super::StaticClass; \
			Params.WithinClassFunc = &TClass::WithinClass::StaticClass; \
			Params.AddReferencedObjects = &TClass::AddReferencedObjects; \
			UECodeGen_Private::ConstructUClass(Class, Params); \
		} \
		return Class; \
	} \
	UClass* Z_Construct_UClass_##TClass##_NoRegister() \
	{ \
		return TClass::StaticClass(); \
	}

IMPLEMENT_INTRINSIC_CLASS(UObject)
IMPLEMENT_INTRINSIC_CLASS(UField)
IMPLEMENT_INTRINSIC_CLASS(UStruct)
IMPLEMENT_INTRINSIC_CLASS(UScriptStruct)
IMPLEMENT_INTRINSIC_CLASS(UClass)
IMPLEMENT_INTRINSIC_CLASS(UEnum)
IMPLEMENT_INTRINSIC_CLASS(UFunction)
IMPLEMENT_INTRINSIC_CLASS(UPackage)
IMPLEMENT_INTRINSIC_CLASS(UInterface)


UInterface::UInterface(const FObjectInitializer& ObjectInitializer)
	: UObject(ObjectInitializer)
{
}

namespace UE::CoreUObject::Private
{
	// CoreUObject's own types, made before anything looks one up by name.
	void RegisterCoreUObjectTypes()
	{
		UObject::StaticClass();
		UField::StaticClass();
		UStruct::StaticClass();
		UScriptStruct::StaticClass();
		UClass::StaticClass();
		UEnum::StaticClass();
		UFunction::StaticClass();
		UPackage::StaticClass();
		UInterface::StaticClass();
		TBaseStructure<FVector>::Get();
		TBaseStructure<FRotator>::Get();
		TBaseStructure<FQuat>::Get();
		TBaseStructure<FTransform>::Get();
		TBaseStructure<FLinearColor>::Get();
		TBaseStructure<FColor>::Get();
		TBaseStructure<FGuid>::Get();
	}
}
