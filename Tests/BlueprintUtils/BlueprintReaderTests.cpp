// The Blueprint document: exact sections of the sample Blueprints, subsets, the content filter, lookups.
#include "BlueprintUtilsTestSupport.h"
#include "Engine/StaticMeshActor.h"
#include "GameFramework/Actor.h"
#include "HAL/FileManager.h"

namespace
{
	TSharedPtr<FJsonObject> Read(const TCHAR* Name, const TCHAR* Subset)
	{
		return ParseJson(FTavrineBlueprintUtils::ReadBlueprint(Name, Subset));
	}

	TArray<FString> KeysOf(const TSharedPtr<FJsonObject>& Object)
	{
		TArray<FString> Keys;
		if (Object.IsValid())
		{
			Object->Values.GetKeys(Keys);
		}
		return Keys;
	}

	/** The first entry of an array of objects whose Key holds Value. */
	TSharedPtr<FJsonObject> FindEntry(const TArray<TSharedPtr<FJsonValue>>& Entries, const TCHAR* Key, const TCHAR* Value)
	{
		for (const TSharedPtr<FJsonValue>& Entry : Entries)
		{
			const TSharedPtr<FJsonObject>& Object = Entry->AsObject();
			if (Object.IsValid() && Object->GetStringField(Key) == Value)
			{
				return Object;
			}
		}
		return nullptr;
	}

	TSharedPtr<FJsonObject> FindNode(const TSharedPtr<FJsonObject>& Graph, const TCHAR* Title)
	{
		return Graph.IsValid() ? FindEntry(Graph->GetArrayField(TEXT("Nodes")), TEXT("Title"), Title) : nullptr;
	}

	TSharedPtr<FJsonObject> FindPin(const TSharedPtr<FJsonObject>& Node, const TCHAR* Name)
	{
		return Node.IsValid() ? FindEntry(Node->GetArrayField(TEXT("Pins")), TEXT("Name"), Name) : nullptr;
	}
}

