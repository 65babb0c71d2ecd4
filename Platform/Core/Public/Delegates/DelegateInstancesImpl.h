#pragma once

#include "CoreTypes.h"
#include "Delegates/IDelegateInstance.h"
#include "Misc/AssertionMacros.h"
#include "Templates/SharedPointer.h"
#include "Templates/UnrealTemplate.h"

#include <type_traits>

/** The type of a pointer to a member function of Class, const or not. */
template<bool bConst, typename Class, typename FuncType>
struct TMemFunPtrType;

template<typename Class, typename RetType, typename... ArgTypes>
struct TMemFunPtrType<false, Class, RetType(ArgTypes...)>
{
	typedef RetType (std::remove_const_t<Class>::*Type)(ArgTypes...);
};

template<typename Class, typename RetType, typename... ArgTypes>
struct TMemFunPtrType<true, Class, RetType(ArgTypes...)>
{
	typedef RetType (std::remove_const_t<Class>::*Type)(ArgTypes...) const;
};

namespace UE::Delegates::Private
{
	/** One binding of a delegate with a given signature. */
	template<typename FuncType>
	class IBaseDelegateInstance;

	template<typename RetValType, typename... ParamTypes>
	class IBaseDelegateInstance<RetValType(ParamTypes...)> : public IDelegateInstance
	{
	public:
		/** Calls the binding; its object must still live (see IsSafeToExecute). */
		virtual RetValType Execute(ParamTypes... Params) const = 0;

		/** Calls the binding if its object still lives, keeping it alive for the call; the result is dropped. */
		virtual bool ExecuteIfSafe(ParamTypes... Params) const = 0;

		/** A copy that keeps the handle, as a copied delegate names the same binding. */
		virtual TSharedPtr<IBaseDelegateInstance, ESPMode::ThreadSafe> CreateCopy() const = 0;
	};

	/*
	 * Guards: how a binding holds its object. Each has Pin() (holds the object for the length of one call),
	 * IsPinned(Pinned), GetObject(Pinned), IsAlive() and HasSameObject(). A weak UObject binding needs
	 * only a guard of its own, with GetUObject() besides.
	 */

	/** Static functions and lambdas: no object. */
	struct FNoObjectGuard
	{
		using ObjectType = const void;
		struct FPinned
		{
		};

		FPinned Pin() const
		{
			return FPinned();
		}
		static bool IsPinned(const FPinned&)
		{
			return true;
		}
		static const void* GetObject(const FPinned&)
		{
			return nullptr;
		}
		bool IsAlive() const
		{
			return true;
		}
		bool HasSameObject(const void*) const
		{
			return false;
		}
	};

	/** A raw pointer: the caller keeps the object alive for as long as it stays bound. */
	template<typename UserClass>
	struct TRawObjectGuard
	{
		using ObjectType = UserClass;

		explicit TRawObjectGuard(UserClass* InObject)
			: Object(InObject)
		{
		}

		UserClass* Pin() const
		{
			return Object;
		}
		static bool IsPinned(UserClass*)
		{
			return true;
		}
		static UserClass* GetObject(UserClass* Pinned)
		{
			return Pinned;
		}
		bool IsAlive() const
		{
			return true;
		}
		bool HasSameObject(const void* Other) const
		{
			return Object == Other;
		}

		UserClass* Object;
	};

	/** A weak shared pointer: the binding dies with the object and keeps it alive while it runs. */
	template<typename UserClass, ESPMode Mode>
	struct TSharedObjectGuard
	{
		using ObjectType = UserClass;

		explicit TSharedObjectGuard(const TWeakPtr<UserClass, Mode>& InObject)
			: Object(InObject)
		{
		}

		TSharedPtr<UserClass, Mode> Pin() const
		{
			return Object.Pin();
		}
		static bool IsPinned(const TSharedPtr<UserClass, Mode>& Pinned)
		{
			return Pinned.IsValid();
		}
		static UserClass* GetObject(const TSharedPtr<UserClass, Mode>& Pinned)
		{
			return Pinned.Get();
		}
		bool IsAlive() const
		{
			return Object.IsValid();
		}
		bool HasSameObject(const void* Other) const
		{
			return Object.HasSameObject(Other);
		}

		TWeakPtr<UserClass, Mode> Object;
	};

	/**
	 * A binding made of a guard and a callable that takes the guarded object first, then the delegate's
	 * parameters (the payload lives inside the callable).
	 */
	template<typename FuncType, typename GuardType, typename CallableType>
	class TDelegateInstance;

	template<typename RetValType, typename... ParamTypes, typename GuardType, typename CallableType>
	class TDelegateInstance<RetValType(ParamTypes...), GuardType, CallableType> final : public IBaseDelegateInstance<RetValType(ParamTypes...)>
	{
		using BaseType = IBaseDelegateInstance<RetValType(ParamTypes...)>;

	public:
		TDelegateInstance(GuardType InGuard, CallableType InCallable)
			: Guard(MoveTemp(InGuard))
			, Callable(MoveTemp(InCallable))
			, Handle(FDelegateHandle::GenerateNewHandle)
		{
		}

		RetValType Execute(ParamTypes... Params) const override
		{
			const auto Pinned = Guard.Pin();
			checkf(GuardType::IsPinned(Pinned), TEXT("A delegate was executed after its object was destroyed"));
			return Callable(GuardType::GetObject(Pinned), Forward<ParamTypes>(Params)...);
		}

		bool ExecuteIfSafe(ParamTypes... Params) const override
		{
			const auto Pinned = Guard.Pin();
			if (!GuardType::IsPinned(Pinned))
			{
				return false;
			}
			(void)Callable(GuardType::GetObject(Pinned), Forward<ParamTypes>(Params)...);
			return true;
		}

		TSharedPtr<BaseType, ESPMode::ThreadSafe> CreateCopy() const override
		{
			return MakeShared<TDelegateInstance, ESPMode::ThreadSafe>(*this);
		}

		FDelegateHandle GetHandle() const override
		{
			return Handle;
		}

		bool HasSameObject(const void* InUserObject) const override
		{
			return InUserObject != nullptr && Guard.HasSameObject(InUserObject);
		}

		bool IsSafeToExecute() const override
		{
			return Guard.IsAlive();
		}

		UObject* GetUObject() const override
		{
			if constexpr (requires { Guard.GetUObject(); })
			{
				return Guard.GetUObject();
			}
			else
			{
				return nullptr;
			}
		}

	private:
		GuardType Guard;
		// Mutable so that a mutable lambda keeps its state between calls, as bound through a const delegate.
		mutable CallableType Callable;
		FDelegateHandle Handle;
	};

	template<typename FuncType, typename GuardType, typename CallableType>
	TSharedPtr<IBaseDelegateInstance<FuncType>, ESPMode::ThreadSafe> MakeDelegateInstance(GuardType&& Guard, CallableType&& Callable)
	{
		using InstanceType = TDelegateInstance<FuncType, std::decay_t<GuardType>, std::decay_t<CallableType>>;
		return MakeShared<InstanceType, ESPMode::ThreadSafe>(Forward<GuardType>(Guard), Forward<CallableType>(Callable));
	}
}
