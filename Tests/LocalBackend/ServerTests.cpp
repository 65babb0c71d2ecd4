// The local backend on the wire: raw TLS clients send exactly the bytes (and TLS records) a case needs.

#include "LocalBackend.h"
#include "RawTlsClient.h"
#include "TestCertificate.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace
{
	using FClock = std::chrono::steady_clock;

	double SecondsSince(FClock::time_point Start)
	{
		return std::chrono::duration<double>(FClock::now() - Start).count();
	}

	void Pause()
	{
		std::this_thread::sleep_for(std::chrono::milliseconds(50));
	}

	const std::string Post = MakeRawRequest("POST", "/dev/command", "", "{}");

	std::string StatusOf(const std::string& Id)
	{
		return MakeRawRequest("GET", "/dev/status?request_id=" + Id);
	}

	class LocalBackendTest : public ::testing::Test
	{
	protected:
		static void SetUpTestSuite()
		{
			Certificate = new FTemporaryCertificate();
		}

		static void TearDownTestSuite()
		{
			delete Certificate;
			Certificate = nullptr;
		}

		FLocalBackendOptions MakeOptions(const std::string& ScenarioJson)
		{
			FLocalBackendOptions Options;
			Options.CertFile = Certificate->GetCertFile();
			Options.KeyFile = Certificate->GetKeyFile();
			std::string Error;
			EXPECT_TRUE(ParseScenario(ScenarioJson, Options.Scenario, Error)) << Error;
			return Options;
		}

		void Start(const std::string& ScenarioJson, std::optional<std::string> ApiKey = std::nullopt, const std::string& RecordFile = "")
		{
			ASSERT_TRUE(Certificate->IsValid()) << Certificate->GetError();
			FLocalBackendOptions Options = MakeOptions(ScenarioJson);
			Options.ApiKey = ApiKey;
			Options.RecordFile = RecordFile;
			std::string Error;
			ASSERT_TRUE(Backend.Start(Options, Error)) << Error;
		}

		// One request on a connection of its own.
		FRawAnswer Ask(const std::string& Raw)
		{
			FRawTlsClient Client(Backend.GetPort());
			EXPECT_TRUE(Client.IsConnected());
			Client.Send(Raw);
			return Client.Receive();
		}

		static FTemporaryCertificate* Certificate;
		FLocalBackend Backend;
	};

	FTemporaryCertificate* LocalBackendTest::Certificate = nullptr;
}

