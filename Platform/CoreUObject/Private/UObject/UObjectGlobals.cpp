#include "UObject/UObjectGlobals.h"
#include "UObject/Class.h"
#include "UObject/CodeGenParams.h"
#include "UObject/Package.h"
#include "UObject/UnrealType.h"
#include "Misc/PackageName.h"
#include "Templates/Casts.h"
#include "CoreUObjectLog.h"
#include "ObjectConstruction.h"
#include "ObjectRegistry.h"
#include <mutex>
#include <new>
#include <vector>

using namespace UE::CoreUObject::Private;

namespace
{
	thread_local FObjectInitializer* GTopInitializer = nullptr;

	std::mutex& PendingRegistrationsMutex()
	{
		static std::mutex Mutex;
		return Mutex;
	}

	std::vector<void (*)()>& PendingRegistrations()
	{
		static std::vector<void (*)()> Registrations;
		return Registrations;
	}

	bool IsObjectOfClass(const UObjectBase* Object, const UClass* Class, bool bExactClass)
	{
		if (Class == nullptr)
		{
			return true;
		}
		return bExactClass ? Object->GetClass() == Class : static_cast<const UObject*>(Object)->IsA(Class);
	}

	// Copies every property value of Source into Target; transient ones from TransientSource when given.
	void CopyAllProperties(UObject* Target, const UObject* Source, const UObject* TransientSource);
}

namespace
{
	// A reference that points into the archetype (one of its subobjects) is moved to the object of the same
	// relative path inside the new object, so that copies don't share their archetype's subobjects.
	class FArchetypeReferenceRemap final : public FReferenceCollector
	{
	public:
		FArchetypeReferenceRemap(UObject* InTarget, const UObject* InArchetype)
			: Target(InTarget)
			, Archetype(InArchetype)
		{
		}
		void HandleObjectReference(UObject*& Object, const UObject* ReferencingObject, const FProperty* ReferencingProperty) override
		{
			if (Object != nullptr && Object->IsIn(Archetype))
			{
				if (UObject* Own = StaticFindObject(Object->GetClass(), Target, *Object->GetPathName(Archetype)))
				{
					Object = Own;
				}
			}
		}

	private:
		UObject* Target;
		const UObject* Archetype;
	};

	void RemapArchetypeReferences(UObject* Target, const UObject* Archetype)
	{
		if (Archetype != nullptr && Target != Archetype)
		{
			FArchetypeReferenceRemap Remap(Target, Archetype);
			Remap.AddPropertyReferences(Target->GetClass(), Target, Target);
		}
	}

	void CopyAllProperties(UObject* Target, const UObject* Source, const UObject* TransientSource)
	{
		for (FProperty* Property = Target->GetClass()->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			const UObject* From = (TransientSource && Property->HasAnyPropertyFlags(CPF_Transient)) ? TransientSource : Source;
			if (From->IsA(Property->GetOwnerClass()))
			{
				Property->CopyCompleteValue_InContainer(Target, From);
			}
		}
	}
}

// The initializer

FObjectInitializer::FObjectInitializer()
{
}

FObjectInitializer::~FObjectInitializer()
{
	if (bPushed)
	{
		GTopInitializer = Previous;
	}
}

FObjectInitializer& FObjectInitializer::Get()
{
	if (GTopInitializer == nullptr)
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("FObjectInitializer::Get is only valid inside the constructor of an object made by NewObject"));
		static FObjectInitializer Empty;
		return Empty;
	}
	return *GTopInitializer;
}

FObjectInitializer* FObjectConstruction::TopInitializer()
{
	return GTopInitializer;
}

void* FObjectConstruction::AllocateObjectMemory(int32 Size, int32 Alignment)
{
	// Plain operator new keeps the memory compatible with the classes' operator delete; it is aligned
	// for every type but over-aligned ones.
	void* Memory = Alignment > __STDCPP_DEFAULT_NEW_ALIGNMENT__ ? ::operator new(static_cast<size_t>(Size), std::align_val_t(static_cast<size_t>(Alignment))) : ::operator new(static_cast<size_t>(Size));
	FMemory::Memzero(Memory, static_cast<SIZE_T>(Size));
	return Memory;
}

