#include "AgentTestFixture.h"

#include "UObject/Class.h"

TEST_F(FAgentTest, BodyKeysFormAndHeaderValues)
{
	const FString Tree = TEXT(R"({"Source": {"Game.cpp": "#"}, "Content": {"Hero.uasset": "Blueprint"}})");
	const TSharedPtr<FJsonObject> First = Parse(FHTTPAPI::MakeInitialRequestBody(TEXT("Hi"), Tree, false));
	EXPECT_EQ(KeysOf(First), (TArray<FString>{ TEXT("message"), TEXT("file_structure"), TEXT("is_confirmation_mode") }));
	EXPECT_EQ(ToUtf8(First->GetObjectField(TEXT("file_structure"))->GetObjectField(TEXT("Content"))->GetStringField(TEXT("Hero.uasset"))), "Blueprint");
	// A tree that doesn't parse stays out rather than going out broken.
	EXPECT_EQ(KeysOf(Parse(FHTTPAPI::MakeInitialRequestBody(TEXT("Hi"), TEXT("{\"Source\": "), true))), (TArray<FString>{ TEXT("message"), TEXT("is_confirmation_mode") }));
	EXPECT_EQ(ToUtf8(FHTTPAPI::MakeInitialRequestBody(TEXT("Hi"), FString(), true)), "{\r\n\t\"message\": \"Hi\",\r\n\t\"is_confirmation_mode\": true\r\n}");

	const FString Awkward = TEXT("\"q\" \\ \t\r\n\x01 é \U0001F600");
	const FString Regular = FHTTPAPI::MakeRegularRequestBody(Awkward, { MakeShared<FJsonValueString>(TEXT("r")) });
	EXPECT_TRUE(Regular.StartsWith(TEXT("{\"tool_results\": ["), ESearchCase::CaseSensitive));
	EXPECT_EQ(ToUtf8(Parse(Regular)->GetStringField(TEXT("message"))), ToUtf8(Awkward));
	EXPECT_EQ(ToUtf8(Parse(FHTTPAPI::MakeTypeRequestBody(Awkward))->GetStringField(TEXT("type"))), ToUtf8(Awkward));

	EXPECT_EQ(FHTTPAPI::MakeEngineVersionHeader(TEXT("5.5.4-0+++UE5+Release-5.5")), TEXT("5.5"));
	EXPECT_EQ(FHTTPAPI::MakeEngineVersionHeader(TEXT("5..4")), TEXT("5.4"));
	EXPECT_TRUE(FHTTPAPI::MakeEngineVersionHeader(TEXT("5")).IsEmpty());

	// The stage's key wins over the settings'; with none anywhere the header still goes out, empty.
	GetMutableDefault<UTavrineSettings>()->ApiKey = TEXT("from-settings");
	EXPECT_EQ(GetApiKey(), TEXT("test-key"));
	ApiKeyOverride.Empty();
	EXPECT_EQ(GetApiKey(), TEXT("from-settings"));
	GetMutableDefault<UTavrineSettings>()->ApiKey.Empty();
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	EXPECT_EQ(Sent.Last().Headers[1], TEXT("x-api-key: "));
}
