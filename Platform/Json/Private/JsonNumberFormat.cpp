#include "JsonNumberFormat.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

namespace UE::Json::Private
{
	namespace
	{
		void AppendAscii(FString& Out, const char* Begin, const char* End)
		{
			for (const char* It = Begin; It != End; ++It)
			{
				Out.AppendChar(static_cast<TCHAR>(*It));
			}
		}

		bool IsDigit(TCHAR Char)
		{
			return Char >= TEXT('0') && Char <= TEXT('9');
		}

		// JSON's number grammar: -? (0 | [1-9][0-9]*) (. [0-9]+)? ([eE] [+-]? [0-9]+)?
		bool IsJsonNumberGrammar(const TCHAR* Text, int32 Length)
		{
			int32 Index = 0;
			auto SkipDigits = [&]() -> int32
			{
				const int32 Start = Index;
				while (Index < Length && IsDigit(Text[Index]))
				{
					++Index;
				}
				return Index - Start;
			};
			if (Index < Length && Text[Index] == TEXT('-'))
			{
				++Index;
			}
			if (Index < Length && Text[Index] == TEXT('0'))
			{
				++Index;
			}
			else if (SkipDigits() == 0)
			{
				return false;
			}
			if (Index < Length && Text[Index] == TEXT('.'))
			{
				++Index;
				if (SkipDigits() == 0)
				{
					return false;
				}
			}
			if (Index < Length && (Text[Index] == TEXT('e') || Text[Index] == TEXT('E')))
			{
				++Index;
				if (Index < Length && (Text[Index] == TEXT('+') || Text[Index] == TEXT('-')))
				{
					++Index;
				}
				if (SkipDigits() == 0)
				{
					return false;
				}
			}
			return Index == Length;
		}

		// The std parsers want chars; number text is ASCII, checked by the callers.
		std::string Narrow(const TCHAR* Text, int32 Length)
		{
			std::string Result(static_cast<size_t>(Length), '\0');
			for (int32 Index = 0; Index < Length; ++Index)
			{
				Result[static_cast<size_t>(Index)] = static_cast<char>(Text[Index]);
			}
			return Result;
		}
	}

	void AppendJsonNumber(FString& Out, double Value)
	{
		if (!std::isfinite(Value))
		{
			Out.Append(TEXT("null"));
			return;
		}
		char Buffer[64];
		std::to_chars_result Result;
		if (Value == std::trunc(Value) && std::fabs(Value) < 9007199254740992.0)
		{
			Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), static_cast<int64>(Value));
		}
		else
		{
			Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value, std::chars_format::general);
		}
		AppendAscii(Out, Buffer, Result.ptr);
	}

	void AppendJsonNumber(FString& Out, float Value)
	{
		if (!std::isfinite(Value))
		{
			Out.Append(TEXT("null"));
			return;
		}
		char Buffer[64];
		std::to_chars_result Result;
		if (Value == std::trunc(Value) && std::fabs(Value) < 16777216.0f)
		{
			Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), static_cast<int64>(Value));
		}
		else
		{
			Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value, std::chars_format::general);
		}
		AppendAscii(Out, Buffer, Result.ptr);
	}

	void AppendJsonNumber(FString& Out, int64 Value)
	{
		char Buffer[32];
		const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value);
		AppendAscii(Out, Buffer, Result.ptr);
	}

	void AppendJsonNumber(FString& Out, uint64 Value)
	{
		char Buffer[32];
		const std::to_chars_result Result = std::to_chars(Buffer, Buffer + sizeof(Buffer), Value);
		AppendAscii(Out, Buffer, Result.ptr);
	}

	bool ParseNumberText(const TCHAR* Text, int32 Length, double& OutValue)
	{
		if (!IsJsonNumberGrammar(Text, Length))
		{
			return false;
		}
		const std::string Narrowed = Narrow(Text, Length);
		double Value = 0.0;
		const std::from_chars_result Result = std::from_chars(Narrowed.data(), Narrowed.data() + Narrowed.size(), Value);
		if (Result.ec == std::errc::result_out_of_range)
		{
			// from_chars doesn't say which way it overflowed: strtod does (huge, or zero for tiny values).
			Value = std::strtod(Narrowed.c_str(), nullptr);
			if (!std::isfinite(Value))
			{
				return false;
			}
		}
		else if (Result.ec != std::errc() || Result.ptr != Narrowed.data() + Narrowed.size())
		{
			return false;
		}
		OutValue = Value;
		return true;
	}

	bool ParseIntegerText(const TCHAR* Text, int32 Length, int64& OutValue)
	{
		for (int32 Index = 0; Index < Length; ++Index)
		{
			if (!IsDigit(Text[Index]) && !(Index == 0 && Text[Index] == TEXT('-')))
			{
				return false;
			}
		}
		const std::string Narrowed = Narrow(Text, Length);
		int64 Value = 0;
		const std::from_chars_result Result = std::from_chars(Narrowed.data(), Narrowed.data() + Narrowed.size(), Value);
		if (Result.ec != std::errc() || Result.ptr != Narrowed.data() + Narrowed.size())
		{
			return false;
		}
		OutValue = Value;
		return true;
	}

	bool ParseUnsignedText(const TCHAR* Text, int32 Length, uint64& OutValue)
	{
		for (int32 Index = 0; Index < Length; ++Index)
		{
			if (!IsDigit(Text[Index]))
			{
				return false;
			}
		}
		const std::string Narrowed = Narrow(Text, Length);
		uint64 Value = 0;
		const std::from_chars_result Result = std::from_chars(Narrowed.data(), Narrowed.data() + Narrowed.size(), Value);
		if (Result.ec != std::errc() || Result.ptr != Narrowed.data() + Narrowed.size())
		{
			return false;
		}
		OutValue = Value;
		return true;
	}

	bool RoundToInt64(double Value, int64& OutValue)
	{
		if (!(Value >= -9223372036854775808.0 && Value < 9223372036854775808.0))
		{
			return false;
		}
		const double Rounded = Value >= 0.0 ? std::floor(Value + 0.5) : std::ceil(Value - 0.5);
		if (!(Rounded >= -9223372036854775808.0 && Rounded < 9223372036854775808.0))
		{
			return false;
		}
		OutValue = static_cast<int64>(Rounded);
		return true;
	}

	bool RoundToUInt64(double Value, uint64& OutValue)
	{
		if (!(Value > -0.5 && Value < 18446744073709551616.0))
		{
			return false;
		}
		const double Rounded = std::floor(Value + 0.5);
		if (!(Rounded < 18446744073709551616.0))
		{
			return false;
		}
		OutValue = static_cast<uint64>(Rounded);
		return true;
	}
}