UObject* FObjectConstruction::Construct(void* Memory, UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags, UObject* Archetype, void (*Constructor)(const FObjectInitializer&))
{
	FObjectInitializer Initializer;
	Initializer.Obj = static_cast<UObject*>(Memory);
	Initializer.ObjectArchetype = Archetype;
	Initializer.PendingClass = Class;
	Initializer.PendingOuter = Outer;
	Initializer.PendingName = Name;
	Initializer.PendingFlags = Flags;
	Initializer.Previous = GTopInitializer;
	Initializer.bPushed = true;
	GTopInitializer = &Initializer;
	Constructor(Initializer);
	return Initializer.Obj;
}

void FObjectConstruction::FreeObjectMemory(void* Memory, int32 Alignment)
{
	if (Alignment > static_cast<int32>(__STDCPP_DEFAULT_NEW_ALIGNMENT__))
	{
		::operator delete(Memory, std::align_val_t(static_cast<size_t>(Alignment)));
	}
	else
	{
		::operator delete(Memory);
	}
}

bool FObjectConstruction::IsNonNativeProperty(const FProperty* Property)
{
	const UObject* Owner = Property->GetOwnerUObject();
	return Owner != nullptr && Owner->IsA(UClass::StaticClass()) && !static_cast<const UClass*>(Owner)->HasAnyClassFlags(CLASS_Native);
}

void FObjectConstruction::InitializeNonNativeProperties(UObject* Object)
{
	UClass* Class = Object->GetClass();
	if (Class == nullptr || Class->HasAnyClassFlags(CLASS_Native))
	{
		return;
	}
	for (FProperty* Property = Class->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (IsNonNativeProperty(Property))
		{
			Property->InitializeValue_InContainer(Object);
		}
	}
}

