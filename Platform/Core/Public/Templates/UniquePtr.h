#pragma once

#include "CoreTypes.h"
#include <memory>
#include <utility>

template<typename T, typename Deleter = std::default_delete<T>>
class TUniquePtr : public std::unique_ptr<T, Deleter>
{
	using Super = std::unique_ptr<T, Deleter>;

public:
	using Super::Super;
	TUniquePtr() = default;
	TUniquePtr(TUniquePtr&&) = default;
	TUniquePtr& operator=(TUniquePtr&&) = default;
	template<typename U, typename E>
	TUniquePtr(TUniquePtr<U, E>&& Other)
		: Super(std::move(static_cast<std::unique_ptr<U, E>&>(Other)))
	{
	}
	template<typename U, typename E>
	TUniquePtr& operator=(TUniquePtr<U, E>&& Other)
	{
		Super::operator=(std::move(static_cast<std::unique_ptr<U, E>&>(Other)));
		return *this;
	}
	TUniquePtr& operator=(TYPE_OF_NULLPTR)
	{
		Super::reset();
		return *this;
	}

	bool IsValid() const
	{
		return Super::get() != nullptr;
	}
	T* Get() const
	{
		return Super::get();
	}
	T* Release()
	{
		return Super::release();
	}
	void Reset(T* NewPtr = nullptr)
	{
		Super::reset(NewPtr);
	}
};

template<typename T, typename... ArgTypes>
TUniquePtr<T> MakeUnique(ArgTypes&&... Args)
{
	return TUniquePtr<T>(new T(std::forward<ArgTypes>(Args)...));
}
