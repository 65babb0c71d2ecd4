// The reflection data that the header tool and the class construction give: classes, properties, enums.
#include "ReflectionTestTypes.h"
#include "CoreUObject.h"
#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

namespace
{
	FProperty* FindProperty(const TCHAR* Name)
	{
		return UReflectionTestSettings::StaticClass()->FindPropertyByName(FName(Name));
	}

	FString MetaData(const TCHAR* PropertyName, const TCHAR* Key)
	{
		const FProperty* Property = FindProperty(PropertyName);
		return Property ? Property->GetMetaData(Key) : FString(TEXT("<no property>"));
	}
}

TEST(ClassReflection, ClassesKnowTheirNamesChainsAndFlags)
{
	UClass* Class = UReflectionTestSettings::StaticClass();
	ASSERT_NE(Class, nullptr);
	EXPECT_EQ(Class->GetName(), TEXT("ReflectionTestSettings"));
	EXPECT_EQ(Class->GetPathName(), TEXT("/Script/CoreUObjectTests.ReflectionTestSettings"));
	EXPECT_EQ(Class->GetClass(), UClass::StaticClass());
	EXPECT_EQ(UClass::StaticClass()->GetClass(), UClass::StaticClass());
	EXPECT_EQ(Class->GetSuperClass(), UObject::StaticClass());
	EXPECT_EQ(UObject::StaticClass()->GetSuperClass(), nullptr);
	EXPECT_TRUE(UReflectionTestChild::StaticClass()->IsChildOf(UObject::StaticClass()));
	EXPECT_FALSE(UObject::StaticClass()->IsChildOf(Class));

	EXPECT_TRUE(Class->HasAllClassFlags(CLASS_Config | CLASS_DefaultConfig | CLASS_Native));
	EXPECT_FALSE(Class->HasAnyClassFlags(CLASS_CompiledFromBlueprint | CLASS_Abstract));
	EXPECT_EQ(Class->ClassConfigName, FName(TEXT("TestPerUserSettings")));
	// A subclass inherits the config flags and name but not Abstract.
	EXPECT_TRUE(UReflectionTestChild::StaticClass()->HasAllClassFlags(CLASS_Config | CLASS_DefaultConfig));
	EXPECT_EQ(UReflectionTestChild::StaticClass()->ClassConfigName, FName(TEXT("TestPerUserSettings")));
	EXPECT_TRUE(UReflectionTestAbstract::StaticClass()->HasAnyClassFlags(CLASS_Abstract));
	EXPECT_EQ(UReflectionTestStartupSettings::StaticClass()->ClassConfigName, FName(TEXT("TestStartupSettings")));
	EXPECT_EQ(UObject::StaticClass()->ClassConfigName, FName(TEXT("Engine")));

	// Registered at start: found by path without anyone having asked for the class before.
	EXPECT_EQ(StaticFindObject(UClass::StaticClass(), nullptr, TEXT("/Script/CoreUObjectTests.ReflectionTestAbstract")), UReflectionTestAbstract::StaticClass());
	EXPECT_EQ(FindObject<UClass>(nullptr, TEXT("/Script/CoreUObject.Object")), UObject::StaticClass());
	EXPECT_EQ(FindObject<UEnum>(nullptr, TEXT("/Script/CoreUObjectTests.ETestAnswerMode")), StaticEnum<ETestAnswerMode>());
	EXPECT_EQ(StaticFindObject(UEnum::StaticClass(), nullptr, TEXT("/Script/CoreUObjectTests.ReflectionTestSettings")), nullptr);

	EXPECT_EQ(Class->GetMetaData(TEXT("IncludePath")), TEXT("ReflectionTestTypes.h"));
	EXPECT_EQ(Class->GetMetaData(TEXT("ToolTip")), TEXT("Settings-like class: stored per user.\n\nSecond paragraph of the comment."));
}

