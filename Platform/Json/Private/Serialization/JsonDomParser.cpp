#include "Serialization/JsonSerializer.h"

#include "JsonNumberFormat.h"

// RapidJSON's asserts abort on input it reports as an error anyway (a lone low surrogate escape);
// faults are taken from its error codes and from the checks below instead.
#define RAPIDJSON_ASSERT(x) ((void)0)
#include <rapidjson/reader.h>

#include <vector>

namespace UE::Json::Private
{
	namespace
	{
		using FUtf16 = rapidjson::UTF16<TCHAR>;

		// The text's characters with a bounded end, so that a NUL inside the text isn't taken for its end.
		class FTextStream
		{
		public:
			typedef TCHAR Ch;

			FTextStream(const TCHAR* InBegin, int32 InLength)
				: Begin(InBegin)
				, Current(InBegin)
				, End(InBegin + InLength)
			{
			}

			Ch Peek() const
			{
				return Current < End ? *Current : Ch(0);
			}
			Ch Take()
			{
				return Current < End ? *Current++ : Ch(0);
			}
			size_t Tell() const
			{
				return static_cast<size_t>(Current - Begin);
			}

			// Write side of the stream concept; never used for reading.
			Ch* PutBegin()
			{
				return nullptr;
			}
			void Put(Ch)
			{
			}
			void Flush()
			{
			}
			size_t PutEnd(Ch*)
			{
				return 0;
			}

		private:
			const TCHAR* Begin;
			const TCHAR* Current;
			const TCHAR* End;
		};

		struct FOpenContainer
		{
			TSharedPtr<FJsonObject> Object;
			TArray<TSharedPtr<FJsonValue>> Array;
			FString PendingKey;
		};

		// Builds the value tree from RapidJSON's events. Returning false stops the parse; Error says why.
		class FTreeBuilder : public rapidjson::BaseReaderHandler<FUtf16, FTreeBuilder>
		{
		public:
			FTreeBuilder(const TCHAR* InText, const FTextStream& InStream, bool bInStoreNumbersAsStrings)
				: Source(InText)
				, Stream(InStream)
				, bStoreNumbersAsStrings(bInStoreNumbersAsStrings)
			{
			}

			bool Null()
			{
				return Add(MakeShared<FJsonValueNull>());
			}
			bool Bool(bool bValue)
			{
				return Add(MakeShared<FJsonValueBoolean>(bValue));
			}
			// Numbers are read again from their text: RapidJSON's own conversion is not correctly rounded,
			// and its number-as-text mode garbles text in UTF-16.
			bool Int(int)
			{
				return Number();
			}
			bool Uint(unsigned)
			{
				return Number();
			}
			bool Int64(int64_t)
			{
				return Number();
			}
			bool Uint64(uint64_t)
			{
				return Number();
			}
			bool Double(double)
			{
				return Number();
			}
			bool String(const TCHAR* Text, rapidjson::SizeType Length, bool)
			{
				if (!HasOnlyPairedSurrogates(Text, Length))
				{
					return false;
				}
				return Add(MakeShared<FJsonValueString>(FString(static_cast<int32>(Length), Text)));
			}
			bool Key(const TCHAR* Text, rapidjson::SizeType Length, bool)
			{
				if (!HasOnlyPairedSurrogates(Text, Length))
				{
					return false;
				}
				Open.back().PendingKey = FString(static_cast<int32>(Length), Text);
				return true;
			}
			bool StartObject()
			{
				if (!CanOpen())
				{
					return false;
				}
				Open.emplace_back();
				Open.back().Object = MakeShared<FJsonObject>();
				return true;
			}
			bool EndObject(rapidjson::SizeType)
			{
				TSharedPtr<FJsonObject> Object = MoveTemp(Open.back().Object);
				Open.pop_back();
				return Add(MakeShared<FJsonValueObject>(MoveTemp(Object)));
			}
			bool StartArray()
			{
				if (!CanOpen())
				{
					return false;
				}
				Open.emplace_back();
				return true;
			}
			bool EndArray(rapidjson::SizeType)
			{
				TArray<TSharedPtr<FJsonValue>> Array = MoveTemp(Open.back().Array);
				Open.pop_back();
				return Add(MakeShared<FJsonValueArray>(MoveTemp(Array)));
			}

