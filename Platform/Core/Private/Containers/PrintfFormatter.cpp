// The formatter behind FString::Printf: C printf conversions over typed arguments. %s takes TCHAR text,
// %hs 8-bit text (either kind is accepted for both, since the argument knows its type).
#include "Containers/UnrealString.h"

#include "Containers/StringConv.h"
#include <cstdio>
#include <string>

namespace
{
	using UE::Core::Private::FPrintfArg;

	struct FFormatSpecifier
	{
		std::string Flags;
		int32 Width = -1;
		int32 Precision = -1;
		bool bLeftAlign = false;
		bool bNarrowString = false;
	};

	int64 AsSigned(const FPrintfArg& Arg)
	{
		switch (Arg.Kind)
		{
		case FPrintfArg::EKind::Signed:
			return Arg.Signed;
		case FPrintfArg::EKind::Unsigned:
			return static_cast<int64>(Arg.Unsigned);
		case FPrintfArg::EKind::Float:
			return static_cast<int64>(Arg.Float);
		default:
			return static_cast<int64>(reinterpret_cast<UPTRINT>(Arg.Pointer));
		}
	}

	// Unsigned conversions see the argument's own width, as a C vararg of that type would.
	uint64 AsUnsigned(const FPrintfArg& Arg)
	{
		if (Arg.Kind == FPrintfArg::EKind::Signed && Arg.Size < 8)
		{
			return static_cast<uint64>(Arg.Signed) & ((uint64(1) << (Arg.Size * 8)) - 1);
		}
		return static_cast<uint64>(AsSigned(Arg));
	}

	double AsDouble(const FPrintfArg& Arg)
	{
		if (Arg.Kind == FPrintfArg::EKind::Float)
		{
			return Arg.Float;
		}
		return Arg.Kind == FPrintfArg::EKind::Unsigned ? static_cast<double>(Arg.Unsigned) : static_cast<double>(AsSigned(Arg));
	}

	void AppendAscii(FString& Out, const char* Text, int32 Length)
	{
		for (int32 Index = 0; Index < Length; ++Index)
		{
			Out.AppendChar(static_cast<TCHAR>(static_cast<uint8>(Text[Index])));
		}
	}

	template<typename ValueType>
	void AppendNumber(FString& Out, const FFormatSpecifier& Specifier, const char* Conversion, ValueType Value)
	{
		std::string Format(1, '%');
		Format += Specifier.Flags;
		if (Specifier.Width >= 0)
		{
			Format += std::to_string(Specifier.Width);
		}
		if (Specifier.Precision >= 0)
		{
			Format += '.';
			Format += std::to_string(Specifier.Precision);
		}
		Format += Conversion;
		char Buffer[512];
		int32 Length = std::snprintf(Buffer, sizeof(Buffer), Format.c_str(), Value);
		if (Length >= static_cast<int32>(sizeof(Buffer)))
		{
			std::string Large(Length + 1, '\0');
			std::snprintf(Large.data(), Large.size(), Format.c_str(), Value);
			AppendAscii(Out, Large.data(), Length);
			return;
		}
		AppendAscii(Out, Buffer, Length > 0 ? Length : 0);
	}

	void AppendPadded(FString& Out, const FFormatSpecifier& Specifier, const TCHAR* Text, int32 Length)
	{
		if (Specifier.Precision >= 0 && Length > Specifier.Precision)
		{
			Length = Specifier.Precision;
		}
		const int32 Padding = Specifier.Width > Length ? Specifier.Width - Length : 0;
		if (!Specifier.bLeftAlign)
		{
			Out += FString::ChrN(Padding, TEXT(' '));
		}
		Out.AppendChars(Text, Length);
		if (Specifier.bLeftAlign)
		{
			Out += FString::ChrN(Padding, TEXT(' '));
		}
	}

	void AppendString(FString& Out, const FFormatSpecifier& Specifier, const FPrintfArg* Arg)
	{
		if (!Arg)
		{
			return;
		}
		if (Arg->Kind == FPrintfArg::EKind::WideString)
		{
			const TCHAR* Text = Arg->WideString ? Arg->WideString : TEXT("(null)");
			AppendPadded(Out, Specifier, Text, FCString::Strlen(Text));
		}
		else if (Arg->Kind == FPrintfArg::EKind::AnsiString)
		{
			// 8-bit text is taken as UTF-8, which covers ASCII and the literals of this code base.
			const FUTF8ToTCHAR Converted(Arg->AnsiString ? Arg->AnsiString : "(null)");
			AppendPadded(Out, Specifier, Converted.Get(), Converted.Length());
		}
		else
		{
			const FString Text = Arg->Kind == FPrintfArg::EKind::Float ? FString::SanitizeFloat(Arg->Float) : FString::Printf(TEXT("%lld"), AsSigned(*Arg));
			AppendPadded(Out, Specifier, *Text, Text.Len());
		}
	}
}

