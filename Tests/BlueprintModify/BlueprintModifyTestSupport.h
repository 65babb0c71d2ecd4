// What the Blueprint modification tests share: a Blueprint to change, the modification call, and reading back.
#pragma once

#include "BlueprintUtilsTestSupport.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "Editor.h"
#include "Editor/Transactor.h"
#include "GameFramework/Actor.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "UnrealEdModule.h"

class FBlueprintModifyTest : public FBlueprintUtilsTest
{
protected:
	void SetUp() override
	{
		FBlueprintUtilsTest::SetUp();
		ASSERT_NE(FUnrealEdModule::StartEditorEngine(), nullptr);
		GEditor->ResetTransaction(FText::FromString(TEXT("Test")));
	}

	// Each test makes its Blueprints anew under the same names: the last test's packages leave memory.
	void TearDown() override
	{
		GEditor->ResetTransaction(FText::FromString(TEXT("Test done")));
		TArray<UObject*> Packages;
		GetObjectsOfClass(UPackage::StaticClass(), Packages);
		for (UObject* Package : Packages)
		{
			if (Package->GetName().StartsWith(TEXT("/Game/")))
			{
				Forget(Package);
			}
		}
		FBlueprintUtilsTest::TearDown();
	}

	/** A compiled, saved actor Blueprint without variables or functions, under /Game/Blueprints. */
	UBlueprint* MakeEmpty(const TCHAR* Name)
	{
		UBlueprint* Blueprint = FSampleBlueprintBuilder::CreateBlueprint(Asset(Name), AActor::StaticClass());
		if (Blueprint != nullptr)
		{
			FKismetEditorUtilities::CompileBlueprint(Blueprint);
			FSampleBlueprintBuilder::Save(Blueprint);
		}
		return Blueprint;
	}

	/** The sample actor Blueprint with its variables ("Health" among them), function and event graph, saved. */
	UBlueprint* MakeShowcase()
	{
		UBlueprint* Blueprint = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
		if (Blueprint != nullptr)
		{
			FSampleBlueprintBuilder::Save(Blueprint);
		}
		return Blueprint;
	}

	/** A document of the fuzz target's seed corpus; the samples there are the tests' documents too. */
	static FString Seed(const TCHAR* FileName)
	{
		FString Text;
		FFileHelper::LoadFileToString(Text, *(FString(TEXT(BLUEPRINT_MODIFY_CORPUS_DIR)) / FileName));
		return Text;
	}

	/** The answer of a modification, condensed for an exact comparison. */
	static FString Modify(const TCHAR* BlueprintName, const FString& Document)
	{
		return Condensed(FTavrineBlueprintUtils::ModifyBlueprint(BlueprintName, Document));
	}

	static TSharedPtr<FJsonObject> ReadAll(const TCHAR* BlueprintName)
	{
		return ParseJson(FTavrineBlueprintUtils::ReadBlueprint(BlueprintName, TEXT("All")));
	}

	static const FBPVariableDescription* FindVariable(const UBlueprint* Blueprint, const TCHAR* Name)
	{
		return Blueprint->NewVariables.FindByPredicate([Name](const FBPVariableDescription& Variable)
		{
			return Variable.VarName == FName(Name);
		});
	}

	static UEdGraph* FindGraph(const TArray<TObjectPtr<UEdGraph>>& Graphs, const TCHAR* Name)
	{
		for (UEdGraph* Graph : Graphs)
		{
			if (Graph->GetName() == Name)
			{
				return Graph;
			}
		}
		return nullptr;
	}

	/** The first entry of an array of objects whose Key holds Value. */
	static TSharedPtr<FJsonObject> FindEntry(const TArray<TSharedPtr<FJsonValue>>& Entries, const TCHAR* Key, const TCHAR* Value)
	{
		for (const TSharedPtr<FJsonValue>& Entry : Entries)
		{
			const TSharedPtr<FJsonObject> Object = Entry->AsObject();
			if (Object.IsValid() && Object->GetStringField(Key) == Value)
			{
				return Object;
			}
		}
		return nullptr;
	}

	/** The Blueprint's package file as it is on disk: unchanged when nothing was saved. */
	static FString SavedFile(const UBlueprint* Blueprint)
	{
		FString Text;
		FFileHelper::LoadFileToString(Text, *FPackageName::LongPackageNameToFilename(Blueprint->GetOutermost()->GetName(), FPackageName::GetAssetPackageExtension()));
		return Text;
	}

	static int32 CountNodes(const UEdGraph* Graph)
	{
		return Graph != nullptr ? Graph->Nodes.Num() : -1;
	}
};
