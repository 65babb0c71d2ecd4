#include "LocalBackend.h"

#include "HttpWire.h"
#include "TlsStream.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <poll.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{
	constexpr int AcceptPollMs = 50;
	constexpr int HandshakeTimeoutMs = 10000;

	bool EqualsNoCase(const std::string& A, const std::string& B)
	{
		return A.size() == B.size() && std::equal(A.begin(), A.end(), B.begin(), [](char X, char Y)
		{
			return std::tolower(static_cast<unsigned char>(X)) == std::tolower(static_cast<unsigned char>(Y));
		});
	}

	bool EndsWith(const std::string& Text, const std::string& Suffix)
	{
		return Text.size() >= Suffix.size() && Text.compare(Text.size() - Suffix.size(), Suffix.size(), Suffix) == 0;
	}

	std::string PercentDecode(const std::string& Text)
	{
		std::string Decoded;
		for (size_t Index = 0; Index < Text.size(); ++Index)
		{
			if (Text[Index] == '%' && Index + 2 < Text.size() && std::isxdigit(static_cast<unsigned char>(Text[Index + 1]))
				&& std::isxdigit(static_cast<unsigned char>(Text[Index + 2])))
			{
				Decoded += static_cast<char>(std::stoi(Text.substr(Index + 1, 2), nullptr, 16));
				Index += 2;
			}
			else
			{
				Decoded += Text[Index] == '+' ? ' ' : Text[Index];
			}
		}
		return Decoded;
	}

	// A one-member JSON object, escaped properly whatever the scenario put in it.
	std::string SingleMemberObject(const char* Key, const std::string& Value)
	{
		rapidjson::StringBuffer Buffer;
		rapidjson::Writer<rapidjson::StringBuffer> Writer(Buffer);
		Writer.StartObject();
		Writer.Key(Key);
		Writer.String(Value.c_str(), static_cast<rapidjson::SizeType>(Value.size()));
		Writer.EndObject();
		return std::string(Buffer.GetString(), Buffer.GetSize());
	}

	bool IsRefusal(int Code)
	{
		return Code == 401 || Code == 403;
	}

	// What an API gateway says when it turns a request away, whichever endpoint it was.
	std::string RefusalBody(int Code)
	{
		return SingleMemberObject("message", Code == 401 ? "Unauthorized" : "Forbidden");
	}

	std::string OpenSslError()
	{
		char Text[256] = {};
		ERR_error_string_n(ERR_get_error(), Text, sizeof(Text));
		ERR_clear_error();
		return Text;
	}
}

struct FLocalBackend::FConnection
{
	std::thread Thread;
	std::atomic<bool> bDone { false };
};

struct FLocalBackend::FHttpAnswer
{
	int Code = 200;
	std::string Body;
	int DelayMs = 0;
	bool bClose = false;
};

std::string FRecordedRequest::GetHeader(const std::string& Name) const
{
	for (const auto& Header : Headers)
	{
		if (EqualsNoCase(Header.first, Name))
		{
			return Header.second;
		}
	}
	return std::string();
}

bool FRecordedRequest::HasHeader(const std::string& Name) const
{
	return std::any_of(Headers.begin(), Headers.end(), [&Name](const auto& Header) { return EqualsNoCase(Header.first, Name); });
}

std::string FRecordedRequest::GetQueryParameter(const std::string& Name) const
{
	size_t Start = 0;
	while (Start <= Query.size())
	{
		size_t End = Query.find('&', Start);
		if (End == std::string::npos)
		{
			End = Query.size();
		}
		const std::string Pair = Query.substr(Start, End - Start);
		const size_t Equals = Pair.find('=');
		if (PercentDecode(Pair.substr(0, Equals)) == Name)
		{
			return Equals == std::string::npos ? std::string() : PercentDecode(Pair.substr(Equals + 1));
		}
		Start = End + 1;
	}
	return std::string();
}

