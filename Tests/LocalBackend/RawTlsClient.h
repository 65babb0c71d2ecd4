#pragma once

#include <cstdint>
#include <string>

typedef struct ssl_st SSL;
typedef struct ssl_ctx_st SSL_CTX;

struct FRawAnswer
{
	// 0 when the server closed (or went silent) without a whole answer.
	int Code = 0;
	std::string Head;
	std::string Body;
};

// A bare TLS client on a blocking socket, so a test decides exactly which bytes go out in
// which TLS record and can send what no HTTP library would.
class FRawTlsClient
{
public:
	// Connects to 127.0.0.1:Port; bHandshake false leaves a plain TCP connection that never speaks.
	explicit FRawTlsClient(uint16_t Port, bool bHandshake = true);
	~FRawTlsClient();
	FRawTlsClient(const FRawTlsClient&) = delete;
	FRawTlsClient& operator=(const FRawTlsClient&) = delete;

	bool IsConnected() const { return bConnected; }
	// One call is one TLS record (up to 16 KB).
	bool Send(const std::string& Data);
	FRawAnswer Receive(int TimeoutMs = 5000);
	// True when a read gives end of stream (or a reset) rather than a timeout.
	bool WasClosedByServer(int TimeoutMs = 2000);

private:
	bool ReadMore(int TimeoutMs);

	SSL_CTX* Context = nullptr;
	SSL* Ssl = nullptr;
	int Socket = -1;
	bool bConnected = false;
	std::string Buffer;
};

// "METHOD TARGET HTTP/1.1" with a Content-Length when there is a body.
std::string MakeRawRequest(const std::string& Method, const std::string& Target, const std::string& ExtraHeaders = "",
	const std::string& Body = "");
