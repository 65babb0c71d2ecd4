#pragma once

#include "CoreTypes.h"
#include "Misc/AssertionMacros.h"
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

template<typename FuncType>
class TFunction;

// A copyable callable, empty until assigned.
template<typename Ret, typename... ParamTypes>
class TFunction<Ret(ParamTypes...)>
{
public:
	TFunction() = default;
	TFunction(TYPE_OF_NULLPTR)
	{
	}
	template<typename FunctorType, typename = std::enable_if_t<!std::is_same_v<std::decay_t<FunctorType>, TFunction> && std::is_invocable_r_v<Ret, std::decay_t<FunctorType>&, ParamTypes...>>>
	TFunction(FunctorType&& Functor)
		: Impl(std::forward<FunctorType>(Functor))
	{
	}

	Ret operator()(ParamTypes... Params) const
	{
		check(IsSet());
		return Impl(std::forward<ParamTypes>(Params)...);
	}
	bool IsSet() const
	{
		return static_cast<bool>(Impl);
	}
	explicit operator bool() const
	{
		return IsSet();
	}
	void Reset()
	{
		Impl = nullptr;
	}
	void CheckCallable() const
	{
		check(IsSet());
	}

private:
	std::function<Ret(ParamTypes...)> Impl;
};

template<typename FuncType>
class TUniqueFunction;

// A move-only callable: it may own move-only state such as TUniquePtr.
template<typename Ret, typename... ParamTypes>
class TUniqueFunction<Ret(ParamTypes...)>
{
	struct FCallableBase
	{
		virtual ~FCallableBase() = default;
		virtual Ret Call(ParamTypes&&... Params) = 0;
	};
	template<typename FunctorType>
	struct TCallable final : FCallableBase
	{
		explicit TCallable(FunctorType&& InFunctor)
			: Functor(std::move(InFunctor))
		{
		}
		explicit TCallable(const FunctorType& InFunctor)
			: Functor(InFunctor)
		{
		}
		Ret Call(ParamTypes&&... Params) override
		{
			return std::invoke(Functor, std::forward<ParamTypes>(Params)...);
		}
		FunctorType Functor;
	};

public:
	TUniqueFunction() = default;
	TUniqueFunction(TYPE_OF_NULLPTR)
	{
	}
	template<typename FunctorType, typename = std::enable_if_t<!std::is_same_v<std::decay_t<FunctorType>, TUniqueFunction> && std::is_invocable_r_v<Ret, std::decay_t<FunctorType>&, ParamTypes...>>>
	TUniqueFunction(FunctorType&& Functor)
	{
		if constexpr (std::is_pointer_v<std::decay_t<FunctorType>> || std::is_constructible_v<bool, std::decay_t<FunctorType>&>)
		{
			if (!static_cast<bool>(Functor))
			{
				return;
			}
		}
		Callable = std::make_unique<TCallable<std::decay_t<FunctorType>>>(std::forward<FunctorType>(Functor));
	}
	TUniqueFunction(TUniqueFunction&&) = default;
	TUniqueFunction& operator=(TUniqueFunction&&) = default;
	TUniqueFunction(const TUniqueFunction&) = delete;
	TUniqueFunction& operator=(const TUniqueFunction&) = delete;

	Ret operator()(ParamTypes... Params) const
	{
		check(IsSet());
		return Callable->Call(std::forward<ParamTypes>(Params)...);
	}
	bool IsSet() const
	{
		return Callable != nullptr;
	}
	explicit operator bool() const
	{
		return IsSet();
	}
	void Reset()
	{
		Callable.reset();
	}

private:
	std::unique_ptr<FCallableBase> Callable;
};

template<typename FuncType>
class TFunctionRef;

// A non-owning reference to a callable that outlives the call it is passed to.
template<typename Ret, typename... ParamTypes>
class TFunctionRef<Ret(ParamTypes...)>
{
public:
	template<typename FunctorType, typename = std::enable_if_t<!std::is_same_v<std::decay_t<FunctorType>, TFunctionRef> && std::is_invocable_r_v<Ret, std::decay_t<FunctorType>&, ParamTypes...>>>
	TFunctionRef(FunctorType&& Functor)
		: Object(const_cast<void*>(static_cast<const void*>(std::addressof(Functor))))
		, Invoker([](void* Obj, ParamTypes&&... Params) -> Ret
		  {
			  return std::invoke(*static_cast<std::remove_reference_t<FunctorType>*>(Obj), std::forward<ParamTypes>(Params)...);
		  })
	{
	}

	Ret operator()(ParamTypes... Params) const
	{
		return Invoker(Object, std::forward<ParamTypes>(Params)...);
	}

private:
	void* Object;
	Ret (*Invoker)(void*, ParamTypes&&...);
};
