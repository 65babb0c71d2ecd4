// The fuzz target's seed corpus, replayed: each document gets a JSON answer with exactly one outcome, and
// the Blueprint still saves and loads afterwards.
#include "CoreMinimal.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "ModifyBlueprintFuzzHarness.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include "CoreTestPrinters.h"
#include <gtest/gtest.h>

TEST(FModifyBlueprintCorpus, EverySeedGetsOneOutcomeAndTheBlueprintStillLoads)
{
	const FString CorpusDir = TEXT(BLUEPRINT_MODIFY_CORPUS_DIR);
	TArray<FString> Seeds;
	IFileManager::Get().FindFiles(Seeds, *(CorpusDir / TEXT("*")), true, false);
	Seeds.Sort();
	ASSERT_GE(Seeds.Num(), 10);

	FModifyBlueprintFuzzHarness Harness(FString(TEXT(BLUEPRINT_UTILS_TESTS_TEMP_DIR)) / TEXT("Corpus"));
	for (const FString& Seed : Seeds)
	{
		TArray<uint8> Bytes;
		ASSERT_TRUE(FFileHelper::LoadFileToArray(Bytes, *(CorpusDir / Seed)));
		const FUTF8ToTCHAR Text(reinterpret_cast<const ANSICHAR*>(Bytes.GetData()), Bytes.Num());
		TSharedPtr<FJsonObject> Answer;
		ASSERT_TRUE(FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Harness.Run(FString(Text.Length(), Text.Get()))), Answer)) << TCHAR_TO_UTF8(*Seed);
		const int32 Outcomes = int32(Answer->HasField(TEXT("Success"))) + int32(Answer->HasField(TEXT("Error"))) + int32(Answer->HasField(TEXT("Message")));
		EXPECT_EQ(Outcomes, 1) << TCHAR_TO_UTF8(*Seed);
	}
	EXPECT_TRUE(Harness.SavesAndLoads());
}
