#pragma once

#include <atomic>
#include <string>

typedef struct ssl_st SSL;
typedef struct ssl_ctx_st SSL_CTX;

// Server side of one TLS connection on a non-blocking socket. Every wait is cut short when
// the server stops, so a stalled or silent client can never keep Stop() waiting.
class FTlsStream
{
public:
	FTlsStream(SSL_CTX* Context, int Socket, const std::atomic<bool>& bStopping);
	~FTlsStream();
	FTlsStream(const FTlsStream&) = delete;
	FTlsStream& operator=(const FTlsStream&) = delete;

	bool Handshake(int TimeoutMs);
	// Appends what arrives to Buffer. False when the peer closed, on error, or when stopping.
	bool ReadSome(std::string& Buffer);
	bool WriteAll(const std::string& Data);

private:
	enum class EStep { Done, Retry, Failed };
	EStep Settle(int Result, int TimeoutMs);
	bool WaitReady(bool bForWrite, int TimeoutMs);

	SSL* Ssl = nullptr;
	int Socket = -1;
	const std::atomic<bool>& bStopping;
};
