// The HTTP client alone, against the local backend on loopback.

#include "HAL/StandInClock.h"
#include "Http.h"
#include "HttpStandInSettings.h"
#include "LocalBackend.h"
#include "Misc/StandInEngineLoop.h"
#include "TestCertificate.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace
{
	struct FCompletion
	{
		int32 Calls = 0;
		bool bConnectedSuccessfully = false;
		FHttpRequestPtr Request;
		FHttpResponsePtr Response;
	};

	std::string ToUtf8(const FString& Text)
	{
		return std::string(TCHAR_TO_UTF8(*Text));
	}

	FString ToFString(const std::string& Text)
	{
		return FString(UTF8_TO_TCHAR(Text.c_str()));
	}

	// Headers that libcurl adds on its own say nothing about the order the caller chose.
	std::vector<std::pair<std::string, std::string>> CallerHeaders(const FRecordedRequest& Request)
	{
		std::vector<std::pair<std::string, std::string>> Headers;
		for (const auto& Header : Request.Headers)
		{
			if (Header.first != "Host" && Header.first != "Accept" && Header.first != "Content-Length" && Header.first != "User-Agent")
			{
				Headers.push_back(Header);
			}
		}
		return Headers;
	}

	class HttpClientTest : public ::testing::Test
	{
	protected:
		static void SetUpTestSuite()
		{
			FStandInClock::UseManualTime(false);
			Certificate = new FTemporaryCertificate();
			ASSERT_TRUE(Certificate->IsValid()) << Certificate->GetError();
			FHttpStandInSettings::SetExtraCaFile(ToFString(Certificate->GetCertFile()));
		}

		static void TearDownTestSuite()
		{
			delete Certificate;
			Certificate = nullptr;
		}

		void TearDown() override
		{
			FHttpModule::Get().GetHttpManager().Flush(EHttpFlushReason::Shutdown);
			Backend.Stop();
		}

		void StartBackend(const std::string& ScenarioJson, const FTemporaryCertificate& ServedCertificate)
		{
			FLocalBackendOptions Options;
			Options.CertFile = ServedCertificate.GetCertFile();
			Options.KeyFile = ServedCertificate.GetKeyFile();
			Options.ApiKey = "right-key";
			std::string Error;
			ASSERT_TRUE(ParseScenario(ScenarioJson, Options.Scenario, Error)) << Error;
			ASSERT_TRUE(Backend.Start(Options, Error)) << Error;
		}

		FString Url(const char* PathAndQuery) const
		{
			return FString::Printf(TEXT("https://127.0.0.1:%d%s"), static_cast<int32>(Backend.GetPort()), UTF8_TO_TCHAR(PathAndQuery));
		}

		FHttpRequestRef MakeRequest(const FString& Verb, const FString& InUrl, FCompletion& Completion)
		{
			FHttpRequestRef Request = FHttpModule::Get().CreateRequest();
			Request->SetVerb(Verb);
			Request->SetURL(InUrl);
			Request->SetHeader(TEXT("x-api-key"), TEXT("right-key"));
			Request->OnProcessRequestComplete().BindLambda([&Completion](FHttpRequestPtr Finished, FHttpResponsePtr Response, bool bConnectedSuccessfully)
			{
				++Completion.Calls;
				Completion.Request = Finished;
				Completion.Response = Response;
				Completion.bConnectedSuccessfully = bConnectedSuccessfully;
			});
			return Request;
		}

		static bool PumpUntilCompleted(const FCompletion& Completion, double TimeoutSeconds = 10.0)
		{
			return FStandInEngineLoop::PumpUntil([&Completion]() { return Completion.Calls > 0; }, TimeoutSeconds);
		}

		static void ExpectFailure(const FCompletion& Completion, EHttpFailureReason Reason)
		{
			EXPECT_EQ(Completion.Calls, 1);
			EXPECT_FALSE(Completion.bConnectedSuccessfully);
			EXPECT_FALSE(Completion.Response.IsValid());
			ASSERT_TRUE(Completion.Request.IsValid());
			EXPECT_EQ(Completion.Request->GetStatus(), EHttpRequestStatus::Failed);
			EXPECT_EQ(Completion.Request->GetFailureReason(), Reason) << TCHAR_TO_UTF8(LexToString(Completion.Request->GetFailureReason()));
		}

		static FTemporaryCertificate* Certificate;
		FLocalBackend Backend;
	};

	FTemporaryCertificate* HttpClientTest::Certificate = nullptr;
}