TEST_F(LocalBackendTest, StatusWalksThroughPendingWordsThenRepeatsTheFinalAnswer)
{
	Start(R"([
		{ "pending_polls": 2, "response": { "text": "first" } },
		{ "pending_polls": 1, "pending_status": "QUEUED", "error": "Overloaded" },
		{ "final_status": "completed" }
	])");
	FRawTlsClient Client(Backend.GetPort());
	ASSERT_TRUE(Client.IsConnected());
	// Three requests in one TLS record: each is answered in turn on the same connection.
	ASSERT_TRUE(Client.Send(Post + Post + Post));
	for (int Number = 1; Number <= 3; ++Number)
	{
		const FRawAnswer Answer = Client.Receive();
		EXPECT_EQ(Answer.Code, 200);
		EXPECT_EQ(Answer.Body, "{\"request_id\":\"req-" + std::to_string(Number) + "\"}");
		EXPECT_NE(Answer.Head.find("Connection: keep-alive"), std::string::npos);
	}
	const auto Poll = [&Client](const std::string& Id)
	{
		Client.Send(StatusOf(Id));
		return Client.Receive().Body;
	};
	const std::string First = R"({"status":"COMPLETED","response":{"text":"first"}})";
	EXPECT_EQ(Poll("req-1"), R"({"status":"PENDING"})");
	EXPECT_EQ(Poll("req-2"), R"({"status":"QUEUED"})");
	EXPECT_EQ(Poll("req-1"), R"({"status":"IN_PROGRESS"})");
	EXPECT_EQ(Poll("req-1"), First);
	EXPECT_EQ(Poll("req%2D1"), First) << "the identifier is read percent-decoded, and the final answer repeats";
	EXPECT_EQ(Poll("req-2"), R"({"status":"FAILED","error":"Overloaded"})");
	EXPECT_EQ(Poll("req-3"), R"({"status":"completed"})");

	Client.Send(Post);
	EXPECT_EQ(Client.Receive().Body, R"({"request_id":"req-4"})") << "a POST past the last turn still gets an identifier";
	EXPECT_EQ(Poll("req-4"), R"({"status":"FAILED","error":"The local backend's scenario has no more turns."})");

	Client.Send(StatusOf("req-99"));
	const FRawAnswer Unknown = Client.Receive();
	EXPECT_EQ(Unknown.Code, 404);
	EXPECT_EQ(Unknown.Body, R"({"message":"Unknown request_id"})");
	Client.Send(MakeRawRequest("GET", "/status"));
	EXPECT_EQ(Client.Receive().Code, 404);

	FScenario Next;
	std::string Error;
	ASSERT_TRUE(ParseScenario("[{}]", Next, Error));
	Backend.SetScenario(Next);
	EXPECT_EQ(Poll("req-2").find("FAILED"), std::string::npos) << "a new scenario forgets the old identifiers";
	Client.Send(Post);
	EXPECT_EQ(Client.Receive().Body, R"({"request_id":"req-1"})");
}

TEST_F(LocalBackendTest, EachFaultBendsOnlyItsOwnAnswer)
{
	Start(R"([
		{ "command": { "code": 401 } },
		{ "command": { "code": 403 } },
		{ "command": { "code": 500 }, "status": { "code": 503 } },
		{ "command": { "code": 502, "body": "<html>down</html>" } },
		{ "command": { "close": true } },
		{ "command": { "delay_ms": 300 }, "status": { "delay_ms": 300, "body": "not json" } },
		{ "status": { "code": 403 } },
		{ "status": { "close": true } }
	])");
	FRawAnswer Answer = Ask(Post);
	EXPECT_EQ(Answer.Code, 401);
	EXPECT_EQ(Answer.Body, R"({"message":"Unauthorized"})");
	Answer = Ask(Post);
	EXPECT_EQ(Answer.Code, 403);
	EXPECT_EQ(Answer.Body, R"({"message":"Forbidden"})");

	Answer = Ask(Post);
	EXPECT_EQ(Answer.Code, 500);
	EXPECT_EQ(Answer.Body, R"({"request_id":"req-1"})") << "refused POSTs hand out no identifier";
	Answer = Ask(StatusOf("req-1"));
	EXPECT_EQ(Answer.Code, 503);
	EXPECT_EQ(Answer.Body, R"({"status":"COMPLETED"})");

	Answer = Ask(Post);
	EXPECT_EQ(Answer.Code, 502);
	EXPECT_EQ(Answer.Body, "<html>down</html>");
	EXPECT_NE(Answer.Head.find("502 Bad Gateway"), std::string::npos);

	{
		FRawTlsClient Client(Backend.GetPort());
		Client.Send(Post);
		EXPECT_EQ(Client.Receive().Code, 0);
		EXPECT_TRUE(Client.WasClosedByServer());
	}
	ASSERT_TRUE(Backend.WaitForRequestCount(6, std::chrono::seconds(5)));
	EXPECT_EQ(Backend.GetRequests().back().ResponseCode, 0) << "a dropped answer is recorded without a code";

	FClock::time_point Start = FClock::now();
	Answer = Ask(Post);
	EXPECT_GE(SecondsSince(Start), 0.29);
	const std::string DelayedId = Answer.Body.substr(15, 5);
	EXPECT_EQ(DelayedId, "req-3") << Answer.Body;
	Start = FClock::now();
	Answer = Ask(StatusOf(DelayedId));
	EXPECT_GE(SecondsSince(Start), 0.29);
	EXPECT_EQ(Answer.Code, 200);
	EXPECT_EQ(Answer.Body, "not json");

	EXPECT_EQ(Ask(Post).Body, R"({"request_id":"req-4"})");
	Answer = Ask(StatusOf("req-4"));
	EXPECT_EQ(Answer.Code, 403);
	EXPECT_EQ(Answer.Body, R"({"message":"Forbidden"})") << "a refused poll looks like the gateway's refusal, not a finished turn";

	EXPECT_EQ(Ask(Post).Body, R"({"request_id":"req-5"})");
	for (int Attempt = 0; Attempt < 2; ++Attempt)
	{
		FRawTlsClient Client(Backend.GetPort());
		Client.Send(StatusOf("req-5"));
		EXPECT_EQ(Client.Receive().Code, 0);
		EXPECT_TRUE(Client.WasClosedByServer());
	}
}

