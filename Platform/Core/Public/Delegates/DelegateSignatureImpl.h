#pragma once

#include "CoreTypes.h"
#include "Delegates/DelegateInstancesImpl.h"
#include "Delegates/DelegateUserPolicy.h"
#include "Delegates/IDelegateInstance.h"
#include "Misc/AssertionMacros.h"
#include "Templates/SharedPointer.h"
#include "Templates/UnrealTemplate.h"

#include <type_traits>

template<typename DelegateSignature, typename UserPolicy>
class TMulticastDelegate;

/**
 * A single-cast delegate: at most one binding, which may return a value. Bindings to shared pointers hold
 * their object weakly: once it is gone the delegate is no longer bound. A payload (up to four values, copied
 * at binding time) is passed after the call's own parameters.
 */
template<typename DelegateSignature, typename UserPolicy = FDefaultDelegateUserPolicy>
class TDelegate;

template<typename InRetValType, typename... ParamTypes, typename UserPolicy>
class TDelegate<InRetValType(ParamTypes...), UserPolicy>
{
	template<typename, typename>
	friend class TMulticastDelegate;

	using FuncType = InRetValType(ParamTypes...);
	using InstanceType = UE::Delegates::Private::IBaseDelegateInstance<FuncType>;
	using InstancePtr = TSharedPtr<InstanceType, ESPMode::ThreadSafe>;
	using FScopeLock = UE::Delegates::Private::TDelegateScopeLock<UserPolicy::bIsThreadSafe>;

	template<bool bConst, typename UserClass, typename... VarTypes>
	using TMethodPtr = typename TMemFunPtrType<bConst, UserClass, InRetValType(ParamTypes..., std::decay_t<VarTypes>...)>::Type;
	template<typename... VarTypes>
	using TStaticFuncPtr = std::type_identity_t<InRetValType (*)(ParamTypes..., std::decay_t<VarTypes>...)>;

public:
	using RetValType = InRetValType;
	using TFuncType = FuncType;

	TDelegate() = default;
	TDelegate(TYPE_OF_NULLPTR)
	{
	}
	TDelegate(const TDelegate& Other)
	{
		InstancePtr OtherInstance = Other.GetInstance();
		Instance = OtherInstance.IsValid() ? OtherInstance->CreateCopy() : InstancePtr();
	}
	TDelegate(TDelegate&& Other) noexcept
	{
		FScopeLock OtherLock(Other.AccessLock);
		Instance = MoveTemp(Other.Instance);
	}
	TDelegate& operator=(const TDelegate& Other)
	{
		if (this != &Other)
		{
			InstancePtr OtherInstance = Other.GetInstance();
			SetInstance(OtherInstance.IsValid() ? OtherInstance->CreateCopy() : InstancePtr());
		}
		return *this;
	}
	TDelegate& operator=(TDelegate&& Other) noexcept
	{
		if (this != &Other)
		{
			InstancePtr Taken;
			{
				FScopeLock OtherLock(Other.AccessLock);
				Taken = MoveTemp(Other.Instance);
			}
			SetInstance(MoveTemp(Taken));
		}
		return *this;
	}

	// ---- Creation --------------------------------------------------------------------------------------

	template<typename... VarTypes>
	[[nodiscard]] static TDelegate CreateStatic(TStaticFuncPtr<VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateGuardedFunctor(UE::Delegates::Private::FNoObjectGuard(), InFunc, Forward<VarTypes>(Vars)...);
	}

	template<typename FunctorType, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateLambda(FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		return CreateGuardedFunctor(UE::Delegates::Private::FNoObjectGuard(), Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...);
	}

