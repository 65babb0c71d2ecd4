#include "HttpWire.h"

#include "TlsStream.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace
{
	constexpr size_t MaxHeaderBytes = 64 * 1024;
	constexpr size_t MaxBodyBytes = 64 * 1024 * 1024;

	std::string Trim(const std::string& Text)
	{
		const size_t First = Text.find_first_not_of(" \t");
		if (First == std::string::npos)
		{
			return std::string();
		}
		const size_t Last = Text.find_last_not_of(" \t");
		return Text.substr(First, Last - First + 1);
	}

	bool EqualsNoCase(const std::string& A, const std::string& B)
	{
		return A.size() == B.size() && std::equal(A.begin(), A.end(), B.begin(), [](char X, char Y)
		{
			return std::tolower(static_cast<unsigned char>(X)) == std::tolower(static_cast<unsigned char>(Y));
		});
	}

	EWireRead Malformed(FWireRequest& Out, int Code)
	{
		Out.ErrorCode = Code;
		Out.bKeepAlive = false;
		return EWireRead::Malformed;
	}

	const char* ReasonPhrase(int Code)
	{
		switch (Code)
		{
		case 100: return "Continue";
		case 200: return "OK";
		case 201: return "Created";
		case 202: return "Accepted";
		case 204: return "No Content";
		case 400: return "Bad Request";
		case 401: return "Unauthorized";
		case 403: return "Forbidden";
		case 404: return "Not Found";
		case 405: return "Method Not Allowed";
		case 411: return "Length Required";
		case 413: return "Payload Too Large";
		case 429: return "Too Many Requests";
		case 431: return "Request Header Fields Too Large";
		case 500: return "Internal Server Error";
		case 501: return "Not Implemented";
		case 502: return "Bad Gateway";
		case 503: return "Service Unavailable";
		case 504: return "Gateway Timeout";
		default: return "Status";
		}
	}
}

EWireRead ReadWireRequest(FTlsStream& Stream, std::string& Pending, FWireRequest& Out)
{
	size_t HeaderEnd = Pending.find("\r\n\r\n");
	while (HeaderEnd == std::string::npos)
	{
		if (Pending.size() > MaxHeaderBytes)
		{
			return Malformed(Out, 431);
		}
		if (!Stream.ReadSome(Pending))
		{
			return Pending.empty() ? EWireRead::Closed : Malformed(Out, 400);
		}
		HeaderEnd = Pending.find("\r\n\r\n");
	}
	const std::string Head = Pending.substr(0, HeaderEnd);
	Pending.erase(0, HeaderEnd + 4);

	FRecordedRequest& Request = Out.Request;
	size_t LineEnd = Head.find("\r\n");
	const std::string RequestLine = Head.substr(0, LineEnd);
	const size_t FirstSpace = RequestLine.find(' ');
	const size_t SecondSpace = RequestLine.find(' ', FirstSpace + 1);
	if (FirstSpace == std::string::npos || SecondSpace == std::string::npos)
	{
		return Malformed(Out, 400);
	}
	Request.Method = RequestLine.substr(0, FirstSpace);
	Request.Target = RequestLine.substr(FirstSpace + 1, SecondSpace - FirstSpace - 1);
	const std::string Version = RequestLine.substr(SecondSpace + 1);
	const size_t QueryStart = Request.Target.find('?');
	Request.Path = Request.Target.substr(0, QueryStart);
	Request.Query = QueryStart == std::string::npos ? std::string() : Request.Target.substr(QueryStart + 1);
	Out.bKeepAlive = Version == "HTTP/1.1";

	while (LineEnd != std::string::npos)
	{
		const size_t Start = LineEnd + 2;
		LineEnd = Head.find("\r\n", Start);
		const std::string Line = Head.substr(Start, LineEnd == std::string::npos ? std::string::npos : LineEnd - Start);
		const size_t Colon = Line.find(':');
		if (Colon == std::string::npos || Colon == 0 || Line[0] == ' ' || Line[0] == '\t')
		{
			return Malformed(Out, 400);
		}
		Request.Headers.emplace_back(Line.substr(0, Colon), Trim(Line.substr(Colon + 1)));
	}

	const std::string Connection = Request.GetHeader("Connection");
	if (EqualsNoCase(Connection, "close"))
	{
		Out.bKeepAlive = false;
	}
	else if (EqualsNoCase(Connection, "keep-alive"))
	{
		Out.bKeepAlive = true;
	}
	if (Request.HasHeader("Transfer-Encoding"))
	{
		// Clients of this backend always know their body's length.
		return Malformed(Out, 411);
	}

	size_t BodyLength = 0;
	if (Request.HasHeader("Content-Length"))
	{
		const std::string Text = Request.GetHeader("Content-Length");
		char* End = nullptr;
		const unsigned long long Value = std::strtoull(Text.c_str(), &End, 10);
		// strtoull would take a sign or blanks too; only plain digits are a length.
		if (Text.empty() || !std::isdigit(static_cast<unsigned char>(Text[0])) || *End != '\0')
		{
			return Malformed(Out, 400);
		}
		if (Value > MaxBodyBytes)
		{
			return Malformed(Out, 413);
		}
		BodyLength = static_cast<size_t>(Value);
	}
	if (BodyLength > Pending.size() && EqualsNoCase(Request.GetHeader("Expect"), "100-continue"))
	{
		Stream.WriteAll("HTTP/1.1 100 Continue\r\n\r\n");
	}
	while (Pending.size() < BodyLength)
	{
		if (!Stream.ReadSome(Pending))
		{
			return Malformed(Out, 400);
		}
	}
	Request.Body = Pending.substr(0, BodyLength);
	Pending.erase(0, BodyLength);
	return EWireRead::Request;
}

std::string FormatWireResponse(int Code, const std::string& Body, bool bKeepAlive)
{
	std::string Response = "HTTP/1.1 " + std::to_string(Code) + " " + ReasonPhrase(Code) + "\r\n";
	Response += "Content-Type: application/json\r\n";
	Response += "Content-Length: " + std::to_string(Body.size()) + "\r\n";
	Response += bKeepAlive ? "Connection: keep-alive\r\n" : "Connection: close\r\n";
	Response += "\r\n";
	Response += Body;
	return Response;
}
