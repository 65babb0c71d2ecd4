#include "Containers/UnrealString.h"

#include "Containers/StringConv.h"
#include "Math/UnrealMathUtility.h"
#include "Misc/Char.h"
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace
{
	bool CharsEqual(const TCHAR* A, const TCHAR* B, int32 Count, ESearchCase::Type SearchCase)
	{
		if (SearchCase == ESearchCase::CaseSensitive)
		{
			for (int32 Index = 0; Index < Count; ++Index)
			{
				if (A[Index] != B[Index])
				{
					return false;
				}
			}
			return true;
		}
		for (int32 Index = 0; Index < Count; ++Index)
		{
			if (FChar::ToLower(A[Index]) != FChar::ToLower(B[Index]))
			{
				return false;
			}
		}
		return true;
	}

	// Case-sensitive searches use the standard library's tuned search; case-insensitive ones compare folded characters.
	int32 FindForward(const TCHAR* Text, int32 TextLen, const TCHAR* SubStr, int32 SubStrLen, ESearchCase::Type SearchCase, int32 Start)
	{
		if (SubStrLen > TextLen - Start)
		{
			return INDEX_NONE;
		}
		if (SearchCase == ESearchCase::CaseSensitive)
		{
			const std::u16string_view Haystack(Text, TextLen);
			const size_t Found = Haystack.find(std::u16string_view(SubStr, SubStrLen), Start);
			return Found == std::u16string_view::npos ? INDEX_NONE : static_cast<int32>(Found);
		}
		const TCHAR First = FChar::ToLower(SubStr[0]);
		for (int32 Index = Start; Index <= TextLen - SubStrLen; ++Index)
		{
			if (FChar::ToLower(Text[Index]) == First && CharsEqual(Text + Index, SubStr, SubStrLen, SearchCase))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}

	void WidenAscii(FString& Out, const char* Chars, int32 Count)
	{
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Out.AppendChar(static_cast<TCHAR>(static_cast<uint8>(Chars[Index])));
		}
	}
}

FString::FString(const ANSICHAR* String)
	: FString(FCStringAnsi::Strlen(String), String)
{
}

FString::FString(int32 Count, const ANSICHAR* String)
{
	if (String && Count > 0)
	{
		Reserve(Count);
		WidenAscii(*this, String, Count);
	}
}

FString::FString(const UTF8CHAR* String)
{
	if (String)
	{
		const FUTF8ToTCHAR Converted(String);
		AppendChars(Converted.Get(), Converted.Length());
	}
}

FString& FString::AppendChars(const TCHAR* Chars, int32 Count)
{
	if (Chars && Count > 0)
	{
		if (Data.Num() == 0)
		{
			Data.Reserve(Count + 1);
			Data.Append(Chars, Count);
		}
		else
		{
			Data.Pop(EAllowShrinking::No);
			Data.Append(Chars, Count);
		}
		Data.Add(TEXT('\0'));
	}
	return *this;
}

FString& FString::PathAppend(const TCHAR* Text, int32 TextLength)
{
	if (TextLength <= 0)
	{
		return *this;
	}
	if (!IsEmpty())
	{
		const TCHAR Last = Data.GetData()[Len() - 1];
		const bool bEndsWithSlash = Last == TEXT('/') || Last == TEXT('\\');
		const bool bStartsWithSlash = Text[0] == TEXT('/') || Text[0] == TEXT('\\');
		if (!bEndsWithSlash && !bStartsWithSlash)
		{
			AppendChar(TEXT('/'));
		}
		else if (bEndsWithSlash && bStartsWithSlash)
		{
			++Text;
			--TextLength;
		}
	}
	return AppendChars(Text, TextLength);
}

void FString::InsertAt(int32 Index, const FString& Characters)
{
	check(Index >= 0 && Index <= Len());
	if (Characters.IsEmpty())
	{
		return;
	}
	if (IsEmpty())
	{
		*this = Characters;
		return;
	}
	Data.Insert(TArray<TCHAR>(*Characters, Characters.Len()), Index);
}

void FString::RemoveAt(int32 Index, int32 Count, EAllowShrinking AllowShrinking)
{
	check(Index >= 0 && Count >= 0 && Index + Count <= Len());
	Data.RemoveAt(Index, Count);
	if (Data.Num() == 1)
	{
		Data.Reset();
	}
}

