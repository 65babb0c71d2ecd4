#include "RawTlsClient.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <unistd.h>

FRawTlsClient::FRawTlsClient(uint16_t Port, bool bHandshake)
{
	Socket = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
	sockaddr_in Address {};
	Address.sin_family = AF_INET;
	Address.sin_port = htons(Port);
	inet_pton(AF_INET, "127.0.0.1", &Address.sin_addr);
	if (Socket < 0 || connect(Socket, reinterpret_cast<sockaddr*>(&Address), sizeof(Address)) != 0)
	{
		return;
	}
	if (!bHandshake)
	{
		bConnected = true;
		return;
	}
	Context = SSL_CTX_new(TLS_client_method());
	Ssl = SSL_new(Context);
	SSL_set_fd(Ssl, Socket);
	bConnected = SSL_connect(Ssl) == 1;
}

FRawTlsClient::~FRawTlsClient()
{
	if (Ssl != nullptr)
	{
		SSL_free(Ssl);
	}
	if (Context != nullptr)
	{
		SSL_CTX_free(Context);
	}
	if (Socket >= 0)
	{
		close(Socket);
	}
}

bool FRawTlsClient::Send(const std::string& Data)
{
	return Ssl != nullptr && SSL_write(Ssl, Data.data(), static_cast<int>(Data.size())) == static_cast<int>(Data.size());
}

bool FRawTlsClient::ReadMore(int TimeoutMs)
{
	if (Ssl == nullptr)
	{
		return false;
	}
	timeval Limit { TimeoutMs / 1000, (TimeoutMs % 1000) * 1000 };
	setsockopt(Socket, SOL_SOCKET, SO_RCVTIMEO, &Limit, sizeof(Limit));
	char Chunk[16384];
	const int Count = SSL_read(Ssl, Chunk, sizeof(Chunk));
	if (Count <= 0)
	{
		return false;
	}
	Buffer.append(Chunk, static_cast<size_t>(Count));
	return true;
}

FRawAnswer FRawTlsClient::Receive(int TimeoutMs)
{
	FRawAnswer Answer;
	size_t HeadEnd = Buffer.find("\r\n\r\n");
	while (HeadEnd == std::string::npos)
	{
		if (!ReadMore(TimeoutMs))
		{
			return Answer;
		}
		HeadEnd = Buffer.find("\r\n\r\n");
	}
	Answer.Head = Buffer.substr(0, HeadEnd);
	Buffer.erase(0, HeadEnd + 4);
	const size_t LengthAt = Answer.Head.find("Content-Length: ");
	const size_t Length = LengthAt == std::string::npos ? 0 : std::strtoul(Answer.Head.c_str() + LengthAt + 16, nullptr, 10);
	while (Buffer.size() < Length)
	{
		if (!ReadMore(TimeoutMs))
		{
			return Answer;
		}
	}
	Answer.Code = std::atoi(Answer.Head.c_str() + std::strlen("HTTP/1.1 "));
	Answer.Body = Buffer.substr(0, Length);
	Buffer.erase(0, Length);
	return Answer;
}

bool FRawTlsClient::WasClosedByServer(int TimeoutMs)
{
	if (Ssl == nullptr)
	{
		return false;
	}
	timeval Limit { TimeoutMs / 1000, (TimeoutMs % 1000) * 1000 };
	setsockopt(Socket, SOL_SOCKET, SO_RCVTIMEO, &Limit, sizeof(Limit));
	char Byte = 0;
	const int Count = SSL_read(Ssl, &Byte, 1);
	const int Error = SSL_get_error(Ssl, Count);
	// A timeout shows as a read error with EAGAIN; anything else ends the stream.
	return Count <= 0 && !(Error == SSL_ERROR_SYSCALL && (errno == EAGAIN || errno == EWOULDBLOCK));
}

std::string MakeRawRequest(const std::string& Method, const std::string& Target, const std::string& ExtraHeaders, const std::string& Body)
{
	std::string Request = Method + " " + Target + " HTTP/1.1\r\nHost: localhost\r\n" + ExtraHeaders;
	if (!Body.empty())
	{
		Request += "Content-Length: " + std::to_string(Body.size()) + "\r\n";
	}
	return Request + "\r\n" + Body;
}
