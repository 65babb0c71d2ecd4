// FName: an interned name. Names compare without regard to case and keep the spelling first registered.
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Templates/TypeHash.h"

// The longest name text the engine takes, with its terminator; longer texts are refused.
#define NAME_SIZE 1024

enum EName : uint32
{
	NAME_None = 0,
};

enum EFindName
{
	FNAME_Find,
	FNAME_Add,
};

enum class ENameCase : uint8
{
	CaseSensitive,
	IgnoreCase,
};

class FName
{
public:
	FName()
		: Index(0)
		, DisplayIndex(0)
	{
	}
	FName(EName Name)
		: Index(static_cast<uint32>(Name))
		, DisplayIndex(static_cast<uint32>(Name))
	{
	}
	FName(const TCHAR* Name, EFindName FindType = FNAME_Add)
	{
		Init(Name, FCString::Strlen(Name), FindType);
	}
	FName(const FString& Name, EFindName FindType = FNAME_Add)
	{
		Init(*Name, Name.Len(), FindType);
	}
	FName(int32 Length, const TCHAR* Name, EFindName FindType = FNAME_Add)
	{
		Init(Name, Length, FindType);
	}
	CORE_API FName(const ANSICHAR* Name, EFindName FindType = FNAME_Add);
	explicit FName(FStringView Name, EFindName FindType = FNAME_Add)
	{
		Init(Name.GetData(), Name.Len(), FindType);
	}

	CORE_API FString ToString() const;
	void ToString(FString& Out) const
	{
		Out = ToString();
	}
	void AppendString(FString& Out) const
	{
		Out += ToString();
	}
	FString GetPlainNameString() const
	{
		return ToString();
	}
	bool IsNone() const
	{
		return Index == 0;
	}
	bool IsValid() const
	{
		return true;
	}
	int32 GetNumber() const
	{
		return 0;
	}
	uint32 GetComparisonIndex() const
	{
		return Index;
	}
	// The name spelled for people: words split at case changes, '_' as spaces, a bool's leading 'b' dropped.
	CORE_API static FString NameToDisplayString(const FString& InDisplayName, const bool bIsBool);

	CORE_API bool IsEqual(const FName& Other, ENameCase CompareMethod = ENameCase::IgnoreCase, bool bCompareNumber = true) const;
	// Lexical order, ignoring case.
	CORE_API int32 Compare(const FName& Other) const;
	bool LexicalLess(const FName& Other) const
	{
		return Compare(Other) < 0;
	}
	bool FastLess(const FName& Other) const
	{
		return Index < Other.Index;
	}

	bool operator==(const FName& Other) const
	{
		return Index == Other.Index;
	}
	bool operator!=(const FName& Other) const
	{
		return Index != Other.Index;
	}
	bool operator==(EName Other) const
	{
		return Index == static_cast<uint32>(Other);
	}
	bool operator!=(EName Other) const
	{
		return Index != static_cast<uint32>(Other);
	}
	CORE_API bool operator==(const TCHAR* Other) const;
	bool operator!=(const TCHAR* Other) const
	{
		return !(*this == Other);
	}

	friend uint32 GetTypeHash(const FName& Name)
	{
		return Name.Index * 0x9E3779B1u;
	}

private:
	// Finds or adds the name: its comparison index (case folded) and its display index (as spelled), as
	// the editor's case-preserving names do.
	CORE_API void Init(const TCHAR* Name, int32 Length, EFindName FindType);

	uint32 Index;
	uint32 DisplayIndex;
};

inline FString LexToString(const FName& Name)
{
	return Name.ToString();
}

struct FNameLexicalLess
{
	bool operator()(const FName& A, const FName& B) const
	{
		return A.LexicalLess(B);
	}
};

struct FNameFastLess
{
	bool operator()(const FName& A, const FName& B) const
	{
		return A.FastLess(B);
	}
};
