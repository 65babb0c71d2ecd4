// The compile: the generated class from variables, functions, components and interfaces, its defaults, the
// class chain of Blueprints, and the faults that fail it.
#include "BlueprintTestSupport.h"
#include "BlueprintModelTestTypes.h"
#include "K2Node_CallFunction.h"
#include "K2Node_FunctionEntry.h"
#include "K2Node_FunctionResult.h"
#include "K2Node_VariableGet.h"
#include "K2Node_VariableSet.h"
#include "Engine/SimpleConstructionScript.h"
#include "Engine/SCS_Node.h"
#include "Components/StaticMeshComponent.h"
#include "Kismet/KismetSystemLibrary.h"
#include "UObject/UnrealType.h"
#include "UObject/TextProperty.h"
#include "CoreTestPrinters.h"

namespace
{
	FString DefaultText(UClass* Class, const TCHAR* Name)
	{
		FProperty* Property = Class->FindPropertyByName(FName(Name));
		FString Text;
		if (Property != nullptr)
		{
			Property->ExportText_InContainer(0, Text, Class->GetDefaultObject(), Class->GetDefaultObject(), nullptr, PPF_None);
		}
		return Text;
	}

	bool HasMessage(const FCompilerResultsLog& Log, const TCHAR* Text)
	{
		return Log.Messages.ContainsByPredicate([Text](const TSharedRef<FTokenizedMessage>& Message) { return Message->ToText().ToString().Contains(Text); });
	}

	UEdGraph* AddFunction(UBlueprint* Blueprint, const TCHAR* Name)
	{
		UEdGraph* Graph = FBlueprintEditorUtils::CreateNewGraph(Blueprint, FName(Name), UEdGraph::StaticClass(), UEdGraphSchema_K2::StaticClass());
		FBlueprintEditorUtils::AddFunctionGraph(Blueprint, Graph, true, static_cast<UClass*>(nullptr));
		return Graph;
	}

	UK2Node_FunctionEntry* EntryOf(const UEdGraph* Graph)
	{
		TArray<UK2Node_FunctionEntry*> Entries;
		Graph->GetNodesOfClass(Entries);
		return Entries.Num() > 0 ? Entries[0] : nullptr;
	}
}

