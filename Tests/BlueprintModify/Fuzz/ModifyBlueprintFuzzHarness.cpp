#include "ModifyBlueprintFuzzHarness.h"

#include "Agent/BlueprintUtils.h"
#include "Editor.h"
#include "Editor/Transactor.h"
#include "Engine/Blueprint.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/StandInProject.h"
#include "SampleBlueprintBuilder.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/UObjectHash.h"
#include "UnrealEdModule.h"

const TCHAR* const FModifyBlueprintFuzzHarness::BlueprintName = TEXT("BP_Fuzz");

namespace
{
	/** Takes the package of the object out of memory, as a fresh editor session would not have it. */
	void Forget(UObject* Object)
	{
		UPackage* Package = Object->GetOutermost();
		TArray<UObject*> Inners;
		GetObjectsWithOuter(Package, Inners, true);
		for (UObject* Inner : Inners)
		{
			Inner->ClearFlags(RF_Standalone);
		}
		Package->ClearFlags(RF_Standalone);
	}
}

FModifyBlueprintFuzzHarness::FModifyBlueprintFuzzHarness(const FString& ProjectDir)
{
	IFileManager::Get().DeleteDirectory(*ProjectDir, false, true);
	IFileManager::Get().MakeDirectory(*(ProjectDir / TEXT("Content")), true);
	const FString ProjectFile = ProjectDir / TEXT("Fuzz.uproject");
	FFileHelper::SaveStringToFile(TEXT("{}"), *ProjectFile);
	FStandInProject::SetProjectFile(ProjectFile);

	// Modifications run in the editor's transactions.
	check(FUnrealEdModule::StartEditorEngine() != nullptr);
	MakeBlueprint();
	check(Blueprint != nullptr && FSampleBlueprintBuilder::Save(Blueprint));
}

void FModifyBlueprintFuzzHarness::MakeBlueprint()
{
	if (Blueprint != nullptr)
	{
		Forget(Blueprint);
		Blueprint = nullptr;
	}
	// The old package must be gone before a new one takes its name.
	GEditor->ResetTransaction(FText::FromString(TEXT("Fuzz input")));
	CollectGarbage(RF_NoFlags);
	Blueprint = FSampleBlueprintBuilder::MakeShowcase(FString(FSampleBlueprintBuilder::Folder) / BlueprintName);
	check(Blueprint != nullptr);
}

FModifyBlueprintFuzzHarness::~FModifyBlueprintFuzzHarness()
{
	FStandInProject::Reset();
}

FString FModifyBlueprintFuzzHarness::Run(const FString& Document)
{
	MakeBlueprint();
	return FTavrineBlueprintUtils::ModifyBlueprint(BlueprintName, Document);
}

bool FModifyBlueprintFuzzHarness::SavesAndLoads()
{
	if (!FTavrineBlueprintUtils::SaveBlueprint(Blueprint).Contains(TEXT("\"Success\"")))
	{
		return false;
	}
	const FString Before = FTavrineBlueprintUtils::ReadBlueprint(BlueprintName, TEXT("All"));

	// Out of memory, as a fresh editor session would be, then found and loaded again by name.
	GEditor->ResetTransaction(FText::FromString(TEXT("Fuzz reload")));
	Forget(Blueprint);
	Blueprint = nullptr;
	CollectGarbage(RF_NoFlags);

	Blueprint = FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(BlueprintName);
	return Blueprint != nullptr && FTavrineBlueprintUtils::ReadBlueprint(BlueprintName, TEXT("All")) == Before;
}