std::string FRecordedRequest::ToJsonLine() const
{
	rapidjson::StringBuffer Buffer;
	rapidjson::Writer<rapidjson::StringBuffer> Writer(Buffer);
	const auto WriteString = [&Writer](const std::string& Text)
	{
		Writer.String(Text.c_str(), static_cast<rapidjson::SizeType>(Text.size()));
	};
	Writer.StartObject();
	Writer.Key("method");
	WriteString(Method);
	Writer.Key("target");
	WriteString(Target);
	Writer.Key("path");
	WriteString(Path);
	Writer.Key("query");
	WriteString(Query);
	// Pairs rather than an object: order and repeated names must survive.
	Writer.Key("headers");
	Writer.StartArray();
	for (const auto& Header : Headers)
	{
		Writer.StartArray();
		WriteString(Header.first);
		WriteString(Header.second);
		Writer.EndArray();
	}
	Writer.EndArray();
	Writer.Key("body");
	WriteString(Body);
	Writer.Key("response_code");
	Writer.Int(ResponseCode);
	Writer.EndObject();
	return std::string(Buffer.GetString(), Buffer.GetSize());
}

FLocalBackend::FLocalBackend() = default;

FLocalBackend::~FLocalBackend()
{
	Stop();
}

bool FLocalBackend::Start(const FLocalBackendOptions& InOptions, std::string& OutError)
{
	if (bRunning)
	{
		OutError = "the backend is already running";
		return false;
	}
	// A client that hangs up mid-answer must end that write, not the process.
	std::signal(SIGPIPE, SIG_IGN);
	Options = InOptions;

	TlsContext = SSL_CTX_new(TLS_server_method());
	if (TlsContext == nullptr)
	{
		OutError = "cannot create the TLS context: " + OpenSslError();
		return false;
	}
	SSL_CTX_set_min_proto_version(TlsContext, TLS1_2_VERSION);
	if (SSL_CTX_use_certificate_chain_file(TlsContext, Options.CertFile.c_str()) != 1)
	{
		OutError = "cannot load the certificate '" + Options.CertFile + "': " + OpenSslError();
		Stop();
		return false;
	}
	if (SSL_CTX_use_PrivateKey_file(TlsContext, Options.KeyFile.c_str(), SSL_FILETYPE_PEM) != 1
		|| SSL_CTX_check_private_key(TlsContext) != 1)
	{
		OutError = "cannot load the private key '" + Options.KeyFile + "' for that certificate: " + OpenSslError();
		Stop();
		return false;
	}

	sockaddr_in Address {};
	Address.sin_family = AF_INET;
	Address.sin_port = htons(Options.Port);
	if (inet_pton(AF_INET, Options.BindAddress.c_str(), &Address.sin_addr) != 1)
	{
		OutError = "bad bind address '" + Options.BindAddress + "' (an IPv4 address is expected)";
		Stop();
		return false;
	}
	ListenSocket = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
	const int Yes = 1;
	if (ListenSocket < 0 || setsockopt(ListenSocket, SOL_SOCKET, SO_REUSEADDR, &Yes, sizeof(Yes)) != 0
		|| bind(ListenSocket, reinterpret_cast<sockaddr*>(&Address), sizeof(Address)) != 0 || listen(ListenSocket, 64) != 0)
	{
		OutError = "cannot listen on " + Options.BindAddress + ":" + std::to_string(Options.Port) + ": " + std::strerror(errno);
		Stop();
		return false;
	}
	socklen_t Length = sizeof(Address);
	getsockname(ListenSocket, reinterpret_cast<sockaddr*>(&Address), &Length);
	Port = ntohs(Address.sin_port);

	if (!Options.RecordFile.empty())
	{
		FILE* File = std::fopen(Options.RecordFile.c_str(), "w");
		if (File == nullptr)
		{
			OutError = "cannot write the record file '" + Options.RecordFile + "': " + std::strerror(errno);
			Stop();
			return false;
		}
		std::fclose(File);
	}

	{
		std::lock_guard<std::mutex> Lock(Mutex);
		RemainingTurns = Options.Scenario.Turns;
		NextTurn = 0;
		NextRequestNumber = 1;
		Requests.clear();
		Recorded.clear();
	}
	bStopping = false;
	bRunning = true;
	AcceptThread = std::thread(&FLocalBackend::AcceptLoop, this);
	return true;
}

