// The pin type object and the property type object, both ways, and the text of property values.
#include "BlueprintUtilsTestSupport.h"
#include "BlueprintUtilsTestTypes.h"
#include "EdGraphSchema_K2.h"
#include "GameFramework/Actor.h"
#include "UObject/Interface.h"

namespace
{
	TSharedPtr<FJsonObject> Holder(const FString& TypeJson)
	{
		return ParseJson(FString::Printf(TEXT(R"({"Name": "V", "Type": %s})"), *TypeJson));
	}

	FEdGraphPinType FromPropertyType(const TCHAR* Json)
	{
		return FBlueprintUtilsTestAccess::PropertyTypeToPinType(ParseJson(Json));
	}
}

TEST_F(FBlueprintUtilsTest, PinTypeObjectsAreWrittenExactlyAndReadBack)
{
	FEdGraphPinType Map = FSampleBlueprintBuilder::MakePinType(UEdGraphSchema_K2::PC_Name, nullptr, EPinContainerType::Map);
	Map.PinValueType.TerminalCategory = UEdGraphSchema_K2::PC_Object;
	Map.PinValueType.TerminalSubCategoryObject = AActor::StaticClass();
	const FString MapJson = Condensed(FBlueprintUtilsTestAccess::PinTypeToJson(Map));
	EXPECT_EQ(MapJson, TEXT(R"({"Category":"name","SubCategory":"None","Container":"Map","ValueType":{"Category":"object","SubCategory":"None","SubCategoryObject":"/Script/Engine.Actor"},"Flags":[]})"));

	// What is written reads back as the same type, flags in their order included.
	Map.bIsConst = true;
	Map.bIsReference = true;
	Map.bIsUObjectWrapper = true;
	const FString Written = Condensed(FBlueprintUtilsTestAccess::PinTypeToJson(Map));
	EXPECT_TRUE(Written.Contains(TEXT(R"("Flags":["Reference","Const","UObjectWrapper"])")));
	const FEdGraphPinType ReadBack = FBlueprintUtilsTestAccess::JsonToPinType(Holder(Written));
	EXPECT_EQ(ReadBack, Map);

	// A map without a value type, and a set whatever its terminal fields hold, write no "ValueType".
	FEdGraphPinType BareMap = FSampleBlueprintBuilder::MakePinType(UEdGraphSchema_K2::PC_Int, nullptr, EPinContainerType::Map);
	EXPECT_FALSE(FBlueprintUtilsTestAccess::PinTypeToJson(BareMap)->HasField(TEXT("ValueType")));
	FEdGraphPinType Set = FSampleBlueprintBuilder::MakePinType(UEdGraphSchema_K2::PC_Int, nullptr, EPinContainerType::Set);
	Set.PinValueType.TerminalCategory = UEdGraphSchema_K2::PC_Object;
	EXPECT_EQ(Condensed(FBlueprintUtilsTestAccess::PinTypeToJson(Set)), TEXT(R"({"Category":"int","SubCategory":"None","Container":"Set","Flags":[]})"));

	// A null property is the default type.
	EXPECT_EQ(Condensed(FBlueprintUtilsTestAccess::PropertyToJson(nullptr)), TEXT(R"({"Category":"None","SubCategory":"None","Container":"None","Flags":[]})"));
}

TEST_F(FBlueprintUtilsTest, PinTypeObjectsReadForgivingly)
{
	// No "Type", or an empty one: category None; the container word in any case.
	EXPECT_TRUE(FBlueprintUtilsTestAccess::JsonToPinType(ParseJson(TEXT(R"({"Name": "V"})"))).PinCategory.IsNone());
	const FEdGraphPinType EmptyMap = FBlueprintUtilsTestAccess::JsonToPinType(Holder(TEXT(R"({"Container": "mAP"})")));
	EXPECT_TRUE(EmptyMap.PinCategory.IsNone());
	EXPECT_EQ(EmptyMap.ContainerType, EPinContainerType::Map);
	EXPECT_EQ(FBlueprintUtilsTestAccess::JsonToPinType(Holder(TEXT(R"({"Category": "int", "Container": "List"})"))).ContainerType, EPinContainerType::None);

	// Unknown flag words are passed over; the value type counts only for a map.
	const FEdGraphPinType Flagged = FBlueprintUtilsTestAccess::JsonToPinType(Holder(TEXT(R"({"Category": "object", "Container": "Array", "ValueType": {"Category": "int"}, "Flags": ["Sticky", "weak", 3, "CONST"]})")));
	EXPECT_TRUE(Flagged.bIsWeakPointer);
	EXPECT_TRUE(Flagged.bIsConst);
	EXPECT_FALSE(Flagged.bIsReference);
	EXPECT_TRUE(Flagged.PinValueType.TerminalCategory.IsNone());

	// Objects are only found in memory: an unknown path leaves the type without its object.
	const FEdGraphPinType Missing = FBlueprintUtilsTestAccess::JsonToPinType(Holder(TEXT(R"({"Category": "object", "SubCategoryObject": "/Game/Nowhere.Nowhere_C"})")));
	EXPECT_EQ(Missing.PinCategory, UEdGraphSchema_K2::PC_Object);
	EXPECT_EQ(Missing.PinSubCategoryObject.Get(), nullptr);
}

