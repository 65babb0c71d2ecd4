// Readers of JSON text. The text is parsed as a whole by FJsonSerializer::Deserialize.
#pragma once

#include "CoreMinimal.h"
#include "JsonGlobals.h"

class FJsonSerializer;

template<class CharType = TCHAR>
class TJsonReader
{
public:
	virtual ~TJsonReader() = default;

	// Why the last parse failed, with the line and column of the fault; empty after a success.
	const FString& GetErrorMessage() const
	{
		return ErrorMessage;
	}

protected:
	explicit TJsonReader(FString&& InText)
		: Text(MoveTemp(InText))
	{
	}

private:
	friend class FJsonSerializer;

	FString Text;
	FString ErrorMessage;
};

template<class CharType = TCHAR>
class TJsonStringReader : public TJsonReader<CharType>
{
public:
	static TSharedRef<TJsonStringReader> Create(const FString& JsonString)
	{
		return MakeShareable(new TJsonStringReader(FString(JsonString)));
	}
	static TSharedRef<TJsonStringReader> Create(FString&& JsonString)
	{
		return MakeShareable(new TJsonStringReader(MoveTemp(JsonString)));
	}

protected:
	explicit TJsonStringReader(FString&& InText)
		: TJsonReader<CharType>(MoveTemp(InText))
	{
	}
};

template<class CharType = TCHAR>
class TJsonReaderFactory
{
public:
	static TSharedRef<TJsonReader<CharType>> Create(const FString& JsonString)
	{
		return TJsonStringReader<CharType>::Create(JsonString);
	}
	static TSharedRef<TJsonReader<CharType>> Create(FString&& JsonString)
	{
		return TJsonStringReader<CharType>::Create(MoveTemp(JsonString));
	}
};