void FLocalBackend::Stop()
{
	bStopping = true;
	{
		std::lock_guard<std::mutex> Lock(Mutex);
		Changed.notify_all();
	}
	if (AcceptThread.joinable())
	{
		AcceptThread.join();
	}
	ReapFinishedConnections(true);
	if (ListenSocket >= 0)
	{
		close(ListenSocket);
		ListenSocket = -1;
	}
	if (TlsContext != nullptr)
	{
		SSL_CTX_free(TlsContext);
		TlsContext = nullptr;
	}
	bRunning = false;
}

void FLocalBackend::ReapFinishedConnections(bool bJoinAll)
{
	auto Connection = Connections.begin();
	while (Connection != Connections.end())
	{
		if (bJoinAll || (*Connection)->bDone)
		{
			(*Connection)->Thread.join();
			Connection = Connections.erase(Connection);
		}
		else
		{
			++Connection;
		}
	}
}

void FLocalBackend::AcceptLoop()
{
	while (!bStopping)
	{
		pollfd Entry { ListenSocket, POLLIN, 0 };
		if (poll(&Entry, 1, AcceptPollMs) <= 0)
		{
			continue;
		}
		const int Socket = accept4(ListenSocket, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
		if (Socket < 0)
		{
			continue;
		}
		const int Yes = 1;
		setsockopt(Socket, IPPROTO_TCP, TCP_NODELAY, &Yes, sizeof(Yes));
		ReapFinishedConnections(false);
		auto Connection = std::make_unique<FConnection>();
		FConnection* Raw = Connection.get();
		Connection->Thread = std::thread([this, Socket, Raw]()
		{
			ServeConnection(Socket);
			Raw->bDone = true;
		});
		Connections.push_back(std::move(Connection));
	}
}

void FLocalBackend::ServeConnection(int Socket)
{
	{
		FTlsStream Stream(TlsContext, Socket, bStopping);
		if (Stream.Handshake(HandshakeTimeoutMs))
		{
			std::string Pending;
			for (;;)
			{
				FWireRequest Wire;
				const EWireRead Result = ReadWireRequest(Stream, Pending, Wire);
				if (Result == EWireRead::Closed)
				{
					break;
				}
				if (Result == EWireRead::Malformed)
				{
					Stream.WriteAll(FormatWireResponse(Wire.ErrorCode, SingleMemberObject("message", "Malformed request"), false));
					break;
				}
				const FHttpAnswer Answer = Route(Wire.Request);
				Wire.Request.ResponseCode = Answer.bClose ? 0 : Answer.Code;
				Record(Wire.Request);
				if (!SleepUnlessStopping(Answer.DelayMs) || Answer.bClose)
				{
					break;
				}
				if (!Stream.WriteAll(FormatWireResponse(Answer.Code, Answer.Body, Wire.bKeepAlive)) || !Wire.bKeepAlive)
				{
					break;
				}
			}
		}
	}
	close(Socket);
}

FLocalBackend::FHttpAnswer FLocalBackend::Route(const FRecordedRequest& Request)
{
	if (Options.ApiKey.has_value() && (!Request.HasHeader("x-api-key") || Request.GetHeader("x-api-key") != *Options.ApiKey))
	{
		return FHttpAnswer { 401, RefusalBody(401) };
	}
	// The host may carry a stage path before the endpoint, as an API gateway's does.
	const bool bCommand = Request.Path == "/command" || EndsWith(Request.Path, "/command");
	const bool bStatus = Request.Path == "/status" || EndsWith(Request.Path, "/status");
	if (bCommand && Request.Method == "POST")
	{
		return AnswerCommand();
	}
	if (bStatus && Request.Method == "GET")
	{
		return AnswerStatus(Request);
	}
	if (bCommand || bStatus)
	{
		return FHttpAnswer { 405, SingleMemberObject("message", "Method not allowed") };
	}
	return FHttpAnswer { 404, SingleMemberObject("message", "Not found") };
}

FLocalBackend::FHttpAnswer FLocalBackend::AnswerCommand()
{
	std::lock_guard<std::mutex> Lock(Mutex);
	FScenarioTurn Turn;
	if (NextTurn < RemainingTurns.size())
	{
		Turn = RemainingTurns[NextTurn++];
	}
	else
	{
		Turn.bHasError = true;
		Turn.Error = "The local backend's scenario has no more turns.";
	}

	FHttpAnswer Answer;
	Answer.Code = Turn.Command.Code != 0 ? Turn.Command.Code : 200;
	Answer.DelayMs = Turn.Command.DelayMs;
	Answer.bClose = Turn.Command.bClose;
	if (Turn.Command.bHasBody)
	{
		Answer.Body = Turn.Command.Body;
	}
	else if (IsRefusal(Answer.Code))
	{
		Answer.Body = RefusalBody(Answer.Code);
	}
	else
	{
		// Any other code still carries an identifier: the client must not judge by the code alone.
		const std::string RequestId = "req-" + std::to_string(NextRequestNumber++);
		Requests[RequestId] = FRequestState { Turn, 0 };
		Answer.Body = SingleMemberObject("request_id", RequestId);
	}
	return Answer;
}

FLocalBackend::FHttpAnswer FLocalBackend::AnswerStatus(const FRecordedRequest& Request)
{
	std::lock_guard<std::mutex> Lock(Mutex);
	const auto Found = Requests.find(Request.GetQueryParameter("request_id"));
	if (Found == Requests.end())
	{
		return FHttpAnswer { 404, SingleMemberObject("message", "Unknown request_id") };
	}
	FRequestState& State = Found->second;
	const FScenarioTurn& Turn = State.Turn;
	if (State.PollsAnswered < Turn.PendingPolls)
	{
		return FHttpAnswer { 200, SingleMemberObject("status", Turn.GetPendingStatus(State.PollsAnswered++)) };
	}
	FHttpAnswer Answer;
	Answer.Code = Turn.Status.Code != 0 ? Turn.Status.Code : 200;
	if (Turn.Status.bHasBody)
	{
		Answer.Body = Turn.Status.Body;
	}
	else
	{
		Answer.Body = IsRefusal(Answer.Code) ? RefusalBody(Answer.Code) : Turn.BuildFinalStatusBody();
	}
	Answer.DelayMs = Turn.Status.DelayMs;
	Answer.bClose = Turn.Status.bClose;
	return Answer;
}

void FLocalBackend::Record(const FRecordedRequest& Request)
{
	std::lock_guard<std::mutex> Lock(Mutex);
	Recorded.push_back(Request);
	if (!Options.RecordFile.empty())
	{
		if (FILE* File = std::fopen(Options.RecordFile.c_str(), "a"))
		{
			const std::string Line = Request.ToJsonLine() + "\n";
			std::fwrite(Line.data(), 1, Line.size(), File);
			std::fclose(File);
		}
	}
	Changed.notify_all();
}

bool FLocalBackend::SleepUnlessStopping(int Milliseconds)
{
	std::unique_lock<std::mutex> Lock(Mutex);
	Changed.wait_for(Lock, std::chrono::milliseconds(Milliseconds), [this]() { return bStopping.load(); });
	return !bStopping;
}

std::vector<FRecordedRequest> FLocalBackend::GetRequests() const
{
	std::lock_guard<std::mutex> Lock(Mutex);
	return Recorded;
}

size_t FLocalBackend::GetRequestCount() const
{
	std::lock_guard<std::mutex> Lock(Mutex);
	return Recorded.size();
}

bool FLocalBackend::WaitForRequestCount(size_t Count, std::chrono::milliseconds Timeout) const
{
	std::unique_lock<std::mutex> Lock(Mutex);
	return Changed.wait_for(Lock, Timeout, [this, Count]() { return Recorded.size() >= Count; });
}

void FLocalBackend::ClearRequests()
{
	std::lock_guard<std::mutex> Lock(Mutex);
	Recorded.clear();
}

void FLocalBackend::SetScenario(const FScenario& Scenario)
{
	std::lock_guard<std::mutex> Lock(Mutex);
	RemainingTurns = Scenario.Turns;
	NextTurn = 0;
	// Identifiers start again so that each test sees "req-1" first.
	NextRequestNumber = 1;
	Requests.clear();
}

size_t FLocalBackend::GetRemainingTurnCount() const
{
	std::lock_guard<std::mutex> Lock(Mutex);
	return RemainingTurns.size() - NextTurn;
}
