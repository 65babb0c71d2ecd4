// Event dispatchers (a delegate variable with its signature graph) and timelines (a template with tracks, shown
// by a timeline node) as the compile and the nodes see them.
#include "BlueprintTestSupport.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_Timeline.h"
#include "Engine/TimelineTemplate.h"
#include "Curves/CurveFloat.h"
#include "GameFramework/Actor.h"
#include "UObject/UnrealType.h"
#include "CoreTestPrinters.h"

TEST_F(FBlueprintModelTest, DispatchersAndTimelinesCompileWithTheirSignaturesAndTracks)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Gate"), AActor::StaticClass());
	ASSERT_NE(Blueprint, nullptr);
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();

	// A dispatcher: the delegate variable and a signature graph of the same name.
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("OnOpened"), PinType(UEdGraphSchema_K2::PC_MCDelegate)));
	UEdGraph* Signature = FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("OnOpened"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
	ASSERT_NE(Signature, nullptr);
	EXPECT_FALSE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("OnOpened"), PinType(UEdGraphSchema_K2::PC_Int)));
	Schema->CreateDefaultNodesForGraph(*Signature);
	Schema->CreateFunctionGraphTerminators(*Signature, static_cast<UClass*>(nullptr));
	Schema->AddExtraFunctionFlags(Signature, FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_Public);
	TArray<UK2Node_FunctionEntry*> Entries;
	Signature->GetNodesOfClass(Entries);
	ASSERT_EQ(Entries.Num(), 1);
	Entries[0]->CreateUserDefinedPin(TEXT("Speed"), PinType(UEdGraphSchema_K2::PC_Real, UEdGraphSchema_K2::PC_Double), EGPD_Output);
	Blueprint->DelegateSignatureGraphs.Add(Signature);
	// A signature graph without its variable is left out.
	Blueprint->DelegateSignatureGraphs.Add(FBlueprintEditorUtils::CreateNewGraph(Blueprint, TEXT("OnStray"), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass()));
	FBlueprintEditorUtils::ConformDelegateSignatureGraphs(Blueprint);
	ASSERT_EQ(Blueprint->DelegateSignatureGraphs.Num(), 1);
	EXPECT_EQ(Blueprint->DelegateSignatureGraphs[0], Signature);

	// A timeline: its template, a float track with a curve, and a node that shows the track as a pin.
	UTimelineTemplate* Fade = FBlueprintEditorUtils::AddNewTimeline(Blueprint, TEXT("Fade"));
	ASSERT_NE(Fade, nullptr);
	EXPECT_EQ(FBlueprintEditorUtils::AddNewTimeline(Blueprint, TEXT("Fade")), nullptr);
	EXPECT_EQ(Blueprint->FindTimelineTemplateByVariableName(TEXT("Fade")), Fade);
	UCurveFloat* Curve = NewObject<UCurveFloat>(Fade);
	const FKeyHandle Late = Curve->FloatCurve.AddKey(2.0f, 1.0f);
	const FKeyHandle Early = Curve->FloatCurve.AddKey(0.0f, 0.0f);
	EXPECT_NE(Late, Early);
	EXPECT_FLOAT_EQ(Curve->GetFloatValue(1.0f), 0.5f);
	FTTFloatTrack Track;
	Track.CurveFloat = Curve;
	Track.SetTrackName(TEXT("Alpha"), Fade);
	Fade->FloatTracks.Add(Track);
	EXPECT_FALSE(Fade->IsNewTrackNameValid(TEXT("Alpha")));
	FGraphNodeCreator<UK2Node_Timeline> Creator(*FBlueprintEditorUtils::FindEventGraph(Blueprint));
	UK2Node_Timeline* Node = Creator.CreateNode();
	Node->TimelineName = TEXT("Fade");
	Creator.Finalize();
	EXPECT_EQ(Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString(), TEXT("Fade"));
	ASSERT_NE(Node->GetTrackPin(TEXT("Alpha")), nullptr);
	EXPECT_EQ(Node->GetTrackPin(TEXT("Alpha"))->PinType.PinCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_NE(Node->GetPlayFromStartPin(), nullptr);
	EXPECT_EQ(FBlueprintEditorUtils::FindNodeForTimeline(Blueprint, Fade), Node);

	FCompilerResultsLog Log;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Log);
	EXPECT_EQ(Blueprint->Status, BS_UpToDate) << (Log.Messages.Num() > 0 ? TCHAR_TO_UTF8(*Log.Messages[0]->ToText().ToString()) : "");
	const FMulticastDelegateProperty* Dispatcher = CastField<FMulticastDelegateProperty>(Blueprint->GeneratedClass->FindPropertyByName(TEXT("OnOpened")));
	ASSERT_NE(Dispatcher, nullptr);
	ASSERT_NE(Dispatcher->SignatureFunction, nullptr);
	EXPECT_EQ(Dispatcher->SignatureFunction->GetName(), TEXT("OnOpened__DelegateSignature"));
	EXPECT_NE(Dispatcher->SignatureFunction->FindPropertyByName(TEXT("Speed")), nullptr);
	EXPECT_TRUE(Dispatcher->SignatureFunction->HasAnyFunctionFlags(FUNC_MulticastDelegate));

	// A timeline node whose template went away fails the compile.
	FBlueprintEditorUtils::RemoveTimeline(Blueprint, Fade);
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	EXPECT_EQ(Blueprint->Status, BS_Error);
}
