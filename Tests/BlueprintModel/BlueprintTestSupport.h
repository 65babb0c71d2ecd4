// What the Blueprint model tests share: a project with a running editor, Blueprints made as the editor
// makes them, and a way to drop a package from memory to load it again.
#pragma once

#include "ObjectTestSupport.h"
#include "AssetToolsModule.h"
#include "Editor.h"
#include "UnrealEdModule.h"
#include "Engine/Blueprint.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Factories/BlueprintFactory.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Kismet2/CompilerResultsLog.h"
#include "EdGraphSchema_K2.h"
#include "EdGraph/EdGraph.h"
#include "UObject/UObjectHash.h"
#include <gtest/gtest.h>

class FBlueprintModelTest : public ::testing::Test
{
protected:
	void SetUp() override
	{
		const FString TestName(::testing::UnitTest::GetInstance()->current_test_info()->name());
		Project = MakeUnique<FObjectTestProject>(FString(TEXT(BLUEPRINT_MODEL_TESTS_TEMP_DIR)), *TestName);
		ASSERT_NE(FUnrealEdModule::StartEditorEngine(), nullptr);
		GEditor->ResetTransaction(FText::FromString(TEXT("Test")));
	}
	void TearDown() override
	{
		GEditor->ResetTransaction(FText::FromString(TEXT("Test")));
		Project.Reset();
	}

	// A Blueprint made through the asset tools and the factory, as the editor's "new Blueprint" does.
	static UBlueprint* MakeBlueprint(const FString& Name, UClass* Parent, const FString& Folder = TEXT("/Game/Blueprints"))
	{
		UBlueprintFactory* Factory = NewObject<UBlueprintFactory>();
		Factory->ParentClass = Parent;
		return Cast<UBlueprint>(FAssetToolsModule::GetModule().Get().CreateAsset(Name, Folder, UBlueprint::StaticClass(), Factory));
	}

	static FEdGraphPinType PinType(FName Category, FName SubCategory = NAME_None, UObject* Object = nullptr, EPinContainerType Container = EPinContainerType::None)
	{
		FEdGraphPinType Type;
		Type.PinCategory = Category;
		Type.PinSubCategory = SubCategory;
		Type.PinSubCategoryObject = Object;
		Type.ContainerType = Container;
		return Type;
	}

	// Lets go of every object of the package so that the next load reads the file.
	static void ForgetPackage(UPackage* Package, bool bCollectNow = true)
	{
		GEditor->ResetTransaction(FText::FromString(TEXT("Forget")));
		TArray<UObject*> Inners;
		GetObjectsWithOuter(Package, Inners, true);
		for (UObject* Object : Inners)
		{
			Object->ClearFlags(RF_Standalone);
		}
		Package->ClearFlags(RF_Standalone);
		if (bCollectNow)
		{
			CollectGarbage(RF_NoFlags);
		}
	}

	TUniquePtr<FObjectTestProject> Project;
};
