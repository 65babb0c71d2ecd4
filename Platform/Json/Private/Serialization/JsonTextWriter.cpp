#include "Serialization/JsonWriter.h"

#include "JsonNumberFormat.h"

namespace UE::Json::Private
{
	FJsonTextWriter::FJsonTextWriter(FString* InStream, int32 InitialIndentLevel, const FJsonLayoutHooks& InHooks)
		: Stream(InStream != nullptr ? InStream : &DiscardedOutput)
		, Hooks(InHooks)
		, IndentLevel(InitialIndentLevel)
		, bWellFormed(InStream != nullptr)
	{
		if (InStream == nullptr)
		{
			UE_LOG(LogJson, Error, TEXT("Json writer created without an output string; nothing it writes is kept."));
		}
	}

	bool FJsonTextWriter::CanWriteValueWithoutIdentifier() const
	{
		if (Stack.Num() == 0)
		{
			return PreviousTokenWritten == EJsonToken::None;
		}
		return Stack.Top() == EJson::Array || PreviousTokenWritten == EJsonToken::Identifier;
	}

	void FJsonTextWriter::ReportMisuse(const TCHAR* What)
	{
		if (bWellFormed)
		{
			UE_LOG(LogJson, Error, TEXT("Json writer: %s"), What);
		}
		bWellFormed = false;
	}

	void FJsonTextWriter::WriteCommaIfNeeded()
	{
		if (PreviousTokenWritten != EJsonToken::None && PreviousTokenWritten != EJsonToken::CurlyOpen && PreviousTokenWritten != EJsonToken::SquareOpen && PreviousTokenWritten != EJsonToken::Identifier)
		{
			Stream->AppendChar(TEXT(','));
		}
	}

	void FJsonTextWriter::WriteNewLine()
	{
		Hooks.WriteLineTerminator(Stream);
		Hooks.WriteTabs(Stream, IndentLevel);
	}

	// Places a value written without a name: after a name prefix it follows directly; in an array,
	// short values share the line of the value before them, while strings and containers take a new one.
	bool FJsonTextWriter::BeginValue(EValueKind Kind)
	{
		if (!CanWriteValueWithoutIdentifier())
		{
			ReportMisuse(Stack.Num() == 0 ? TEXT("a second value at the top level.") : TEXT("a value without a name inside an object."));
			return false;
		}
		if (PreviousTokenWritten == EJsonToken::None || PreviousTokenWritten == EJsonToken::Identifier)
		{
			return true;
		}
		WriteCommaIfNeeded();
		if (Kind == EValueKind::Short && (PreviousTokenWritten == EJsonToken::SquareOpen || EJsonToken_IsShortValue(PreviousTokenWritten)))
		{
			Hooks.WriteSpace(Stream);
		}
		else
		{
			WriteNewLine();
		}
		return true;
	}

	// Writes `"Identifier":` on a new line; the caller adds what follows the colon.
	bool FJsonTextWriter::BeginIdentifier(const FString& Identifier)
	{
		if (Stack.Num() == 0 || Stack.Top() != EJson::Object || PreviousTokenWritten == EJsonToken::Identifier)
		{
			ReportMisuse(TEXT("a named value outside an object."));
			return false;
		}
		WriteCommaIfNeeded();
		WriteNewLine();
		WriteQuotedString(Identifier);
		Stream->AppendChar(TEXT(':'));
		return true;
	}

