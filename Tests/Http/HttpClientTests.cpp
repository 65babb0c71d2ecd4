// The HTTP client alone, against the local backend on loopback.

#include "HAL/StandInClock.h"
#include "Http.h"
#include "HttpStandInSettings.h"
#include "LocalBackend.h"
#include "Misc/StandInEngineLoop.h"
#include "TestCertificate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace
{
	struct FCompletion
	{
		int32 Calls = 0;
		bool bConnectedSuccessfully = false;
		bool bOnCallingThread = true;
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
			const std::thread::id CallingThread = std::this_thread::get_id();
			Request->OnProcessRequestComplete().BindLambda([&Completion, CallingThread](FHttpRequestPtr Finished, FHttpResponsePtr Response, bool bConnectedSuccessfully)
			{
				++Completion.Calls;
				Completion.bOnCallingThread = Completion.bOnCallingThread && std::this_thread::get_id() == CallingThread;
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
	EXPECT_LT(FStandInClock::GetRealSeconds() - StartSeconds, 1.0) << "ProcessRequest must not wait for the server";
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

TEST_F(HttpClientTest, ManyRequestsInFlightEachCompleteExactlyOnceOnTheLoopThread)
{
	constexpr int32 PostCount = 16;
	std::string Turns = "[";
	for (int32 Index = 0; Index < PostCount; ++Index)
	{
		Turns += Index > 0 ? ", { \"command\": { \"delay_ms\": 1000 } }" : "{ \"command\": { \"delay_ms\": 1000 } }";
	}
	StartBackend(Turns + "]", *Certificate);
	// Fixed size: the delegates hold on to their entries.
	std::vector<FCompletion> Posts(PostCount);
	FCompletion Cancelled;
	const double StartSeconds = FStandInClock::GetRealSeconds();
	for (FCompletion& Completion : Posts)
	{
		EXPECT_TRUE(MakeRequest(TEXT("POST"), Url("/command"), Completion)->ProcessRequest());
	}
	// Started and cancelled at once, among the others.
	FHttpRequestRef Cancelling = MakeRequest(TEXT("POST"), Url("/command"), Cancelled);
	Cancelling->ProcessRequest();
	Cancelling->CancelRequest();

	const auto AllDone = [&Posts, &Cancelled]()
	{
		return Cancelled.Calls > 0 && std::all_of(Posts.begin(), Posts.end(), [](const FCompletion& Completion) { return Completion.Calls > 0; });
	};
	ASSERT_TRUE(FStandInEngineLoop::PumpUntil(AllDone, 20.0));
	// Queued one after another they would take 1 s each; the margin leaves room for a loaded machine and
	// a sanitized build, where each request's own connection and handshake cost a good part of a second.
	EXPECT_LT(FStandInClock::GetRealSeconds() - StartSeconds, 1.0 * PostCount * 0.5) << "slow answers must overlap, not queue";
	for (int32 Turn = 0; Turn < 20; ++Turn)
	{
		FStandInEngineLoop::Tick(0.01f);
	}

	std::set<FString> RequestIds;
	for (const FCompletion& Completion : Posts)
	{
		EXPECT_EQ(Completion.Calls, 1);
		EXPECT_TRUE(Completion.bOnCallingThread);
		ASSERT_TRUE(Completion.Response.IsValid());
		RequestIds.insert(Completion.Response->GetContentAsString());
	}
	EXPECT_EQ(RequestIds.size(), static_cast<size_t>(PostCount)) << "each answer reached its own request";
	ExpectFailure(Cancelled, EHttpFailureReason::Cancelled);
	EXPECT_TRUE(Cancelled.bOnCallingThread);
	EXPECT_EQ(FHttpModule::Get().GetHttpManager().GetNumActiveRequests(), 0);
}

TEST_F(HttpClientTest, CompletionsMayDropOrReissueTheirRequestAndShutdownEndsTheRest)
{
	StartBackend(R"([{}, { "command": { "delay_ms": 20000 } }, { "command": { "delay_ms": 20000 } }])", *Certificate);

	// The completion lets go of the last reference to its own request, then the same object is sent again.
	FHttpRequestPtr Holder = FHttpModule::Get().CreateRequest();
	int32 Calls = 0;
	TArray<int32> Codes;
	Holder->SetURL(Url("/command"));
	Holder->SetVerb(TEXT("POST"));
	Holder->SetHeader(TEXT("x-api-key"), TEXT("right-key"));
	Holder->OnProcessRequestComplete().BindLambda([&](FHttpRequestPtr Finished, FHttpResponsePtr Response, bool)
	{
		++Calls;
		Codes.Add(Response.IsValid() ? Response->GetResponseCode() : 0);
		if (Calls == 1)
		{
			Finished->SetVerb(TEXT("GET"));
			Finished->SetURL(Url("/status?request_id=req-1"));
			EXPECT_TRUE(Finished->ProcessRequest());
		}
		Holder.Reset();
	});
	ASSERT_TRUE(Holder->ProcessRequest());
	ASSERT_TRUE(FStandInEngineLoop::PumpUntil([&Calls]() { return Calls >= 2; }, 10.0));
	FStandInEngineLoop::Tick(0.01f);
	EXPECT_EQ(Calls, 2);
	EXPECT_EQ(Codes, TArray<int32>({ 200, 200 }));

	// Shutdown ends every request in flight at once, each with its one completion.
	std::vector<FCompletion> Pending(2);
	for (FCompletion& Completion : Pending)
	{
		MakeRequest(TEXT("POST"), Url("/command"), Completion)->ProcessRequest();
	}
	ASSERT_TRUE(FStandInEngineLoop::PumpUntil([this]() { return Backend.GetRequestCount() >= 4; }, 10.0));
	const double StartSeconds = FStandInClock::GetRealSeconds();
	FHttpModule::Get().GetHttpManager().Flush(EHttpFlushReason::Shutdown);
	EXPECT_LT(FStandInClock::GetRealSeconds() - StartSeconds, 1.0);
	for (const FCompletion& Completion : Pending)
	{
		ExpectFailure(Completion, EHttpFailureReason::Cancelled);
	}
}

TEST_F(HttpClientTest, LargeBinaryAndNonUtf8BodiesArriveByteForByte)
{
	StartBackend("[]", *Certificate);
	TArray<uint8> Sent;
	Sent.SetNum(5 * 1024 * 1024);
	for (int32 Index = 0; Index < Sent.Num(); ++Index)
	{
		Sent[Index] = static_cast<uint8>((Index * 7) % 256);
	}
	const std::string Invalid = "ok \xFF\xFE caf\xC3\xA9 end \xE6\x97";
	FScenario Scenario;
	Scenario.Turns.resize(2);
	Scenario.Turns[0].Command.bHasBody = true;
	Scenario.Turns[0].Command.Body.assign(reinterpret_cast<const char*>(Sent.GetData()), Sent.Num());
	Scenario.Turns[1].Command.bHasBody = true;
	Scenario.Turns[1].Command.Body = Invalid;
	Backend.SetScenario(Scenario);

	FCompletion Large;
	FHttpRequestRef Request = MakeRequest(TEXT("POST"), Url("/command"), Large);
	Request->SetContent(TArray<uint8>(Sent));
	ASSERT_TRUE(Request->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Large, 30.0));
	ASSERT_TRUE(Large.Response.IsValid());
	EXPECT_EQ(Large.Response->GetContentLength(), static_cast<uint64>(Sent.Num()));
	EXPECT_TRUE(Large.Response->GetContent() == Sent) << "5 MB of every byte value came back changed";
	ASSERT_EQ(Backend.GetRequestCount(), 1u);
	EXPECT_TRUE(Backend.GetRequests()[0].Body == std::string(reinterpret_cast<const char*>(Sent.GetData()), Sent.Num()));

	FCompletion Odd;
	ASSERT_TRUE(MakeRequest(TEXT("POST"), Url("/command"), Odd)->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Odd));
	ASSERT_TRUE(Odd.Response.IsValid());
	const TArray<uint8>& Raw = Odd.Response->GetContent();
	EXPECT_EQ(std::string(reinterpret_cast<const char*>(Raw.GetData()), Raw.Num()), Invalid);
	const FString Text = Odd.Response->GetContentAsString();
	EXPECT_TRUE(Text.StartsWith(TEXT("ok "))) << ToUtf8(Text);
	EXPECT_TRUE(Text.Contains(TEXT(" caf\u00E9 end "))) << "bad bytes spoil only themselves: " << ToUtf8(Text);

	// Header names of the answer compare without case; all of them are listed as received.
	EXPECT_EQ(Odd.Response->GetHeader(TEXT("CONTENT-LENGTH")), FString::FromInt(static_cast<int32>(Invalid.size())));
	EXPECT_EQ(Odd.Response->GetContentType(), TEXT("application/json"));
	EXPECT_TRUE(Odd.Response->GetAllHeaders().Contains(TEXT("Connection: keep-alive")));
}

TEST_F(HttpClientTest, PostOnADyingConnectionFailsOnceWhileReadsKeepTheirConnection)
{
	StartBackend(R"([ { "command": { "close": true } }, {} ])", *Certificate);
	// A read first, so a kept-alive connection is there for the POST to reuse if it were allowed to.
	FCompletion Read;
	ASSERT_TRUE(MakeRequest(TEXT("GET"), Url("/status?request_id=req-0"), Read)->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Read));
	ASSERT_TRUE(Read.bConnectedSuccessfully);

	FCompletion Dropped;
	FHttpRequestRef Post = MakeRequest(TEXT("POST"), Url("/command"), Dropped);
	Post->SetContentAsString(TEXT("{\"message\": \"once\"}"));
	ASSERT_TRUE(Post->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Dropped));
	ExpectFailure(Dropped, EHttpFailureReason::ConnectionError);
	ASSERT_EQ(Backend.GetRequestCount(), 2u) << "libcurl sent the POST again";
	EXPECT_EQ(Backend.GetRequests()[1].Method, "POST");

	// The server stays usable, and the next POST takes the next turn.
	FCompletion Next;
	ASSERT_TRUE(MakeRequest(TEXT("POST"), Url("/command"), Next)->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Next));
	EXPECT_TRUE(Next.bConnectedSuccessfully);
}

