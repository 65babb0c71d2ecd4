// A non-owning view of characters.
#pragma once

#include "CoreTypes.h"
#include "Containers/StringFwd.h"
#include "Misc/CString.h"

template<typename CharType>
class TStringView
{
public:
	using ElementType = CharType;

	constexpr TStringView() = default;
	constexpr TStringView(const CharType* InData)
		: DataPtr(InData)
		, Size(TCString<CharType>::Strlen(InData))
	{
	}
	constexpr TStringView(const CharType* InData, int32 InSize)
		: DataPtr(InData)
		, Size(InSize)
	{
	}
	template<typename StringType, typename = decltype(std::declval<const StringType&>().Len()), typename = decltype(*std::declval<const StringType&>())>
	TStringView(const StringType& String)
		: DataPtr(*String)
		, Size(String.Len())
	{
	}

	const CharType* GetData() const
	{
		return DataPtr;
	}
	int32 Len() const
	{
		return Size;
	}
	bool IsEmpty() const
	{
		return Size == 0;
	}
	const CharType& operator[](int32 Index) const
	{
		return DataPtr[Index];
	}
	TStringView Left(int32 Count) const
	{
		return TStringView(DataPtr, Count < 0 ? 0 : (Count > Size ? Size : Count));
	}
	TStringView Mid(int32 Position, int32 Count = MAX_int32) const
	{
		const int32 Start = Position < 0 ? 0 : (Position > Size ? Size : Position);
		const int32 Available = Size - Start;
		return TStringView(DataPtr + Start, Count < 0 ? 0 : (Count > Available ? Available : Count));
	}
	bool Equals(TStringView Other) const
	{
		return Size == Other.Size && TCString<CharType>::Strncmp(DataPtr, Other.DataPtr, Size) == 0;
	}
	const CharType* begin() const
	{
		return DataPtr;
	}
	const CharType* end() const
	{
		return DataPtr + Size;
	}

private:
	const CharType* DataPtr = nullptr;
	int32 Size = 0;
};

#include <utility>
