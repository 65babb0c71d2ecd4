// FString: a mutable string of TCHARs (UTF-16 code units) with the engine's interface and case rules:
// == and < ignore case, Equals and Compare are case-sensitive unless told otherwise.
#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/StringFwd.h"
#include "Containers/StringView.h"
#include "Misc/AssertionMacros.h"
#include "Misc/CString.h"
#include "Templates/TypeHash.h"
#include <type_traits>

namespace ESearchCase
{
	enum Type
	{
		CaseSensitive,
		IgnoreCase,
	};
}

namespace ESearchDir
{
	enum Type
	{
		FromStart,
		FromEnd,
	};
}

namespace UE::Core::Private
{
	// One Printf argument, captured with its type so the formatter needs no va_list.
	struct FPrintfArg
	{
		enum class EKind : uint8
		{
			Signed,
			Unsigned,
			Float,
			WideString,
			AnsiString,
			Pointer,
		};
		EKind Kind;
		uint8 Size;
		union
		{
			int64 Signed;
			uint64 Unsigned;
			double Float;
			const TCHAR* WideString;
			const ANSICHAR* AnsiString;
			const void* Pointer;
		};
	};

	template<typename T>
	FPrintfArg MakePrintfArg(T Value)
	{
		FPrintfArg Arg;
		Arg.Size = sizeof(T);
		if constexpr (std::is_enum_v<T>)
		{
			Arg.Kind = FPrintfArg::EKind::Signed;
			Arg.Signed = static_cast<int64>(Value);
		}
		else if constexpr (std::is_same_v<T, bool>)
		{
			Arg.Kind = FPrintfArg::EKind::Signed;
			Arg.Size = sizeof(int32);
			Arg.Signed = Value ? 1 : 0;
		}
		else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>)
		{
			Arg.Kind = FPrintfArg::EKind::Signed;
			Arg.Signed = Value;
		}
		else if constexpr (std::is_integral_v<T>)
		{
			Arg.Kind = FPrintfArg::EKind::Unsigned;
			Arg.Unsigned = Value;
		}
		else if constexpr (std::is_floating_point_v<T>)
		{
			Arg.Kind = FPrintfArg::EKind::Float;
			Arg.Float = static_cast<double>(Value);
		}
		else if constexpr (std::is_same_v<std::remove_cv_t<std::remove_pointer_t<T>>, TCHAR> && std::is_pointer_v<T>)
		{
			Arg.Kind = FPrintfArg::EKind::WideString;
			Arg.WideString = Value;
		}
		else if constexpr ((std::is_same_v<std::remove_cv_t<std::remove_pointer_t<T>>, ANSICHAR> || std::is_same_v<std::remove_cv_t<std::remove_pointer_t<T>>, UTF8CHAR>) && std::is_pointer_v<T>)
		{
			Arg.Kind = FPrintfArg::EKind::AnsiString;
			Arg.AnsiString = reinterpret_cast<const ANSICHAR*>(Value);
		}
		else if constexpr (std::is_pointer_v<T> || std::is_null_pointer_v<T>)
		{
			Arg.Kind = FPrintfArg::EKind::Pointer;
			Arg.Pointer = Value;
		}
		else
		{
			static_assert(sizeof(T) == 0, "Printf takes numbers, enums and character pointers: pass an FString as *String");
		}
		return Arg;
	}

	CORE_API FString FormatPrintf(const TCHAR* Format, const FPrintfArg* Args, int32 NumArgs);
}

class FString
{
public:
	using ElementType = TCHAR;
	using DataType = TArray<TCHAR>;