	/** A lambda that runs only while the shared object lives. */
	template<typename UserClass, ESPMode Mode, typename FunctorType, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateSPLambda(const TSharedRef<UserClass, Mode>& InUserObjectRef, FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		return CreateGuardedFunctor(UE::Delegates::Private::TSharedObjectGuard<UserClass, Mode>(InUserObjectRef), Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename FunctorType, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateSPLambda(UserClass* InUserObject, FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		return CreateSPLambda(StaticCastSharedRef<UserClass>(InUserObject->AsShared()), Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...);
	}

	template<typename UserClass, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	[[nodiscard]] static TDelegate CreateRaw(UserClass* InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateGuardedMethod(UE::Delegates::Private::TRawObjectGuard<UserClass>(InUserObject), InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateRaw(UserClass* InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateGuardedMethod(UE::Delegates::Private::TRawObjectGuard<UserClass>(InUserObject), InFunc, Forward<VarTypes>(Vars)...);
	}

	template<typename UserClass, ESPMode Mode, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	[[nodiscard]] static TDelegate CreateSP(const TSharedRef<UserClass, Mode>& InUserObjectRef, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateGuardedMethod(UE::Delegates::Private::TSharedObjectGuard<UserClass, Mode>(InUserObjectRef), InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(const TSharedRef<UserClass, Mode>& InUserObjectRef, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateGuardedMethod(UE::Delegates::Private::TSharedObjectGuard<UserClass, Mode>(InUserObjectRef), InFunc, Forward<VarTypes>(Vars)...);
	}
	/** A null pointer gives a delegate that is not bound. */
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	[[nodiscard]] static TDelegate CreateSP(const TSharedPtr<UserClass, Mode>& InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateGuardedMethod(UE::Delegates::Private::TSharedObjectGuard<UserClass, Mode>(InUserObject), InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(const TSharedPtr<UserClass, Mode>& InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateGuardedMethod(UE::Delegates::Private::TSharedObjectGuard<UserClass, Mode>(InUserObject), InFunc, Forward<VarTypes>(Vars)...);
	}
	/** For an object that derives from TSharedFromThis and is already owned by a shared pointer. */
	template<typename UserClass, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	[[nodiscard]] static TDelegate CreateSP(UserClass* InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateSP(StaticCastSharedRef<UserClass>(InUserObject->AsShared()), InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateSP(UserClass* InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return CreateSP(StaticCastSharedRef<UserClass>(InUserObject->AsShared()), InFunc, Forward<VarTypes>(Vars)...);
	}

	/*
	 * The two building blocks of every binding, public so that other kinds (a weak UObject binding:
	 * CreateUObject, CreateWeakLambda) can be added with nothing but a guard of their own; see
	 * DelegateInstancesImpl.h for what a guard provides.
	 */
	template<typename GuardType, typename MethodPtrType, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateGuardedMethod(GuardType&& Guard, MethodPtrType InFunc, VarTypes&&... Vars)
	{
		using ObjectType = typename std::decay_t<GuardType>::ObjectType;
		return TDelegate(UE::Delegates::Private::MakeDelegateInstance<FuncType>(Forward<GuardType>(Guard),
			[InFunc, ... Payload = Forward<VarTypes>(Vars)](ObjectType* Object, ParamTypes... Params) mutable -> RetValType
			{
				return (Object->*InFunc)(Forward<ParamTypes>(Params)..., Payload...);
			}));
	}
	template<typename GuardType, typename FunctorType, typename... VarTypes>
	[[nodiscard]] static TDelegate CreateGuardedFunctor(GuardType&& Guard, FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		return TDelegate(UE::Delegates::Private::MakeDelegateInstance<FuncType>(Forward<GuardType>(Guard),
			[Functor = Forward<FunctorType>(InFunctor), ... Payload = Forward<VarTypes>(Vars)](const void*, ParamTypes... Params) mutable -> RetValType
			{
				return Functor(Forward<ParamTypes>(Params)..., Payload...);
			}));
	}

	// ---- Binding ---------------------------------------------------------------------------------------

	template<typename... VarTypes>
	void BindStatic(TStaticFuncPtr<VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateStatic(InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename FunctorType, typename... VarTypes>
	void BindLambda(FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		*this = CreateLambda(Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename FunctorType, typename... VarTypes>
	void BindSPLambda(UserClass&& InUserObject, FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		*this = CreateSPLambda(Forward<UserClass>(InUserObject), Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	void BindRaw(UserClass* InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateRaw(InUserObject, InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename... VarTypes>
	void BindRaw(UserClass* InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateRaw(InUserObject, InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	void BindSP(const TSharedRef<UserClass, Mode>& InUserObjectRef, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateSP(InUserObjectRef, InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
	void BindSP(const TSharedRef<UserClass, Mode>& InUserObjectRef, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateSP(InUserObjectRef, InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	void BindSP(const TSharedPtr<UserClass, Mode>& InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
	void BindSP(const TSharedPtr<UserClass, Mode>& InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	void BindSP(UserClass* InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...);
	}
	template<typename UserClass, typename... VarTypes>
	void BindSP(UserClass* InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		*this = CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...);
	}

	// ---- State and calls -------------------------------------------------------------------------------

	/** Bound, and the object of a weak binding still lives. */
	bool IsBound() const
	{
		const InstancePtr Local = GetInstance();
		return Local.IsValid() && Local->IsSafeToExecute();
	}

	bool IsBoundToObject(const void* InUserObject) const
	{
		const InstancePtr Local = GetInstance();
		return Local.IsValid() && Local->HasSameObject(InUserObject);
	}

	void Unbind()
	{
		SetInstance(InstancePtr());
	}

	/** The object of a weak UObject binding; null for every other kind. */
	UObject* GetUObject() const
	{
		const InstancePtr Local = GetInstance();
		return Local.IsValid() ? Local->GetUObject() : nullptr;
	}

	/** The handle of the current binding; invalid when unbound. */
	FDelegateHandle GetHandle() const
	{
		const InstancePtr Local = GetInstance();
		return Local.IsValid() ? Local->GetHandle() : FDelegateHandle();
	}

	/** Calls the binding, which must be bound (test IsBound first). A callback may unbind or rebind this delegate. */
	RetValType Execute(ParamTypes... Params) const
	{
		const InstancePtr Local = GetInstance();
		checkf(Local.IsValid(), TEXT("Execute was called on a delegate that is not bound"));
		return Local->Execute(Forward<ParamTypes>(Params)...);
	}

	/** Calls the binding if it is bound and its object lives; tells whether it did. */
	bool ExecuteIfBound(ParamTypes... Params) const
		requires std::is_void_v<RetValType>
	{
		const InstancePtr Local = GetInstance();
		return Local.IsValid() && Local->ExecuteIfSafe(Forward<ParamTypes>(Params)...);
	}

private:
	explicit TDelegate(InstancePtr&& InInstance)
		: Instance(MoveTemp(InInstance))
	{
	}

	InstancePtr GetInstance() const
	{
		FScopeLock Lock(AccessLock);
		return Instance;
	}

	void SetInstance(InstancePtr&& NewInstance)
	{
		InstancePtr Old;
		{
			FScopeLock Lock(AccessLock);
			Old = MoveTemp(Instance);
			Instance = MoveTemp(NewInstance);
		}
		// The old binding is released outside the lock: its captures may run code of their own when destroyed.
	}

	// Shared so that a call in progress keeps its binding alive when the callback unbinds or rebinds.
	InstancePtr Instance;
	[[no_unique_address]] UE::Delegates::Private::TDelegateAccessLock<UserPolicy::bIsThreadSafe> AccessLock;
};
