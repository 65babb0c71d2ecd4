#include "TlsStream.h"

#include <cerrno>
#include <chrono>

#include <openssl/err.h>
#include <openssl/ssl.h>
#include <poll.h>

namespace
{
	constexpr int StopCheckIntervalMs = 50;
	constexpr int NoTimeout = -1;
}

FTlsStream::FTlsStream(SSL_CTX* Context, int InSocket, const std::atomic<bool>& bInStopping)
	: Socket(InSocket)
	, bStopping(bInStopping)
{
	Ssl = SSL_new(Context);
	if (Ssl != nullptr)
	{
		SSL_set_fd(Ssl, Socket);
	}
}

FTlsStream::~FTlsStream()
{
	if (Ssl != nullptr)
	{
		// A quiet shutdown: the close_notify is a courtesy, never worth a wait.
		SSL_set_quiet_shutdown(Ssl, 1);
		SSL_shutdown(Ssl);
		SSL_free(Ssl);
	}
}

bool FTlsStream::WaitReady(bool bForWrite, int TimeoutMs)
{
	const auto Deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(TimeoutMs);
	while (!bStopping)
	{
		pollfd Entry { Socket, static_cast<short>(bForWrite ? POLLOUT : POLLIN), 0 };
		const int Ready = poll(&Entry, 1, StopCheckIntervalMs);
		if (Ready > 0)
		{
			return true;
		}
		if (Ready < 0 && errno != EINTR)
		{
			return false;
		}
		if (TimeoutMs != NoTimeout && std::chrono::steady_clock::now() >= Deadline)
		{
			return false;
		}
	}
	return false;
}

FTlsStream::EStep FTlsStream::Settle(int Result, int TimeoutMs)
{
	if (Result > 0)
	{
		return EStep::Done;
	}
	switch (SSL_get_error(Ssl, Result))
	{
	case SSL_ERROR_WANT_READ:
		return WaitReady(false, TimeoutMs) ? EStep::Retry : EStep::Failed;
	case SSL_ERROR_WANT_WRITE:
		return WaitReady(true, TimeoutMs) ? EStep::Retry : EStep::Failed;
	default:
		// Clear the thread's error queue so the next connection starts clean.
		ERR_clear_error();
		return EStep::Failed;
	}
}

bool FTlsStream::Handshake(int TimeoutMs)
{
	if (Ssl == nullptr)
	{
		return false;
	}
	for (;;)
	{
		const EStep Step = Settle(SSL_accept(Ssl), TimeoutMs);
		if (Step != EStep::Retry)
		{
			return Step == EStep::Done;
		}
	}
}

bool FTlsStream::ReadSome(std::string& Buffer)
{
	char Chunk[16384];
	for (;;)
	{
		const int Count = SSL_read(Ssl, Chunk, sizeof(Chunk));
		const EStep Step = Settle(Count, NoTimeout);
		if (Step == EStep::Done)
		{
			Buffer.append(Chunk, static_cast<size_t>(Count));
			return true;
		}
		if (Step == EStep::Failed)
		{
			return false;
		}
	}
}

bool FTlsStream::WriteAll(const std::string& Data)
{
	size_t Offset = 0;
	while (Offset < Data.size())
	{
		const int Count = SSL_write(Ssl, Data.data() + Offset, static_cast<int>(Data.size() - Offset));
		const EStep Step = Settle(Count, 10000);
		if (Step == EStep::Done)
		{
			Offset += static_cast<size_t>(Count);
		}
		else if (Step == EStep::Failed)
		{
			return false;
		}
	}
	return true;
}
