// The Blueprint half of the reference search: which parts of a Blueprint are searched, in which order,
// and which Blueprints are not.
#include "FindUtilsTestSupport.h"
#include "EdGraph/EdGraph.h"
#include "EdGraphSchema_K2.h"
#include "K2Node_VariableGet.h"
#include "GameFramework/Actor.h"
#include "Kismet2/BlueprintEditorUtils.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "SampleBlueprintBuilder.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

using namespace FindUtilsTest;

namespace
{
	UEdGraphNode* SpawnGet(UBlueprint* Blueprint, UEdGraph* Graph, const TCHAR* Variable)
	{
		return GetDefault<UEdGraphSchema_K2>()->SpawnVariableGetNode(FVector2D(0, 0), Graph, FName(Variable), Blueprint->SkeletonGeneratedClass);
	}

	/**
	 * BP_GuardHealth: variables Health and Stamina, a function GetHealth that returns Health (its entry,
	 * its result with a pin Health, and a commented Get Health node), a macro HealthMacro and an event graph
	 * with a Print String about health and a Get Stamina node.
	 */
	UBlueprint* MakeGuard()
	{
		UBlueprint* Guard = FSampleBlueprintBuilder::CreateBlueprint(TEXT("/Game/Blueprints/BP_GuardHealth"), AActor::StaticClass());
		FBlueprintEditorUtils::AddMemberVariable(Guard, FName(TEXT("Health")), FSampleBlueprintBuilder::MakeRealPinType());
		FBlueprintEditorUtils::AddMemberVariable(Guard, FName(TEXT("Stamina")), FSampleBlueprintBuilder::MakeRealPinType());
		UEdGraphNode* Entry = nullptr;
		UEdGraphNode* Result = nullptr;
		UEdGraph* Function = FSampleBlueprintBuilder::AddFunction(Guard, FName(TEXT("GetHealth")), {}, { { FName(TEXT("Health")), FSampleBlueprintBuilder::MakeRealPinType() } }, Entry, Result);
		SpawnGet(Guard, Function, TEXT("Health"))->NodeComment = TEXT("The health left");

		UEdGraph* Macro = FBlueprintEditorUtils::CreateNewGraph(Guard, FName(TEXT("HealthMacro")), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		FBlueprintEditorUtils::AddMacroGraph(Guard, Macro, true, nullptr);
		SpawnGet(Guard, Macro, TEXT("Health"));

		UEdGraph* EventGraph = FBlueprintEditorUtils::FindEventGraph(Guard);
		FSampleBlueprintBuilder::AddPrintString(EventGraph, TEXT("Health is low"), 0, 0)->NodeComment = TEXT("Warn when HEALTH is low");
		SpawnGet(Guard, EventGraph, TEXT("Stamina"));
		FKismetEditorUtilities::CompileBlueprint(Guard);
		return Guard;
	}
}

TEST(FindInBlueprints, NamesVariablesFunctionsTitlesCommentsAndPinsInOrder)
{
	FObjectTestProject Project(TempRoot(), TEXT("Blueprints"));
	FObjectTestProject::WriteFile(Project.Dir + TEXT("Source/Game/HealthPool.h"), TEXT("struct FHealthPool {};"));
	UBlueprint* Guard = MakeGuard();
	ASSERT_NE(Guard, nullptr);
	ASSERT_TRUE(FSampleBlueprintBuilder::Save(Guard));
	// An Animation Blueprint's asset class is not UBlueprint: it isn't searched, whatever it holds.
	UBlueprint* Anim = FSampleBlueprintBuilder::MakeAnimBlueprint(TEXT("/Game/Blueprints/ABP_Health"));
	ASSERT_NE(Anim, nullptr);
	FBlueprintEditorUtils::AddMemberVariable(Anim, FName(TEXT("Health")), FSampleBlueprintBuilder::MakeRealPinType());
	ASSERT_TRUE(FSampleBlueprintBuilder::Save(Anim));
	UBlueprint* Door = FSampleBlueprintBuilder::CreateBlueprint(TEXT("/Game/Blueprints/Doors/BP_Door"), AActor::StaticClass());
	ASSERT_TRUE(FSampleBlueprintBuilder::Save(Door));

	const TSharedPtr<FJsonObject> Result = Find(TEXT("health"));
	ASSERT_TRUE(Result.IsValid());
	const FString Full = FPaths::ConvertRelativePathToFull(Project.Dir);
	EXPECT_EQ(Describe(Result, TEXT("cpp_references"), Full), (TArray<FString>{TEXT("Type=cpp or h File|Name=HealthPool.h|Path=Source/Game/HealthPool.h")}));
	const TCHAR* const Tail = TEXT("|Blueprint=BP_GuardHealth|Path=Content/Blueprints/BP_GuardHealth.uasset");
	EXPECT_EQ(Describe(Result, TEXT("blueprint_references"), Full), (TArray<FString>{
		TEXT("Type=Blueprint File|Blueprint=BP_GuardHealth|Path=Content/Blueprints/BP_GuardHealth.uasset"),
		FString(TEXT("Type=Variable|Name=Health")) + Tail,
		FString(TEXT("Type=Function|Name=GetHealth")) + Tail,
		FString(TEXT("Type=Node Title|Name=GetHealth")) + Tail,
		FString(TEXT("Type=Pin|Name=Health")) + Tail,
		FString(TEXT("Type=Node Title|Name=Get Health")) + Tail,
		FString(TEXT("Type=Node Comment|Name=The health left")) + Tail,
		FString(TEXT("Type=Pin|Name=Health")) + Tail,
		FString(TEXT("Type=Node Comment|Name=Warn when HEALTH is low")) + Tail,
	}));

	// A Blueprint's path is its file under Content, whatever folder it is in.
	EXPECT_EQ(Describe(Find(TEXT("Door")), TEXT("blueprint_references"), Full), (TArray<FString>{TEXT("Type=Blueprint File|Blueprint=BP_Door|Path=Content/Blueprints/Doors/BP_Door.uasset")}));
}
