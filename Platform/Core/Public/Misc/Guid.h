#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

enum class EGuidFormats
{
	/** 32 upper-case hex digits: 00000000000000000000000000000000 */
	Digits,
	/** 32 lower-case hex digits. */
	DigitsLower,
	/** 00000000-0000-0000-0000-000000000000 */
	DigitsWithHyphens,
	DigitsWithHyphensLower,
	/** {00000000-0000-0000-0000-000000000000} */
	DigitsWithHyphensInBraces,
	/** (00000000-0000-0000-0000-000000000000) */
	DigitsWithHyphensInParentheses,
	/** {0x00000000,0x0000,0x0000,{0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00}} */
	HexValuesInBraces,
	/** 00000000-00000000-00000000-00000000 */
	UniqueObjectGuid,
	/** 22 characters of URL-safe base64 without padding. */
	Short,
	/** 25 characters of base 36 (0-9, A-Z). */
	Base36Encoded,
};

/** A 128-bit globally unique identifier; all zero is the invalid GUID. */
struct FGuid
{
public:
	constexpr FGuid()
		: A(0)
		, B(0)
		, C(0)
		, D(0)
	{
	}

	explicit constexpr FGuid(uint32 InA, uint32 InB, uint32 InC, uint32 InD)
		: A(InA)
		, B(InB)
		, C(InC)
		, D(InD)
	{
	}

	/** Parses any format that Parse takes; an unreadable string gives the invalid GUID. */
	explicit FGuid(const FString& InGuidStr);

	friend bool operator==(const FGuid& X, const FGuid& Y)
	{
		return ((X.A ^ Y.A) | (X.B ^ Y.B) | (X.C ^ Y.C) | (X.D ^ Y.D)) == 0;
	}
	friend bool operator!=(const FGuid& X, const FGuid& Y)
	{
		return !(X == Y);
	}
	friend bool operator<(const FGuid& X, const FGuid& Y)
	{
		return ((X.A < Y.A) ? true : ((X.A > Y.A) ? false : ((X.B < Y.B) ? true : ((X.B > Y.B) ? false : ((X.C < Y.C) ? true : ((X.C > Y.C) ? false : ((X.D < Y.D) ? true : false)))))));
	}

	uint32& operator[](int32 Index);
	const uint32& operator[](int32 Index) const;

	void Invalidate()
	{
		A = B = C = D = 0;
	}
	bool IsValid() const
	{
		return ((A | B | C | D) != 0);
	}

	FString ToString() const
	{
		return ToString(EGuidFormats::Digits);
	}
	FString ToString(EGuidFormats Format) const;
	void AppendString(FString& Out, EGuidFormats Format = EGuidFormats::DigitsWithHyphens) const;

	static FGuid NewGuid();

	/** Takes Digits, DigitsWithHyphens (in braces or parentheses or bare), HexValuesInBraces and UniqueObjectGuid, either case. */
	static bool Parse(const FString& GuidString, FGuid& OutGuid);
	static bool ParseExact(const FString& GuidString, EGuidFormats Format, FGuid& OutGuid);

	friend uint32 GetTypeHash(const FGuid& Guid)
	{
		// Mix all four words; GUIDs are random so a cheap mix spreads well.
		uint32 Hash = Guid.A;
		Hash = Hash * 31u + Guid.B;
		Hash = Hash * 31u + Guid.C;
		Hash = Hash * 31u + Guid.D;
		return Hash;
	}

	friend FString LexToString(const FGuid& Value)
	{
		return Value.ToString();
	}

	uint32 A;
	uint32 B;
	uint32 C;
	uint32 D;
};
