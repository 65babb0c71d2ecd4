// The engine's text forms of every property kind: export, import back, and refusal of malformed text.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "UObject/TextProperty.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	FProperty* KindProperty(const TCHAR* Name)
	{
		return UReflectionTestAllKinds::StaticClass()->FindPropertyByName(FName(Name));
	}

	// Passing the value as its own delta writes it even where it equals the type's default.
	FString ExportKind(UReflectionTestAllKinds* Object, const TCHAR* Name, int32 PortFlags = PPF_None)
	{
		FString Text;
		FProperty* Property = KindProperty(Name);
		Property->ExportText_Direct(Text, Property->ContainerPtrToValuePtr<void>(Object), Property->ContainerPtrToValuePtr<void>(Object), nullptr, PortFlags);
		return Text;
	}

	UReflectionTestAllKinds* MakeFilledObject(UPackage* Package)
	{
		UReflectionTestAllKinds* Object = NewObject<UReflectionTestAllKinds>(Package, FName(TEXT("Filled")), RF_Public | RF_Standalone);
		UReflectionTestChild* Child = NewObject<UReflectionTestChild>(Object, FName(TEXT("Child")));
		Object->bFlag = true;
		Object->Byte = 200;
		Object->Int = -42;
		Object->Long = 1LL << 40;
		Object->Float = 1.5f;
		Object->Double = -0.25;
		Object->Name = FName(TEXT("Gold"));
		Object->String = TEXT("say \"hi\", twice");
		Object->Text = NSLOCTEXT("Tests", "Greeting", "Hello, text");
		Object->Enum = ETestAnswerMode::VeryTalkative;
		Object->ByteEnum = TLC_Green;
		Object->Vector = FVector(1.0, 2.0, 3.0);
		Object->Rotator = FRotator(10.0, 20.0, 30.0);
		Object->Transform = FTransform(FQuat::Identity, FVector(4.0, 5.0, 6.0), FVector(1.0, 1.0, 2.0));
		Object->Color = FLinearColor(0.5f, 0.25f, 1.0f, 1.0f);
		Object->Inner.Number = 5;
		Object->Inner.Reference = Child;
		Object->Object = Child;
		Object->RawPointer = Child;
		Object->Weak = Child;
		Object->Soft = Child;
		Object->Class = UReflectionTestChild::StaticClass();
		Object->SoftClass = UReflectionTestChild::StaticClass();
		Object->Greeter = Child;
		Object->Points = {FVector(1.0, 0.0, 0.0), FVector(0.0, -1.5, 0.0)};
		Object->Objects = {Child, nullptr};
		Object->Tags = {FName(TEXT("Red")), FName(TEXT("Blue"))};
		Object->Counts.Add(TEXT("apples"), 3);
		Object->Counts.Add(TEXT("pears"), 0);
		Object->Named.Add(FName(TEXT("Kid")), Child);
		return Object;
	}
}