TEST(ClassReflection, PropertiesComeInDeclarationOrderWithTheirSupersAfter)
{
	TArray<FString> Names;
	for (TFieldIterator<FProperty> It(UReflectionTestChild::StaticClass()); It; ++It)
	{
		Names.Add(It->GetName());
	}
	const TArray<FString> Expected = {TEXT("ChildValue"), TEXT("ApiKey"), TEXT("bShowChanges"), TEXT("bResetList"), TEXT("Extensions"),
		TEXT("AnswerMode"), TEXT("LegacyColor"), TEXT("RetentionDays"), TEXT("ScrollSeconds"), TEXT("TransientCounter"),
		TEXT("bFirstFlag"), TEXT("bSecondFlag"), TEXT("FavoriteName"), TEXT("BigNumber"), TEXT("SharedNote"), TEXT("Slots"), TEXT("Level"), TEXT("AnswerHistory"),
		TEXT("EditorNote"), TEXT("ProtectedValue"), TEXT("PrivateValue")};
	EXPECT_EQ(Names, Expected);

	int32 OwnOnly = 0;
	for (TFieldIterator<FProperty> It(UReflectionTestChild::StaticClass(), EFieldIteratorFlags::ExcludeSuper); It; ++It)
	{
		++OwnOnly;
	}
	EXPECT_EQ(OwnOnly, 1);
	// Names compare without regard to case; members without UPROPERTY are not there.
	EXPECT_EQ(UReflectionTestChild::StaticClass()->FindPropertyByName(FName(TEXT("apikey"))), FindProperty(TEXT("ApiKey")));
	EXPECT_EQ(FindProperty(TEXT("HiddenMode")), nullptr);
	EXPECT_EQ(FindProperty(TEXT("PostEditChangeCount")), nullptr);
	EXPECT_EQ(FindProperty(TEXT("ApiKey"))->GetOwnerClass(), UReflectionTestSettings::StaticClass());
}

TEST(ClassReflection, PropertyFlagsFollowTheSpecifiers)
{
	EXPECT_TRUE(FindProperty(TEXT("ApiKey"))->HasAllPropertyFlags(CPF_Edit | CPF_Config | CPF_NativeAccessSpecifierPublic));
	EXPECT_EQ(FindProperty(TEXT("ApiKey"))->GetPropertyFlags() & CPF_Config, 0x4000u);
	EXPECT_FALSE(FindProperty(TEXT("bResetList"))->HasAnyPropertyFlags(CPF_Config));
	EXPECT_TRUE(FindProperty(TEXT("AnswerMode"))->HasAllPropertyFlags(CPF_BlueprintVisible | CPF_BlueprintReadOnly));
	EXPECT_TRUE(FindProperty(TEXT("RetentionDays"))->HasAllPropertyFlags(CPF_Edit | CPF_EditConst));
	EXPECT_TRUE(FindProperty(TEXT("TransientCounter"))->HasAnyPropertyFlags(CPF_Transient));
	EXPECT_TRUE(FindProperty(TEXT("EditorNote"))->IsEditorOnlyProperty());
	EXPECT_TRUE(FindProperty(TEXT("ProtectedValue"))->HasAnyPropertyFlags(CPF_NativeAccessSpecifierProtected));
	EXPECT_TRUE(FindProperty(TEXT("PrivateValue"))->HasAnyPropertyFlags(CPF_NativeAccessSpecifierPrivate));
	// The type's own traits are added by the property class.
	EXPECT_TRUE(FindProperty(TEXT("RetentionDays"))->HasAllPropertyFlags(CPF_IsPlainOldData | CPF_ZeroConstructor));

	FString Extended;
	EXPECT_EQ(FindProperty(TEXT("Extensions"))->GetCPPType(&Extended), TEXT("TArray"));
	EXPECT_EQ(Extended, TEXT("<FString>"));
	EXPECT_TRUE(CastField<FArrayProperty>(FindProperty(TEXT("Extensions")))->Inner->HasAnyPropertyFlags(CPF_Config));
	EXPECT_EQ(FindProperty(TEXT("AnswerMode"))->GetCPPType(), TEXT("ETestAnswerMode"));
	EXPECT_EQ(FindProperty(TEXT("LegacyColor"))->GetCPPType(), TEXT("TEnumAsByte<ETestLegacyColor>"));
	EXPECT_EQ(FindProperty(TEXT("bShowChanges"))->GetCPPType(), TEXT("bool"));
	EXPECT_EQ(FindProperty(TEXT("bFirstFlag"))->GetCPPType(), TEXT("uint8"));
	EXPECT_NE(CastField<FEnumProperty>(FindProperty(TEXT("AnswerMode"))), nullptr);
	EXPECT_EQ(CastField<FEnumProperty>(FindProperty(TEXT("AnswerMode")))->GetEnum(), StaticEnum<ETestAnswerMode>());
	EXPECT_EQ(CastField<FByteProperty>(FindProperty(TEXT("LegacyColor")))->Enum, StaticEnum<ETestLegacyColor>());
	EXPECT_EQ(CastField<FStrProperty>(FindProperty(TEXT("AnswerMode"))), nullptr);
	EXPECT_NE(CastField<FNumericProperty>(FindProperty(TEXT("ScrollSeconds"))), nullptr);
}