TEST_F(HttpClientTest, BodiesBeyondTheBoundFailInsteadOfBeingHeld)
{
	StartBackend("[]", *Certificate);
	const int64 Bound = 64 * 1024;
	FHttpStandInSettings::SetMaxResponseBodyBytes(Bound);
	FScenario Scenario;
	Scenario.Turns.resize(2);
	Scenario.Turns[0].Command.bHasBody = true;
	Scenario.Turns[0].Command.Body.assign(static_cast<size_t>(Bound), 'a');
	Scenario.Turns[1].Command.bHasBody = true;
	Scenario.Turns[1].Command.Body.assign(static_cast<size_t>(Bound) + 1, 'b');
	Backend.SetScenario(Scenario);

	FCompletion AtBound;
	ASSERT_TRUE(MakeRequest(TEXT("POST"), Url("/command"), AtBound)->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(AtBound));
	ASSERT_TRUE(AtBound.Response.IsValid());
	EXPECT_EQ(AtBound.Response->GetContentLength(), static_cast<uint64>(Bound));

	FCompletion Beyond;
	ASSERT_TRUE(MakeRequest(TEXT("POST"), Url("/command"), Beyond)->ProcessRequest());
	ASSERT_TRUE(PumpUntilCompleted(Beyond));
	FHttpStandInSettings::SetMaxResponseBodyBytes(FHttpStandInSettings::DefaultMaxResponseBodyBytes);
	ExpectFailure(Beyond, EHttpFailureReason::Other);
}