TEST(PropertyKinds, EachKindExportsInTheEngineForm)
{
	UPackage* Package = CreatePackage(TEXT("/Game/PropertyKinds/Forms"));
	UReflectionTestAllKinds* Object = MakeFilledObject(Package);
	const FString ChildPath = TEXT("/Game/PropertyKinds/Forms.Filled:Child");

	EXPECT_EQ(ExportKind(Object, TEXT("bFlag")), TEXT("True"));
	EXPECT_EQ(ExportKind(Object, TEXT("Byte")), TEXT("200"));
	EXPECT_EQ(ExportKind(Object, TEXT("Long")), TEXT("1099511627776"));
	EXPECT_EQ(ExportKind(Object, TEXT("Float")), TEXT("1.500000"));
	EXPECT_EQ(ExportKind(Object, TEXT("Double")), TEXT("-0.250000"));
	EXPECT_EQ(ExportKind(Object, TEXT("String")), TEXT("say \"hi\", twice"));
	EXPECT_EQ(ExportKind(Object, TEXT("String"), PPF_Delimited), TEXT("\"say \\\"hi\\\", twice\""));
	EXPECT_EQ(ExportKind(Object, TEXT("Text")), TEXT("NSLOCTEXT(\"Tests\", \"Greeting\", \"Hello, text\")"));
	EXPECT_EQ(ExportKind(Object, TEXT("Enum")), TEXT("VeryTalkative"));
	EXPECT_EQ(ExportKind(Object, TEXT("ByteEnum")), TEXT("TLC_Green"));
	EXPECT_EQ(ExportKind(Object, TEXT("Vector")), TEXT("(X=1.000000,Y=2.000000,Z=3.000000)"));
	EXPECT_EQ(ExportKind(Object, TEXT("Rotator")), TEXT("(Pitch=10.000000,Yaw=20.000000,Roll=30.000000)"));
	EXPECT_EQ(ExportKind(Object, TEXT("Transform")), TEXT("(Rotation=(X=0.000000,Y=0.000000,Z=0.000000,W=1.000000),Translation=(X=4.000000,Y=5.000000,Z=6.000000),Scale3D=(X=1.000000,Y=1.000000,Z=2.000000))"));
	EXPECT_EQ(ExportKind(Object, TEXT("Color")), TEXT("(R=0.500000,G=0.250000,B=1.000000,A=1.000000)"));
	EXPECT_EQ(ExportKind(Object, TEXT("Object")), TEXT("/Script/CoreUObjectTests.ReflectionTestChild'") + ChildPath + TEXT("'"));
	EXPECT_EQ(ExportKind(Object, TEXT("Weak")), ExportKind(Object, TEXT("Object")));
	EXPECT_EQ(ExportKind(Object, TEXT("Soft")), ChildPath);
	EXPECT_EQ(ExportKind(Object, TEXT("Class")), TEXT("/Script/CoreUObject.Class'/Script/CoreUObjectTests.ReflectionTestChild'"));
	EXPECT_EQ(ExportKind(Object, TEXT("SoftClass")), TEXT("/Script/CoreUObjectTests.ReflectionTestChild"));
	EXPECT_EQ(ExportKind(Object, TEXT("Greeter")), ExportKind(Object, TEXT("Object")));
	EXPECT_EQ(ExportKind(Object, TEXT("Points")), TEXT("((X=1.000000,Y=0.000000,Z=0.000000),(X=0.000000,Y=-1.500000,Z=0.000000))"));
	EXPECT_EQ(ExportKind(Object, TEXT("Tags")), TEXT("(\"Red\",\"Blue\")"));
	EXPECT_EQ(ExportKind(Object, TEXT("Counts")), TEXT("((\"apples\", 3),(\"pears\", 0))"));
	// A struct that isn't atomic lists only what differs from its defaults; an atomic one is always whole.
	EXPECT_EQ(ExportKind(Object, TEXT("Inner")), TEXT("(Number=5,Word=\"\",Reference=/Script/CoreUObjectTests.ReflectionTestChild'\"") + ChildPath + TEXT("\"')"));
	FString DeltaOnly;
	FProperty* InnerProperty = KindProperty(TEXT("Inner"));
	InnerProperty->ExportText_Direct(DeltaOnly, InnerProperty->ContainerPtrToValuePtr<void>(Object), nullptr, nullptr, PPF_None);
	EXPECT_EQ(DeltaOnly, TEXT("(Number=5,Reference=/Script/CoreUObjectTests.ReflectionTestChild'\"") + ChildPath + TEXT("\"')"));

	// Nothing is written for a value equal to the comparison base; empty references read "None" or nothing.
	UReflectionTestAllKinds* Empty = NewObject<UReflectionTestAllKinds>();
	FString Text;
	EXPECT_FALSE(KindProperty(TEXT("Int"))->ExportText_InContainer(0, Text, Empty, nullptr, Empty, PPF_None));
	EXPECT_TRUE(Text.IsEmpty());
	EXPECT_EQ(ExportKind(Empty, TEXT("Object")), TEXT("None"));
	EXPECT_EQ(ExportKind(Empty, TEXT("Soft")), TEXT(""));
	EXPECT_EQ(ExportKind(Empty, TEXT("Vector")), TEXT("(X=0.000000,Y=0.000000,Z=0.000000)"));
	EXPECT_EQ(ExportKind(Empty, TEXT("Inner")), TEXT("(Number=0,Word=\"\",Reference=None)"));
}