TEST_F(LocalBackendTest, KeyIsCheckedBeforePathsAndMethodsAreRouted)
{
	Start("[{}, {}]", "key");
	EXPECT_EQ(Ask(Post).Code, 401);
	EXPECT_EQ(Ask(MakeRawRequest("POST", "/command", "x-api-key: KEY\r\n", "{}")).Code, 401) << "the value compares with case";
	EXPECT_EQ(Ask(MakeRawRequest("POST", "/command", "X-Api-Key: key\r\n", "{}")).Body, R"({"request_id":"req-1"})")
		<< "the name compares without case";

	const struct
	{
		const char* Method;
		const char* Target;
		int Code;
	} Routes[] = {
		{ "GET", "/command", 405 },
		{ "POST", "/status?request_id=req-1", 405 },
		{ "GET", "/commander", 404 },
		{ "GET", "/command/x", 404 },
		{ "POST", "/stage/v1/command", 200 },
	};
	for (const auto& Route : Routes)
	{
		SCOPED_TRACE(std::string(Route.Method) + " " + Route.Target);
		EXPECT_EQ(Ask(MakeRawRequest(Route.Method, Route.Target, "x-api-key: key\r\n", "{}")).Code, Route.Code);
	}
	EXPECT_EQ(Backend.GetRemainingTurnCount(), 0u) << "only accepted POSTs take a turn";
	Backend.Stop();

	// An empty key still has to be sent.
	Start("[{}]", "");
	EXPECT_EQ(Ask(Post).Code, 401);
	EXPECT_EQ(Ask(MakeRawRequest("POST", "/command", "x-api-key:\r\n", "{}")).Code, 200);
}

TEST_F(LocalBackendTest, RequestsSplitAcrossRecordsPipelinedOrLargeArriveWhole)
{
	Start("[{}, {}, {}, {}]");
	const std::string Body = R"({"message": "split across records"})";
	const std::string Raw = MakeRawRequest("POST", "/command", "Content-Type: application/json\r\n", Body);
	const size_t HeadEnd = Raw.find("\r\n\r\n");
	{
		FRawTlsClient Client(Backend.GetPort());
		// The blank line that ends the head is cut in two, then the body comes in three pieces.
		Client.Send(Raw.substr(0, HeadEnd + 3));
		Pause();
		Client.Send(Raw.substr(HeadEnd + 3, 5));
		Pause();
		Client.Send(Raw.substr(HeadEnd + 8, 10));
		Pause();
		Client.Send(Raw.substr(HeadEnd + 18));
		EXPECT_EQ(Client.Receive().Code, 200);
	}

	std::string Large(8 * 1024 * 1024, 'x');
	for (size_t Index = 0; Index < Large.size(); Index += 4099)
	{
		Large[Index] = static_cast<char>('a' + Index % 26);
	}
	EXPECT_EQ(Ask(MakeRawRequest("POST", "/command", "", Large)).Code, 200);

	for (const std::string& Closing : { std::string("GET /status HTTP/1.0\r\n\r\n"), MakeRawRequest("GET", "/status", "Connection: close\r\n") })
	{
		SCOPED_TRACE(Closing);
		FRawTlsClient Client(Backend.GetPort());
		Client.Send(Closing);
		const FRawAnswer Answer = Client.Receive();
		EXPECT_EQ(Answer.Code, 404);
		EXPECT_NE(Answer.Head.find("Connection: close"), std::string::npos);
		EXPECT_TRUE(Client.WasClosedByServer());
	}

	const std::vector<FRecordedRequest> Requests = Backend.GetRequests();
	ASSERT_EQ(Requests.size(), 4u);
	EXPECT_EQ(Requests[0].Body, Body);
	EXPECT_EQ(Requests[0].GetHeader("content-type"), "application/json");
	EXPECT_TRUE(Requests[1].Body == Large) << "8 MB body arrived with " << Requests[1].Body.size() << " bytes";
}

