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

const TCHAR* const FModifyBlueprintFuzzHarness::BlueprintName = TEXT("BP_Fuzz");

namespace
{
	// Undone nodes and graphs stay until a collection; collecting now and then keeps a long run's memory flat.
	constexpr int32 RunsBetweenCollections = 200;
}

FModifyBlueprintFuzzHarness::FModifyBlueprintFuzzHarness(const FString& ProjectDir)
{
	IFileManager::Get().DeleteDirectory(*ProjectDir, false, true);
	IFileManager::Get().MakeDirectory(*(ProjectDir / TEXT("Content")), true);
	const FString ProjectFile = ProjectDir / TEXT("Fuzz.uproject");
	FFileHelper::SaveStringToFile(TEXT("{}"), *ProjectFile);
	FStandInProject::SetProjectFile(ProjectFile);

	Blueprint = FSampleBlueprintBuilder::MakeShowcase(FString(FSampleBlueprintBuilder::Folder) / BlueprintName);
	check(Blueprint != nullptr && FSampleBlueprintBuilder::Save(Blueprint));
	GEditor->ResetTransaction(FText::FromString(TEXT("Fuzz start")));
}

FModifyBlueprintFuzzHarness::~FModifyBlueprintFuzzHarness()
{
	FStandInProject::Reset();
}

FString FModifyBlueprintFuzzHarness::Run(const FString& Document)
{
	const int32 QueueBefore = GEditor->Trans->GetQueueLength() - GEditor->Trans->GetUndoCount();
	const FString Answer = FTavrineBlueprintUtils::ModifyBlueprint(BlueprintName, Document);
	if (GEditor->Trans->GetQueueLength() - GEditor->Trans->GetUndoCount() > QueueBefore)
	{
		GEditor->UndoTransaction();
	}
	if (++RunsSinceCollect >= RunsBetweenCollections)
	{
		RunsSinceCollect = 0;
		GEditor->ResetTransaction(FText::FromString(TEXT("Fuzz collect")));
		CollectGarbage(RF_NoFlags);
	}
	return Answer;
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
	UPackage* Package = Blueprint->GetOutermost();
	TArray<UObject*> Inners;
	GetObjectsWithOuter(Package, Inners, true);
	for (UObject* Inner : Inners)
	{
		Inner->ClearFlags(RF_Standalone);
	}
	Package->ClearFlags(RF_Standalone);
	Blueprint = nullptr;
	CollectGarbage(RF_NoFlags);

	Blueprint = FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(BlueprintName);
	return Blueprint != nullptr && FTavrineBlueprintUtils::ReadBlueprint(BlueprintName, TEXT("All")) == Before;
}