TEST(ClassReflection, MetadataTakesTooltipsFromCommentsAndNamesFromMembers)
{
	EXPECT_EQ(MetaData(TEXT("ApiKey"), TEXT("Category")), TEXT("Test|Authentication"));
	EXPECT_EQ(MetaData(TEXT("ApiKey"), TEXT("DisplayName")), TEXT("API Key"));
	EXPECT_EQ(MetaData(TEXT("ApiKey"), TEXT("ToolTip")), TEXT("Key for the service"));
	EXPECT_EQ(MetaData(TEXT("bShowChanges"), TEXT("ToolTip")), TEXT("Show changed files in the chat."));
	EXPECT_EQ(MetaData(TEXT("bResetList"), TEXT("ToolTip")), TEXT("Ticking it restores the list."));
	EXPECT_EQ(MetaData(TEXT("Extensions"), TEXT("DisplayName")), TEXT("Listed Extensions"));
	EXPECT_EQ(MetaData(TEXT("ApiKey"), TEXT("ModuleRelativePath")), TEXT("ReflectionTestTypes.h"));
	EXPECT_FALSE(FindProperty(TEXT("RetentionDays"))->HasMetaData(TEXT("ToolTip")));

	// Without DisplayName the member's name is spelled for people; a bool loses its 'b'.
	EXPECT_EQ(FindProperty(TEXT("ApiKey"))->GetDisplayNameText().ToString(), TEXT("API Key"));
	EXPECT_EQ(FindProperty(TEXT("bResetList"))->GetDisplayNameText().ToString(), TEXT("Reset List"));
	EXPECT_EQ(FindProperty(TEXT("RetentionDays"))->GetDisplayNameText().ToString(), TEXT("Retention Days"));
	EXPECT_EQ(FindProperty(TEXT("RetentionDays"))->GetToolTipText().ToString(), TEXT("Retention Days"));
	EXPECT_EQ(FName::NameToDisplayString(TEXT("bResetToDefault"), true), TEXT("Reset to Default"));
	EXPECT_EQ(FName::NameToDisplayString(TEXT("DrawScale3D"), false), TEXT("Draw Scale 3D"));
	EXPECT_EQ(FName::NameToDisplayString(TEXT("use_HTTP_server"), false), TEXT("Use HTTP Server"));
	EXPECT_EQ(UReflectionTestSettings::StaticClass()->GetToolTipText(true).ToString(), TEXT("Settings-like class: stored per user.\n\nSecond paragraph of the comment."));
}

