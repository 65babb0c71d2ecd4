// UObject: the base of every reflected class.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/UObjectBaseUtility.h"
#include "UObject/UObjectGlobals.h"

struct FPropertyChangedEvent;
class FConfigCacheIni;

namespace UE
{
	// How LoadConfig treats the sections of classes related to the one it loads.
	enum ELoadConfigPropagationFlags : uint32
	{
		LCPF_None = 0,
		LCPF_ReadParentSections = 1 << 0,
		LCPF_PropagateToChildDefaultObjects = 1 << 1,
		LCPF_PropagateToInstances = 1 << 2,
		LCPF_ReloadingConfigData = 1 << 3,
		LCPF_PersistentFlags = LCPF_ReloadingConfigData,
	};
}

enum ERenameFlags : uint32
{
	REN_None = 0x0000,
	REN_ForceNoResetLoaders = 0x0001,
	REN_Test = 0x0002,
	REN_DoNotDirty = 0x0004,
	REN_DontCreateRedirectors = 0x0010,
	REN_NonTransactional = 0x0020,
	REN_ForceGlobalUnique = 0x0040,
	REN_SkipGeneratedClasses = 0x0080,
};

class COREUOBJECT_API UObject : public UObjectBaseUtility
{
	DECLARE_CLASS_INTRINSIC(UObject, UObject, CLASS_Abstract, TEXT("/Script/CoreUObject"), CASTCLASS_None)

public:
	typedef UObject WithinClass;
	static const TCHAR* StaticConfigName()
	{
		return TEXT("Engine");
	}

	UObject();
	UObject(const FObjectInitializer& ObjectInitializer);
	virtual ~UObject();

	// Called once the constructor ran and the starting values were copied in.
	virtual void PostInitProperties();
	virtual void PostLoad();
	virtual void BeginDestroy();
	virtual void FinishDestroy();

#if WITH_EDITOR
	// Called before an editor changes the value of a property of this object; may be null.
	virtual void PreEditChange(FProperty* PropertyAboutToChange);
	// Called after an editor changed a property of this object; the event's property may be null.
	virtual void PostEditChangeProperty(FPropertyChangedEvent& PropertyChangedEvent);
	// PostEditChangeProperty without a property.
	void PostEditChange();
	virtual bool CanEditChange(const FProperty* InProperty) const;
#endif

	// Writes the properties with the given flags to the class's ini file (to Filename when given).
	void SaveConfig(uint64 RequiredPropertyFlags = CPF_Config, const TCHAR* Filename = nullptr, FConfigCacheIni* Config = GConfig, bool bAllowCopyToDefaultObject = true);
	// Reads the config properties from the class's ini file (from Filename when given); values that
	// the file doesn't hold keep what they had.
	void LoadConfig(UClass* ConfigClass = nullptr, const TCHAR* Filename = nullptr, uint32 PropagationFlags = UE::LCPF_None, FProperty* PropertyToLoad = nullptr);
	void ReloadConfig(UClass* ConfigClass = nullptr, const TCHAR* Filename = nullptr, uint32 PropagationFlags = UE::LCPF_None, FProperty* PropertyToLoad = nullptr);
	// The ini file this object's config properties live in.
	FString GetDefaultConfigFilename() const;

	// Moves the object to another name and/or outer. False when the name is taken there.
	virtual bool Rename(const TCHAR* NewName = nullptr, UObject* NewOuter = nullptr, ERenameFlags Flags = REN_None);

	// The object this one takes its starting values from: the class default object, or its super's for a class default object.
	UObject* GetArchetype() const;
	virtual bool IsAsset() const;
	// The address of the part of this object that implements the interface class, or null.
	void* GetInterfaceAddress(UClass* InterfaceClass);
	const void* GetInterfaceAddress(UClass* InterfaceClass) const
	{
		return const_cast<UObject*>(this)->GetInterfaceAddress(InterfaceClass);
	}
};