TEST(PropertyKinds, EachKindReadsBackWhatItWrote)
{
	UPackage* Package = CreatePackage(TEXT("/Game/PropertyKinds/Round"));
	UReflectionTestAllKinds* Source = MakeFilledObject(Package);
	UReflectionTestAllKinds* Target = NewObject<UReflectionTestAllKinds>(Package, FName(TEXT("Target")));
	for (TFieldIterator<FProperty> It(UReflectionTestAllKinds::StaticClass()); It; ++It)
	{
		FProperty* Property = *It;
		const FString Text = ExportKind(Source, *Property->GetName(), PPF_Delimited);
		const TCHAR* End = Property->ImportText_Direct(*Text, Property->ContainerPtrToValuePtr<void>(Target), Target, PPF_Delimited);
		ASSERT_NE(End, nullptr) << TCHAR_TO_UTF8(*Property->GetName()) << ": " << TCHAR_TO_UTF8(*Text);
		EXPECT_EQ(*End, 0) << TCHAR_TO_UTF8(*Property->GetName());
		EXPECT_TRUE(Property->Identical_InContainer(Target, Source)) << TCHAR_TO_UTF8(*Property->GetName()) << ": " << TCHAR_TO_UTF8(*Text);
	}
	EXPECT_EQ(Target->Object, Source->Object);
	EXPECT_EQ(Target->Greeter.GetInterface(), Source->Greeter.GetInterface());
	EXPECT_EQ(Target->Counts.FindRef(TEXT("apples")), 3);
	EXPECT_TRUE(Target->Text.ToString().Equals(TEXT("Hello, text")));

	// The other forms the engine accepts: a path without class, a quoted path, "None", and short enum names.
	FProperty* ObjectProperty = KindProperty(TEXT("Object"));
	EXPECT_NE(ObjectProperty->ImportText_InContainer(TEXT("/Game/PropertyKinds/Round.Filled:Child"), Target, Target, PPF_None), nullptr);
	EXPECT_EQ(Target->Object, Source->Object);
	EXPECT_NE(ObjectProperty->ImportText_InContainer(TEXT("None"), Target, Target, PPF_None), nullptr);
	EXPECT_EQ(Target->Object, nullptr);
	EXPECT_NE(KindProperty(TEXT("Vector"))->ImportText_InContainer(TEXT("(Z=9,X=1)"), Target, Target, PPF_None), nullptr);
	EXPECT_EQ(Target->Vector, FVector(1.0, 2.0, 9.0));
	EXPECT_NE(KindProperty(TEXT("Text"))->ImportText_InContainer(TEXT("INVTEXT(\"Plain\")"), Target, Target, PPF_None), nullptr);
	EXPECT_TRUE(Target->Text.ToString().Equals(TEXT("Plain")));
}

TEST(PropertyKinds, MalformedOrUnresolvableTextChangesNothing)
{
	UPackage* Package = CreatePackage(TEXT("/Game/PropertyKinds/Refused"));
	UReflectionTestAllKinds* Object = MakeFilledObject(Package);
	const struct
	{
		const TCHAR* Property;
		const TCHAR* Text;
	} Cases[] = {
		{TEXT("Object"), TEXT("/Game/PropertyKinds/Nowhere.Missing")},
		{TEXT("Class"), TEXT("/Script/CoreUObject.Class'/Script/CoreUObject.Object'")},
		{TEXT("RawPointer"), TEXT("/Script/CoreUObjectTests.ReflectionTestAllKinds'/Game/PropertyKinds/Refused.Filled'")},
		{TEXT("Vector"), TEXT("X=1,Y=2")},
		{TEXT("Vector"), TEXT("(X=1,Y=")},
		{TEXT("Points"), TEXT("((X=1),(X=2)")},
		{TEXT("Counts"), TEXT("((\"a\" 1))")},
		{TEXT("Tags"), TEXT("(\"open")},
		{TEXT("Enum"), TEXT("Shouting")},
		{TEXT("Text"), TEXT("\"unclosed")},
	};
	for (const auto& Case : Cases)
	{
		FProperty* Property = KindProperty(Case.Property);
		const FString Before = ExportKind(Object, Case.Property, PPF_Delimited);
		EXPECT_EQ(Property->ImportText_InContainer(Case.Text, Object, Object, PPF_Delimited), nullptr) << TCHAR_TO_UTF8(Case.Text);
		EXPECT_EQ(ExportKind(Object, Case.Property, PPF_Delimited), Before) << TCHAR_TO_UTF8(Case.Property);
	}
}

