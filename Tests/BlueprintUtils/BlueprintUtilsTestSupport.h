// What the Blueprint tool tests share: a project of their own, access to the type mapping, JSON helpers.
#pragma once

#include "Agent/BlueprintUtils.h"
#include "ObjectTestSupport.h"
#include "Policies/CondensedJsonPrintPolicy.h"
#include "SampleBlueprintBuilder.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "TavrineSettings.h"
#include "UObject/UObjectHash.h"
#include "UObject/UObjectIterator.h"

#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

/** Reaches the private type mapping and graph reader of the Blueprint utilities. */
class FBlueprintUtilsTestAccess
{
public:
	static TSharedPtr<FJsonObject> PinTypeToJson(const FEdGraphPinType& PinType)
	{
		return FTavrineBlueprintUtils::ConvertEdGraphPinTypeToJson(PinType);
	}
	static FEdGraphPinType JsonToPinType(const TSharedPtr<FJsonObject>& Holder)
	{
		return FTavrineBlueprintUtils::ConvertJsonToEdGraphPinType(Holder);
	}
	static FEdGraphPinType PropertyTypeToPinType(const TSharedPtr<FJsonObject>& TypeObject)
	{
		return FTavrineBlueprintUtils::GetVarEdGraphPinTypeFromJSonObject(TypeObject);
	}
	static TSharedPtr<FJsonObject> PropertyToJson(const FProperty* Property)
	{
		return FTavrineBlueprintUtils::GetVarJSonObjectFromProperty(Property);
	}
	static FString ValueText(const void* Container, const FProperty* Property)
	{
		return FTavrineBlueprintUtils::GetPropertyValueAsString(Container, Property);
	}
	static TSharedPtr<FJsonObject> ReadGraph(const UEdGraph* Graph)
	{
		return FTavrineBlueprintUtils::ReadEdGraph(Graph);
	}
};

inline TSharedPtr<FJsonObject> ParseJson(const FString& Text)
{
	TSharedPtr<FJsonObject> Object;
	FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Text), Object);
	return Object;
}

/** Condensed text of a JSON object, for exact comparisons. */
inline FString Condensed(const TSharedPtr<FJsonObject>& Object)
{
	FString Text;
	if (Object.IsValid())
	{
		FJsonSerializer::Serialize(Object.ToSharedRef(), TJsonWriterFactory<TCHAR, TCondensedJsonPrintPolicy<TCHAR>>::Create(&Text));
	}
	return Text;
}

inline FString Condensed(const FString& JsonText)
{
	return Condensed(ParseJson(JsonText));
}

/**
 * A fresh project per test, and the settings' content filter put back afterwards. Blueprints made here
 * live in /Game/Blueprints as in the sample project.
 */
class FBlueprintUtilsTest : public ::testing::Test
{
protected:
	void SetUp() override
	{
		const ::testing::TestInfo* Info = ::testing::UnitTest::GetInstance()->current_test_info();
		Project = MakeUnique<FObjectTestProject>(TEXT(BLUEPRINT_UTILS_TESTS_TEMP_DIR), *FString(UTF8_TO_TCHAR(Info->name())));
		SavedFilter = GetDefault<UTavrineSettings>()->BlueprintContentFilter;
	}
	void TearDown() override
	{
		GetMutableDefault<UTavrineSettings>()->BlueprintContentFilter = SavedFilter;
		// The next test starts without this one's assets, also when all run in one process.
		ForgetAllContent();
		Project.Reset();
	}

	static void SetFilter(ETavrineBlueprintContentFilter Filter)
	{
		GetMutableDefault<UTavrineSettings>()->BlueprintContentFilter = Filter;
	}

	static FString Asset(const TCHAR* Name)
	{
		return FString(FSampleBlueprintBuilder::Folder) / Name;
	}

	/** Drops a package from memory, as a fresh editor session would not have it. */
	static void Forget(UObject* Asset, bool bCollectNow = true)
	{
		UPackage* Package = Asset->GetOutermost();
		TArray<UObject*> Inners;
		GetObjectsWithOuter(Package, Inners, true);
		for (UObject* Inner : Inners)
		{
			Inner->ClearFlags(RF_Standalone);
		}
		Package->ClearFlags(RF_Standalone);
		if (bCollectNow)
		{
			CollectGarbage(RF_NoFlags);
		}
	}

	/** Drops every package of the content folder from memory. */
	static void ForgetAllContent()
	{
		for (TObjectIterator<UPackage> It; It; ++It)
		{
			if (It->GetName().StartsWith(TEXT("/Game/")))
			{
				Forget(*It, false);
			}
		}
		CollectGarbage(RF_NoFlags);
	}

	TUniquePtr<FObjectTestProject> Project;
	ETavrineBlueprintContentFilter SavedFilter = ETavrineBlueprintContentFilter::UseOnlyBlueprintVisibleContent;
};
