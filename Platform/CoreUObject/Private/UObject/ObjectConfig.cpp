// Config properties: LoadConfig and SaveConfig between objects and their class's ini file.
#include "UObject/Object.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/Paths.h"
#include "CoreUObjectLog.h"

namespace
{
	// The folder under Saved/Config/ of the editor's own ini files on this platform.
	const TCHAR* const EditorConfigPlatformFolder = TEXT("LinuxEditor/");

	// "[/Script/Module.Class]", or "[Object Class]" for classes whose objects each have their own section.
	FString ConfigSectionName(const UObject* Object, const UClass* ConfigClass, const FProperty* Property)
	{
		if (ConfigClass->HasAnyClassFlags(CLASS_PerObjectConfig) && !Object->HasAnyFlags(RF_ClassDefaultObject))
		{
			return Object->GetName() + TEXT(" ") + ConfigClass->GetName();
		}
		// A global config property lives in the section of the class that declares it, for all subclasses.
		const UClass* SectionClass = Property->HasAnyPropertyFlags(CPF_GlobalConfig) && Property->GetOwnerClass() ? Property->GetOwnerClass() : ConfigClass;
		return SectionClass->GetPathName();
	}

	// The key of one element of a C array property: "Name[Index]"; the name alone otherwise.
	FString ConfigKeyName(const FProperty* Property, int32 Index)
	{
		return Property->ArrayDim > 1 ? FString::Printf(TEXT("%s[%d]"), *Property->GetName(), Index) : Property->GetName();
	}

	void ImportConfigValue(const FProperty* Property, void* Value, UObject* Owner, const FString& Text, const FString& Section, const FString& Key)
	{
		if (Property->ImportText_Direct(*Text, Value, Owner, PPF_None) == nullptr)
		{
			UE_LOG(LogObj, Warning, TEXT("Ignored config value %s=%s in [%s]: it is not a valid %s"), *Key, *Text, *Section, *Property->GetCPPType());
		}
	}
}

FString UClass::GetConfigName() const
{
	if (ClassConfigName.IsNone())
	{
		UE_LOG(LogClass, Warning, TEXT("Class %s has no config name"), *GetName());
		return FString();
	}
	return FPaths::GeneratedConfigDir() + EditorConfigPlatformFolder + ClassConfigName.ToString() + TEXT(".ini");
}

FString UObject::GetDefaultConfigFilename() const
{
	return FPaths::SourceConfigDir() + TEXT("Default") + GetClass()->ClassConfigName.ToString() + TEXT(".ini");
}

void UObject::LoadConfig(UClass* ConfigClass, const TCHAR* Filename, uint32 PropagationFlags, FProperty* PropertyToLoad)
{
	if (ConfigClass == nullptr)
	{
		ConfigClass = GetClass();
	}
	if (ConfigClass == nullptr || !ConfigClass->HasAnyClassFlags(CLASS_Config) || GConfig == nullptr)
	{
		return;
	}
	const FString ConfigFile = Filename != nullptr ? FString(Filename) : ConfigClass->GetConfigName();
	if (ConfigFile.IsEmpty())
	{
		return;
	}
	for (TFieldIterator<FProperty> It(ConfigClass); It; ++It)
	{
		FProperty* Property = *It;
		if (!Property->HasAnyPropertyFlags(CPF_Config) || (PropertyToLoad != nullptr && Property != PropertyToLoad))
		{
			continue;
		}
		const FString Section = ConfigSectionName(this, ConfigClass, Property);
		if (FArrayProperty* ArrayProperty = CastField<FArrayProperty>(Property); ArrayProperty && Property->ArrayDim == 1)
		{
			TArray<FString> Values;
			if (GConfig->GetArray(*Section, *Property->GetName(), Values, ConfigFile) == 0)
			{
				continue;
			}
			FScriptArrayHelper Helper(ArrayProperty, ArrayProperty->ContainerPtrToValuePtr<void>(this));
			Helper.EmptyAndAddValues(Values.Num());
			for (int32 Index = 0; Index < Values.Num(); ++Index)
			{
				ImportConfigValue(ArrayProperty->Inner, Helper.GetRawPtr(Index), this, Values[Index], Section, Property->GetName());
			}
			continue;
		}
		for (int32 Index = 0; Index < Property->ArrayDim; ++Index)
		{
			const FString Key = ConfigKeyName(Property, Index);
			FString Value;
			if (GConfig->GetString(*Section, *Key, Value, ConfigFile))
			{
				ImportConfigValue(Property, Property->ContainerPtrToValuePtr<void>(this, Index), this, Value, Section, Key);
			}
		}
	}
}