TEST_F(LocalBackendTest, MalformedRequestsGetAClearCodeAndTheServerGoesOn)
{
	Start("[{}]");
	const struct
	{
		std::string Raw;
		int Code;
	} Cases[] = {
		{ "HELLO\r\n\r\n", 400 },
		{ "GET /command HTTP/1.1\r\nNoColonHere\r\n\r\n", 400 },
		{ "GET /command HTTP/1.1\r\nHost: a\r\n folded: x\r\n\r\n", 400 },
		{ "POST /command HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n0\r\n\r\n", 411 },
		{ "POST /command HTTP/1.1\r\nContent-Length: ten\r\n\r\n", 400 },
		{ "POST /command HTTP/1.1\r\nContent-Length: -1\r\n\r\n", 400 },
		{ "POST /command HTTP/1.1\r\nContent-Length: 99999999999\r\n\r\n", 413 },
		// No end of the head in sight after 64 KB: refused before the rest arrives.
		{ "GET /command HTTP/1.1\r\nX-Big: " + std::string(70000, 'a'), 431 },
	};
	for (const auto& Case : Cases)
	{
		SCOPED_TRACE(Case.Raw.substr(0, 60));
		FRawTlsClient Client(Backend.GetPort());
		Client.Send(Case.Raw);
		const FRawAnswer Answer = Client.Receive();
		EXPECT_EQ(Answer.Code, Case.Code);
		EXPECT_EQ(Answer.Body, R"({"message":"Malformed request"})");
		EXPECT_TRUE(Client.WasClosedByServer());
	}
	for (const std::string& Cut : { std::string("POST /command HTTP/1.1\r\nContent-Length: 100\r\n\r\nshort"), std::string("POST /comm") })
	{
		FRawTlsClient Client(Backend.GetPort());
		Client.Send(Cut);
		Pause();
	}
	FRawTlsClient Silent(Backend.GetPort(), false);
	EXPECT_TRUE(Silent.IsConnected());

	EXPECT_EQ(Ask(Post).Body, R"({"request_id":"req-1"})") << "no broken request takes a turn";
	EXPECT_EQ(Backend.GetRequestCount(), 1u) << "unreadable requests aren't recorded";
}