	void FJsonTextWriter::WriteQuotedString(const FString& Value)
	{
		static const TCHAR HexDigits[] = TEXT("0123456789abcdef");
		const TCHAR* Text = *Value;
		const int32 Length = Value.Len();
		Stream->AppendChar(TEXT('"'));
		// Characters that need no escape are copied in runs, which keeps long texts fast.
		int32 RunStart = 0;
		for (int32 Index = 0; Index < Length; ++Index)
		{
			const TCHAR Char = Text[Index];
			if (Char >= 0x20 && Char != TEXT('"') && Char != TEXT('\\'))
			{
				continue;
			}
			if (Index > RunStart)
			{
				Stream->Append(Text + RunStart, Index - RunStart);
			}
			RunStart = Index + 1;
			Stream->AppendChar(TEXT('\\'));
			switch (Char)
			{
			case TEXT('"'):
				Stream->AppendChar(TEXT('"'));
				break;
			case TEXT('\\'):
				Stream->AppendChar(TEXT('\\'));
				break;
			case TEXT('\b'):
				Stream->AppendChar(TEXT('b'));
				break;
			case TEXT('\f'):
				Stream->AppendChar(TEXT('f'));
				break;
			case TEXT('\n'):
				Stream->AppendChar(TEXT('n'));
				break;
			case TEXT('\r'):
				Stream->AppendChar(TEXT('r'));
				break;
			case TEXT('\t'):
				Stream->AppendChar(TEXT('t'));
				break;
			default:
				Stream->Append(TEXT("u00"));
				Stream->AppendChar(HexDigits[(Char >> 4) & 0xF]);
				Stream->AppendChar(HexDigits[Char & 0xF]);
				break;
			}
		}
		if (Length > RunStart)
		{
			Stream->Append(Text + RunStart, Length - RunStart);
		}
		Stream->AppendChar(TEXT('"'));
	}

	void FJsonTextWriter::WriteObjectStart()
	{
		if (!BeginValue(EValueKind::Container))
		{
			return;
		}
		Stream->AppendChar(TEXT('{'));
		++IndentLevel;
		Stack.Push(EJson::Object);
		PreviousTokenWritten = EJsonToken::CurlyOpen;
	}