TEST_F(FBlueprintModelTest, CompileMakesPropertiesFunctionsComponentsAndInterfaces)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Door"), ABlueprintTestPawn::StaticClass());
	ASSERT_NE(Blueprint, nullptr);
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
	EXPECT_EQ(Blueprint->GeneratedClass->GetPathName(), TEXT("/Game/Blueprints/BP_Door.BP_Door_C"));
	const FName Real = UEdGraphSchema_K2::PC_Real;
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Speed"), PinType(Real, UEdGraphSchema_K2::PC_Double), TEXT("2.5")));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("bLocked"), PinType(UEdGraphSchema_K2::PC_Boolean), TEXT("true")));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Label"), PinType(UEdGraphSchema_K2::PC_Text), TEXT("Front door")));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Spot"), PinType(UEdGraphSchema_K2::PC_Struct, NAME_None, TBaseStructure<FVector>::Get()), TEXT("(X=1,Y=2,Z=3)")));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Codes"), PinType(UEdGraphSchema_K2::PC_Int, NAME_None, nullptr, EPinContainerType::Array), TEXT("(1,2)")));
	FEdGraphPinType Neighbours = PinType(UEdGraphSchema_K2::PC_Name, NAME_None, nullptr, EPinContainerType::Map);
	Neighbours.PinValueType.TerminalCategory = UEdGraphSchema_K2::PC_Object;
	Neighbours.PinValueType.TerminalSubCategoryObject = AActor::StaticClass();
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Neighbours"), Neighbours));
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Spawned"), PinType(UEdGraphSchema_K2::PC_Class, NAME_None, AActor::StaticClass())));
	// Names a parent class or the Blueprint already uses are refused.
	EXPECT_FALSE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Lives"), PinType(UEdGraphSchema_K2::PC_Int)));
	EXPECT_FALSE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("speed"), PinType(UEdGraphSchema_K2::PC_Int)));
	EXPECT_FALSE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Nothing"), FEdGraphPinType()));
	FBlueprintEditorUtils::SetBlueprintVariableMetaData(Blueprint, TEXT("Speed"), nullptr, TEXT("ClampMin"), TEXT("0"));
	EXPECT_EQ(Blueprint->Status, BS_Dirty);

	UEdGraph* Graph = AddFunction(Blueprint, TEXT("Swing"));
	UK2Node_FunctionEntry* Entry = EntryOf(Graph);
	Entry->CreateUserDefinedPin(TEXT("Force"), PinType(Real, UEdGraphSchema_K2::PC_Double), EGPD_Output);
	UK2Node_FunctionResult* Result = FBlueprintEditorUtils::FindOrCreateFunctionResultNode(Entry);
	Result->CreateUserDefinedPin(TEXT("bOpened"), PinType(UEdGraphSchema_K2::PC_Boolean), EGPD_Input);
	GetDefault<UEdGraphSchema_K2>()->AddExtraFunctionFlags(Graph, FUNC_BlueprintPure);
	USCS_Node* Mesh = Blueprint->SimpleConstructionScript->CreateNode(UStaticMeshComponent::StaticClass(), TEXT("Panel"));
	Blueprint->SimpleConstructionScript->AddNode(Mesh);
	ASSERT_TRUE(FBlueprintEditorUtils::ImplementNewInterface(Blueprint, UBlueprintTestOpenable::StaticClass()->GetClassPathName()));
	EXPECT_FALSE(FBlueprintEditorUtils::ImplementNewInterface(Blueprint, UBlueprintTestOpenable::StaticClass()->GetClassPathName()));
	ASSERT_EQ(Blueprint->ImplementedInterfaces[0].Graphs.Num(), 1) << "a graph for each function of the native interface";
	EXPECT_EQ(Blueprint->ImplementedInterfaces[0].Graphs[0]->GetName(), TEXT("Open"));
	EXPECT_EQ(Blueprint->ImplementedInterfaces[0].Graphs[0]->Nodes[0]->GetNodeTitle(ENodeTitleType::FullTitle).ToString(), TEXT("Open"));
	EXPECT_FALSE(FBlueprintEditorUtils::ImplementNewInterface(Blueprint, AActor::StaticClass()->GetClassPathName()));
	// A Blueprint interface's functions become graphs of the Blueprint that implements it.
	UBlueprintFactory* InterfaceFactory = NewObject<UBlueprintFactory>();
	InterfaceFactory->ParentClass = UInterface::StaticClass();
	InterfaceFactory->BlueprintType = BPTYPE_Interface;
	UBlueprint* Lockable = Cast<UBlueprint>(FAssetToolsModule::GetModule().Get().CreateAsset(TEXT("BPI_Lockable"), TEXT("/Game/Blueprints"), UBlueprint::StaticClass(), InterfaceFactory));
	ASSERT_NE(Lockable, nullptr);
	EXPECT_EQ(FBlueprintEditorUtils::FindEventGraph(Lockable), nullptr);
	AddFunction(Lockable, TEXT("Lock"));
	FKismetEditorUtilities::CompileBlueprint(Lockable);
	EXPECT_TRUE(Lockable->GeneratedClass->HasAnyClassFlags(CLASS_Interface));
	ASSERT_TRUE(FBlueprintEditorUtils::ImplementNewInterface(Blueprint, Lockable->GeneratedClass->GetClassPathName()));

	UClass* OldClass = Blueprint->GeneratedClass;
	FCompilerResultsLog Log;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Log);
	EXPECT_EQ(Log.NumErrors, 0) << (Log.Messages.Num() > 0 ? TCHAR_TO_UTF8(*Log.Messages[0]->ToText().ToString()) : "");
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
	UClass* Class = Blueprint->GeneratedClass;
	ASSERT_NE(Class, OldClass);
	EXPECT_EQ(Class->GetPathName(), TEXT("/Game/Blueprints/BP_Door.BP_Door_C"));
	EXPECT_TRUE(Class->IsA(UBlueprintGeneratedClass::StaticClass()));
	EXPECT_TRUE(Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint));
	EXPECT_EQ(Class->GetSuperClass(), ABlueprintTestPawn::StaticClass());
	EXPECT_EQ(Class->ClassGeneratedBy, Blueprint);

	EXPECT_NE(CastField<FDoubleProperty>(Class->FindPropertyByName(TEXT("Speed"))), nullptr);
	EXPECT_TRUE(Class->FindPropertyByName(TEXT("Speed"))->HasAllPropertyFlags(CPF_Edit | CPF_BlueprintVisible | CPF_DisableEditOnInstance));
	EXPECT_EQ(Class->FindPropertyByName(TEXT("Speed"))->GetMetaData(TEXT("ClampMin")), TEXT("0"));
	EXPECT_NE(CastField<FTextProperty>(Class->FindPropertyByName(TEXT("Label"))), nullptr);
	EXPECT_NE(CastField<FClassProperty>(Class->FindPropertyByName(TEXT("Spawned"))), nullptr);
	const FMapProperty* Map = CastField<FMapProperty>(Class->FindPropertyByName(TEXT("Neighbours")));
	ASSERT_NE(Map, nullptr);
	EXPECT_NE(CastField<FNameProperty>(Map->KeyProp), nullptr);
	EXPECT_EQ(CastField<FObjectProperty>(Map->ValueProp)->PropertyClass, AActor::StaticClass());
	EXPECT_EQ(DefaultText(Class, TEXT("Speed")), TEXT("2.500000"));
	EXPECT_EQ(DefaultText(Class, TEXT("bLocked")), TEXT("True"));
	EXPECT_EQ(DefaultText(Class, TEXT("Spot")), TEXT("(X=1.000000,Y=2.000000,Z=3.000000)"));
	EXPECT_EQ(DefaultText(Class, TEXT("Codes")), TEXT("(1,2)"));
	EXPECT_EQ(DefaultText(Class, TEXT("Lives")), TEXT("3")) << "the parent's defaults stay";

	const FObjectProperty* Panel = CastField<FObjectProperty>(Class->FindPropertyByName(TEXT("Panel")));
	ASSERT_NE(Panel, nullptr);
	EXPECT_EQ(Panel->PropertyClass, UStaticMeshComponent::StaticClass());
	EXPECT_TRUE(Class->ImplementsInterface(UBlueprintTestOpenable::StaticClass()));
	EXPECT_TRUE(Class->ImplementsInterface(Lockable->GeneratedClass));
	ASSERT_EQ(Blueprint->ImplementedInterfaces.Num(), 2);
	ASSERT_EQ(Blueprint->ImplementedInterfaces[1].Graphs.Num(), 1);
	EXPECT_EQ(Blueprint->ImplementedInterfaces[1].Graphs[0]->GetName(), TEXT("Lock"));
	const UFunction* Lock = Class->FindFunctionByName(TEXT("Lock"), EIncludeSuperFlag::ExcludeSuper);
	ASSERT_NE(Lock, nullptr) << "an interface's graph implements its function in the class";
	EXPECT_NE(Class->FindFunctionByName(TEXT("Open"), EIncludeSuperFlag::ExcludeSuper), nullptr);

	const UFunction* Open = Class->FindFunctionByName(TEXT("Swing"));
	ASSERT_NE(Open, nullptr);
	EXPECT_TRUE(Open->HasAllFunctionFlags(FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_BlueprintPure | FUNC_Public | FUNC_HasOutParms));
	const FProperty* Force = Open->FindPropertyByName(TEXT("Force"));
	const FProperty* Opened = Open->FindPropertyByName(TEXT("bOpened"));
	ASSERT_TRUE(Force != nullptr && Opened != nullptr);
	EXPECT_TRUE(Force->HasAnyPropertyFlags(CPF_Parm));
	EXPECT_FALSE(Force->HasAnyPropertyFlags(CPF_OutParm));
	EXPECT_TRUE(Opened->HasAllPropertyFlags(CPF_Parm | CPF_OutParm));
	EXPECT_EQ(Open->NumParms, 2);
	// Functions of the class's own graphs are called on self.
	UK2Node_CallFunction* Call = NewObject<UK2Node_CallFunction>(FBlueprintEditorUtils::FindEventGraph(Blueprint));
	Call->SetFromFunction(Open);
	EXPECT_TRUE(Call->FunctionReference.IsSelfContext());
	EXPECT_EQ(Call->GetTargetFunction(), Open);
	EXPECT_EQ(Call->GetNodeTitle(ENodeTitleType::FullTitle).ToString(), TEXT("Swing"));
}

