// Writers of JSON text, token by token, laid out by a print policy.
#pragma once

#include "CoreMinimal.h"
#include "JsonGlobals.h"
#include "Serialization/JsonTypes.h"
#include "Policies/PrettyJsonPrintPolicy.h"

namespace UE::Json::Private
{
	// The white-space hooks of a print policy, so that the token logic is compiled once for all policies.
	struct FJsonLayoutHooks
	{
		void (*WriteLineTerminator)(FString* Stream);
		void (*WriteTabs)(FString* Stream, int32 Count);
		void (*WriteSpace)(FString* Stream);
	};

	// Token logic shared by every TJsonWriter. Text goes straight into the target string.
	// A call out of order (a value without a name inside an object, an end without a start)
	// is logged and makes Close fail; nothing is thrown and nothing aborts.
	class JSON_API FJsonTextWriter
	{
	public:
		virtual ~FJsonTextWriter() = default;

		int32 GetIndentLevel() const
		{
			return IndentLevel;
		}
		bool CanWriteValueWithoutIdentifier() const;

		void WriteObjectStart();
		void WriteObjectStart(const FString& Identifier);
		void WriteObjectEnd();
		void WriteArrayStart();
		void WriteArrayStart(const FString& Identifier);
		void WriteArrayEnd();

		void WriteValue(bool Value);
		void WriteValue(int32 Value);
		void WriteValue(uint32 Value);
		void WriteValue(int64 Value);
		void WriteValue(uint64 Value);
		void WriteValue(float Value);
		void WriteValue(double Value);
		void WriteValue(const FString& Value);
		void WriteValue(const TCHAR* Value);

		void WriteValue(const FString& Identifier, bool Value);
		void WriteValue(const FString& Identifier, int32 Value);
		void WriteValue(const FString& Identifier, uint32 Value);
		void WriteValue(const FString& Identifier, int64 Value);
		void WriteValue(const FString& Identifier, uint64 Value);
		void WriteValue(const FString& Identifier, float Value);
		void WriteValue(const FString& Identifier, double Value);
		void WriteValue(const FString& Identifier, const FString& Value);
		void WriteValue(const FString& Identifier, const TCHAR* Value);

		template<class ElementType>
		void WriteValue(const TArray<ElementType>& Array)
		{
			WriteArrayStart();
			for (const ElementType& Element : Array)
			{
				WriteValue(Element);
			}
			WriteArrayEnd();
		}
		template<class ElementType>
		void WriteValue(const FString& Identifier, const TArray<ElementType>& Array)
		{
			WriteArrayStart(Identifier);
			for (const ElementType& Element : Array)
			{
				WriteValue(Element);
			}
			WriteArrayEnd();
		}

		void WriteNull();
		void WriteNull(const FString& Identifier);

		// Writes text that is already JSON (a number kept as text, say) as one value, unchanged.
		void WriteRawJSONValue(const FString& Value);
		void WriteRawJSONValue(const FString& Identifier, const FString& Value);

		// Writes a member's name and colon; the next value written without a name is its value.
		void WriteIdentifierPrefix(const FString& Identifier);

		// True when everything opened was closed and no call came out of order.
		virtual bool Close();

	protected:
		FJsonTextWriter(FString* InStream, int32 InitialIndentLevel, const FJsonLayoutHooks& InHooks);

	private:
		enum class EValueKind
		{
			Short,
			String,
			Container
		};

		bool BeginValue(EValueKind Kind);
		bool BeginIdentifier(const FString& Identifier);
		void WriteCommaIfNeeded();
		void WriteNewLine();
		void WriteQuotedString(const FString& Value);
		void ReportMisuse(const TCHAR* What);

		template<typename NumberType>
		void WriteNumberValue(NumberType Value);
		template<typename NumberType>
		void WriteNumberValue(const FString& Identifier, NumberType Value);

		FString* Stream;
		FString DiscardedOutput;
		FJsonLayoutHooks Hooks;
		TArray<EJson> Stack;
		EJsonToken PreviousTokenWritten = EJsonToken::None;
		int32 IndentLevel = 0;
		bool bWellFormed = true;
	};
}

template<class CharType = TCHAR, class PrintPolicy = TPrettyJsonPrintPolicy<CharType>>
class TJsonWriter : public UE::Json::Private::FJsonTextWriter
{
protected:
	TJsonWriter(FString* InStream, int32 InitialIndentLevel)
		: FJsonTextWriter(InStream, InitialIndentLevel, { &PrintPolicy::WriteLineTerminator, &PrintPolicy::WriteTabs, &PrintPolicy::WriteSpace })
	{
	}
};

// Writes into a string owned by the caller, appending to what it holds.
template<class PrintPolicy = TPrettyJsonPrintPolicy<TCHAR>>
class TJsonStringWriter : public TJsonWriter<TCHAR, PrintPolicy>
{
public:
	static TSharedRef<TJsonStringWriter> Create(FString* const InStream, int32 InitialIndent = 0)
	{
		return MakeShareable(new TJsonStringWriter(InStream, InitialIndent));
	}

protected:
	TJsonStringWriter(FString* const InOutString, int32 InitialIndent)
		: TJsonWriter<TCHAR, PrintPolicy>(InOutString, InitialIndent)
	{
	}
};

template<class CharType = TCHAR, class PrintPolicy = TPrettyJsonPrintPolicy<CharType>>
class TJsonWriterFactory
{
public:
	static TSharedRef<TJsonWriter<TCHAR, PrintPolicy>> Create(FString* const Stream, int32 InitialIndent = 0)
	{
		return TJsonStringWriter<PrintPolicy>::Create(Stream, InitialIndent);
	}
};