void FObjectConstruction::DestroyNonNativeProperties(UObject* Object)
{
	UClass* Class = Object->GetClass();
	if (Class == nullptr || Class->HasAnyClassFlags(CLASS_Native))
	{
		return;
	}
	for (FProperty* Property = Class->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
	{
		if (IsNonNativeProperty(Property))
		{
			Property->DestroyValue_InContainer(Object);
		}
	}
}

void FObjectConstruction::DestroyAndFree(UObject* Object)
{
	UClass* Class = Object->GetClass();
	const int32 Alignment = Class != nullptr ? Class->GetMinAlignment() : 1;
	DestroyNonNativeProperties(Object);
	Object->~UObject();
	FreeObjectMemory(Object, Alignment);
}

void FObjectConstruction::CopyFromClassDefaults(UObject* Object, UClass* Class, UObject* ClassDefaults)
{
	if (!Class->HasAnyClassFlags(CLASS_Native))
	{
		// A class made at run time starts every object as a copy of its defaults.
		CopyAllProperties(Object, ClassDefaults, nullptr);
		return;
	}
	if (!Class->bPostConstructCopyListReady)
	{
		// The first object of the class shows what its constructor gives; where the defaults differ (values
		// loaded from config, or set on the default object), every later object copies them too.
		for (FProperty* Property = Class->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			for (int32 Index = 0; Index < Property->ArrayDim; ++Index)
			{
				if (!Property->Identical_InContainer(Object, ClassDefaults, Index))
				{
					Class->PostConstructCopyList.Add(Property);
					break;
				}
			}
		}
		Class->bPostConstructCopyListReady = true;
	}
	for (FProperty* Property : Class->PostConstructCopyList)
	{
		Property->CopyCompleteValue_InContainer(Object, ClassDefaults);
	}
}

// Construction

UObject* StaticConstructObject_Internal(const FStaticConstructObjectParameters& Params)
{
	UClass* Class = const_cast<UClass*>(Params.Class);
	if (Class == nullptr)
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("NewObject was given no class"));
		return nullptr;
	}
	const bool bIsClassDefaultObject = (Params.SetFlags & RF_ClassDefaultObject) != 0;
	if (Class->HasAnyClassFlags(CLASS_Abstract) && !bIsClassDefaultObject)
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("Class %s is abstract: objects of it can't be made"), *Class->GetName());
		return nullptr;
	}
	// A class made at run time is built by the constructor of its nearest native ancestor.
	UClass::ClassConstructorType Constructor = nullptr;
	for (UClass* ConstructorClass = Class; ConstructorClass != nullptr && Constructor == nullptr; ConstructorClass = ConstructorClass->GetSuperClass())
	{
		Constructor = ConstructorClass->ClassConstructor;
	}
	if (Constructor == nullptr)
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("Class %s has no constructor"), *Class->GetName());
		return nullptr;
	}
	UObject* Outer = Params.Outer;
	if (Outer == nullptr && !Class->IsChildOf(UPackage::StaticClass()))
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("An object of class %s needs an outer; only packages stand alone"), *Class->GetName());
		return nullptr;
	}
	if (Outer != nullptr && Class->ClassWithin != nullptr && !Outer->IsA(Class->ClassWithin))
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("An object of class %s must be inside a %s, not in %s"), *Class->GetName(), *Class->ClassWithin->GetName(), *Outer->GetFullName());
		return nullptr;
	}

	UObject* Template = Params.Template;
	if (Template != nullptr && !Template->IsA(Class))
	{
		UE_LOG(LogUObjectGlobals, Error, TEXT("Template %s is not a %s; the class defaults are used instead"), *Template->GetFullName(), *Class->GetName());
		Template = nullptr;
	}
	UObject* ClassDefaults = nullptr;
	if (!bIsClassDefaultObject && Class->PropertyLink != nullptr)
	{
		ClassDefaults = Class->GetDefaultObject();
	}
	if (Template == nullptr)
	{
		Template = ClassDefaults;
	}

	FName Name = Params.Name;
	if (Name.IsNone())
	{
		Name = MakeUniqueObjectName(Outer, Class);
	}
	void* Memory = nullptr;
	if (UObject* Existing = StaticFindObjectFast(nullptr, Outer, Name))
	{
		if (Existing->GetClass() != Class || Existing->HasAnyFlags(RF_ClassDefaultObject) || Existing == Template)
		{
			UE_LOG(LogUObjectGlobals, Error, TEXT("Can't replace %s with a new object of class %s; the new object gets another name"), *Existing->GetFullName(), *Class->GetName());
			Name = MakeUniqueObjectName(Outer, Class, Name);
		}
		else
		{
			// As in the engine, a new object of the same name and class takes the old one's place and memory.
			FObjectConstruction::DestroyNonNativeProperties(Existing);
			Existing->~UObject();
			Memory = Existing;
			FMemory::Memzero(Memory, static_cast<SIZE_T>(Class->GetPropertiesSize()));
		}
	}
	if (Memory == nullptr)
	{
		Memory = FObjectConstruction::AllocateObjectMemory(Class->GetPropertiesSize(), Class->GetMinAlignment());
	}
	if (bIsClassDefaultObject)
	{
		// Set before the constructor runs, so that code in it asking for the defaults gets this object.
		FObjectConstruction::SetClassDefaultObject(Class, static_cast<UObject*>(Memory));
	}

	UObject* Object = FObjectConstruction::Construct(Memory, Class, Outer, Name, Params.SetFlags, Template, Constructor);
	FObjectConstruction::InitializeNonNativeProperties(Object);

	if (bIsClassDefaultObject)
	{
		// Properties of classes made at run time (Blueprints' classes) have no constructor to set them: a
		// class's defaults start from its parent's, as native ones start from their constructors.
		const UClass* SuperClass = Class->GetSuperClass();
		if (const UObject* SuperDefaults = SuperClass != nullptr ? SuperClass->GetDefaultObject(false) : nullptr)
		{
			for (FProperty* Property = SuperClass->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
			{
				const UClass* Owner = Property->GetOwnerClass();
				if (Owner != nullptr && !Owner->HasAnyClassFlags(CLASS_Native))
				{
					Property->CopyCompleteValue_InContainer(Object, SuperDefaults);
				}
			}
		}
		if (Class->HasAnyClassFlags(CLASS_Config))
		{
			Object->LoadConfig();
		}
	}
	else
	{
		if (Template != nullptr && Template == ClassDefaults)
		{
			FObjectConstruction::CopyFromClassDefaults(Object, Class, ClassDefaults);
			RemapArchetypeReferences(Object, ClassDefaults);
		}
		else if (Template != nullptr)
		{
			CopyAllProperties(Object, Template, Params.bCopyTransientsFromClassDefaults ? ClassDefaults : nullptr);
			RemapArchetypeReferences(Object, Template);
		}
		if (Class->HasAnyClassFlags(CLASS_PerObjectConfig))
		{
			Object->LoadConfig();
		}
	}
	Object->PostInitProperties();
	return Object;
}

