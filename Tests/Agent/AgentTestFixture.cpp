#include "AgentTestFixture.h"

#include "AgentConversationReset.h"
#include "Containers/StringConv.h"
#include "FakeHttpResponse.h"
#include "HAL/StandInClock.h"
#include "HttpManager.h"
#include "HttpModule.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "UObject/Class.h"

void FAgentTest::SetUp()
{
	FStandInClock::UseManualTime(true);
	ApiUrlOverride = TEXT("127.0.0.1:9/test");
	ApiKeyOverride = TEXT("test-key");
	SetMode(ETavrineMode::ExplainerMode);
	FHttpModule::Get().GetHttpManager().SetRequestAddedDelegate(FHttpManagerRequestAddedDelegate::CreateLambda([this](const FHttpRequestRef& Request)
	{
		const TArray<uint8>& Bytes = Request->GetContent();
		const FUTF8ToTCHAR Body(reinterpret_cast<const ANSICHAR*>(Bytes.GetData()), Bytes.Num());
		Sent.Add({ Request->GetVerb(), Request->GetURL(), Request->GetAllHeaders(), FString(Body.Length(), Body.Get()), FStandInClock::GetSeconds() });
		// The test answers in the backend's place; the request itself must never complete.
		Request->OnProcessRequestComplete().Unbind();
	}));
	ResetAgentConversation();
	FAgent& Agent = FAgent::Get();

	Sent.Empty();
	ChatHandle = FTavrineInterface::Get().OnAddStatusMessageDelegate.AddLambda([this](const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize)
	{
		Chat.Add({ Text, Color, FontName, FontSize });
	});
	StateHandle = Agent.OnStateChanged.AddLambda([this]() { ++StateChanges; });
}

void FAgentTest::TearDown()
{
	FAgent::Get().OnStateChanged.Remove(StateHandle);
	FTavrineInterface::Get().OnAddStatusMessageDelegate.Remove(ChatHandle);
	FAgent::Get().Cancel(FString());
	FHttpModule::Get().GetHttpManager().SetRequestAddedDelegate(FHttpManagerRequestAddedDelegate());
	SetMode(ETavrineMode::ExplainerMode);
	FStandInClock::UseManualTime(false);
}

void FAgentTest::SetMode(ETavrineMode Mode)
{
	GetMutableDefault<UTavrineSettings>()->Mode = Mode;
}

TSharedPtr<FJsonObject> FAgentTest::Parse(const FString& Json)
{
	TSharedPtr<FJsonObject> Object;
	FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Json), Object);
	return Object;
}

TArray<FString> FAgentTest::KeysOf(const TSharedPtr<FJsonObject>& Object)
{
	TArray<FString> Keys;
	if (Object.IsValid())
	{
		Object->Values.GenerateKeyArray(Keys);
	}
	return Keys;
}

std::string FAgentTest::ToUtf8(const FString& Text)
{
	const FTCHARToUTF8 Utf8(*Text);
	return std::string(reinterpret_cast<const char*>(Utf8.Get()), Utf8.Length());
}

void FAgentTest::AnswerCommand(const FString& Content, int32 Code)
{
	FHTTPAPI::Get().OnCommandComplete(nullptr, MakeShared<FFakeHttpResponse, ESPMode::ThreadSafe>(Code, Content), true);
}

void FAgentTest::Accept(const FString& RequestId)
{
	AnswerCommand(FString::Printf(TEXT("{\"request_id\": \"%s\"}"), *RequestId));
}

void FAgentTest::AnswerStatus(const FString& Content, FHttpRequestPtr Poll)
{
	FHTTPAPI::Get().OnStatusComplete(Poll, MakeShared<FFakeHttpResponse, ESPMode::ThreadSafe>(200, Content), true);
}

void FAgentTest::Complete(const FString& ResponseJson)
{
	AnswerStatus(FString::Printf(TEXT("{\"status\": \"COMPLETED\", \"response\": %s}"), *ResponseJson));
}

TSharedPtr<FJsonObject> FAgentTest::LastBody() const
{
	if (Sent.IsEmpty())
	{
		ADD_FAILURE() << "nothing was sent";
		return nullptr;
	}
	const TSharedPtr<FJsonObject> Body = Parse(Sent.Last().Body);
	EXPECT_TRUE(Body.IsValid()) << ToUtf8(Sent.Last().Body);
	return Body;
}

int32 FAgentTest::CountChat(const FString& Text) const
{
	return Chat.FilterByPredicate([&Text](const FChatLine& Line) { return Line.Text.Equals(Text, ESearchCase::CaseSensitive); }).Num();
}

const FString& FAgentTest::LastChat() const
{
	static const FString None;
	return Chat.IsEmpty() ? None : Chat.Last().Text;
}