TEST_F(HttpClientTest, ExchangeKeepsHeaderOrderBodyBytesAndCompletesFromTheLoop)
{
	StartBackend(R"([{ "response": { "auto_continue": true } }])", *Certificate);
	const FString Body = TEXT("{\"message\": \"caf\u00E9 \u65E5\u672C \U0001F600 \\\"q\\\"\"}");
	FCompletion Posted;
	{
		FHttpRequestRef Request = MakeRequest(TEXT("post"), Url("/stage/command"), Posted);
		Request->SetHeader(TEXT("Content-Type"), TEXT("application/json"));
		Request->SetHeader(TEXT("x-api-key"), TEXT("right-key"));
		Request->SetHeader(TEXT("conversation-id"), TEXT(""));
		Request->SetHeader(TEXT("engine"), TEXT("first"));
		Request->SetHeader(TEXT("Engine"), TEXT("++UE5+Release-5.5"));
		Request->AppendToHeader(TEXT("Accept-Language"), TEXT("en"));
		Request->AppendToHeader(TEXT("accept-language"), TEXT("fr"));
		Request->SetContentAsString(Body);
		EXPECT_EQ(Request->GetVerb(), TEXT("POST"));
		EXPECT_EQ(Request->GetHeader(TEXT("ENGINE")), TEXT("++UE5+Release-5.5"));

		ASSERT_TRUE(Request->ProcessRequest());
		EXPECT_FALSE(Request->ProcessRequest()) << "a request can't be started twice at once";
		EXPECT_EQ(Request->GetStatus(), EHttpRequestStatus::Processing);
		// The caller lets go of its reference: the module keeps the request alive until it completes.
	}
	EXPECT_EQ(Posted.Calls, 0) << "completion must come from the loop, not from ProcessRequest";
	ASSERT_TRUE(PumpUntilCompleted(Posted));
	EXPECT_EQ(Posted.Calls, 1);
	ASSERT_TRUE(Posted.bConnectedSuccessfully);
	ASSERT_TRUE(Posted.Response.IsValid());
	EXPECT_EQ(Posted.Request->GetStatus(), EHttpRequestStatus::Succeeded);
	EXPECT_EQ(Posted.Request->GetResponse(), Posted.Response);
	EXPECT_EQ(Posted.Response->GetResponseCode(), 200);
	EXPECT_EQ(ToUtf8(Posted.Response->GetContentAsString()), R"({"request_id":"req-1"})");
	EXPECT_EQ(Posted.Response->GetContentType(), TEXT("application/json"));
	EXPECT_EQ(Posted.Response->GetHeader(TEXT("content-length")), TEXT("22"));

	FCompletion Polled;
	FHttpRequestRef Poll = MakeRequest(TEXT("GET"), Url("/stage/status?request_id=req-1"), Polled);
	EXPECT_EQ(Poll->GetURLParameter(TEXT("request_id")), TEXT("req-1"));
	ASSERT_TRUE(Poll->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Polled));
	ASSERT_TRUE(Polled.Response.IsValid());
	EXPECT_EQ(ToUtf8(Polled.Response->GetContentAsString()), R"({"status":"COMPLETED","response":{"auto_continue":true}})");

	const std::vector<FRecordedRequest> Received = Backend.GetRequests();
	ASSERT_EQ(Received.size(), 2u);
	EXPECT_EQ(Received[0].Method, "POST");
	EXPECT_EQ(Received[0].Path, "/stage/command");
	const std::vector<std::pair<std::string, std::string>> Expected {
		{ "x-api-key", "right-key" },
		{ "Content-Type", "application/json" },
		{ "conversation-id", "" },
		{ "engine", "++UE5+Release-5.5" },
		{ "Accept-Language", "en, fr" },
	};
	EXPECT_EQ(CallerHeaders(Received[0]), Expected);
	EXPECT_EQ(Received[0].Body, ToUtf8(Body));
	EXPECT_EQ(Received[1].Method, "GET");
	EXPECT_EQ(Received[1].Target, "/stage/status?request_id=req-1");
	EXPECT_TRUE(Received[1].Body.empty());
}

TEST_F(HttpClientTest, AnyAnsweredCodeCountsAsConnected)
{
	StartBackend(R"([{ "command": { "code": 500 } }])", *Certificate);
	FCompletion Denied;
	FHttpRequestRef WrongKey = MakeRequest(TEXT("GET"), Url("/status?request_id=none"), Denied);
	WrongKey->SetHeader(TEXT("x-api-key"), TEXT("wrong-key"));
	ASSERT_TRUE(WrongKey->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Denied));
	EXPECT_TRUE(Denied.bConnectedSuccessfully);
	ASSERT_TRUE(Denied.Response.IsValid());
	EXPECT_EQ(Denied.Response->GetResponseCode(), 401);

	FCompletion ServerError;
	FHttpRequestRef Post = MakeRequest(TEXT("POST"), Url("/command"), ServerError);
	ASSERT_TRUE(Post->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(ServerError));
	EXPECT_TRUE(ServerError.bConnectedSuccessfully);
	ASSERT_TRUE(ServerError.Response.IsValid());
	EXPECT_EQ(ServerError.Response->GetResponseCode(), 500);
	EXPECT_EQ(ToUtf8(ServerError.Response->GetContentAsString()), R"({"request_id":"req-1"})");
}

