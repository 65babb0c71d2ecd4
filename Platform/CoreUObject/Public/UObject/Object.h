// UObject: the base of every reflected class.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/UObjectBaseUtility.h"
#include "UObject/UObjectGlobals.h"

struct FPropertyChangedEvent;
class FConfigCacheIni;
class FReferenceCollector;
class FFeedbackContext;
struct FObjectPreSaveContext;

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

// Options of UObject::Rename; combined with '|', as the engine's are.
typedef uint32 ERenameFlags;
#define REN_None (0x0000)
#define REN_ForceNoResetLoaders (0x0001)
#define REN_Test (0x0002)
#define REN_DoNotDirty (0x0004)
#define REN_DontCreateRedirectors (0x0010)
#define REN_NonTransactional (0x0020)
#define REN_ForceGlobalUnique (0x0040)
#define REN_SkipGeneratedClasses (0x0080)

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

	// Records the object's state in the open transaction (when it is transactional) so that undo brings it
	// back, and marks its package dirty unless told not to. True when the transaction took it.
	virtual bool Modify(bool bAlwaysMarkDirty = true);
	// False while the object can't take part in a transaction (being destroyed).
	virtual bool CanModify() const;
	// Marks the outermost package as changed, unless it is transient or holds native types.
	bool MarkPackageDirty() const;
#if WITH_EDITOR
	// Around an undo or redo that changed this object's properties.
	virtual void PreEditUndo();
	virtual void PostEditUndo();
#endif
	virtual void PostRename(UObject* OldOuter, const FName OldName);
	// Before the object's package is written.
	virtual void PreSave(FObjectPreSaveContext SaveContext);
	// After the object was copied by StaticDuplicateObject.
	virtual void PostDuplicate(bool bDuplicateForPIE);

	// A name and value that the asset registry keeps for an asset without loading it.
	struct FAssetRegistryTag
	{
		enum ETagType : uint8
		{
			TT_Hidden,
			TT_Alphabetical,
			TT_Numerical,
			TT_Dimensional,
			TT_Chronological,
		};

		FAssetRegistryTag(FName InName, const FString& InValue, ETagType InType)
			: Name(InName)
			, Value(InValue)
			, Type(InType)
		{
		}

		FName Name;
		FString Value;
		ETagType Type;
		uint32 DisplayFlags = 0;
	};
	// The tags of this asset: by default the values of its AssetRegistrySearchable properties.
	virtual void GetAssetRegistryTags(TArray<FAssetRegistryTag>& OutTags) const;

	// State that isn't held in reflected properties, written as "CustomProperties ..." lines of the object's
	// text form (in package files), each line begun with Indent spaces and ended with a line break.
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent);
	// Reads back what ExportCustomProperties wrote, one line at a time (without "CustomProperties ").
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn);
	// Stand-in only: drops the state that ImportCustomProperties reads, before a transaction puts a
	// recorded one back (the engine serializes such state with the object instead).
	virtual void ResetCustomProperties()
	{
	}

	// Tells the garbage collector what this object refers to beyond its reflected properties.
	static void AddReferencedObjects(UObject* InThis, FReferenceCollector& Collector);

	// Makes a subobject while this object's constructor runs; objects made later from the same class get
	// their own, starting from the values of the class default object's.
	UObject* CreateDefaultSubobject(FName SubobjectFName, UClass* ReturnType, UClass* ClassToCreateByDefault, bool bIsRequired, bool bIsTransient);
	template<class TReturnType>
	TReturnType* CreateDefaultSubobject(FName SubobjectName, bool bTransient = false)
	{
		UClass* ReturnType = TReturnType::StaticClass();
		return static_cast<TReturnType*>(CreateDefaultSubobject(SubobjectName, ReturnType, ReturnType, true, bTransient));
	}
	// The address of the part of this object that implements the interface class, or null.
	void* GetInterfaceAddress(UClass* InterfaceClass);
	const void* GetInterfaceAddress(UClass* InterfaceClass) const
	{
		return const_cast<UObject*>(this)->GetInterfaceAddress(InterfaceClass);
	}
};