UObject* UClass::CreateDefaultObject()
{
	if (ClassDefaultObject != nullptr)
	{
		return ClassDefaultObject;
	}
	if (UClass* SuperClass = GetSuperClass())
	{
		// A class's defaults build on its parent's, which must exist first.
		SuperClass->GetDefaultObject();
		if (ClassDefaultObject != nullptr)
		{
			return ClassDefaultObject;
		}
	}
	FStaticConstructObjectParameters Params(this);
	Params.Outer = GetOuter();
	Params.Name = FName(*(FString(TEXT("Default__")) + GetName()));
	Params.SetFlags = RF_Public | RF_ClassDefaultObject | RF_ArchetypeObject;
	StaticConstructObject_Internal(Params);
	return ClassDefaultObject;
}

// Packages and names

UPackage* CreatePackage(const TCHAR* PackageName)
{
	UClass* PackageClass = UPackage::StaticClass();
	FString Name = PackageName != nullptr ? FString(PackageName) : FString();
	if (Name.IsEmpty())
	{
		Name = MakeUniqueObjectName(nullptr, PackageClass, FName(TEXT("/Temp/Untitled"))).ToString();
	}
	const FName PackageFName(*Name);
	if (UObject* Existing = StaticFindObjectFast(nullptr, nullptr, PackageFName))
	{
		if (Existing->IsA(PackageClass))
		{
			return static_cast<UPackage*>(Existing);
		}
		UE_LOG(LogUObjectGlobals, Error, TEXT("%s is the name of an object that is not a package"), *Name);
		return nullptr;
	}
	UPackage* Package = NewObject<UPackage>(nullptr, PackageClass, PackageFName, RF_Public);
	if (Package != nullptr && Name.StartsWith(TEXT("/Script/")))
	{
		Package->SetPackageFlags(PKG_CompiledIn | PKG_ContainsScript);
	}
	return Package;
}

UPackage* GetTransientPackage()
{
	static UPackage* TransientPackage = nullptr;
	if (TransientPackage == nullptr)
	{
		TransientPackage = CreatePackage(TEXT("/Engine/Transient"));
		TransientPackage->SetFlags(RF_Transient);
		TransientPackage->AddToRoot();
	}
	return TransientPackage;
}

FName MakeUniqueObjectName(UObject* Outer, const UClass* Class, FName BaseName)
{
	const FName Base = BaseName.IsNone() ? (Class != nullptr ? Class->GetFName() : FName(TEXT("Object"))) : BaseName;
	const FString BaseString = Base.ToString();
	for (;;)
	{
		const int32 Number = FObjectRegistry::Get().NextNameNumber(Base);
		const FName Candidate(*FString::Printf(TEXT("%s_%d"), *BaseString, Number));
		if (StaticFindObjectFast(nullptr, Outer, Candidate) == nullptr)
		{
			return Candidate;
		}
	}
}

// Lookups

UObject* StaticFindObjectFast(UClass* Class, UObject* InOuter, FName InName, bool bExactClass, EObjectFlags ExclusiveFlags)
{
	if (InName.IsNone())
	{
		return nullptr;
	}
	for (UObjectBase* Candidate : FObjectRegistry::Get().FindByName(InName))
	{
		if (Candidate->GetOuter() == InOuter && IsObjectOfClass(Candidate, Class, bExactClass) && (Candidate->GetFlags() & ExclusiveFlags) == 0)
		{
			return static_cast<UObject*>(Candidate);
		}
	}
	return nullptr;
}