	FString() = default;
	FString(const FString&) = default;
	FString(FString&&) = default;
	FString& operator=(const FString&) = default;
	FString& operator=(FString&& Other)
	{
		if (this != &Other)
		{
			Data = MoveTemp(Other.Data);
		}
		return *this;
	}
	FString(const TCHAR* String)
	{
		AppendChars(String, FCString::Strlen(String));
	}
	FString(int32 Count, const TCHAR* String)
	{
		AppendChars(String, Count);
	}
	// ANSI text is widened code unit by code unit, as the engine does.
	CORE_API FString(const ANSICHAR* String);
	CORE_API FString(int32 Count, const ANSICHAR* String);
	// UTF-8 text is decoded.
	CORE_API explicit FString(const UTF8CHAR* String);
	explicit FString(FStringView View)
	{
		AppendChars(View.GetData(), View.Len());
	}
	FString(TYPE_OF_NULLPTR) = delete;

	FString& operator=(const TCHAR* String)
	{
		if (String != **this)
		{
			Data.Reset();
			AppendChars(String, FCString::Strlen(String));
		}
		return *this;
	}

	static FString ConstructFromPtrSize(const TCHAR* Ptr, int32 Size)
	{
		return FString(Size, Ptr);
	}
	static FString ConstructWithSlack(const TCHAR* Ptr, int32 Slack)
	{
		FString Result(Ptr);
		Result.Reserve(Result.Len() + Slack);
		return Result;
	}

	// Size and access
	int32 Len() const
	{
		return Data.Num() ? Data.Num() - 1 : 0;
	}
	bool IsEmpty() const
	{
		return Data.Num() <= 1;
	}
	bool IsValidIndex(int32 Index) const
	{
		return Index >= 0 && Index < Len();
	}
	const TCHAR* operator*() const
	{
		return Data.Num() ? Data.GetData() : TEXT("");
	}
	TCHAR& operator[](int32 Index)
	{
		checkf(IsValidIndex(Index), TEXT("String index out of bounds: Index %d from a string with a length of %d"), Index, Len());
		return Data.GetData()[Index];
	}
	const TCHAR& operator[](int32 Index) const
	{
		checkf(IsValidIndex(Index), TEXT("String index out of bounds: Index %d from a string with a length of %d"), Index, Len());
		return Data.GetData()[Index];
	}
	DataType& GetCharArray()
	{
		return Data;
	}
	const DataType& GetCharArray() const
	{
		return Data;
	}
	SIZE_T GetAllocatedSize() const
	{
		return Data.GetAllocatedSize();
	}
	void Empty(int32 Slack = 0)
	{
		Data.Empty(Slack);
	}
	void Reset(int32 NewReservedSize = 0)
	{
		Data.Reset(NewReservedSize ? NewReservedSize + 1 : 0);
	}
	void Reserve(int32 CharacterCount)
	{
		Data.Reserve(CharacterCount + 1);
	}
	void Shrink()
	{
		Data.Shrink();
	}

	// Appending
	CORE_API FString& AppendChars(const TCHAR* Chars, int32 Count);
	FString& Append(const TCHAR* Text, int32 Count)
	{
		return AppendChars(Text, Count);
	}
	FString& Append(const TCHAR* Text)
	{
		return AppendChars(Text, FCString::Strlen(Text));
	}
	FString& Append(const FString& Text)
	{
		return AppendChars(*Text, Text.Len());
	}
	FString& Append(FStringView Text)
	{
		return AppendChars(Text.GetData(), Text.Len());
	}
	FString& AppendChar(TCHAR Char)
	{
		return AppendChars(&Char, 1);
	}
	FString& AppendInt(int32 Number);
	FString& operator+=(const TCHAR* Text)
	{
		return Append(Text);
	}
	FString& operator+=(const FString& Text)
	{
		return Append(Text);
	}
	FString& operator+=(FStringView Text)
	{
		return Append(Text);
	}
	FString& operator+=(TCHAR Char)
	{
		return AppendChar(Char);
	}
	FString& operator+=(ANSICHAR Char)
	{
		return AppendChar(static_cast<TCHAR>(static_cast<uint8>(Char)));
	}
	// Joins as a path, with exactly one slash between the parts.
	CORE_API FString& PathAppend(const TCHAR* Text, int32 TextLength);
	FString& operator/=(const TCHAR* Text)
	{
		return PathAppend(Text, FCString::Strlen(Text));
	}
	FString& operator/=(const FString& Text)
	{
		return PathAppend(*Text, Text.Len());
	}
	CORE_API void InsertAt(int32 Index, const FString& Characters);
	void InsertAt(int32 Index, TCHAR Character)
	{
		InsertAt(Index, FString(1, &Character));
	}
	CORE_API void RemoveAt(int32 Index, int32 Count = 1, EAllowShrinking AllowShrinking = EAllowShrinking::Yes);