			TSharedPtr<FJsonValue> Root;
			FString Error;

		private:
			bool Add(TSharedPtr<FJsonValue> Value)
			{
				if (Open.empty())
				{
					Root = MoveTemp(Value);
					return true;
				}
				FOpenContainer& Container = Open.back();
				if (Container.Object.IsValid())
				{
					// A repeated name replaces the earlier value: the last one wins.
					Container.Object->Values.Add(MoveTemp(Container.PendingKey), MoveTemp(Value));
				}
				else
				{
					Container.Array.Add(MoveTemp(Value));
				}
				return true;
			}

			// Called as the stream has just passed the number's last character.
			bool Number()
			{
				const int32 End = static_cast<int32>(Stream.Tell());
				int32 Start = End;
				while (Start > 0 && IsNumberCharacter(Source[Start - 1]))
				{
					--Start;
				}
				if (bStoreNumbersAsStrings)
				{
					return Add(MakeShared<FJsonValueNumberString>(FString(End - Start, Source + Start)));
				}
				double Value = 0.0;
				if (!ParseNumberText(Source + Start, End - Start, Value))
				{
					Error = TEXT("Number too large for a double.");
					return false;
				}
				return Add(MakeShared<FJsonValueNumber>(Value));
			}

			// What a number is made of; the character before a number is never one of these.
			static bool IsNumberCharacter(TCHAR Char)
			{
				return (Char >= TEXT('0') && Char <= TEXT('9')) || Char == TEXT('-') || Char == TEXT('+') || Char == TEXT('.') || Char == TEXT('e') || Char == TEXT('E');
			}

			bool CanOpen()
			{
				if (static_cast<int32>(Open.size()) >= MaxParseDepth)
				{
					Error = FString::Printf(TEXT("Objects and arrays nested deeper than %d levels."), MaxParseDepth);
					return false;
				}
				return true;
			}

			// RapidJSON checks raw text and high surrogate escapes, but lets a lone "\uDC00" through.
			bool HasOnlyPairedSurrogates(const TCHAR* Text, rapidjson::SizeType Length)
			{
				for (rapidjson::SizeType Index = 0; Index < Length; ++Index)
				{
					const TCHAR Unit = Text[Index];
					if (Unit >= 0xDC00 && Unit <= 0xDFFF && (Index == 0 || Text[Index - 1] < 0xD800 || Text[Index - 1] > 0xDBFF))
					{
						Error = TEXT("Unpaired low surrogate escape in a string.");
						return false;
					}
				}
				return true;
			}

			const TCHAR* Source;
			const FTextStream& Stream;
			std::vector<FOpenContainer> Open;
			bool bStoreNumbersAsStrings;
		};

		const TCHAR* DescribeParseError(rapidjson::ParseErrorCode Code, TCHAR CharAtError)
		{
			switch (Code)
			{
			case rapidjson::kParseErrorDocumentEmpty:
				return TEXT("The text holds no JSON value.");
			case rapidjson::kParseErrorDocumentRootNotSingular:
				return TEXT("Unexpected text after the JSON value.");
			case rapidjson::kParseErrorValueInvalid:
				return TEXT("Expected a value: an object, array, string, number, true, false or null.");
			case rapidjson::kParseErrorObjectMissName:
				return TEXT("Expected a member name in double quotes.");
			case rapidjson::kParseErrorObjectMissColon:
				return TEXT("Expected ':' after a member name.");
			case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
				return TEXT("Expected ',' or '}' after an object member.");
			case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
				return TEXT("Expected ',' or ']' after an array element.");
			case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
				return TEXT("Expected four hexadecimal digits after \\u.");
			case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
				return TEXT("A high surrogate escape must be followed by a low surrogate escape.");
			case rapidjson::kParseErrorStringEscapeInvalid:
				return CharAtError == TEXT('\\') ? TEXT("Invalid escape sequence in a string.") : TEXT("Control character in a string; it must be escaped.");
			case rapidjson::kParseErrorStringMissQuotationMark:
				return TEXT("Missing the closing quote of a string.");
			case rapidjson::kParseErrorStringInvalidEncoding:
				return TEXT("Invalid UTF-16 (an unpaired surrogate) in a string.");
			case rapidjson::kParseErrorNumberTooBig:
				return TEXT("Number too large for a double.");
			case rapidjson::kParseErrorNumberMissFraction:
				return TEXT("Expected digits after the decimal point.");
			case rapidjson::kParseErrorNumberMissExponent:
				return TEXT("Expected digits in the exponent.");
			default:
				return TEXT("Syntax error.");
			}
		}

