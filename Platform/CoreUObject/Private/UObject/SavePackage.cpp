// UPackage and writing a package's objects to its text package file.
#include "UObject/Package.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "UObject/UObjectHash.h"
#include "Misc/PackageName.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "HAL/FileManager.h"
#include "PackageTextFormat.h"
#include "CoreUObjectLog.h"

using namespace UE::CoreUObject::Private;

UPackage::FOnPackageSavedWithContext UPackage::PackageSavedWithContextEvent;
UPackage::FOnPackageMarkedDirty UPackage::PackageMarkedDirtyEvent;

UPackage::UPackage(const FObjectInitializer& ObjectInitializer)
	: UObject(ObjectInitializer)
{
}

void UPackage::SetDirtyFlag(bool bInIsDirty)
{
	if (bDirty != bInIsDirty)
	{
		bDirty = bInIsDirty;
		PackageMarkedDirtyEvent.Broadcast(this);
	}
}

bool UPackage::IsFullyLoaded() const
{
	if (!bHasBeenFullyLoaded && !HasAnyPackageFlags(PKG_CompiledIn))
	{
		// A package with no file on disk was made in memory, and so holds all it has.
		if (GetLoadedPath().IsNone() && !FPackageName::DoesPackageExist(GetName()))
		{
			const_cast<UPackage*>(this)->bHasBeenFullyLoaded = true;
		}
	}
	return bHasBeenFullyLoaded || HasAnyPackageFlags(PKG_CompiledIn);
}

void UPackage::FullyLoad()
{
	if (!IsFullyLoaded())
	{
		LoadPackage(nullptr, *GetName(), LOAD_None);
	}
}

namespace
{
	struct FPackageWriter
	{
		FString Text;

		void Line(int32 Depth, const FString& Content)
		{
			for (int32 Index = 0; Index < Depth; ++Index)
			{
				Text.AppendChar(TEXT('\t'));
			}
			Text += Content;
			Text.AppendChar(TEXT('\n'));
		}
	};

	// Collects what ExportCustomProperties writes, as lines.
	class FCustomPropertiesCollector final : public FOutputDevice
	{
	public:
		void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
		{
			Buffer += V;
		}

		FString Buffer;
	};

	bool IsSaved(const UObject* Object, const UPackage* Package)
	{
		for (const UObject* Current = Object; Current != nullptr && Current != Package; Current = Current->GetOuter())
		{
			if (Current->HasAnyFlags(RF_Transient) || Current->IsGarbage())
			{
				return false;
			}
		}
		return true;
	}

	// The object a saved object is compared with: what it would be if it were made anew.
	const UObject* GetSaveArchetype(const UObject* Object)
	{
		if (Object->HasAnyFlags(RF_ClassDefaultObject))
		{
			return Object->GetArchetype();
		}
		if (Object->HasAnyFlags(RF_DefaultSubObject) && Object->GetOuter() != nullptr)
		{
			if (const UObject* OuterDefaults = Object->GetOuter()->GetClass()->GetDefaultObject(false))
			{
				if (const UObject* Template = StaticFindObjectFast(Object->GetClass(), const_cast<UObject*>(OuterDefaults), Object->GetFName()))
				{
					return Template;
				}
			}
		}
		return Object->GetClass()->GetDefaultObject();
	}

	void WriteObject(FPackageWriter& Writer, UObject* Object, const UPackage* Package, int32 Depth)
	{
		const EObjectFlags Flags = Object->GetMaskedFlags(PackageText::SavedFlags);
		FString Header = FString::Printf(TEXT("Begin Object Class=%s Name=%s"), *PackageText::FormatValue(Object->GetClass()->GetPathName()), *PackageText::FormatValue(Object->GetName()));
		if (Flags != RF_NoFlags)
		{
			Header += TEXT(" Flags=") + PackageText::ObjectFlagsToString(Flags);
		}
		Writer.Line(Depth, Header);

		const UObject* Archetype = GetSaveArchetype(Object);
		for (FProperty* Property = Object->GetClass()->PropertyLink; Property != nullptr; Property = Property->PropertyLinkNext)
		{
			if (!Property->ShouldSerializeValue())
			{
				continue;
			}
			// A value equal to the archetype's is left out, so that a file lists only what was changed.
			const bool bArchetypeHasProperty = Archetype != nullptr && Archetype->IsA(Property->GetOwnerClass() != nullptr ? Property->GetOwnerClass() : UObject::StaticClass()) && Archetype != Object;
			for (int32 Index = 0; Index < Property->ArrayDim; ++Index)
			{
				FString Value;
				if (Property->ExportText_InContainer(Index, Value, Object, bArchetypeHasProperty ? Archetype : nullptr, Object, PPF_Delimited))
				{
					const FString Key = Property->ArrayDim > 1 ? FString::Printf(TEXT("%s(%d)"), *Property->GetName(), Index) : Property->GetName();
					Writer.Line(Depth + 1, Key + TEXT("=") + Value);
				}
			}
		}

		FCustomPropertiesCollector Custom;
		Object->ExportCustomProperties(Custom, 0);
		TArray<FString> CustomLines;
		Custom.Buffer.ParseIntoArrayLines(CustomLines, true);
		for (FString& CustomLine : CustomLines)
		{
			CustomLine.TrimStartInline();
			Writer.Line(Depth + 1, CustomLine.StartsWith(TEXT("CustomProperties ")) ? CustomLine : TEXT("CustomProperties ") + CustomLine);
		}

		TArray<UObject*> Inners;
		GetObjectsWithOuter(Object, Inners, false);
		for (UObject* Inner : Inners)
		{
			if (IsSaved(Inner, Package))
			{
				WriteObject(Writer, Inner, Package, Depth + 1);
			}
		}
		Writer.Line(Depth, TEXT("End Object"));
	}