TEST(ClassReflection, EnumsKeepNamesValuesAndDisplayNames)
{
	UEnum* Enum = StaticEnum<ETestAnswerMode>();
	ASSERT_NE(Enum, nullptr);
	EXPECT_EQ(Enum->GetCppForm(), UEnum::ECppForm::EnumClass);
	// The engine adds a _MAX entry past the last value.
	ASSERT_EQ(Enum->NumEnums(), 4);
	EXPECT_EQ(Enum->GetNameByIndex(0), FName(TEXT("ETestAnswerMode::Quiet")));
	EXPECT_EQ(Enum->GetNameStringByIndex(3), TEXT("ETestAnswerMode_MAX"));
	EXPECT_EQ(Enum->GetValueByIndex(3), 3);
	EXPECT_EQ(Enum->GetNameStringByValue(1), TEXT("VeryTalkative"));
	EXPECT_EQ(Enum->GetValueByNameString(TEXT("VeryTalkative")), 1);
	EXPECT_EQ(Enum->GetValueByNameString(TEXT("ETestAnswerMode::Quiet")), 0);
	EXPECT_EQ(Enum->GetValueByNameString(TEXT("quiet")), 0);
	EXPECT_EQ(Enum->GetValueByNameString(TEXT("Loud")), INDEX_NONE);
	EXPECT_EQ(Enum->GetIndexByValue(42), INDEX_NONE);
	EXPECT_EQ(Enum->GetNameStringByValue(42), FString());

	EXPECT_EQ(Enum->GetDisplayNameTextByIndex(0).ToString(), TEXT("Stay Quiet"));
	EXPECT_EQ(Enum->GetDisplayNameTextByValue(1).ToString(), TEXT("Very Talkative"));
	EXPECT_TRUE(Enum->GetDisplayNameTextByValue(42).IsEmpty());
	EXPECT_TRUE(Enum->HasMetaData(TEXT("Hidden"), 2));
	EXPECT_FALSE(Enum->HasMetaData(TEXT("Hidden"), 1));
	EXPECT_EQ(Enum->GetMetaData(TEXT("ToolTip"), 0), TEXT("Says nothing at all."));
	EXPECT_EQ(Enum->GetToolTipTextByIndex(1).ToString(), TEXT("Says a lot."));
	EXPECT_EQ(Enum->GetMetaData(TEXT("ToolTip")), TEXT("How a test object answers."));
	EXPECT_EQ(Enum->GetMetaData(TEXT("BlueprintType")), TEXT("true"));
	EXPECT_EQ(Enum->GetMetaData(TEXT("ToolTip"), 99), FString());
	EXPECT_EQ(UEnum::GetValueAsString(ETestAnswerMode::VeryTalkative), TEXT("ETestAnswerMode::VeryTalkative"));
	EXPECT_EQ(UEnum::GetDisplayValueAsText(ETestAnswerMode::Quiet).ToString(), TEXT("Stay Quiet"));

	UEnum* Namespaced = StaticEnum<ETestNamespacedLevel::Type>();
	ASSERT_NE(Namespaced, nullptr);
	EXPECT_EQ(Namespaced->GetName(), TEXT("ETestNamespacedLevel"));
	EXPECT_EQ(Namespaced->CppType, TEXT("ETestNamespacedLevel::Type"));
	EXPECT_EQ(Namespaced->GetCppForm(), UEnum::ECppForm::Namespaced);
	EXPECT_EQ(Namespaced->GetNameByValue(10), FName(TEXT("ETestNamespacedLevel::High")));
	EXPECT_EQ(Namespaced->GetNameStringByIndex(2), TEXT("ETestNamespacedLevel_MAX"));
	EXPECT_EQ(Namespaced->GetValueByIndex(2), 11);
	EXPECT_EQ(Namespaced->GetDisplayNameTextByValue(10).ToString(), TEXT("Very High"));
	EXPECT_EQ(FindProperty(TEXT("Level"))->GetCPPType(), TEXT("TEnumAsByte<ETestNamespacedLevel::Type>"));

	UEnum* Legacy = StaticEnum<ETestLegacyColor>();
	EXPECT_EQ(Legacy->GetCppForm(), UEnum::ECppForm::Regular);
	EXPECT_EQ(Legacy->GetNameByValue(5), FName(TEXT("TLC_Green")));
	EXPECT_EQ(Legacy->GetMaxEnumValue(), 6);
	EXPECT_EQ(Legacy->GetDisplayNameTextByIndex(1).ToString(), TEXT("TLC Green"));
}