TEST_F(LocalBackendTest, RecordFileHoldsOneJsonObjectPerRequestAsItArrived)
{
	const std::string Path = testing::TempDir() + "local-backend-record.jsonl";
	{
		std::ofstream Stale(Path);
		Stale << "left from an earlier run\n";
	}
	Start(R"([{ "command": { "close": true } }, {}])", std::nullopt, Path);
	std::ifstream Emptied(Path);
	EXPECT_EQ(Emptied.peek(), std::ifstream::traits_type::eof()) << "the file is emptied at start";

	const std::string Body = "{\"m\": \"a\\\"b\nc caf\xC3\xA9\t\x01\"}";
	Ask(MakeRawRequest("POST", "/dev/command?x=1&y=%20", "Zeta: 1\r\nx-api-key:\r\nalpha:  two words \r\nzeta: 2\r\n", Body));
	Ask(StatusOf("req-1"));
	ASSERT_TRUE(Backend.WaitForRequestCount(2, std::chrono::seconds(5)));

	std::ifstream File(Path);
	std::vector<std::string> Lines;
	for (std::string Line; std::getline(File, Line);)
	{
		Lines.push_back(Line);
	}
	ASSERT_EQ(Lines.size(), 2u) << "a body with a line break still makes one line";
	rapidjson::Document First;
	ASSERT_FALSE(First.Parse(Lines[0].c_str()).HasParseError()) << Lines[0];
	EXPECT_STREQ(First["target"].GetString(), "/dev/command?x=1&y=%20");
	EXPECT_EQ(std::string(First["body"].GetString(), First["body"].GetStringLength()), Body);
	EXPECT_EQ(First["response_code"].GetInt(), 0);
	std::vector<std::pair<std::string, std::string>> Headers;
	for (const rapidjson::Value& Pair : First["headers"].GetArray())
	{
		ASSERT_EQ(Pair.Size(), 2u);
		Headers.emplace_back(Pair[0].GetString(), Pair[1].GetString());
	}
	const std::vector<std::pair<std::string, std::string>> Expected {
		{ "Host", "localhost" }, { "Zeta", "1" }, { "x-api-key", "" }, { "alpha", "two words" }, { "zeta", "2" },
		{ "Content-Length", std::to_string(Body.size()) },
	};
	EXPECT_EQ(Headers, Expected);

	EXPECT_NE(Lines[1].find("\"response_code\":200}"), std::string::npos) << Lines[1];
	std::remove(Path.c_str());
}

TEST_F(LocalBackendTest, StopCutsEveryConnectionShortAndStartReportsWhyItCannot)
{
	Start(R"([{ "command": { "delay_ms": 20000 } }])");
	FRawTlsClient Silent(Backend.GetPort(), false);
	FRawTlsClient Idle(Backend.GetPort());
	FRawTlsClient Waiting(Backend.GetPort());
	Waiting.Send(Post);
	ASSERT_TRUE(Backend.WaitForRequestCount(1, std::chrono::seconds(5)));
	const FClock::time_point Started = FClock::now();
	Backend.Stop();
	EXPECT_LT(SecondsSince(Started), 5.0) << "neither a silent, an idle nor a delayed connection may hold up Stop";
	EXPECT_FALSE(Backend.IsRunning());
	EXPECT_EQ(Waiting.Receive(1000).Code, 0);
	Backend.Stop();

	Start("[{}]");
	std::string Error;
	EXPECT_FALSE(Backend.Start(MakeOptions("[]"), Error));
	EXPECT_EQ(Error, "the backend is already running");
	EXPECT_EQ(Ask(Post).Code, 200) << "a failed second start leaves the running server alone";

	FLocalBackendOptions Busy = MakeOptions("[]");
	Busy.Port = Backend.GetPort();
	FLocalBackend Second;
	EXPECT_FALSE(Second.Start(Busy, Error));
	EXPECT_EQ(Error.rfind("cannot listen on 127.0.0.1:" + std::to_string(Busy.Port), 0), 0u) << Error;

	FLocalBackendOptions NoCertificate = MakeOptions("[]");
	NoCertificate.CertFile = "/nonexistent/cert.pem";
	EXPECT_FALSE(Second.Start(NoCertificate, Error));
	EXPECT_EQ(Error.rfind("cannot load the certificate '/nonexistent/cert.pem'", 0), 0u) << Error;
	EXPECT_FALSE(Second.IsRunning());

	EXPECT_TRUE(Second.Start(MakeOptions("[{}]"), Error)) << "failed starts leave nothing behind: " << Error;
}