TEST_F(FBlueprintUtilsTest, PropertyTypeObjectsMapToPinTypes)
{
	const FEdGraphPinType Float = FromPropertyType(TEXT(R"({"Type": "floatproperty"})"));
	EXPECT_EQ(Float.PinCategory, UEdGraphSchema_K2::PC_Real);
	EXPECT_EQ(Float.PinSubCategory, UEdGraphSchema_K2::PC_Double);
	EXPECT_EQ(FromPropertyType(TEXT(R"({"Type": "StrProperty"})")).PinCategory, UEdGraphSchema_K2::PC_String);
	EXPECT_TRUE(FromPropertyType(TEXT(R"({"Type": "MapProperty"})")).PinCategory.IsNone());
	// A pin type object is no property type object: its "Type" is an object.
	EXPECT_TRUE(FromPropertyType(TEXT(R"({"Type": {"Category": "int"}})")).PinCategory.IsNone());

	const FEdGraphPinType Actor = FromPropertyType(TEXT(R"({"Type": "ObjectProperty", "PropertyClass": "/Script/Engine.Actor"})"));
	EXPECT_EQ(Actor.PinCategory, UEdGraphSchema_K2::PC_Object);
	EXPECT_EQ(Actor.PinSubCategoryObject.Get(), AActor::StaticClass());
	const FEdGraphPinType Interface = FromPropertyType(TEXT(R"({"Type": "ObjectProperty", "PropertyClass": "/Script/CoreUObject.Interface"})"));
	EXPECT_EQ(Interface.PinCategory, UEdGraphSchema_K2::PC_Interface);
	EXPECT_EQ(FromPropertyType(TEXT(R"({"Type": "SoftClassProperty", "PropertyClass": "/Script/Engine.Actor"})")).PinCategory, UEdGraphSchema_K2::PC_SoftClass);
	EXPECT_TRUE(FromPropertyType(TEXT(R"({"Type": "ObjectProperty", "PropertyClass": ""})")).PinCategory.IsNone());
	EXPECT_TRUE(FromPropertyType(TEXT(R"({"Type": "ClassProperty", "PropertyClass": "/Script/Engine.NoSuchClass"})")).PinCategory.IsNone());

	// Struct words and paths name the same struct; enums are bytes with their enum.
	EXPECT_EQ(FromPropertyType(TEXT(R"({"Type": "StructProperty", "StructType": "vector"})")).PinSubCategoryObject.Get(), TBaseStructure<FVector>::Get());
	EXPECT_EQ(FromPropertyType(TEXT(R"({"Type": "StructProperty", "StructType": "/Script/CoreUObject.Vector"})")).PinSubCategoryObject.Get(), TBaseStructure<FVector>::Get());
	EXPECT_TRUE(FromPropertyType(TEXT(R"({"Type": "StructProperty", "StructType": "/Script/CoreUObject.Nothing"})")).PinCategory.IsNone());
	const FEdGraphPinType Enum = FromPropertyType(TEXT(R"({"Type": "EnumProperty", "EnumType": "/Script/Engine.EComponentMobility"})"));
	EXPECT_EQ(Enum.PinCategory, UEdGraphSchema_K2::PC_Byte);
	EXPECT_NE(Enum.PinSubCategoryObject.Get(), nullptr);

	// Arrays flatten to their innermost element; an unknown element keeps the array of nothing.
	const FEdGraphPinType Nested = FromPropertyType(TEXT(R"({"Type": "ArrayProperty", "InnerType": {"Type": "ArrayProperty", "InnerType": {"Type": "IntProperty"}}})"));
	EXPECT_EQ(Nested.PinCategory, UEdGraphSchema_K2::PC_Int);
	EXPECT_EQ(Nested.ContainerType, EPinContainerType::Array);
	const FEdGraphPinType Unknown = FromPropertyType(TEXT(R"({"Type": "ArrayProperty", "InnerType": {"Type": "ObjectProperty", "PropertyClass": "/Script/Engine.Nope"}})"));
	EXPECT_TRUE(Unknown.PinCategory.IsNone());
	EXPECT_EQ(Unknown.ContainerType, EPinContainerType::Array);
	EXPECT_TRUE(FromPropertyType(TEXT(R"({"Type": "ArrayProperty"})")).PinCategory.IsNone());
}

TEST_F(FBlueprintUtilsTest, PropertyValuesFallBackWhereTheyTellNothing)
{
	UBlueprintUtilsValueHolder* Holder = NewObject<UBlueprintUtilsValueHolder>();
	Holder->SomeObject = Holder;
	Holder->Numbers = { 1, 2 };
	const UClass* Class = Holder->GetClass();
	auto Value = [Holder, Class](const TCHAR* Name)
	{
		return FBlueprintUtilsTestAccess::ValueText(Holder, Class->FindPropertyByName(Name));
	};

	EXPECT_EQ(Value(TEXT("TransientCount")), TEXT(""));
	EXPECT_EQ(Value(TEXT("NoObject")), TEXT("None"));
	EXPECT_EQ(Value(TEXT("NoSoftObject")), TEXT("None"));
	EXPECT_TRUE(Value(TEXT("SomeObject")).Contains(Holder->GetPathName()));
	EXPECT_EQ(Value(TEXT("Speed")), TEXT("1.500000"));
	EXPECT_EQ(Value(TEXT("Numbers")), TEXT("(1,2)"));
	EXPECT_EQ(FBlueprintUtilsTestAccess::ValueText(nullptr, Class->FindPropertyByName(TEXT("Speed"))), TEXT("Invalid"));
	EXPECT_EQ(FBlueprintUtilsTestAccess::ValueText(Holder, nullptr), TEXT("Invalid"));
}