	// Comparison
	bool Equals(const FString& Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const
	{
		return Len() == Other.Len() && Compare(Other, SearchCase) == 0;
	}
	int32 Compare(const FString& Other, ESearchCase::Type SearchCase = ESearchCase::CaseSensitive) const
	{
		return SearchCase == ESearchCase::CaseSensitive ? FCString::Strcmp(**this, *Other) : FCString::Stricmp(**this, *Other);
	}
	friend bool operator==(const FString& Lhs, const FString& Rhs)
	{
		return Lhs.Equals(Rhs, ESearchCase::IgnoreCase);
	}
	friend bool operator==(const FString& Lhs, const TCHAR* Rhs)
	{
		return FCString::Stricmp(*Lhs, Rhs ? Rhs : TEXT("")) == 0;
	}
	friend bool operator==(const TCHAR* Lhs, const FString& Rhs)
	{
		return Rhs == Lhs;
	}
	friend bool operator!=(const FString& Lhs, const FString& Rhs)
	{
		return !(Lhs == Rhs);
	}
	friend bool operator!=(const FString& Lhs, const TCHAR* Rhs)
	{
		return !(Lhs == Rhs);
	}
	friend bool operator!=(const TCHAR* Lhs, const FString& Rhs)
	{
		return !(Rhs == Lhs);
	}
	friend bool operator<(const FString& Lhs, const FString& Rhs)
	{
		return FCString::Stricmp(*Lhs, *Rhs) < 0;
	}
	friend bool operator>(const FString& Lhs, const FString& Rhs)
	{
		return FCString::Stricmp(*Lhs, *Rhs) > 0;
	}
	friend bool operator<=(const FString& Lhs, const FString& Rhs)
	{
		return FCString::Stricmp(*Lhs, *Rhs) <= 0;
	}
	friend bool operator>=(const FString& Lhs, const FString& Rhs)
	{
		return FCString::Stricmp(*Lhs, *Rhs) >= 0;
	}

	// Searching
	CORE_API int32 Find(const TCHAR* SubStr, int32 SubStrLen, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart, int32 StartPosition = INDEX_NONE) const;
	int32 Find(const TCHAR* SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart, int32 StartPosition = INDEX_NONE) const
	{
		return Find(SubStr, FCString::Strlen(SubStr), SearchCase, SearchDir, StartPosition);
	}
	int32 Find(const FString& SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart, int32 StartPosition = INDEX_NONE) const
	{
		return Find(*SubStr, SubStr.Len(), SearchCase, SearchDir, StartPosition);
	}
	bool Contains(const TCHAR* SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart) const
	{
		return Find(SubStr, SearchCase, SearchDir) != INDEX_NONE;
	}
	bool Contains(const FString& SubStr, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart) const
	{
		return Find(SubStr, SearchCase, SearchDir) != INDEX_NONE;
	}
	bool FindChar(TCHAR Char, int32& OutIndex) const
	{
		OutIndex = INDEX_NONE;
		for (int32 Index = 0; Index < Len(); ++Index)
		{
			if (Data.GetData()[Index] == Char)
			{
				OutIndex = Index;
				return true;
			}
		}
		return false;
	}
	bool FindLastChar(TCHAR Char, int32& OutIndex) const
	{
		OutIndex = INDEX_NONE;
		for (int32 Index = Len() - 1; Index >= 0; --Index)
		{
			if (Data.GetData()[Index] == Char)
			{
				OutIndex = Index;
				return true;
			}
		}
		return false;
	}
	template<typename PredicateType>
	int32 FindLastCharByPredicate(PredicateType Predicate, int32 Count) const
	{
		for (int32 Index = (Count > Len() ? Len() : Count) - 1; Index >= 0; --Index)
		{
			if (Predicate(Data.GetData()[Index]))
			{
				return Index;
			}
		}
		return INDEX_NONE;
	}
	template<typename PredicateType>
	int32 FindLastCharByPredicate(PredicateType Predicate) const
	{
		return FindLastCharByPredicate(Predicate, Len());
	}
	CORE_API bool StartsWith(const TCHAR* Prefix, int32 PrefixLen, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	bool StartsWith(const TCHAR* Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const
	{
		return StartsWith(Prefix, FCString::Strlen(Prefix), SearchCase);
	}
	bool StartsWith(const FString& Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const
	{
		return StartsWith(*Prefix, Prefix.Len(), SearchCase);
	}
	CORE_API bool EndsWith(const TCHAR* Suffix, int32 SuffixLen, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	bool EndsWith(const TCHAR* Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const
	{
		return EndsWith(Suffix, FCString::Strlen(Suffix), SearchCase);
	}
	bool EndsWith(const FString& Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const
	{
		return EndsWith(*Suffix, Suffix.Len(), SearchCase);
	}
	CORE_API bool MatchesWildcard(const FString& Wildcard, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const;
	CORE_API bool Split(const FString& InS, FString* LeftS, FString* RightS, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase, ESearchDir::Type SearchDir = ESearchDir::FromStart) const;

	// Pieces
	FString Left(int32 Count) const
	{
		return FString(ClampCount(Count, Len()), **this);
	}
	FString LeftChop(int32 Count) const
	{
		return FString(ClampCount(Len() - Count, Len()), **this);
	}
	FString Right(int32 Count) const
	{
		const int32 Kept = ClampCount(Count, Len());
		return FString(Kept, **this + Len() - Kept);
	}
	FString RightChop(int32 Count) const
	{
		const int32 Kept = ClampCount(Len() - Count, Len());
		return FString(Kept, **this + Len() - Kept);
	}
	CORE_API FString Mid(int32 Start, int32 Count = MAX_int32) const;
	void LeftInline(int32 Count, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		*this = Left(Count);
	}
	void LeftChopInline(int32 Count, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		*this = LeftChop(Count);
	}
	void RightInline(int32 Count, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		*this = Right(Count);
	}
	void RightChopInline(int32 Count, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		*this = RightChop(Count);
	}
	void MidInline(int32 Start, int32 Count = MAX_int32, EAllowShrinking AllowShrinking = EAllowShrinking::Yes)
	{
		*this = Mid(Start, Count);
	}
	bool RemoveFromStart(const TCHAR* Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase)
	{
		return RemoveFromStart(FString(Prefix), SearchCase);
	}
	CORE_API bool RemoveFromStart(const FString& Prefix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	bool RemoveFromEnd(const TCHAR* Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase)
	{
		return RemoveFromEnd(FString(Suffix), SearchCase);
	}
	CORE_API bool RemoveFromEnd(const FString& Suffix, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);

	// Trimming
	CORE_API void TrimStartInline();
	CORE_API void TrimEndInline();
	void TrimStartAndEndInline()
	{
		TrimEndInline();
		TrimStartInline();
	}
	FString TrimStart() const&
	{
		FString Result(*this);
		Result.TrimStartInline();
		return Result;
	}
	FString TrimStart() &&
	{
		TrimStartInline();
		return MoveTemp(*this);
	}
	FString TrimEnd() const&
	{
		FString Result(*this);
		Result.TrimEndInline();
		return Result;
	}
	FString TrimEnd() &&
	{
		TrimEndInline();
		return MoveTemp(*this);
	}
	FString TrimStartAndEnd() const&
	{
		FString Result(*this);
		Result.TrimStartAndEndInline();
		return Result;
	}
	FString TrimStartAndEnd() &&
	{
		TrimStartAndEndInline();
		return MoveTemp(*this);
	}
	CORE_API void TrimCharInline(TCHAR CharacterToTrim, bool* bCharRemoved);
	CORE_API void TrimQuotesInline(bool* bQuotesRemoved = nullptr);
	FString TrimQuotes(bool* bQuotesRemoved = nullptr) const
	{
		FString Result(*this);
		Result.TrimQuotesInline(bQuotesRemoved);
		return Result;
	}

	// Case
	CORE_API void ToUpperInline();
	CORE_API void ToLowerInline();
	FString ToUpper() const&
	{
		FString Result(*this);
		Result.ToUpperInline();
		return Result;
	}
	FString ToUpper() &&
	{
		ToUpperInline();
		return MoveTemp(*this);
	}
	FString ToLower() const&
	{
		FString Result(*this);
		Result.ToLowerInline();
		return Result;
	}
	FString ToLower() &&
	{
		ToLowerInline();
		return MoveTemp(*this);
	}

	// Replacing: every occurrence from left to right, not overlapping.
	CORE_API int32 ReplaceInline(const TCHAR* SearchText, const TCHAR* ReplacementText, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	FString Replace(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) const&
	{
		FString Result(*this);
		Result.ReplaceInline(From, To, SearchCase);
		return Result;
	}
	FString Replace(const TCHAR* From, const TCHAR* To, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase) &&
	{
		ReplaceInline(From, To, SearchCase);
		return MoveTemp(*this);
	}
	CORE_API void ReplaceCharInline(TCHAR SearchChar, TCHAR ReplacementChar, ESearchCase::Type SearchCase = ESearchCase::IgnoreCase);
	FString ReplaceCharWithEscapedChar(const TArray<TCHAR>* Chars = nullptr) const;
	CORE_API FString ReplaceQuotesWithEscapedQuotes() const&;
	CORE_API FString ConvertTabsToSpaces(int32 SpacesPerTab) const;
	CORE_API void ReverseString();
	FString Reverse() const
	{
		FString Result(*this);
		Result.ReverseString();
		return Result;
	}
	CORE_API FString LeftPad(int32 ChCount) const;
	CORE_API FString RightPad(int32 ChCount) const;

	// Splitting
	CORE_API int32 ParseIntoArray(TArray<FString>& OutArray, const TCHAR* Delimiter, bool bCullEmpty = true) const;
	CORE_API int32 ParseIntoArray(TArray<FString>& OutArray, const TCHAR* const* DelimArray, int32 NumDelims, bool bCullEmpty = true) const;
	CORE_API int32 ParseIntoArrayLines(TArray<FString>& OutArray, bool bCullEmpty = true) const;
	CORE_API int32 ParseIntoArrayWS(TArray<FString>& OutArray, const TCHAR* ExtraDelimiter = nullptr, bool bCullEmpty = true) const;

	// Numbers
	CORE_API bool IsNumeric() const;
	CORE_API bool ToBool() const;
	static FString FromInt(int32 Number);
	CORE_API static FString SanitizeFloat(double InFloat, int32 InMinFractionalDigits = 1);
	CORE_API static FString Chr(TCHAR Char);
	CORE_API static FString ChrN(int32 NumCharacters, TCHAR Char);

	template<typename FmtType, typename... Types>
	static FString Printf(const FmtType& Format, Types... Args)
	{
		static_assert(std::is_convertible_v<const FmtType&, const TCHAR*>, "Printf needs a TEXT() format");
		if constexpr (sizeof...(Types) == 0)
		{
			return UE::Core::Private::FormatPrintf(Format, nullptr, 0);
		}
		else
		{
			const UE::Core::Private::FPrintfArg ArgArray[] = {UE::Core::Private::MakePrintfArg(Args)...};
			return UE::Core::Private::FormatPrintf(Format, ArgArray, sizeof...(Types));
		}
	}
	template<typename FmtType, typename... Types>
	FString& Appendf(const FmtType& Format, Types... Args)
	{
		return Append(Printf(Format, Args...));
	}

	template<typename RangeType>
	static FString Join(const RangeType& Range, const TCHAR* Separator)
	{
		FString Result;
		bool bFirst = true;
		for (const auto& Element : Range)
		{
			if (!bFirst)
			{
				Result += Separator;
			}
			Result += Element;
			bFirst = false;
		}
		return Result;
	}
	template<typename RangeType, typename ProjectionType>
	static FString JoinBy(const RangeType& Range, const TCHAR* Separator, ProjectionType Projection)
	{
		FString Result;
		bool bFirst = true;
		for (const auto& Element : Range)
		{
			if (!bFirst)
			{
				Result += Separator;
			}
			Result += Projection(Element);
			bFirst = false;
		}
		return Result;
	}

	// Range-for over the characters
	TCHAR* begin()
	{
		return Data.GetData();
	}
	TCHAR* end()
	{
		return Data.GetData() + Len();
	}
	const TCHAR* begin() const
	{
		return Data.GetData();
	}
	const TCHAR* end() const
	{
		return Data.GetData() + Len();
	}

private:
	static int32 ClampCount(int32 Count, int32 Max)
	{
		return Count < 0 ? 0 : (Count > Max ? Max : Count);
	}

	// The characters followed by a terminating zero, or nothing when empty.
	DataType Data;
};

CORE_API FString operator+(const FString& Lhs, const FString& Rhs);
CORE_API FString operator+(FString&& Lhs, const FString& Rhs);
CORE_API FString operator+(const FString& Lhs, const TCHAR* Rhs);
CORE_API FString operator+(FString&& Lhs, const TCHAR* Rhs);
CORE_API FString operator+(const TCHAR* Lhs, const FString& Rhs);
CORE_API FString operator/(const FString& Lhs, const FString& Rhs);
CORE_API FString operator/(const FString& Lhs, const TCHAR* Rhs);
CORE_API FString operator/(const TCHAR* Lhs, const FString& Rhs);

inline FString FString::FromInt(int32 Number)
{
	return Printf(TEXT("%d"), Number);
}

inline FString& FString::AppendInt(int32 Number)
{
	return Append(FromInt(Number));
}

// Case-insensitive, to agree with operator==.
CORE_API uint32 GetTypeHash(const FString& String);

CORE_API FString LexToString(int32 Value);
CORE_API FString LexToString(int64 Value);
CORE_API FString LexToString(uint32 Value);
CORE_API FString LexToString(uint64 Value);
CORE_API FString LexToString(float Value);
CORE_API FString LexToString(double Value);
CORE_API FString LexToString(bool Value);
inline FString LexToString(const FString& Value)
{
	return Value;
}
inline FString LexToString(const TCHAR* Value)
{
	return FString(Value);
}
CORE_API void LexFromString(int32& OutValue, const TCHAR* String);
CORE_API void LexFromString(int64& OutValue, const TCHAR* String);
CORE_API void LexFromString(float& OutValue, const TCHAR* String);
CORE_API void LexFromString(double& OutValue, const TCHAR* String);
CORE_API void LexFromString(bool& OutValue, const TCHAR* String);
CORE_API void LexFromString(FString& OutValue, const TCHAR* String);

namespace UE::Core::Private
{
	CORE_API const TCHAR* StoreAssertMessage(FString&& Message);

	template<typename... Types>
	const TCHAR* FormatAssertMessage(const TCHAR* Format, Types... Args)
	{
		return StoreAssertMessage(FString::Printf(Format, Args...));
	}
}

#include "Containers/StringConv.h"
