#pragma once

#include "LocalBackend.h"

#include <string>

class FTlsStream;

enum class EWireRead
{
	Request,
	Closed,
	Malformed
};

struct FWireRequest
{
	FRecordedRequest Request;
	bool bKeepAlive = true;
	// HTTP code to answer with when the request couldn't be read (Malformed).
	int ErrorCode = 0;
};

// Reads one HTTP/1.1 request; Pending holds bytes that arrived past it (pipelining).
EWireRead ReadWireRequest(FTlsStream& Stream, std::string& Pending, FWireRequest& Out);

std::string FormatWireResponse(int Code, const std::string& Body, bool bKeepAlive);