		const TCHAR* DescribeKind(EJson Kind)
		{
			switch (Kind)
			{
			case EJson::Object:
				return TEXT("an object");
			case EJson::Array:
				return TEXT("an array");
			case EJson::String:
				return TEXT("a string");
			case EJson::Number:
				return TEXT("a number");
			case EJson::Boolean:
				return TEXT("a boolean");
			default:
				return TEXT("null");
			}
		}

		// "<what> Line: <n> Ch: <m>", lines and characters counted from 1.
		FString FormatError(const FString& Text, int32 Offset, const FString& What, bool bSyntaxError)
		{
			int32 Line = 1;
			int32 LineStart = 0;
			for (int32 Index = 0; Index < Offset && Index < Text.Len(); ++Index)
			{
				if (Text[Index] == TEXT('\n'))
				{
					++Line;
					LineStart = Index + 1;
				}
			}
			// A syntax error at the very end means the text was cut short.
			const bool bAtEnd = bSyntaxError && Offset > 0 && Offset >= Text.Len();
			return FString::Printf(TEXT("%s%s Line: %d Ch: %d"), bAtEnd ? TEXT("Unexpected end of the text. ") : TEXT(""), *What, Line, Offset - LineStart + 1);
		}

		bool IsJsonWhiteSpace(TCHAR Char)
		{
			return Char == TEXT(' ') || Char == TEXT('\t') || Char == TEXT('\n') || Char == TEXT('\r');
		}
	}

	bool ParseJsonText(const FString& Text, EJson Expected, bool bStoreNumbersAsStrings, TSharedPtr<FJsonValue>& OutValue, FString& OutError)
	{
		constexpr unsigned ParseFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag | rapidjson::kParseStopWhenDoneFlag;

		FTextStream Stream(*Text, Text.Len());
		FTreeBuilder Builder(*Text, Stream, bStoreNumbersAsStrings);
		rapidjson::GenericReader<FUtf16, FUtf16> Reader;
		const rapidjson::ParseResult Result = Reader.Parse<ParseFlags>(Stream, Builder);
		if (Result.IsError())
		{
			const int32 Offset = static_cast<int32>(Result.Offset());
			if (Result.Code() == rapidjson::kParseErrorTermination && !Builder.Error.IsEmpty())
			{
				OutError = FormatError(Text, Offset, Builder.Error, false);
			}
			else
			{
				const TCHAR CharAtError = Offset < Text.Len() ? Text[Offset] : TCHAR(0);
				OutError = FormatError(Text, Offset, DescribeParseError(Result.Code(), CharAtError), Result.Code() != rapidjson::kParseErrorDocumentEmpty);
			}
			return false;
		}

		int32 Offset = static_cast<int32>(Stream.Tell());
		while (Offset < Text.Len() && IsJsonWhiteSpace(Text[Offset]))
		{
			++Offset;
		}
		if (Offset < Text.Len())
		{
			OutError = FormatError(Text, Offset, TEXT("Unexpected text after the JSON value."), true);
			return false;
		}

		if (Expected != EJson::None && Builder.Root->Type != Expected)
		{
			OutError = FString::Printf(TEXT("Expected %s at the top level but found %s."), DescribeKind(Expected), DescribeKind(Builder.Root->Type));
			return false;
		}
		OutValue = MoveTemp(Builder.Root);
		OutError.Reset();
		return true;
	}
}
