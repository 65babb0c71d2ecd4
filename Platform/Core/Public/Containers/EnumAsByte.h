// TEnumAsByte: an old-style enum stored in one byte.
#pragma once

#include "CoreTypes.h"

template<class TEnum>
class TEnumAsByte
{
public:
	typedef TEnum EnumType;

	TEnumAsByte() = default;
	TEnumAsByte(const TEnumAsByte&) = default;
	TEnumAsByte& operator=(const TEnumAsByte&) = default;
	TEnumAsByte(TEnum InValue)
		: Value(static_cast<uint8>(InValue))
	{
	}
	explicit TEnumAsByte(int32 InValue)
		: Value(static_cast<uint8>(InValue))
	{
	}
	explicit TEnumAsByte(uint8 InValue)
		: Value(InValue)
	{
	}

	bool operator==(TEnum InValue) const
	{
		return static_cast<TEnum>(Value) == InValue;
	}
	bool operator==(TEnumAsByte InValue) const
	{
		return Value == InValue.Value;
	}
	operator TEnum() const
	{
		return static_cast<TEnum>(Value);
	}
	TEnum GetValue() const
	{
		return static_cast<TEnum>(Value);
	}
	uint8 GetIntValue() const
	{
		return Value;
	}

private:
	uint8 Value = 0;
};