	void ReportSaveError(const FSavePackageArgs& SaveArgs, const FString& Message)
	{
		UE_LOG(LogSavePackage, Warning, TEXT("%s"), *Message);
		if (SaveArgs.Error != nullptr && !(SaveArgs.SaveFlags & SAVE_NoError))
		{
			SaveArgs.Error->Log(ELogVerbosity::Warning, *Message);
		}
	}
}

FSavePackageResultStruct UPackage::Save(UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs)
{
	if (InOuter == nullptr || Filename == nullptr || *Filename == 0)
	{
		ReportSaveError(SaveArgs, TEXT("Save: a package and a file name are needed"));
		return ESavePackageResult::Error;
	}
	if (InOuter->HasAnyFlags(RF_Transient) || InOuter->HasAnyPackageFlags(PKG_CompiledIn))
	{
		ReportSaveError(SaveArgs, FString::Printf(TEXT("Save: %s holds transient or native objects and can't be saved"), *InOuter->GetName()));
		return ESavePackageResult::Error;
	}
	if (InAsset != nullptr && InAsset->GetOutermost() != InOuter)
	{
		ReportSaveError(SaveArgs, FString::Printf(TEXT("Save: %s is not inside %s"), *InAsset->GetPathName(), *InOuter->GetName()));
		return ESavePackageResult::Error;
	}

	TArray<UObject*> TopLevel;
	GetObjectsWithOuter(InOuter, TopLevel, false);
	TopLevel.RemoveAll([InOuter](UObject* Object) { return !IsSaved(Object, InOuter); });
	const bool bHasTopLevelObject = InAsset != nullptr || SaveArgs.TopLevelFlags == RF_NoFlags || TopLevel.ContainsByPredicate([&SaveArgs](const UObject* Object)
	{
		return Object->HasAnyFlags(SaveArgs.TopLevelFlags);
	});
	if (!bHasTopLevelObject)
	{
		ReportSaveError(SaveArgs, FString::Printf(TEXT("Save: %s has no object with the top-level flags to save"), *InOuter->GetName()));
		return ESavePackageResult::Error;
	}

	TArray<UObject*> AllObjects;
	GetObjectsWithOuter(InOuter, AllObjects, true);
	for (UObject* Object : AllObjects)
	{
		if (IsSaved(Object, InOuter))
		{
			Object->PreSave(FObjectPreSaveContext(Filename, SaveArgs.SaveFlags));
		}
	}

	FPackageWriter Writer;
	Writer.Line(0, FString::Printf(TEXT("%s %d"), PackageText::Magic, PackageText::CurrentVersion));
	Writer.Line(0, TEXT("Package Name=") + PackageText::FormatValue(InOuter->GetName()));
	for (UObject* Object : TopLevel)
	{
		if (!Object->IsAsset())
		{
			continue;
		}
		Writer.Line(0, FString::Printf(TEXT("Asset Name=%s Class=%s"), *PackageText::FormatValue(Object->GetName()), *PackageText::FormatValue(Object->GetClass()->GetPathName())));
		TArray<UObject::FAssetRegistryTag> Tags;
		Object->GetAssetRegistryTags(Tags);
		for (const UObject::FAssetRegistryTag& Tag : Tags)
		{
			Writer.Line(1, FString::Printf(TEXT("Tag Name=%s Value=%s"), *PackageText::FormatValue(Tag.Name.ToString()), *PackageText::FormatValue(Tag.Value)));
		}
	}
	for (UObject* Object : TopLevel)
	{
		WriteObject(Writer, Object, InOuter, 0);
	}
	Writer.Line(0, TEXT("End Package"));

	// Written beside the target first, so that a failed write leaves the old file whole.
	const FString TargetFile(Filename);
	const FString TempFile = TargetFile + TEXT(".saving");
	IFileManager::Get().MakeDirectory(*FPaths::GetPath(TargetFile), true);
	if (!FFileHelper::SaveStringToFile(Writer.Text, *TempFile, FFileHelper::EEncodingOptions::ForceUTF8WithoutBOM) || !IFileManager::Get().Move(*TargetFile, *TempFile, true, true))
	{
		IFileManager::Get().Delete(*TempFile, false, true, true);
		ReportSaveError(SaveArgs, FString::Printf(TEXT("Save: can't write %s"), Filename));
		PackageSavedWithContextEvent.Broadcast(TargetFile, InOuter, FObjectPostSaveContext(TargetFile, SaveArgs.SaveFlags, false));
		return ESavePackageResult::Error;
	}

	InOuter->SetLoadedPath(FName(*TargetFile));
	InOuter->MarkAsFullyLoaded();
	InOuter->ClearPackageFlags(PKG_NewlyCreated);
	if (!(SaveArgs.SaveFlags & SAVE_KeepDirty))
	{
		InOuter->SetDirtyFlag(false);
	}
	UE_LOG(LogSavePackage, Verbose, TEXT("Saved %s to %s"), *InOuter->GetName(), Filename);
	PackageSavedWithContextEvent.Broadcast(TargetFile, InOuter, FObjectPostSaveContext(TargetFile, SaveArgs.SaveFlags, true));
	return FSavePackageResultStruct(ESavePackageResult::Success, IFileManager::Get().FileSize(*TargetFile));
}

bool UPackage::SavePackage(UPackage* InOuter, UObject* InAsset, const TCHAR* Filename, const FSavePackageArgs& SaveArgs)
{
	return Save(InOuter, InAsset, Filename, SaveArgs).IsSuccessful();
}
