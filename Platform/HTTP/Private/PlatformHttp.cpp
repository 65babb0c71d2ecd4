#include "PlatformHttp.h"

#include "HttpStringConv.h"

#include <cctype>

FString FPlatformHttp::UrlEncode(const FStringView Source)
{
	static const char Hex[] = "0123456789ABCDEF";
	const std::string Bytes = HttpStringConv::ToUtf8(FString(Source));
	std::string Encoded;
	for (const char Character : Bytes)
	{
		const unsigned char Byte = static_cast<unsigned char>(Character);
		if (std::isalnum(Byte) || Byte == '-' || Byte == '_' || Byte == '.' || Byte == '~')
		{
			Encoded += Character;
		}
		else
		{
			Encoded += '%';
			Encoded += Hex[Byte >> 4];
			Encoded += Hex[Byte & 0x0F];
		}
	}
	return HttpStringConv::FromUtf8(Encoded.data(), Encoded.size());
}

FString FPlatformHttp::UrlDecode(const FStringView EncodedString)
{
	const std::string Bytes = HttpStringConv::ToUtf8(FString(EncodedString));
	std::string Decoded;
	for (size_t Index = 0; Index < Bytes.size(); ++Index)
	{
		if (Bytes[Index] == '%' && Index + 2 < Bytes.size() && std::isxdigit(static_cast<unsigned char>(Bytes[Index + 1]))
			&& std::isxdigit(static_cast<unsigned char>(Bytes[Index + 2])))
		{
			Decoded += static_cast<char>(std::stoi(Bytes.substr(Index + 1, 2), nullptr, 16));
			Index += 2;
		}
		else
		{
			Decoded += Bytes[Index] == '+' ? ' ' : Bytes[Index];
		}
	}
	return HttpStringConv::FromUtf8(Decoded.data(), Decoded.size());
}