UObject* StaticFindObject(UClass* Class, UObject* InOuter, const TCHAR* InName, bool bExactClass)
{
	ProcessNewlyLoadedUObjects();
	if (InName == nullptr || *InName == 0)
	{
		return nullptr;
	}
	// An export text path ("/Script/Engine.Actor'/Game/A.A'") names the object in its quotes.
	const FString ObjectPath = FPackageName::ExportTextPathToObjectPath(InName);
	const TCHAR* Name = *ObjectPath;
	// "/Package/Path.Object:Subobject.Inner": the first part is the outermost object, each further part an inner.
	TArray<FString> Parts;
	FString Current;
	for (const TCHAR* Char = Name; *Char; ++Char)
	{
		if (*Char == TEXT('.') || *Char == TEXT(':'))
		{
			Parts.Add(Current);
			Current.Empty();
		}
		else
		{
			Current.AppendChar(*Char);
		}
	}
	Parts.Add(Current);
	UObject* Outer = InOuter;
	for (int32 Index = 0; Index < Parts.Num(); ++Index)
	{
		const FName PartName(*Parts[Index], FNAME_Find);
		if (Parts[Index].IsEmpty() || PartName.IsNone())
		{
			return nullptr;
		}
		const bool bLast = Index == Parts.Num() - 1;
		Outer = StaticFindObjectFast(bLast ? Class : nullptr, Outer, PartName, bLast && bExactClass);
		if (Outer == nullptr)
		{
			return nullptr;
		}
	}
	return Outer;
}

UObject* StaticFindFirstObject(UClass* Class, const TCHAR* Name, EFindFirstObjectOptions Options, ELogVerbosity::Type AmbiguousMessageVerbosity, const TCHAR* InCurrentOperation)
{
	ProcessNewlyLoadedUObjects();
	if (Name == nullptr || *Name == 0)
	{
		return nullptr;
	}
	if (FCString::Strchr(Name, TEXT('/')) != nullptr)
	{
		return StaticFindObject(Class, nullptr, Name, EnumHasAnyFlags(Options, EFindFirstObjectOptions::ExactClass));
	}
	const FName ObjectName(Name, FNAME_Find);
	if (ObjectName.IsNone())
	{
		return nullptr;
	}
	const bool bExactClass = EnumHasAnyFlags(Options, EFindFirstObjectOptions::ExactClass);
	UObject* Result = nullptr;
	int32 NumMatches = 0;
	for (UObjectBase* Candidate : FObjectRegistry::Get().FindByName(ObjectName))
	{
		if (Candidate->GetClass() == nullptr || !IsObjectOfClass(Candidate, Class, bExactClass) || static_cast<UObject*>(Candidate)->IsGarbage())
		{
			continue;
		}
		++NumMatches;
		UObject* Object = static_cast<UObject*>(Candidate);
		if (Result == nullptr || (EnumHasAnyFlags(Options, EFindFirstObjectOptions::NativeFirst) && !Result->IsNative() && Object->IsNative()))
		{
			Result = Object;
		}
	}
	if (NumMatches > 1 && AmbiguousMessageVerbosity != ELogVerbosity::NoLogging)
	{
		UE_LOG(LogUObjectGlobals, Warning, TEXT("%s: %d objects are named %s; %s was taken"), InCurrentOperation != nullptr ? InCurrentOperation : TEXT("FindFirstObject"), NumMatches, Name, *Result->GetPathName());
	}
	return Result;
}

UPackage* FindPackage(UObject* InOuter, const TCHAR* PackageName)
{
	if (PackageName == nullptr || *PackageName == 0)
	{
		return nullptr;
	}
	return Cast<UPackage>(StaticFindObjectFast(UPackage::StaticClass(), InOuter, FName(PackageName, FNAME_Find)));
}

// Registration of compiled-in types

FRegisterCompiledInInfo::FRegisterCompiledInInfo(void (*RegisterFunction)())
{
	std::lock_guard<std::mutex> Guard(PendingRegistrationsMutex());
	PendingRegistrations().push_back(RegisterFunction);
}

namespace UE::CoreUObject::Private
{
	void RegisterCoreUObjectTypes();
}

void ProcessNewlyLoadedUObjects()
{
	static thread_local bool bProcessing = false;
	if (bProcessing)
	{
		return;
	}
	bProcessing = true;
	static const bool bCoreTypesRegistered = []()
	{
		RegisterCoreUObjectTypes();
		return true;
	}();
	(void)bCoreTypesRegistered;
	for (;;)
	{
		std::vector<void (*)()> Batch;
		{
			std::lock_guard<std::mutex> Guard(PendingRegistrationsMutex());
			Batch.swap(PendingRegistrations());
		}
		if (Batch.empty())
		{
			break;
		}
		for (void (*Register)() : Batch)
		{
			Register();
		}
	}
	bProcessing = false;
}

FString GetConfigFilename(UObject* SourceObject)
{
	return SourceObject != nullptr && SourceObject->GetClass() != nullptr ? SourceObject->GetClass()->GetConfigName() : FString();
}