TEST_F(FBlueprintUtilsTest, VariablesSectionHoldsTypesAndDefaults)
{
	ASSERT_NE(FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase"))), nullptr);
	const TSharedPtr<FJsonObject> Document = Read(TEXT("bp_SHOWCASE"), TEXT("Variables"));
	ASSERT_TRUE(Document.IsValid());
	EXPECT_EQ(KeysOf(Document), TArray<FString>({ TEXT("Name"), TEXT("Path"), TEXT("ParentClass"), TEXT("Variables") }));
	EXPECT_EQ(Document->GetStringField(TEXT("Name")), TEXT("BP_Showcase"));
	EXPECT_EQ(Document->GetStringField(TEXT("Path")), TEXT("/Game/Blueprints/BP_Showcase.BP_Showcase"));
	EXPECT_EQ(Document->GetStringField(TEXT("ParentClass")), TEXT("StaticMeshActor"));

	const TSharedPtr<FJsonObject> Variables = Document->GetObjectField(TEXT("Variables"));
	EXPECT_EQ(Condensed(Variables->GetObjectField(TEXT("Health"))), TEXT(R"({"Type":{"Category":"real","SubCategory":"double","Container":"None","Flags":[]},"Value":"100.000000"})"));
	EXPECT_EQ(Condensed(Variables->GetObjectField(TEXT("NamedActors"))->GetObjectField(TEXT("Type"))),
		TEXT(R"({"Category":"name","SubCategory":"None","Container":"Map","ValueType":{"Category":"object","SubCategory":"None","SubCategoryObject":"/Script/Engine.Actor"},"Flags":[]})"));
	EXPECT_EQ(Variables->GetObjectField(TEXT("bIsAlive"))->GetStringField(TEXT("Value")), TEXT("True"));
	EXPECT_EQ(Variables->GetObjectField(TEXT("SpawnLocation"))->GetStringField(TEXT("Value")), TEXT("(X=1.000000,Y=2.000000,Z=3.000000)"));
	EXPECT_EQ(Variables->GetObjectField(TEXT("Target"))->GetStringField(TEXT("Value")), TEXT("None"));
	EXPECT_EQ(Variables->GetObjectField(TEXT("SpawnClass"))->GetObjectField(TEXT("Type"))->GetStringField(TEXT("Category")), TEXT("class"));
	EXPECT_EQ(Variables->GetObjectField(TEXT("Waypoints"))->GetObjectField(TEXT("Type"))->GetStringField(TEXT("Container")), TEXT("Array"));
	EXPECT_EQ(Variables->GetObjectField(TEXT("Labels"))->GetObjectField(TEXT("Type"))->GetStringField(TEXT("Container")), TEXT("Set"));

	// Blueprint-visible natives show with the default filter; an actor's hidden bookkeeping doesn't.
	EXPECT_TRUE(Variables->HasField(TEXT("InitialLifeSpan")));
	EXPECT_FALSE(Variables->HasField(TEXT("InstanceComponents")));
	SetFilter(ETavrineBlueprintContentFilter::UseAllContent);
	EXPECT_TRUE(Read(TEXT("BP_Showcase"), TEXT("Variables"))->GetObjectField(TEXT("Variables"))->HasField(TEXT("InstanceComponents")));
}

TEST_F(FBlueprintUtilsTest, FunctionsAndGraphsShowNodesPinsAndLinks)
{
	ASSERT_NE(FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase"))), nullptr);
	const TSharedPtr<FJsonObject> Document = Read(TEXT("BP_Showcase"), TEXT("all"));
	ASSERT_TRUE(Document.IsValid());
	// No interfaces: that section is left out.
	EXPECT_EQ(KeysOf(Document), TArray<FString>({ TEXT("Name"), TEXT("Path"), TEXT("ParentClass"), TEXT("Variables"), TEXT("Functions"), TEXT("Components"), TEXT("Graphs") }));
	// The mesh its native parent makes is on the default object.
	EXPECT_EQ(Condensed(Document->GetArrayField(TEXT("Components"))[0]->AsObject()), TEXT(R"({"Name":"StaticMeshComponent0","ClassName":"StaticMeshComponent"})"));

	const TArray<TSharedPtr<FJsonValue>>& Functions = Document->GetArrayField(TEXT("Functions"));
	const TSharedPtr<FJsonObject> ApplyDamage = FindEntry(Functions, TEXT("Name"), TEXT("ApplyDamage"));
	ASSERT_TRUE(ApplyDamage.IsValid());
	EXPECT_EQ(KeysOf(ApplyDamage), TArray<FString>({ TEXT("Name"), TEXT("ReturnType"), TEXT("InParams"), TEXT("OutParams"), TEXT("EdGraph") }));
	EXPECT_EQ(ApplyDamage->GetStringField(TEXT("ReturnType")), TEXT("void"));
	EXPECT_EQ(Condensed(ApplyDamage->GetArrayField(TEXT("InParams"))[0]->AsObject()), TEXT(R"({"Name":"Amount","Type":{"Category":"real","SubCategory":"double","Container":"None","Flags":[]}})"));
	EXPECT_EQ(ApplyDamage->GetArrayField(TEXT("OutParams"))[0]->AsObject()->GetStringField(TEXT("Name")), TEXT("NewHealth"));
	// An inherited event without parameters: no graph here, no parameter lists.
	const TSharedPtr<FJsonObject> BeginPlayFunction = FindEntry(Functions, TEXT("Name"), TEXT("ReceiveBeginPlay"));
	ASSERT_TRUE(BeginPlayFunction.IsValid());
	EXPECT_FALSE(BeginPlayFunction->HasField(TEXT("InParams")));
	EXPECT_FALSE(BeginPlayFunction->HasField(TEXT("OutParams")));

	const TSharedPtr<FJsonObject> FunctionGraph = ApplyDamage->GetObjectField(TEXT("EdGraph"));
	EXPECT_EQ(FunctionGraph->GetStringField(TEXT("Name")), TEXT("ApplyDamage"));
	EXPECT_EQ(FunctionGraph->GetStringField(TEXT("Class")), TEXT("EdGraph"));
	const TSharedPtr<FJsonObject> Print = FindNode(FunctionGraph, TEXT("Print String"));
	ASSERT_TRUE(Print.IsValid());
	EXPECT_EQ(Print->GetStringField(TEXT("Class")), TEXT("K2Node_CallFunction"));
	EXPECT_EQ(Condensed(Print->GetObjectField(TEXT("Properties"))), TEXT(R"({"FunctionName":"PrintString"})"));
	EXPECT_EQ(Condensed(FindPin(Print, TEXT("execute"))), TEXT(R"({"Name":"execute","Value":"","Direction":"Input","Category":"exec","Connections":[{"Node":"Set Health","Pin":"then"}]})"));
	EXPECT_EQ(FindPin(Print, TEXT("InString"))->GetStringField(TEXT("Value")), TEXT("Ouch"));
	EXPECT_EQ(Condensed(FindNode(FunctionGraph, TEXT("Set Health"))->GetObjectField(TEXT("Properties"))), TEXT(R"({"VariableName":"Health"})"));
	EXPECT_EQ(FindPin(FindNode(FunctionGraph, TEXT("Get Health")), TEXT("Health"))->GetArrayField(TEXT("Connections"))[0]->AsObject()->GetStringField(TEXT("Node")), TEXT("Return Node"));
	// Entry nodes are titled by their function and have nothing special to say.
	EXPECT_EQ(Condensed(FindNode(FunctionGraph, TEXT("ApplyDamage"))->GetObjectField(TEXT("Properties"))), TEXT("{}"));

	const TArray<TSharedPtr<FJsonValue>>& Graphs = Document->GetArrayField(TEXT("Graphs"));
	ASSERT_EQ(Graphs.Num(), 1);
	const TSharedPtr<FJsonObject> BeginPlay = FindNode(Graphs[0]->AsObject(), TEXT("Event BeginPlay"));
	ASSERT_TRUE(BeginPlay.IsValid());
	EXPECT_EQ(Condensed(FindPin(BeginPlay, TEXT("then"))->GetArrayField(TEXT("Connections"))[0]->AsObject()), TEXT(R"({"Node":"Print String","Pin":"execute"})"));
}

TEST_F(FBlueprintUtilsTest, SubsetsAndLookupsByName)
{
	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
	ASSERT_NE(Showcase, nullptr);
	ASSERT_NE(FSampleBlueprintBuilder::MakeAnimBlueprint(Asset(TEXT("ABP_Hero"))), nullptr);

	// Section keys match in any case and come back as asked; unknown or empty sections leave the header.
	EXPECT_EQ(KeysOf(Read(TEXT("BP_Showcase"), TEXT("vaRiables"))), TArray<FString>({ TEXT("Name"), TEXT("Path"), TEXT("ParentClass"), TEXT("vaRiables") }));
	EXPECT_EQ(KeysOf(Read(TEXT("BP_Showcase"), TEXT("Interfaces"))), TArray<FString>({ TEXT("Name"), TEXT("Path"), TEXT("ParentClass") }));
	EXPECT_EQ(KeysOf(Read(TEXT("BP_Showcase"), TEXT("Everything"))), TArray<FString>({ TEXT("Name"), TEXT("Path"), TEXT("ParentClass") }));
	EXPECT_EQ(KeysOf(Read(TEXT("BP_Showcase"), TEXT("Graphs"))).Last(), TEXT("Graphs"));

	// Whole names only, any case; Animation Blueprints are not Blueprints to these tools.
	EXPECT_EQ(FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(TEXT("bp_showcase")), Showcase);
	EXPECT_EQ(FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(TEXT("BP_Showcase.BP_Showcase")), nullptr);
	EXPECT_EQ(FTavrineBlueprintUtils::GetBlueprintFromtBlueprintName(TEXT("ABP_Hero")), nullptr);
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::ReadBlueprint(TEXT("ABP_Hero"), TEXT("All"))), TEXT(R"({"Error":"Blueprint 'ABP_Hero' not found."})"));
	EXPECT_EQ(Condensed(FTavrineBlueprintUtils::ReadBlueprint(TEXT("Nope"), TEXT("All"))), TEXT(R"({"Error":"Blueprint 'Nope' not found."})"));

	// Class lookups: native classes by short name, Blueprints by their generated class.
	EXPECT_EQ(FTavrineBlueprintUtils::GetBlueprintClassFromBlueprintName(TEXT("Actor")), AActor::StaticClass());
	EXPECT_EQ(FTavrineBlueprintUtils::GetBlueprintClassFromBlueprintName(TEXT("BP_SHOWCASE")), Showcase->GeneratedClass.Get());
	EXPECT_EQ(FTavrineBlueprintUtils::FindFirstCppImplementedParentClass(Showcase->GeneratedClass), AStaticMeshActor::StaticClass());
	EXPECT_EQ(FTavrineBlueprintUtils::FindFirstCppImplementedParentClass(nullptr), nullptr);
}