namespace UE::Core::Private
{
	FString FormatPrintf(const TCHAR* Format, const FPrintfArg* Args, int32 NumArgs)
	{
		FString Out;
		if (!Format)
		{
			return Out;
		}
		int32 NextArg = 0;
		auto TakeArg = [&]() -> const FPrintfArg* { return NextArg < NumArgs ? &Args[NextArg++] : nullptr; };

		for (const TCHAR* Cursor = Format; *Cursor;)
		{
			if (*Cursor != TEXT('%'))
			{
				const TCHAR* RunStart = Cursor;
				while (*Cursor && *Cursor != TEXT('%'))
				{
					++Cursor;
				}
				Out.AppendChars(RunStart, static_cast<int32>(Cursor - RunStart));
				continue;
			}
			const TCHAR* SpecStart = Cursor++;
			if (*Cursor == TEXT('%'))
			{
				Out.AppendChar(TEXT('%'));
				++Cursor;
				continue;
			}

			FFormatSpecifier Specifier;
			for (; *Cursor == TEXT('-') || *Cursor == TEXT('+') || *Cursor == TEXT(' ') || *Cursor == TEXT('0') || *Cursor == TEXT('#'); ++Cursor)
			{
				Specifier.Flags += static_cast<char>(*Cursor);
				Specifier.bLeftAlign |= *Cursor == TEXT('-');
			}
			if (*Cursor == TEXT('*'))
			{
				const FPrintfArg* WidthArg = TakeArg();
				Specifier.Width = WidthArg ? static_cast<int32>(AsSigned(*WidthArg)) : 0;
				if (Specifier.Width < 0)
				{
					Specifier.bLeftAlign = true;
					Specifier.Flags += '-';
					Specifier.Width = -Specifier.Width;
				}
				++Cursor;
			}
			else
			{
				for (; FChar::IsDigit(*Cursor); ++Cursor)
				{
					Specifier.Width = (Specifier.Width < 0 ? 0 : Specifier.Width * 10) + (*Cursor - TEXT('0'));
				}
			}
			if (*Cursor == TEXT('.'))
			{
				++Cursor;
				Specifier.Precision = 0;
				if (*Cursor == TEXT('*'))
				{
					const FPrintfArg* PrecisionArg = TakeArg();
					Specifier.Precision = PrecisionArg ? static_cast<int32>(AsSigned(*PrecisionArg)) : 0;
					++Cursor;
				}
				else
				{
					for (; FChar::IsDigit(*Cursor); ++Cursor)
					{
						Specifier.Precision = Specifier.Precision * 10 + (*Cursor - TEXT('0'));
					}
				}
			}
			// Length modifiers do not matter: every argument carries its own type.
			for (;; ++Cursor)
			{
				if (*Cursor == TEXT('h'))
				{
					Specifier.bNarrowString = true;
				}
				else if (*Cursor == TEXT('l') || *Cursor == TEXT('L') || *Cursor == TEXT('z') || *Cursor == TEXT('j') || *Cursor == TEXT('t') || *Cursor == TEXT('q'))
				{
				}
				else if (Cursor[0] == TEXT('I') && Cursor[1] == TEXT('6') && Cursor[2] == TEXT('4'))
				{
					Cursor += 2;
				}
				else
				{
					break;
				}
			}

			const TCHAR Conversion = *Cursor;
			if (Conversion == TEXT('\0'))
			{
				Out.AppendChars(SpecStart, static_cast<int32>(Cursor - SpecStart));
				break;
			}
			++Cursor;
			switch (Conversion)
			{
			case TEXT('d'):
			case TEXT('i'):
				if (const FPrintfArg* Arg = TakeArg())
				{
					AppendNumber(Out, Specifier, "lld", static_cast<long long>(AsSigned(*Arg)));
				}
				break;
			case TEXT('u'):
			case TEXT('x'):
			case TEXT('X'):
			case TEXT('o'):
				if (const FPrintfArg* Arg = TakeArg())
				{
					const char* Conv = Conversion == TEXT('u') ? "llu" : (Conversion == TEXT('x') ? "llx" : (Conversion == TEXT('X') ? "llX" : "llo"));
					AppendNumber(Out, Specifier, Conv, static_cast<unsigned long long>(AsUnsigned(*Arg)));
				}
				break;
			case TEXT('f'):
			case TEXT('F'):
			case TEXT('e'):
			case TEXT('E'):
			case TEXT('g'):
			case TEXT('G'):
			case TEXT('a'):
			case TEXT('A'):
				if (const FPrintfArg* Arg = TakeArg())
				{
					const char Conv[2] = {static_cast<char>(Conversion), '\0'};
					AppendNumber(Out, Specifier, Conv, AsDouble(*Arg));
				}
				break;
			case TEXT('c'):
				if (const FPrintfArg* Arg = TakeArg())
				{
					const TCHAR Char = static_cast<TCHAR>(AsUnsigned(*Arg));
					AppendPadded(Out, Specifier, &Char, 1);
				}
				break;
			case TEXT('s'):
			case TEXT('S'):
				AppendString(Out, Specifier, TakeArg());
				break;
			case TEXT('p'):
				if (const FPrintfArg* Arg = TakeArg())
				{
					AppendNumber(Out, Specifier, "p", Arg->Kind == FPrintfArg::EKind::Pointer ? Arg->Pointer : reinterpret_cast<const void*>(static_cast<UPTRINT>(AsUnsigned(*Arg))));
				}
				break;
			default:
				// Unknown conversions are copied through, so a stray % is visible rather than lost.
				Out.AppendChars(SpecStart, static_cast<int32>(Cursor - SpecStart));
				break;
			}
		}
		return Out;
	}
}