TEST(ClassReflection, FunctionsStructsAndInterfacesAreRegistered)
{
	UClass* Class = UReflectionTestSettings::StaticClass();
	UFunction* Add = Class->FindFunctionByName(FName(TEXT("AddNumbers")));
	ASSERT_NE(Add, nullptr);
	EXPECT_TRUE(Add->HasAllFunctionFlags(FUNC_Native | FUNC_BlueprintCallable | FUNC_Public | FUNC_Const | FUNC_HasDefaults));
	EXPECT_EQ(Add->NumParms, 3);
	ASSERT_NE(Add->GetReturnProperty(), nullptr);
	EXPECT_EQ(Add->GetReturnProperty()->GetName(), TEXT("ReturnValue"));
	EXPECT_EQ(Add->GetMetaData(TEXT("CPP_Default_B")), TEXT("2"));
	EXPECT_EQ(Add->GetOuterUClass(), Class);
	UFunction* IsReady = UReflectionTestChild::StaticClass()->FindFunctionByName(FName(TEXT("IsReady")));
	ASSERT_NE(IsReady, nullptr);
	EXPECT_TRUE(IsReady->HasAllFunctionFlags(FUNC_Static | FUNC_BlueprintPure | FUNC_HasOutParms));
	EXPECT_TRUE(IsReady->FindPropertyByName(FName(TEXT("OutNotes")))->HasAllPropertyFlags(CPF_Parm | CPF_OutParm));
	EXPECT_EQ(UReflectionTestChild::StaticClass()->FindFunctionByName(FName(TEXT("IsReady")), EIncludeSuperFlag::ExcludeSuper), nullptr);
	int32 FunctionCount = 0;
	for (TFieldIterator<UFunction> It(Class); It; ++It)
	{
		++FunctionCount;
	}
	EXPECT_EQ(FunctionCount, 2);

	UScriptStruct* Struct = FReflectionTestStruct::StaticStruct();
	ASSERT_NE(Struct, nullptr);
	EXPECT_EQ(Struct->GetPathName(), TEXT("/Script/CoreUObjectTests.ReflectionTestStruct"));
	EXPECT_EQ(Struct->GetStructureSize(), static_cast<int32>(sizeof(FReflectionTestStruct)));
	FReflectionTestStruct Value{};
	Value.Count = 8;
	FReflectionTestStruct Copy{};
	Struct->CopyScriptStruct(&Copy, &Value);
	EXPECT_EQ(Copy.Count, 8);
	const FReflectionTestStruct Fresh{};
	EXPECT_FALSE(Struct->CompareScriptStruct(&Copy, &Fresh, 0));
	EXPECT_TRUE(Struct->CompareScriptStruct(&Copy, &Value, 0));

	// A bit past the first byte of its storage is found and changed alone.
	FBoolProperty* HighBit = CastField<FBoolProperty>(Struct->FindPropertyByName(FName(TEXT("bHighBit"))));
	ASSERT_NE(HighBit, nullptr);
	EXPECT_FALSE(HighBit->IsNativeBool());
	FReflectionTestStruct Bits{};
	Bits.bLowBit = 1;
	Bits.Unreflected = 0xff;
	Bits.bHighBit = 0;
	HighBit->SetPropertyValue_InContainer(&Bits, true);
	EXPECT_EQ(Bits.bHighBit, 1u);
	EXPECT_EQ(Bits.bLowBit, 1u);
	EXPECT_EQ(Bits.Unreflected, 0xffu);
	HighBit->SetPropertyValue_InContainer(&Bits, false);
	EXPECT_EQ(Bits.bHighBit, 0u);
	EXPECT_EQ(Bits.Unreflected, 0xffu);
	EXPECT_EQ(HighBit->GetToolTipText().ToString(), FString(UTF8_TO_TCHAR("Grüße, 世界 — not only ASCII.")));

	UClass* Greeter = UReflectionTestGreeter::StaticClass();
	EXPECT_TRUE(Greeter->HasAllClassFlags(CLASS_Interface | CLASS_Abstract));
	EXPECT_TRUE(Class->ImplementsInterface(Greeter));
	EXPECT_TRUE(UReflectionTestChild::StaticClass()->ImplementsInterface(Greeter));
	EXPECT_FALSE(UReflectionTestAbstract::StaticClass()->ImplementsInterface(Greeter));
}
