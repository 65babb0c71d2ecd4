// Classes as the Blueprint tools read them: flags with the engine's values, chains of super classes,
// fields of a class and its supers, functions with their parameters, and lookups by name.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

TEST(ClassChains, FlagsHaveTheEngineValues)
{
	EXPECT_EQ(static_cast<uint32>(CLASS_CompiledFromBlueprint), 0x40000u);
	EXPECT_EQ(static_cast<uint32>(CLASS_Native), 0x80u);
	EXPECT_EQ(static_cast<uint64>(CPF_Edit | CPF_BlueprintVisible | CPF_BlueprintReadOnly), 0x15u);
	EXPECT_EQ(static_cast<uint64>(CPF_Parm | CPF_Transient | CPF_Deprecated | CPF_EditorOnly), 0x820002080ull);
	EXPECT_EQ(static_cast<uint64>(CPF_ExposeOnSpawn), 0x0001000000000000ull);
	EXPECT_EQ(static_cast<uint32>(FUNC_BlueprintCallable | FUNC_BlueprintEvent | FUNC_BlueprintPure), 0x1c000000u);
	EXPECT_EQ(static_cast<uint32>(RF_Standalone), 2u);
	EXPECT_EQ(static_cast<uint32>(RF_Transactional), 8u);
	EXPECT_EQ(static_cast<uint32>(LOAD_NoWarn | LOAD_NoVerify | LOAD_Quiet | LOAD_FindIfFail | LOAD_DisableCompileOnLoad), 0x406082u);

	UClass* Child = UReflectionTestChild::StaticClass();
	EXPECT_TRUE(Child->HasAnyClassFlags(CLASS_Native));
	EXPECT_FALSE(Child->HasAnyClassFlags(CLASS_CompiledFromBlueprint));
	EXPECT_TRUE(Child->IsChildOf(UReflectionTestSettings::StaticClass()));
	EXPECT_TRUE(Child->IsChildOf(UObject::StaticClass()));
	EXPECT_FALSE(UReflectionTestSettings::StaticClass()->IsChildOf(Child));
	EXPECT_TRUE(UReflectionTestGreeter::StaticClass()->IsChildOf(UInterface::StaticClass()));
	EXPECT_EQ(Child->GetClassPathName().ToString(), TEXT("/Script/CoreUObjectTests.ReflectionTestChild"));
	EXPECT_EQ(TBaseStructure<FVector>::Get()->GetPathName(), TEXT("/Script/CoreUObject.Vector"));
	EXPECT_EQ(TBaseStructure<FTransform>::Get()->GetStructureSize(), static_cast<int32>(sizeof(FTransform)));
	EXPECT_EQ(StaticFindObject(UScriptStruct::StaticClass(), nullptr, TEXT("/Script/CoreUObject.Rotator")), TBaseStructure<FRotator>::Get());
}

TEST(ClassChains, FieldIterationWalksTheClassAndItsSupers)
{
	TArray<FString> Names;
	for (TFieldIterator<FProperty> It(UReflectionTestChild::StaticClass(), EFieldIteratorFlags::IncludeSuper, EFieldIteratorFlags::IncludeDeprecated); It; ++It)
	{
		Names.Add(It->GetName());
	}
	ASSERT_GT(Names.Num(), 1);
	EXPECT_EQ(Names[0], TEXT("ChildValue"));
	EXPECT_TRUE(Names.Contains(TEXT("ApiKey")));
	EXPECT_EQ(CastField<FIntProperty>(*TFieldIterator<FProperty>(UReflectionTestChild::StaticClass()))->GetOwnerClass(), UReflectionTestChild::StaticClass());
	EXPECT_EQ(UReflectionTestChild::StaticClass()->FindPropertyByName(FName(TEXT("apikey")))->GetOwnerClass(), UReflectionTestSettings::StaticClass());

	TArray<FString> Functions;
	for (TFieldIterator<UFunction> It(UReflectionTestChild::StaticClass()); It; ++It)
	{
		Functions.Add(It->GetName());
	}
	EXPECT_TRUE(Functions.Contains(TEXT("AddNumbers")));
	UFunction* Scale = UReflectionTestAllKinds::StaticClass()->FindFunctionByName(FName(TEXT("ScaleVector")));
	ASSERT_NE(Scale, nullptr);
	EXPECT_TRUE(Scale->HasAllFunctionFlags(FUNC_BlueprintCallable | FUNC_Native | FUNC_Const));
	FProperty* Return = Scale->GetReturnProperty();
	ASSERT_NE(Return, nullptr);
	EXPECT_TRUE(Return->HasAllPropertyFlags(CPF_Parm | CPF_OutParm | CPF_ReturnParm));
	EXPECT_EQ(CastField<FStructProperty>(Return)->Struct, TBaseStructure<FVector>::Get());
	TArray<FString> Parameters;
	for (TFieldIterator<FProperty> It(Scale); It; ++It)
	{
		if (!It->HasAnyPropertyFlags(CPF_ReturnParm))
		{
			Parameters.Add(It->GetName() + TEXT(":") + It->GetCPPType());
		}
	}
	EXPECT_EQ(Parameters, (TArray<FString>{TEXT("Value:FVector"), TEXT("Factor:float")}));
	EXPECT_TRUE(Scale->FindPropertyByName(FName(TEXT("Value")))->HasAnyPropertyFlags(CPF_ConstParm));
	EXPECT_EQ(Scale->GetMetaData(TEXT("CPP_Default_Factor")), TEXT("2.000000"));
	UFunction* Pick = UReflectionTestAllKinds::StaticClass()->FindFunctionByName(FName(TEXT("PickObject")));
	ASSERT_NE(Pick, nullptr);
	EXPECT_EQ(CastField<FObjectProperty>(Pick->FindPropertyByName(FName(TEXT("Preferred"))))->PropertyClass, UReflectionTestChild::StaticClass());
	EXPECT_EQ(CastField<FClassProperty>(Pick->FindPropertyByName(FName(TEXT("Fallback"))))->MetaClass, UObject::StaticClass());
	EXPECT_EQ(CastField<FObjectProperty>(Pick->GetReturnProperty())->PropertyClass, UObject::StaticClass());
}