TEST(PropertyKinds, PropertiesMadeAtRunTimeHoldValuesOfTheirOwn)
{
	// Containers of a class made at run time keep their elements in storage of their own.
	UClass* Class = NewObject<UClass>(CreatePackage(TEXT("/Game/PropertyKinds/RuntimeClass")), UClass::StaticClass(), FName(TEXT("Runtime_C")), RF_Public | RF_Standalone);
	Class->SetSuperStruct(UReflectionTestAbstract::StaticClass()->GetSuperClass());
	Class->ClassFlags = CLASS_CompiledFromBlueprint;
	FArrayProperty* Names = new FArrayProperty(Class, FName(TEXT("Names")), RF_Public);
	Names->AddCppProperty(new FNameProperty(Names, FName(TEXT("Names")), RF_Public));
	FMapProperty* Scores = new FMapProperty(Class, FName(TEXT("Scores")), RF_Public);
	Scores->AddCppProperty(new FStrProperty(Scores, FName(TEXT("Scores_Key")), RF_Public));
	Scores->AddCppProperty(new FStructProperty(Scores, FName(TEXT("Scores")), RF_Public, 0, CPF_None, TBaseStructure<FVector>::Get()));
	FSetProperty* Ids = new FSetProperty(Class, FName(TEXT("Ids")), RF_Public);
	Ids->AddCppProperty(new FIntProperty(Ids, FName(TEXT("Ids")), RF_Public));
	FMulticastInlineDelegateProperty* OnDone = new FMulticastInlineDelegateProperty(Class, FName(TEXT("OnDone")), RF_Public);
	for (FProperty* Property : TArray<FProperty*>{OnDone, Ids, Scores, Names})
	{
		Class->AddCppProperty(Property);
	}
	Class->StaticLink(true);
	EXPECT_GE(Names->GetOffset_ForInternal(), UObject::StaticClass()->GetPropertiesSize());

	UObject* Object = NewObject<UObject>(GetTransientPackage(), Class);
	ASSERT_NE(Object, nullptr);
	EXPECT_NE(Names->ImportText_InContainer(TEXT("(One,Two,\"Three Words\")"), Object, Object, PPF_None), nullptr);
	EXPECT_NE(Scores->ImportText_InContainer(TEXT("((\"a\", (X=1)),(\"b\", (Y=2)),(\"a\", (Z=3)))"), Object, Object, PPF_None), nullptr);
	EXPECT_NE(Ids->ImportText_InContainer(TEXT("(3,1,3,2)"), Object, Object, PPF_None), nullptr);
	FScriptArrayHelper Helper(Names, Names->ContainerPtrToValuePtr<void>(Object));
	ASSERT_EQ(Helper.Num(), 3);
	EXPECT_EQ(*reinterpret_cast<FName*>(Helper.GetRawPtr(2)), FName(TEXT("Three Words")));
	Helper.RemoveValues(0, 1);
	EXPECT_EQ(*reinterpret_cast<FName*>(Helper.GetRawPtr(0)), FName(TEXT("Two")));
	EXPECT_EQ(Scores->Num(Scores->ContainerPtrToValuePtr<void>(Object)), 2);

	FString Text;
	Scores->ExportText_InContainer(0, Text, Object, Object, Object, PPF_None);
	EXPECT_EQ(Text, TEXT("((\"a\", (X=0.000000,Y=0.000000,Z=3.000000)),(\"b\", (X=0.000000,Y=2.000000,Z=0.000000)))"));
	Text.Empty();
	Ids->ExportText_InContainer(0, Text, Object, Object, Object, PPF_None);
	EXPECT_EQ(Text, TEXT("(3,1,2)"));

	UObject* Copy = NewObject<UObject>(GetTransientPackage(), Class);
	for (FProperty* Property : TArray<FProperty*>{Names, Scores, Ids})
	{
		EXPECT_FALSE(Property->Identical_InContainer(Copy, Object));
		Property->CopyCompleteValue_InContainer(Copy, Object);
		EXPECT_TRUE(Property->Identical_InContainer(Copy, Object));
	}
	Text.Empty();
	OnDone->ExportText_InContainer(0, Text, Object, Object, Object, PPF_None);
	EXPECT_EQ(Text, TEXT("()"));
	FField* Made = FField::Construct(FName(TEXT("TextProperty")), FFieldVariant(Class), FName(TEXT("Made")), RF_Public);
	EXPECT_EQ(Made->GetClass(), FTextProperty::StaticClass());
	delete Made;
	EXPECT_EQ(FField::Construct(FName(TEXT("ObjectPropertyBase")), FFieldVariant(Class), FName(TEXT("Abstract")), RF_Public), nullptr);
}