	void FJsonTextWriter::WriteObjectStart(const FString& Identifier)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		// A named object opens its brace on a line of its own.
		WriteNewLine();
		Stream->AppendChar(TEXT('{'));
		++IndentLevel;
		Stack.Push(EJson::Object);
		PreviousTokenWritten = EJsonToken::CurlyOpen;
	}

	void FJsonTextWriter::WriteObjectEnd()
	{
		if (Stack.Num() == 0 || Stack.Top() != EJson::Object || PreviousTokenWritten == EJsonToken::Identifier)
		{
			ReportMisuse(TEXT("an object end without an open object."));
			return;
		}
		--IndentLevel;
		WriteNewLine();
		Stream->AppendChar(TEXT('}'));
		Stack.Pop();
		PreviousTokenWritten = EJsonToken::CurlyClose;
	}

	void FJsonTextWriter::WriteArrayStart()
	{
		if (!BeginValue(EValueKind::Container))
		{
			return;
		}
		Stream->AppendChar(TEXT('['));
		++IndentLevel;
		Stack.Push(EJson::Array);
		PreviousTokenWritten = EJsonToken::SquareOpen;
	}

	void FJsonTextWriter::WriteArrayStart(const FString& Identifier)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		Hooks.WriteSpace(Stream);
		Stream->AppendChar(TEXT('['));
		++IndentLevel;
		Stack.Push(EJson::Array);
		PreviousTokenWritten = EJsonToken::SquareOpen;
	}

	void FJsonTextWriter::WriteArrayEnd()
	{
		if (Stack.Num() == 0 || Stack.Top() != EJson::Array)
		{
			ReportMisuse(TEXT("an array end without an open array."));
			return;
		}
		--IndentLevel;
		if (PreviousTokenWritten == EJsonToken::SquareClose || PreviousTokenWritten == EJsonToken::CurlyClose || PreviousTokenWritten == EJsonToken::String)
		{
			WriteNewLine();
		}
		else if (PreviousTokenWritten != EJsonToken::SquareOpen)
		{
			Hooks.WriteSpace(Stream);
		}
		Stream->AppendChar(TEXT(']'));
		Stack.Pop();
		PreviousTokenWritten = EJsonToken::SquareClose;
	}

	template<typename NumberType>
	void FJsonTextWriter::WriteNumberValue(NumberType Value)
	{
		if (!BeginValue(EValueKind::Short))
		{
			return;
		}
		AppendJsonNumber(*Stream, Value);
		PreviousTokenWritten = EJsonToken::Number;
	}

	template<typename NumberType>
	void FJsonTextWriter::WriteNumberValue(const FString& Identifier, NumberType Value)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		Hooks.WriteSpace(Stream);
		AppendJsonNumber(*Stream, Value);
		PreviousTokenWritten = EJsonToken::Number;
	}

	void FJsonTextWriter::WriteValue(bool Value)
	{
		if (!BeginValue(EValueKind::Short))
		{
			return;
		}
		Stream->Append(Value ? TEXT("true") : TEXT("false"));
		PreviousTokenWritten = Value ? EJsonToken::True : EJsonToken::False;
	}

	void FJsonTextWriter::WriteValue(int32 Value)
	{
		WriteNumberValue(static_cast<int64>(Value));
	}

	void FJsonTextWriter::WriteValue(uint32 Value)
	{
		WriteNumberValue(static_cast<int64>(Value));
	}

	void FJsonTextWriter::WriteValue(int64 Value)
	{
		WriteNumberValue(Value);
	}

	void FJsonTextWriter::WriteValue(uint64 Value)
	{
		WriteNumberValue(Value);
	}

	void FJsonTextWriter::WriteValue(float Value)
	{
		WriteNumberValue(Value);
	}

	void FJsonTextWriter::WriteValue(double Value)
	{
		WriteNumberValue(Value);
	}

	void FJsonTextWriter::WriteValue(const FString& Value)
	{
		if (!BeginValue(EValueKind::String))
		{
			return;
		}
		WriteQuotedString(Value);
		PreviousTokenWritten = EJsonToken::String;
	}

	void FJsonTextWriter::WriteValue(const TCHAR* Value)
	{
		WriteValue(FString(Value != nullptr ? Value : TEXT("")));
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, bool Value)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		Hooks.WriteSpace(Stream);
		Stream->Append(Value ? TEXT("true") : TEXT("false"));
		PreviousTokenWritten = Value ? EJsonToken::True : EJsonToken::False;
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, int32 Value)
	{
		WriteNumberValue(Identifier, static_cast<int64>(Value));
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, uint32 Value)
	{
		WriteNumberValue(Identifier, static_cast<int64>(Value));
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, int64 Value)
	{
		WriteNumberValue(Identifier, Value);
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, uint64 Value)
	{
		WriteNumberValue(Identifier, Value);
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, float Value)
	{
		WriteNumberValue(Identifier, Value);
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, double Value)
	{
		WriteNumberValue(Identifier, Value);
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, const FString& Value)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		Hooks.WriteSpace(Stream);
		WriteQuotedString(Value);
		PreviousTokenWritten = EJsonToken::String;
	}

	void FJsonTextWriter::WriteValue(const FString& Identifier, const TCHAR* Value)
	{
		WriteValue(Identifier, FString(Value != nullptr ? Value : TEXT("")));
	}

	void FJsonTextWriter::WriteNull()
	{
		if (!BeginValue(EValueKind::Short))
		{
			return;
		}
		Stream->Append(TEXT("null"));
		PreviousTokenWritten = EJsonToken::Null;
	}

	void FJsonTextWriter::WriteNull(const FString& Identifier)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		Hooks.WriteSpace(Stream);
		Stream->Append(TEXT("null"));
		PreviousTokenWritten = EJsonToken::Null;
	}

	void FJsonTextWriter::WriteRawJSONValue(const FString& Value)
	{
		if (!BeginValue(EValueKind::Short))
		{
			return;
		}
		Stream->Append(Value);
		PreviousTokenWritten = EJsonToken::Number;
	}

	void FJsonTextWriter::WriteRawJSONValue(const FString& Identifier, const FString& Value)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		Hooks.WriteSpace(Stream);
		Stream->Append(Value);
		PreviousTokenWritten = EJsonToken::Number;
	}

	void FJsonTextWriter::WriteIdentifierPrefix(const FString& Identifier)
	{
		if (!BeginIdentifier(Identifier))
		{
			return;
		}
		Hooks.WriteSpace(Stream);
		PreviousTokenWritten = EJsonToken::Identifier;
	}

	bool FJsonTextWriter::Close()
	{
		if (Stack.Num() != 0)
		{
			ReportMisuse(TEXT("closed with an object or array still open."));
		}
		return bWellFormed;
	}
}