TEST_F(FBlueprintModelTest, ABlueprintOfABlueprintInheritsThroughItsClassChain)
{
	UBlueprint* Parent = MakeBlueprint(TEXT("BP_Base"), AActor::StaticClass());
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Parent, TEXT("Health"), PinType(UEdGraphSchema_K2::PC_Int), TEXT("100")));
	AddFunction(Parent, TEXT("Heal"));
	FKismetEditorUtilities::CompileBlueprint(Parent);
	UBlueprint* Child = MakeBlueprint(TEXT("BP_Child"), Parent->GeneratedClass);
	ASSERT_NE(Child, nullptr);
	EXPECT_EQ(Child->Status, BS_UpToDate);
	EXPECT_EQ(Child->GeneratedClass->GetSuperClass(), Parent->GeneratedClass.Get());
	EXPECT_NE(Child->GeneratedClass->FindFunctionByName(TEXT("Heal")), nullptr);
	EXPECT_EQ(DefaultText(Child->GeneratedClass, TEXT("Health")), TEXT("100"));
	EXPECT_FALSE(FBlueprintEditorUtils::AddMemberVariable(Child, TEXT("Health"), PinType(UEdGraphSchema_K2::PC_Int))) << "a child can't hide its parent's variable";
	// A get node in the child finds the parent's variable through the chain.
	UK2Node_VariableGet* Get = GetDefault<UEdGraphSchema_K2>()->SpawnVariableGetNode(FVector2D(0, 0), FBlueprintEditorUtils::FindEventGraph(Child), TEXT("Health"), Child->GeneratedClass);
	EXPECT_EQ(Get->FindPin(TEXT("Health"))->PinType.PinCategory, UEdGraphSchema_K2::PC_Int);

	// A change to the parent reaches the child when the parent compiles.
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Parent, TEXT("Armor"), PinType(UEdGraphSchema_K2::PC_Int), TEXT("7")));
	FKismetEditorUtilities::CompileBlueprint(Parent);
	EXPECT_EQ(Child->ParentClass.Get(), Parent->GeneratedClass.Get());
	EXPECT_EQ(Child->GeneratedClass->GetSuperClass(), Parent->GeneratedClass.Get());
	EXPECT_EQ(DefaultText(Child->GeneratedClass, TEXT("Armor")), TEXT("7"));
	EXPECT_EQ(Child->Status, BS_UpToDate);
	TArray<UBlueprint*> Chain;
	EXPECT_TRUE(UBlueprint::GetBlueprintHierarchyFromClass(Child->GeneratedClass, Chain));
	EXPECT_EQ(Chain, TArray<UBlueprint*>({Child, Parent}));

	// Loaded again, the child's defaults still come from its parent's: the file holds only what differs.
	ASSERT_TRUE(SaveTestPackage(Parent->GetOutermost(), Parent));
	ASSERT_TRUE(SaveTestPackage(Child->GetOutermost(), Child));
	// One collection for both: the first would free the parent that the second still names.
	ForgetPackage(Child->GetOutermost(), false);
	ForgetPackage(Parent->GetOutermost());
	UBlueprint* LoadedChild = LoadObject<UBlueprint>(nullptr, TEXT("/Game/Blueprints/BP_Child.BP_Child"));
	ASSERT_NE(LoadedChild, nullptr);
	EXPECT_EQ(DefaultText(LoadedChild->GeneratedClass, TEXT("Health")), TEXT("100"));
	EXPECT_EQ(DefaultText(LoadedChild->GeneratedClass, TEXT("Armor")), TEXT("7"));
	EXPECT_EQ(LoadedChild->GeneratedClass->GetSuperClass()->GetPathName(), TEXT("/Game/Blueprints/BP_Base.BP_Base_C"));
}