int32 FString::Find(const TCHAR* SubStr, int32 SubStrLen, ESearchCase::Type SearchCase, ESearchDir::Type SearchDir, int32 StartPosition) const
{
	if (!SubStr || SubStrLen <= 0)
	{
		return INDEX_NONE;
	}
	const int32 TextLen = Len();
	if (SearchDir == ESearchDir::FromStart)
	{
		const int32 Start = StartPosition == INDEX_NONE ? 0 : FMath::Max(StartPosition, 0);
		return FindForward(**this, TextLen, SubStr, SubStrLen, SearchCase, Start);
	}
	// From the end, a match must end at or before StartPosition.
	const int32 End = (StartPosition == INDEX_NONE || StartPosition > TextLen) ? TextLen : StartPosition;
	for (int32 Index = End - SubStrLen; Index >= 0; --Index)
	{
		if (CharsEqual(**this + Index, SubStr, SubStrLen, SearchCase))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

bool FString::StartsWith(const TCHAR* Prefix, int32 PrefixLen, ESearchCase::Type SearchCase) const
{
	return PrefixLen > 0 && PrefixLen <= Len() && CharsEqual(**this, Prefix, PrefixLen, SearchCase);
}

bool FString::EndsWith(const TCHAR* Suffix, int32 SuffixLen, ESearchCase::Type SearchCase) const
{
	return SuffixLen > 0 && SuffixLen <= Len() && CharsEqual(**this + Len() - SuffixLen, Suffix, SuffixLen, SearchCase);
}

bool FString::MatchesWildcard(const FString& Wildcard, ESearchCase::Type SearchCase) const
{
	// Iterative glob with backtracking to the last star: linear in practice, never exponential.
	const TCHAR* Text = **this;
	const TCHAR* Pattern = *Wildcard;
	const TCHAR* StarPattern = nullptr;
	const TCHAR* StarText = nullptr;
	auto Same = [SearchCase](TCHAR A, TCHAR B) { return SearchCase == ESearchCase::CaseSensitive ? A == B : FChar::ToLower(A) == FChar::ToLower(B); };
	while (*Text)
	{
		if (*Pattern == TEXT('*'))
		{
			StarPattern = ++Pattern;
			StarText = Text;
		}
		else if (*Pattern == TEXT('?') || (*Pattern && Same(*Pattern, *Text)))
		{
			++Pattern;
			++Text;
		}
		else if (StarPattern)
		{
			Pattern = StarPattern;
			Text = ++StarText;
		}
		else
		{
			return false;
		}
	}
	while (*Pattern == TEXT('*'))
	{
		++Pattern;
	}
	return *Pattern == TEXT('\0');
}

bool FString::Split(const FString& InS, FString* LeftS, FString* RightS, ESearchCase::Type SearchCase, ESearchDir::Type SearchDir) const
{
	const int32 Index = Find(InS, SearchCase, SearchDir);
	if (Index == INDEX_NONE)
	{
		return false;
	}
	if (LeftS)
	{
		*LeftS = Left(Index);
	}
	if (RightS)
	{
		*RightS = Mid(Index + InS.Len());
	}
	return true;
}

FString FString::Mid(int32 Start, int32 Count) const
{
	const int32 Length = Len();
	if (Count < 0)
	{
		return FString();
	}
	int64 End = static_cast<int64>(Start) + Count;
	if (Start < 0)
	{
		Start = 0;
	}
	if (Start > Length)
	{
		Start = Length;
	}
	if (End > Length)
	{
		End = Length;
	}
	if (End <= Start)
	{
		return FString();
	}
	return FString(static_cast<int32>(End - Start), **this + Start);
}

bool FString::RemoveFromStart(const FString& Prefix, ESearchCase::Type SearchCase)
{
	if (Prefix.IsEmpty() || !StartsWith(Prefix, SearchCase))
	{
		return false;
	}
	RemoveAt(0, Prefix.Len());
	return true;
}

bool FString::RemoveFromEnd(const FString& Suffix, ESearchCase::Type SearchCase)
{
	if (Suffix.IsEmpty() || !EndsWith(Suffix, SearchCase))
	{
		return false;
	}
	RemoveAt(Len() - Suffix.Len(), Suffix.Len());
	return true;
}

void FString::TrimStartInline()
{
	int32 Count = 0;
	while (Count < Len() && FChar::IsWhitespace((*this)[Count]))
	{
		++Count;
	}
	if (Count > 0)
	{
		RemoveAt(0, Count);
	}
}

void FString::TrimEndInline()
{
	int32 End = Len();
	while (End > 0 && FChar::IsWhitespace((*this)[End - 1]))
	{
		--End;
	}
	if (End < Len())
	{
		RemoveAt(End, Len() - End);
	}
}

void FString::TrimCharInline(TCHAR CharacterToTrim, bool* bCharRemoved)
{
	bool bRemoved = false;
	if (Len() > 0 && (*this)[Len() - 1] == CharacterToTrim)
	{
		RemoveAt(Len() - 1);
		bRemoved = true;
	}
	if (Len() > 0 && (*this)[0] == CharacterToTrim)
	{
		RemoveAt(0);
		bRemoved = true;
	}
	if (bCharRemoved)
	{
		*bCharRemoved = bRemoved;
	}
}

void FString::TrimQuotesInline(bool* bQuotesRemoved)
{
	TrimCharInline(TEXT('"'), bQuotesRemoved);
}

void FString::ToUpperInline()
{
	for (TCHAR& Char : *this)
	{
		Char = FChar::ToUpper(Char);
	}
}

void FString::ToLowerInline()
{
	for (TCHAR& Char : *this)
	{
		Char = FChar::ToLower(Char);
	}
}

int32 FString::ReplaceInline(const TCHAR* SearchText, const TCHAR* ReplacementText, ESearchCase::Type SearchCase)
{
	const int32 SearchLen = FCString::Strlen(SearchText);
	if (IsEmpty() || SearchLen == 0)
	{
		return 0;
	}
	const int32 ReplacementLen = FCString::Strlen(ReplacementText);
	int32 Position = FindForward(**this, Len(), SearchText, SearchLen, SearchCase, 0);
	if (Position == INDEX_NONE)
	{
		return 0;
	}
	// One pass that copies the unmatched runs, so large texts are rewritten in linear time.
	FString Result;
	Result.Reserve(Len());
	int32 Copied = 0;
	int32 Count = 0;
	while (Position != INDEX_NONE)
	{
		Result.AppendChars(**this + Copied, Position - Copied);
		Result.AppendChars(ReplacementText, ReplacementLen);
		Copied = Position + SearchLen;
		++Count;
		Position = FindForward(**this, Len(), SearchText, SearchLen, SearchCase, Copied);
	}
	Result.AppendChars(**this + Copied, Len() - Copied);
	*this = MoveTemp(Result);
	return Count;
}

void FString::ReplaceCharInline(TCHAR SearchChar, TCHAR ReplacementChar, ESearchCase::Type SearchCase)
{
	const TCHAR Folded = FChar::ToLower(SearchChar);
	for (TCHAR& Char : *this)
	{
		if (Char == SearchChar || (SearchCase == ESearchCase::IgnoreCase && FChar::ToLower(Char) == Folded))
		{
			Char = ReplacementChar;
		}
	}
}

FString FString::ReplaceCharWithEscapedChar(const TArray<TCHAR>* Chars) const
{
	// The engine's escapes, each a backslash and a letter (only those of Chars when it is given).
	static const TCHAR Escapes[][2] = {{TEXT('\\'), TEXT('\\')}, {TEXT('\n'), TEXT('n')}, {TEXT('\r'), TEXT('r')}, {TEXT('\t'), TEXT('t')}, {TEXT('\''), TEXT('\'')}, {TEXT('"'), TEXT('"')}};
	FString Result;
	Result.Reserve(Len());
	for (int32 Index = 0; Index < Len(); ++Index)
	{
		const TCHAR Char = (*this)[Index];
		const TCHAR* Escape = nullptr;
		for (const TCHAR* Pair : Escapes)
		{
			if (Pair[0] == Char && (Chars == nullptr || Chars->Contains(Char)))
			{
				Escape = Pair;
				break;
			}
		}
		if (Escape != nullptr)
		{
			Result.AppendChar(TEXT('\\'));
			Result.AppendChar(Escape[1]);
		}
		else
		{
			Result.AppendChar(Char);
		}
	}
	return Result;
}

FString FString::ReplaceQuotesWithEscapedQuotes() const&
{
	FString Result;
	Result.Reserve(Len());
	for (int32 Index = 0; Index < Len(); ++Index)
	{
		const TCHAR Char = (*this)[Index];
		if (Char == TEXT('"'))
		{
			int32 Backslashes = 0;
			for (int32 Before = Index - 1; Before >= 0 && (*this)[Before] == TEXT('\\'); --Before)
			{
				++Backslashes;
			}
			if (Backslashes % 2 == 0)
			{
				Result.AppendChar(TEXT('\\'));
			}
		}
		Result.AppendChar(Char);
	}
	return Result;
}

FString FString::ConvertTabsToSpaces(int32 SpacesPerTab) const
{
	FString Result;
	int32 Column = 0;
	for (const TCHAR Char : *this)
	{
		if (Char == TEXT('\t'))
		{
			const int32 Spaces = SpacesPerTab - (Column % SpacesPerTab);
			Result += ChrN(Spaces, TEXT(' '));
			Column += Spaces;
		}
		else
		{
			Result.AppendChar(Char);
			Column = (Char == TEXT('\n') || Char == TEXT('\r')) ? 0 : Column + 1;
		}
	}
	return Result;
}

void FString::ReverseString()
{
	for (int32 Low = 0, High = Len() - 1; Low < High; ++Low, --High)
	{
		::Swap((*this)[Low], (*this)[High]);
	}
}

FString FString::LeftPad(int32 ChCount) const
{
	const int32 Pad = ChCount - Len();
	return Pad > 0 ? ChrN(Pad, TEXT(' ')) + *this : *this;
}

FString FString::RightPad(int32 ChCount) const
{
	const int32 Pad = ChCount - Len();
	return Pad > 0 ? *this + ChrN(Pad, TEXT(' ')) : *this;
}

int32 FString::ParseIntoArray(TArray<FString>& OutArray, const TCHAR* Delimiter, bool bCullEmpty) const
{
	return ParseIntoArray(OutArray, &Delimiter, 1, bCullEmpty);
}

int32 FString::ParseIntoArray(TArray<FString>& OutArray, const TCHAR* const* DelimArray, int32 NumDelims, bool bCullEmpty) const
{
	OutArray.Reset();
	TArray<int32> DelimLengths;
	for (int32 Index = 0; Index < NumDelims; ++Index)
	{
		DelimLengths.Add(FCString::Strlen(DelimArray[Index]));
	}
	const TCHAR* Text = **this;
	const int32 TextLen = Len();
	int32 PieceStart = 0;
	auto AddPiece = [&](int32 End)
	{
		if (!bCullEmpty || End > PieceStart)
		{
			OutArray.Emplace(End - PieceStart, Text + PieceStart);
		}
	};
	for (int32 Index = 0; Index < TextLen;)
	{
		int32 Matched = 0;
		for (int32 Delim = 0; Delim < NumDelims; ++Delim)
		{
			const int32 DelimLen = DelimLengths[Delim];
			if (DelimLen > 0 && DelimLen <= TextLen - Index && CharsEqual(Text + Index, DelimArray[Delim], DelimLen, ESearchCase::CaseSensitive))
			{
				Matched = DelimLen;
				break;
			}
		}
		if (Matched > 0)
		{
			AddPiece(Index);
			Index += Matched;
			PieceStart = Index;
		}
		else
		{
			++Index;
		}
	}
	if (TextLen > 0)
	{
		AddPiece(TextLen);
	}
	return OutArray.Num();
}

int32 FString::ParseIntoArrayLines(TArray<FString>& OutArray, bool bCullEmpty) const
{
	static const TCHAR* const LineEndings[] = {TEXT("\r\n"), TEXT("\r"), TEXT("\n")};
	return ParseIntoArray(OutArray, LineEndings, UE_ARRAY_COUNT(LineEndings), bCullEmpty);
}

int32 FString::ParseIntoArrayWS(TArray<FString>& OutArray, const TCHAR* ExtraDelimiter, bool bCullEmpty) const
{
	const TCHAR* const Delims[] = {TEXT(" "), TEXT("\t"), TEXT("\r"), TEXT("\n"), ExtraDelimiter ? ExtraDelimiter : TEXT("")};
	return ParseIntoArray(OutArray, Delims, ExtraDelimiter ? 5 : 4, bCullEmpty);
}

bool FString::IsNumeric() const
{
	return !IsEmpty() && FCString::IsNumeric(**this);
}

bool FString::ToBool() const
{
	return FCString::ToBool(**this);
}

FString FString::SanitizeFloat(double InFloat, int32 InMinFractionalDigits)
{
	// Fixed notation, trailing zeros removed down to the minimum number of fractional digits.
	FString Result = Printf(TEXT("%f"), InFloat);
	if (!FMath::IsFinite(InFloat))
	{
		return Result;
	}
	int32 Dot = INDEX_NONE;
	Result.FindChar(TEXT('.'), Dot);
	if (Dot == INDEX_NONE)
	{
		return Result;
	}
	const int32 MinFractionalDigits = FMath::Max(InMinFractionalDigits, 0);
	int32 End = Result.Len();
	while (End > Dot + 1 + MinFractionalDigits && Result[End - 1] == TEXT('0'))
	{
		--End;
	}
	// Without fractional digits the dot goes too.
	Result.LeftInline(End == Dot + 1 ? Dot : End);
	if (Result == TEXT("-0.0") || Result == TEXT("-0"))
	{
		Result.RemoveAt(0);
	}
	return Result;
}

FString FString::Chr(TCHAR Char)
{
	return FString(1, &Char);
}

FString FString::ChrN(int32 NumCharacters, TCHAR Char)
{
	FString Result;
	Result.Reserve(NumCharacters);
	for (int32 Index = 0; Index < NumCharacters; ++Index)
	{
		Result.AppendChar(Char);
	}
	return Result;
}

FString operator+(const FString& Lhs, const FString& Rhs)
{
	FString Result;
	Result.Reserve(Lhs.Len() + Rhs.Len());
	Result += Lhs;
	Result += Rhs;
	return Result;
}

FString operator+(FString&& Lhs, const FString& Rhs)
{
	Lhs += Rhs;
	return MoveTemp(Lhs);
}

FString operator+(const FString& Lhs, const TCHAR* Rhs)
{
	FString Result(Lhs);
	Result += Rhs;
	return Result;
}

FString operator+(FString&& Lhs, const TCHAR* Rhs)
{
	Lhs += Rhs;
	return MoveTemp(Lhs);
}

FString operator+(const TCHAR* Lhs, const FString& Rhs)
{
	FString Result(Lhs);
	Result += Rhs;
	return Result;
}

FString operator/(const FString& Lhs, const FString& Rhs)
{
	FString Result(Lhs);
	Result /= Rhs;
	return Result;
}

FString operator/(const FString& Lhs, const TCHAR* Rhs)
{
	FString Result(Lhs);
	Result /= Rhs;
	return Result;
}

FString operator/(const TCHAR* Lhs, const FString& Rhs)
{
	FString Result(Lhs);
	Result /= Rhs;
	return Result;
}

uint32 GetTypeHash(const FString& String)
{
	// FNV-1a over case-folded characters.
	uint32 Hash = 2166136261u;
	for (const TCHAR Char : String)
	{
		Hash = (Hash ^ static_cast<uint32>(FChar::ToLower(Char))) * 16777619u;
	}
	return Hash;
}

FString LexToString(int32 Value)
{
	return FString::Printf(TEXT("%d"), Value);
}

FString LexToString(int64 Value)
{
	return FString::Printf(TEXT("%lld"), Value);
}

FString LexToString(uint32 Value)
{
	return FString::Printf(TEXT("%u"), Value);
}

FString LexToString(uint64 Value)
{
	return FString::Printf(TEXT("%llu"), Value);
}

FString LexToString(float Value)
{
	return FString::SanitizeFloat(Value);
}

FString LexToString(double Value)
{
	return FString::SanitizeFloat(Value);
}

FString LexToString(bool Value)
{
	return Value ? TEXT("true") : TEXT("false");
}

void LexFromString(int32& OutValue, const TCHAR* String)
{
	OutValue = FCString::Atoi(String);
}

void LexFromString(int64& OutValue, const TCHAR* String)
{
	OutValue = FCString::Atoi64(String);
}

void LexFromString(float& OutValue, const TCHAR* String)
{
	OutValue = FCString::Atof(String);
}

void LexFromString(double& OutValue, const TCHAR* String)
{
	OutValue = FCString::Atod(String);
}

void LexFromString(bool& OutValue, const TCHAR* String)
{
	OutValue = FCString::ToBool(String);
}

void LexFromString(FString& OutValue, const TCHAR* String)
{
	OutValue = String;
}

namespace UE::Core::Private
{
	const TCHAR* StoreAssertMessage(FString&& Message)
	{
		thread_local FString Stored;
		Stored = MoveTemp(Message);
		return *Stored;
	}
}
