#pragma once

#include "BackendScenario.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

typedef struct ssl_ctx_st SSL_CTX;

// One request as it arrived on the wire: headers keep the order and spelling the client sent.
struct FRecordedRequest
{
	std::string Method;
	std::string Target;
	std::string Path;
	std::string Query;
	std::vector<std::pair<std::string, std::string>> Headers;
	std::string Body;
	int ResponseCode = 0;

	// First header of that name, without regard to case; empty when absent.
	std::string GetHeader(const std::string& Name) const;
	bool HasHeader(const std::string& Name) const;
	std::string GetQueryParameter(const std::string& Name) const;
	std::string ToJsonLine() const;
};

struct FLocalBackendOptions
{
	std::string BindAddress = "127.0.0.1";
	uint16_t Port = 0;
	std::string CertFile;
	std::string KeyFile;
	FScenario Scenario;
	// Without a key every "x-api-key" is accepted; with one (even empty) it must match exactly.
	std::optional<std::string> ApiKey;
	std::string RecordFile;
};

// HTTPS backend on loopback answering POST .../command and GET .../status from a scenario.
// Written on OpenSSL directly rather than a server library because the tests must see the
// headers in the order the client sent them, which header maps don't keep.
class FLocalBackend
{
public:
	FLocalBackend();
	~FLocalBackend();
	FLocalBackend(const FLocalBackend&) = delete;
	FLocalBackend& operator=(const FLocalBackend&) = delete;

	bool Start(const FLocalBackendOptions& Options, std::string& OutError);
	// Closes the listener and every connection, and joins all threads. Safe to call twice.
	void Stop();

	bool IsRunning() const { return bRunning; }
	uint16_t GetPort() const { return Port; }
	std::vector<FRecordedRequest> GetRequests() const;
	size_t GetRequestCount() const;
	// Blocks the calling (test) thread until Count requests were answered or the time is up.
	bool WaitForRequestCount(size_t Count, std::chrono::milliseconds Timeout) const;
	void ClearRequests();
	// Replaces the scenario and forgets the requests handed out so far.
	void SetScenario(const FScenario& Scenario);
	size_t GetRemainingTurnCount() const;

private:
	struct FConnection;
	struct FHttpAnswer;
	struct FRequestState
	{
		FScenarioTurn Turn;
		int PollsAnswered = 0;
	};

	void AcceptLoop();
	void ServeConnection(int Socket);
	FHttpAnswer Route(const FRecordedRequest& Request);
	FHttpAnswer AnswerCommand();
	FHttpAnswer AnswerStatus(const FRecordedRequest& Request);
	void Record(const FRecordedRequest& Request);
	bool SleepUnlessStopping(int Milliseconds);
	void ReapFinishedConnections(bool bJoinAll);

	FLocalBackendOptions Options;
	SSL_CTX* TlsContext = nullptr;
	int ListenSocket = -1;
	uint16_t Port = 0;
	std::atomic<bool> bRunning { false };
	std::atomic<bool> bStopping { false };
	std::thread AcceptThread;

	mutable std::mutex Mutex;
	mutable std::condition_variable Changed;
	std::vector<FScenarioTurn> RemainingTurns;
	size_t NextTurn = 0;
	int NextRequestNumber = 1;
	std::map<std::string, FRequestState> Requests;
	std::vector<FRecordedRequest> Recorded;
	std::vector<std::unique_ptr<FConnection>> Connections;
};