TEST(PropertyKinds, NumbersEnumsInterfacesAndDelegatesReadTheEngineWay)
{
	UPackage* Package = CreatePackage(TEXT("/Game/PropertyKinds/Reading"));
	UReflectionTestAllKinds* Object = MakeFilledObject(Package);
	// An integer written as a decimal keeps its whole part; a byte enum reads its number too.
	EXPECT_NE(KindProperty(TEXT("Int"))->ImportText_InContainer(TEXT("7.9"), Object, Object, PPF_None), nullptr);
	EXPECT_EQ(Object->Int, 7);
	EXPECT_NE(KindProperty(TEXT("ByteEnum"))->ImportText_InContainer(TEXT("5"), Object, Object, PPF_None), nullptr);
	EXPECT_EQ(Object->ByteEnum, TLC_Green);
	EXPECT_NE(KindProperty(TEXT("Enum"))->ImportText_InContainer(TEXT("ETestAnswerMode::Quiet"), Object, Object, PPF_None), nullptr);
	EXPECT_EQ(Object->Enum, ETestAnswerMode::Quiet);
	// An object that doesn't implement the interface can't be held as it.
	EXPECT_EQ(KindProperty(TEXT("Greeter"))->ImportText_InContainer(TEXT("/Game/PropertyKinds/Reading.Filled"), Object, Object, PPF_None), nullptr);
	EXPECT_NE(Object->Greeter.GetObject(), nullptr);
	// A class reference must name a class of the required kind; a relative path is found inside the owner.
	EXPECT_NE(KindProperty(TEXT("Class"))->ImportText_InContainer(TEXT("/Script/CoreUObjectTests.ReflectionTestSettings"), Object, Object, PPF_None), nullptr);
	EXPECT_EQ(Object->Class.Get(), UReflectionTestSettings::StaticClass());
	EXPECT_NE(KindProperty(TEXT("Object"))->ImportText_InContainer(TEXT("Child"), Object, Object, PPF_None), nullptr);
	EXPECT_EQ(Object->Object->GetName(), TEXT("Child"));

	UClass* Class = NewObject<UClass>(Package, UClass::StaticClass(), FName(TEXT("Signals_C")), RF_Public);
	Class->SetSuperStruct(UObject::StaticClass());
	Class->ClassFlags = CLASS_CompiledFromBlueprint;
	FMulticastInlineDelegateProperty* OnOpen = new FMulticastInlineDelegateProperty(Class, FName(TEXT("OnOpen")), RF_Public);
	Class->AddCppProperty(OnOpen);
	Class->StaticLink(true);
	UObject* Signals = NewObject<UObject>(Package, Class, FName(TEXT("Signals")));
	const TCHAR* Bindings = TEXT("(/Game/PropertyKinds/Reading.Filled.AddNumbers,Child.Greet)");
	EXPECT_NE(OnOpen->ImportText_InContainer(Bindings, Signals, Object, PPF_None), nullptr);
	const FMulticastScriptDelegate* Delegate = OnOpen->GetMulticastDelegate(OnOpen->ContainerPtrToValuePtr<void>(Signals));
	ASSERT_EQ(Delegate->GetInvocationList().Num(), 2);
	EXPECT_EQ(Delegate->GetInvocationList()[0].GetUObject(), Object);
	EXPECT_EQ(Delegate->GetInvocationList()[1].GetFunctionName(), FName(TEXT("Greet")));
	FString Text;
	OnOpen->ExportText_InContainer(0, Text, Signals, Signals, Signals, PPF_None);
	EXPECT_EQ(Text, TEXT("(/Game/PropertyKinds/Reading.Filled.AddNumbers,/Game/PropertyKinds/Reading.Filled:Child.Greet)"));
	EXPECT_EQ(OnOpen->ImportText_InContainer(TEXT("(Nobody.Greet)"), Signals, Object, PPF_None), nullptr);
	EXPECT_EQ(Delegate->GetInvocationList().Num(), 2);
}