TEST_F(FBlueprintModelTest, RealFaultsFailTheCompileAndSomeOnlyWarn)
{
	UBlueprint* Blueprint = MakeBlueprint(TEXT("BP_Faults"), AActor::StaticClass());
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Count"), PinType(UEdGraphSchema_K2::PC_Int), TEXT("not a number")));
	FCompilerResultsLog Warnings;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Warnings);
	EXPECT_EQ(Blueprint->Status, BS_UpToDateWithWarnings);
	EXPECT_TRUE(HasMessage(Warnings, TEXT("The default value 'not a number' of variable 'Count'")));
	Blueprint->NewVariables[0].DefaultValue = TEXT("4");

	// A get node of a variable that isn't there.
	UEdGraph* Graph = FBlueprintEditorUtils::FindEventGraph(Blueprint);
	const UEdGraphSchema_K2* Schema = GetDefault<UEdGraphSchema_K2>();
	UK2Node_VariableGet* Ghost = Schema->SpawnVariableGetNode(FVector2D(0, 0), Graph, TEXT("Ghost"), nullptr);
	FCompilerResultsLog Missing;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Missing);
	EXPECT_EQ(Blueprint->Status, BS_Error);
	EXPECT_TRUE(HasMessage(Missing, TEXT("Unable to find variable with name 'Ghost' for 'Get Ghost'")));
	Graph->RemoveNode(Ghost);
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	EXPECT_EQ(Blueprint->Status, BS_UpToDate) << "fixing the fault fixes the compile";

	// A link between pins whose types can't meet, made around the schema.
	UK2Node_VariableGet* Count = Schema->SpawnVariableGetNode(FVector2D(0, 0), Graph, TEXT("Count"), nullptr);
	UK2Node_CallFunction* Print = NewObject<UK2Node_CallFunction>(Graph);
	Print->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("PrintString")));
	Graph->AddNode(Print);
	Print->AllocateDefaultPins();
	Count->FindPin(TEXT("Count"))->MakeLinkTo(Print->FindPin(TEXT("bPrintToScreen")));
	FCompilerResultsLog BadLink;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &BadLink);
	EXPECT_EQ(Blueprint->Status, BS_Error);
	EXPECT_TRUE(HasMessage(BadLink, TEXT("is not compatible with bPrintToScreen")));
	Count->FindPin(TEXT("Count"))->BreakAllPinLinks();

	// A value read from a node that nothing runs is only worth a warning; a pure node runs when read.
	ASSERT_TRUE(FBlueprintEditorUtils::AddMemberVariable(Blueprint, TEXT("Greeting"), PinType(UEdGraphSchema_K2::PC_String)));
	UK2Node_CallFunction* Name = NewObject<UK2Node_CallFunction>(Graph);
	Name->SetFromFunction(UKismetSystemLibrary::StaticClass()->FindFunctionByName(TEXT("GetDisplayName")));
	Graph->AddNode(Name);
	Name->AllocateDefaultPins();
	ASSERT_TRUE(Schema->TryCreateConnection(Name->GetReturnValuePin(), Print->FindPin(TEXT("InString"))));
	FKismetEditorUtilities::CompileBlueprint(Blueprint);
	EXPECT_EQ(Blueprint->Status, BS_UpToDate);
	UK2Node_VariableSet* Set = Schema->SpawnVariableSetNode(FVector2D(0, 0), Graph, TEXT("Greeting"), nullptr);
	ASSERT_TRUE(Schema->TryCreateConnection(Set->FindPin(TEXT("Output_Get")), Print->FindPin(TEXT("InString"))));
	EXPECT_EQ(Name->GetReturnValuePin()->LinkedTo.Num(), 0) << "a data input takes one value";
	FCompilerResultsLog Pruned;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &Pruned);
	EXPECT_EQ(Blueprint->Status, BS_UpToDateWithWarnings);
	EXPECT_TRUE(HasMessage(Pruned, TEXT("'Set Greeting' was pruned because its Exec pin is not connected")));

	// A call node that calls nothing, and a Blueprint whose parent went away.
	UK2Node_CallFunction* Empty = NewObject<UK2Node_CallFunction>(Graph);
	Graph->AddNode(Empty);
	FCompilerResultsLog NotSetUp;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &NotSetUp);
	EXPECT_EQ(Blueprint->Status, BS_Error);
	EXPECT_TRUE(HasMessage(NotSetUp, TEXT("is not set up")));
	Graph->RemoveNode(Empty);
	UClass* Before = Blueprint->GeneratedClass;
	Blueprint->ParentClass = nullptr;
	FCompilerResultsLog NoParent;
	FKismetEditorUtilities::CompileBlueprint(Blueprint, EBlueprintCompileOptions::None, &NoParent);
	EXPECT_EQ(Blueprint->Status, BS_Error);
	EXPECT_TRUE(HasMessage(NoParent, TEXT("has no parent class")));
	EXPECT_EQ(Blueprint->GeneratedClass.Get(), Before) << "the last good class stays";
}