TEST_F(FBlueprintUtilsTest, InheritanceAndInterfacesInTheDocument)
{
	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
	ASSERT_NE(Showcase, nullptr);
	ASSERT_NE(FSampleBlueprintBuilder::MakeChild(Asset(TEXT("BP_ShowcaseChild")), Showcase), nullptr);
	UBlueprint* Interface = FSampleBlueprintBuilder::MakeInterface(Asset(TEXT("BPI_Interactable")));
	ASSERT_NE(Interface, nullptr);
	ASSERT_NE(FSampleBlueprintBuilder::MakeInterfaceUser(Asset(TEXT("BP_Door")), Interface), nullptr);

	// Only what Blueprints declare: the child's own variable and its parent Blueprint's, no native one.
	SetFilter(ETavrineBlueprintContentFilter::UseOnlyBlueprintClassContent);
	const TSharedPtr<FJsonObject> Child = Read(TEXT("BP_ShowcaseChild"), TEXT("All"));
	EXPECT_EQ(Child->GetStringField(TEXT("ParentClass")), TEXT("BP_Showcase_C"));
	const TSharedPtr<FJsonObject> Variables = Child->GetObjectField(TEXT("Variables"));
	EXPECT_TRUE(Variables->HasField(TEXT("Armor")));
	EXPECT_TRUE(Variables->HasField(TEXT("Health")));
	EXPECT_FALSE(Variables->HasField(TEXT("InitialLifeSpan")));
	// The parent's function is inherited: listed, but its graph lives in the parent.
	const TSharedPtr<FJsonObject> ApplyDamage = FindEntry(Child->GetArrayField(TEXT("Functions")), TEXT("Name"), TEXT("ApplyDamage"));
	ASSERT_TRUE(ApplyDamage.IsValid());
	EXPECT_FALSE(ApplyDamage->HasField(TEXT("EdGraph")));

	// A plain actor's default object holds no component, and an interface is no actor: no "Components".
	EXPECT_FALSE(Read(TEXT("BP_Door"), TEXT("All"))->HasField(TEXT("Components")));
	EXPECT_FALSE(Read(TEXT("BPI_Interactable"), TEXT("All"))->HasField(TEXT("Components")));
	const TSharedPtr<FJsonObject> Door = Read(TEXT("BP_Door"), TEXT("Interfaces"));
	const TArray<TSharedPtr<FJsonValue>>& Interfaces = Door->GetArrayField(TEXT("Interfaces"));
	ASSERT_EQ(Interfaces.Num(), 1);
	EXPECT_EQ(Interfaces[0]->AsObject()->GetStringField(TEXT("Name")), TEXT("BPI_Interactable_C"));
	EXPECT_TRUE(FindEntry(Interfaces[0]->AsObject()->GetArrayField(TEXT("Graphs")), TEXT("Name"), TEXT("Interact")).IsValid());
}