TEST(ClassChains, TypesAreFoundByShortNameOrPathAndLoadedAsClasses)
{
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UClass>(TEXT("ReflectionTestChild")), UReflectionTestChild::StaticClass());
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UClass>(TEXT("reflectiontestchild")), UReflectionTestChild::StaticClass());
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UClass>(TEXT("/Script/CoreUObjectTests.ReflectionTestChild")), UReflectionTestChild::StaticClass());
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UClass>(TEXT("NoSuchClass")), nullptr);
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UScriptStruct>(TEXT("Vector")), TBaseStructure<FVector>::Get());
	EXPECT_EQ(UClass::TryFindTypeSlowSafe<UEnum>(TEXT("ETestAnswerMode")), StaticEnum<ETestAnswerMode>());
	EXPECT_EQ(StaticLoadClass(UObject::StaticClass(), nullptr, TEXT("/Script/CoreUObjectTests.ReflectionTestChild")), UReflectionTestChild::StaticClass());
	EXPECT_EQ(StaticLoadClass(UReflectionTestAllKinds::StaticClass(), nullptr, TEXT("/Script/CoreUObjectTests.ReflectionTestChild"), nullptr, LOAD_Quiet), nullptr);
	EXPECT_EQ(StaticLoadObject(UClass::StaticClass(), nullptr, TEXT("/Script/CoreUObject.Class'/Script/CoreUObjectTests.ReflectionTestChild'")), UReflectionTestChild::StaticClass());
	EXPECT_EQ(StaticFindFirstObject(UClass::StaticClass(), TEXT("ReflectionTestAllKinds"), EFindFirstObjectOptions::NativeFirst), UReflectionTestAllKinds::StaticClass());
}

TEST(ClassChains, CoreStructsDescribeTheirNativeLayout)
{
	struct FExpected
	{
		UScriptStruct* Struct;
		int32 Size;
		TArray<FString> Members;
	};
	const FExpected Cases[] = {
		{TBaseStructure<FVector>::Get(), static_cast<int32>(sizeof(FVector)), {TEXT("X"), TEXT("Y"), TEXT("Z")}},
		{TBaseStructure<FRotator>::Get(), static_cast<int32>(sizeof(FRotator)), {TEXT("Pitch"), TEXT("Yaw"), TEXT("Roll")}},
		{TBaseStructure<FQuat>::Get(), static_cast<int32>(sizeof(FQuat)), {TEXT("X"), TEXT("Y"), TEXT("Z"), TEXT("W")}},
		{TBaseStructure<FTransform>::Get(), static_cast<int32>(sizeof(FTransform)), {TEXT("Rotation"), TEXT("Translation"), TEXT("Scale3D")}},
		{TBaseStructure<FLinearColor>::Get(), static_cast<int32>(sizeof(FLinearColor)), {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")}},
		{TBaseStructure<FColor>::Get(), static_cast<int32>(sizeof(FColor)), {TEXT("B"), TEXT("G"), TEXT("R"), TEXT("A")}},
		{TBaseStructure<FGuid>::Get(), static_cast<int32>(sizeof(FGuid)), {TEXT("A"), TEXT("B"), TEXT("C"), TEXT("D")}},
	};
	for (const FExpected& Case : Cases)
	{
		ASSERT_NE(Case.Struct, nullptr);
		EXPECT_EQ(Case.Struct->GetStructureSize(), Case.Size) << TCHAR_TO_UTF8(*Case.Struct->GetName());
		TArray<FString> Members;
		for (TFieldIterator<FProperty> It(Case.Struct); It; ++It)
		{
			Members.Add(It->GetName());
		}
		EXPECT_EQ(Members, Case.Members) << TCHAR_TO_UTF8(*Case.Struct->GetName());
	}
	// The members sit where C++ put them, so reflection reads the real values.
	const FTransform Transform(FQuat::Identity, FVector(7.0, 8.0, 9.0), FVector(1.0, 2.0, 3.0));
	const FStructProperty* Translation = CastField<FStructProperty>(TBaseStructure<FTransform>::Get()->FindPropertyByName(FName(TEXT("Translation"))));
	ASSERT_NE(Translation, nullptr);
	EXPECT_EQ(*Translation->ContainerPtrToValuePtr<FVector>(&Transform), FVector(7.0, 8.0, 9.0));
	const FColor Color(10, 20, 30, 40);
	FString Text;
	TBaseStructure<FColor>::Get()->ExportText(Text, &Color, nullptr, nullptr, PPF_None, nullptr);
	EXPECT_EQ(Text, TEXT("(B=30,G=20,R=10,A=40)"));
	EXPECT_TRUE((TBaseStructure<FVector>::Get()->StructFlags & STRUCT_Atomic) != 0);
	EXPECT_FALSE((TBaseStructure<FLinearColor>::Get()->StructFlags & STRUCT_Atomic) != 0);
}