void UObject::ReloadConfig(UClass* ConfigClass, const TCHAR* Filename, uint32 PropagationFlags, FProperty* PropertyToLoad)
{
	const UClass* Class = ConfigClass != nullptr ? ConfigClass : GetClass();
	if (GConfig != nullptr && Class != nullptr && Class->HasAnyClassFlags(CLASS_Config))
	{
		GConfig->LoadFile(Filename != nullptr ? FString(Filename) : Class->GetConfigName());
	}
	LoadConfig(ConfigClass, Filename, PropagationFlags | UE::LCPF_ReloadingConfigData, PropertyToLoad);
}

void UObject::SaveConfig(uint64 RequiredPropertyFlags, const TCHAR* Filename, FConfigCacheIni* Config, bool bAllowCopyToDefaultObject)
{
	UClass* Class = GetClass();
	if (Class == nullptr || !Class->HasAnyClassFlags(CLASS_Config) || Config == nullptr)
	{
		return;
	}
	const FString ConfigFile = Filename != nullptr ? FString(Filename) : Class->GetConfigName();
	if (ConfigFile.IsEmpty())
	{
		return;
	}
	UObject* ClassDefaults = nullptr;
	if (bAllowCopyToDefaultObject && !HasAnyFlags(RF_ClassDefaultObject) && !Class->HasAnyClassFlags(CLASS_PerObjectConfig))
	{
		// New objects of the class start from its defaults, so they should see what was saved.
		ClassDefaults = Class->GetDefaultObject();
	}
	for (TFieldIterator<FProperty> It(Class); It; ++It)
	{
		FProperty* Property = *It;
		if (!Property->HasAllPropertyFlags(RequiredPropertyFlags))
		{
			continue;
		}
		const FString Section = ConfigSectionName(this, Class, Property);
		if (FArrayProperty* ArrayProperty = CastField<FArrayProperty>(Property); ArrayProperty && Property->ArrayDim == 1)
		{
			FScriptArrayHelper Helper(ArrayProperty, ArrayProperty->ContainerPtrToValuePtr<void>(this));
			TArray<FString> Values;
			for (int32 Index = 0; Index < Helper.Num(); ++Index)
			{
				FString Value;
				ArrayProperty->Inner->ExportTextItem_Direct(Value, Helper.GetRawPtr(Index), nullptr, this, PPF_None);
				Values.Add(Value);
			}
			if (Values.Num() > 0)
			{
				Config->SetArray(*Section, *Property->GetName(), Values, ConfigFile);
			}
			else
			{
				Config->RemoveKey(*Section, *Property->GetName(), ConfigFile);
			}
		}
		else
		{
			for (int32 Index = 0; Index < Property->ArrayDim; ++Index)
			{
				FString Value;
				// Passing the value as its own default writes it even where it is the type's default.
				Property->ExportText_InContainer(Index, Value, this, this, this, PPF_None);
				Config->SetString(*Section, *ConfigKeyName(Property, Index), *Value, ConfigFile);
			}
		}
		if (ClassDefaults != nullptr && ClassDefaults != this)
		{
			Property->CopyCompleteValue_InContainer(ClassDefaults, this);
		}
	}
	Config->Flush(false, ConfigFile);
}
