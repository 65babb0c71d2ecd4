#pragma once

#include "CoreTypes.h"
#include <type_traits>
#include <utility>

template<typename T>
constexpr std::remove_reference_t<T>&& MoveTemp(T&& Obj)
{
	static_assert(!std::is_const_v<std::remove_reference_t<T>>, "MoveTemp of a const object");
	return static_cast<std::remove_reference_t<T>&&>(Obj);
}

template<typename T>
constexpr std::remove_reference_t<T>&& MoveTempIfPossible(T&& Obj)
{
	return static_cast<std::remove_reference_t<T>&&>(Obj);
}

template<typename T>
constexpr T&& Forward(std::remove_reference_t<T>& Obj)
{
	return static_cast<T&&>(Obj);
}

template<typename T>
constexpr T&& Forward(std::remove_reference_t<T>&& Obj)
{
	return static_cast<T&&>(Obj);
}

template<typename T>
T CopyTemp(const T& Val)
{
	return Val;
}

template<typename T>
inline void Swap(T& A, T& B)
{
	T Temp = MoveTemp(A);
	A = MoveTemp(B);
	B = MoveTemp(Temp);
}

template<typename T, typename U = T>
T Exchange(T& Target, U&& NewValue)
{
	T Old = MoveTemp(Target);
	Target = Forward<U>(NewValue);
	return Old;
}

template<typename T>
struct TGuardValue
{
	TGuardValue(T& InReference, const T& NewValue)
		: Reference(InReference)
		, OldValue(InReference)
	{
		Reference = NewValue;
	}
	~TGuardValue()
	{
		Reference = OldValue;
	}
	TGuardValue(const TGuardValue&) = delete;
	TGuardValue& operator=(const TGuardValue&) = delete;

private:
	T& Reference;
	T OldValue;
};

class FNoncopyable
{
protected:
	FNoncopyable() = default;
	~FNoncopyable() = default;

private:
	FNoncopyable(const FNoncopyable&) = delete;
	FNoncopyable& operator=(const FNoncopyable&) = delete;
};

template<typename T>
using TRemoveReference = std::remove_reference<T>;
template<typename T>
using TDecay = std::decay<T>;