TEST_F(FBlueprintUtilsTest, CheckedInSampleBlueprintsReadAsFreshlyMadeOnes)
{
	// The sample project's files load with today's package format and give the documents of a fresh build;
	// when the editor's model changes, make-sample-blueprints writes them again.
	const TCHAR* const Names[] = { TEXT("BP_Showcase"), TEXT("BP_ShowcaseChild"), TEXT("BPI_Interactable"), TEXT("BP_Door"), TEXT("ABP_Hero") };
	for (const TCHAR* Name : Names)
	{
		const FString File = FString(Name) + TEXT(".uasset");
		Project->WriteFile(Project->ContentFile(TEXT("Blueprints/") + File), Project->ReadFile(FString(TEXT(SAMPLE_BLUEPRINTS_DIR)) / File));
	}
	TArray<FString> FromFiles;
	for (const TCHAR* Name : { TEXT("BP_Showcase"), TEXT("BP_ShowcaseChild"), TEXT("BP_Door") })
	{
		FromFiles.Add(FTavrineBlueprintUtils::ReadBlueprint(Name, TEXT("All")));
		ASSERT_FALSE(ParseJson(FromFiles.Last())->HasField(TEXT("Error"))) << TCHAR_TO_UTF8(Name);
	}
	ForgetAllContent();
	for (const TCHAR* Name : Names)
	{
		IFileManager::Get().Delete(*Project->ContentFile(FString(TEXT("Blueprints/")) + Name + TEXT(".uasset")));
	}

	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Asset(TEXT("BP_Showcase")));
	ASSERT_NE(Showcase, nullptr);
	ASSERT_NE(FSampleBlueprintBuilder::MakeChild(Asset(TEXT("BP_ShowcaseChild")), Showcase), nullptr);
	ASSERT_NE(FSampleBlueprintBuilder::MakeInterfaceUser(Asset(TEXT("BP_Door")), FSampleBlueprintBuilder::MakeInterface(Asset(TEXT("BPI_Interactable")))), nullptr);
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Showcase"), TEXT("All")), FromFiles[0]);
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_ShowcaseChild"), TEXT("All")), FromFiles[1]);
	EXPECT_EQ(FTavrineBlueprintUtils::ReadBlueprint(TEXT("BP_Door"), TEXT("All")), FromFiles[2]);
}
