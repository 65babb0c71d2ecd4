#pragma once

#include "CoreTypes.h"
#include "Misc/AssertionMacros.h"
#include <optional>
#include <utility>

template<typename OptionalType>
class TOptional
{
public:
	TOptional() = default;
	TOptional(const OptionalType& InValue)
		: Value(InValue)
	{
	}
	TOptional(OptionalType&& InValue)
		: Value(std::move(InValue))
	{
	}
	TOptional(TYPE_OF_NULLPTR) = delete;

	template<typename... ArgTypes>
	OptionalType& Emplace(ArgTypes&&... Args)
	{
		return Value.emplace(std::forward<ArgTypes>(Args)...);
	}
	void Reset()
	{
		Value.reset();
	}
	bool IsSet() const
	{
		return Value.has_value();
	}
	explicit operator bool() const
	{
		return Value.has_value();
	}
	OptionalType& GetValue()
	{
		check(IsSet());
		return *Value;
	}
	const OptionalType& GetValue() const
	{
		check(IsSet());
		return *Value;
	}
	const OptionalType& Get(const OptionalType& DefaultValue) const
	{
		return IsSet() ? *Value : DefaultValue;
	}
	OptionalType* GetPtrOrNull()
	{
		return IsSet() ? &*Value : nullptr;
	}
	const OptionalType* GetPtrOrNull() const
	{
		return IsSet() ? &*Value : nullptr;
	}
	OptionalType& operator*()
	{
		return GetValue();
	}
	const OptionalType& operator*() const
	{
		return GetValue();
	}
	OptionalType* operator->()
	{
		return &GetValue();
	}
	const OptionalType* operator->() const
	{
		return &GetValue();
	}
	bool operator==(const TOptional& Other) const
	{
		return Value == Other.Value;
	}
	bool operator!=(const TOptional& Other) const
	{
		return !(*this == Other);
	}

private:
	std::optional<OptionalType> Value;
};