TEST_F(HttpClientTest, RefusedUntrustedAndStalledServersFailWithoutHanging)
{
	StartBackend("[]", *Certificate);
	const FString ClosedPortUrl = Url("/command");
	Backend.Stop();
	FCompletion Refused;
	FHttpRequestRef ToClosedPort = MakeRequest(TEXT("POST"), ClosedPortUrl, Refused);
	ASSERT_TRUE(ToClosedPort->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Refused));
	ExpectFailure(Refused, EHttpFailureReason::ConnectionError);

	// A server whose certificate nobody trusts: verification must refuse it.
	FTemporaryCertificate Untrusted;
	ASSERT_TRUE(Untrusted.IsValid()) << Untrusted.GetError();
	StartBackend("[]", Untrusted);
	FCompletion Rejected;
	FHttpRequestRef ToUntrusted = MakeRequest(TEXT("POST"), Url("/command"), Rejected);
	ASSERT_TRUE(ToUntrusted->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Rejected));
	ExpectFailure(Rejected, EHttpFailureReason::ConnectionError);
	EXPECT_EQ(Backend.GetRequestCount(), 0u) << "nothing may be sent before the server is verified";
	Backend.Stop();

	StartBackend(R"([{ "command": { "delay_ms": 20000 } }])", *Certificate);
	FCompletion Stalled;
	FHttpRequestRef ToStalled = MakeRequest(TEXT("POST"), Url("/command"), Stalled);
	ToStalled->SetTimeout(0.3f);
	const double StartSeconds = FStandInClock::GetRealSeconds();
	ASSERT_TRUE(ToStalled->ProcessRequest());
	EXPECT_LT(FStandInClock::GetRealSeconds() - StartSeconds, 0.1) << "ProcessRequest must not wait for the server";
	ASSERT_TRUE(PumpUntilCompleted(Stalled));
	EXPECT_LT(FStandInClock::GetRealSeconds() - StartSeconds, 5.0);
	ExpectFailure(Stalled, EHttpFailureReason::TimedOut);
}

TEST_F(HttpClientTest, CancelCompletesOnceFromTheNextTick)
{
	StartBackend(R"([{ "command": { "delay_ms": 20000 } }])", *Certificate);
	FCompletion Cancelled;
	FHttpRequestRef Request = MakeRequest(TEXT("POST"), Url("/command"), Cancelled);
	ASSERT_TRUE(Request->ProcessRequest());
	ASSERT_TRUE(FStandInEngineLoop::PumpUntil([this]() { return Backend.GetRequestCount() > 0; }, 10.0));

	const double StartSeconds = FStandInClock::GetRealSeconds();
	Request->CancelRequest();
	EXPECT_EQ(Cancelled.Calls, 0) << "the delegate runs from the loop, not inside CancelRequest";
	ASSERT_TRUE(PumpUntilCompleted(Cancelled));
	EXPECT_LT(FStandInClock::GetRealSeconds() - StartSeconds, 2.0);
	ExpectFailure(Cancelled, EHttpFailureReason::Cancelled);

	Request->CancelRequest();
	FStandInEngineLoop::Tick(0.01f);
	EXPECT_EQ(Cancelled.Calls, 1);
}

TEST(PlatformHttpTest, UrlEncodingRoundTripsUtf8AndQueryParametersDecode)
{
	const FString Raw = TEXT("a b&c=d/caf\u00E9 \U0001F600~");
	const FString Encoded = FPlatformHttp::UrlEncode(Raw);
	EXPECT_EQ(Encoded, TEXT("a%20b%26c%3Dd%2Fcaf%C3%A9%20%F0%9F%98%80~"));
	EXPECT_EQ(FPlatformHttp::UrlDecode(Encoded), Raw);
	EXPECT_EQ(FPlatformHttp::UrlDecode(TEXT("a+b%2")), TEXT("a b%2")) << "a broken escape stays as it is";

	FHttpRequestRef Request = FHttpModule::Get().CreateRequest();
	Request->SetURL(TEXT("https://host/path?first=1&name=caf%C3%A9+ok&empty=#name=fragment"));
	EXPECT_EQ(Request->GetURLParameter(TEXT("name")), TEXT("caf\u00E9 ok"));
	EXPECT_EQ(Request->GetURLParameter(TEXT("empty")), TEXT(""));
	EXPECT_EQ(Request->GetURLParameter(TEXT("missing")), TEXT(""));
	EXPECT_EQ(Request->GetStatus(), EHttpRequestStatus::NotStarted);
}
