#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Delegates/DelegateSignatureImpl.h"

#include <type_traits>

/**
 * A multicast delegate: any number of bindings, called by Broadcast. As in the engine, the order of the
 * calls is not guaranteed (they run from the newest binding to the oldest, and a removal may reorder them).
 * A callback may add or remove bindings, itself included, while a broadcast runs: a binding removed
 * then is not called afterwards, and one added then waits for the next broadcast.
 */
template<typename DelegateSignature, typename UserPolicy = FDefaultDelegateUserPolicy>
class TMulticastDelegate
{
	static_assert(sizeof(DelegateSignature) == 0, "A multicast delegate must return void");
};

template<typename... ParamTypes, typename UserPolicy>
class TMulticastDelegate<void(ParamTypes...), UserPolicy>
{
public:
	using FDelegate = TDelegate<void(ParamTypes...), UserPolicy>;

private:
	using InstancePtr = typename FDelegate::InstancePtr;
	using FScopeLock = typename FDelegate::FScopeLock;

	template<bool bConst, typename UserClass, typename... VarTypes>
	using TMethodPtr = typename FDelegate::template TMethodPtr<bConst, UserClass, VarTypes...>;
	template<typename... VarTypes>
	using TStaticFuncPtr = typename FDelegate::template TStaticFuncPtr<VarTypes...>;

public:
	TMulticastDelegate() = default;
	TMulticastDelegate(const TMulticastDelegate& Other)
	{
		CopyFrom(Other);
	}
	TMulticastDelegate& operator=(const TMulticastDelegate& Other)
	{
		if (this != &Other)
		{
			Clear();
			CopyFrom(Other);
		}
		return *this;
	}

	/** Adds a binding; an unbound delegate is not added and gives an invalid handle. */
	FDelegateHandle Add(const FDelegate& InNewDelegate)
	{
		return AddInstance(FDelegate(InNewDelegate).GetInstance());
	}
	FDelegateHandle Add(FDelegate&& InNewDelegate)
	{
		return AddInstance(InNewDelegate.GetInstance());
	}

	template<typename... VarTypes>
	FDelegateHandle AddStatic(TStaticFuncPtr<VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateStatic(InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename FunctorType, typename... VarTypes>
	FDelegateHandle AddLambda(FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateLambda(Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, typename FunctorType, typename... VarTypes>
	FDelegateHandle AddSPLambda(UserClass&& InUserObject, FunctorType&& InFunctor, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateSPLambda(Forward<UserClass>(InUserObject), Forward<FunctorType>(InFunctor), Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	FDelegateHandle AddRaw(UserClass* InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateRaw(InUserObject, InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, typename... VarTypes>
	FDelegateHandle AddRaw(UserClass* InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateRaw(InUserObject, InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	FDelegateHandle AddSP(const TSharedRef<UserClass, Mode>& InUserObjectRef, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateSP(InUserObjectRef, InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
	FDelegateHandle AddSP(const TSharedRef<UserClass, Mode>& InUserObjectRef, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateSP(InUserObjectRef, InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	FDelegateHandle AddSP(const TSharedPtr<UserClass, Mode>& InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, ESPMode Mode, typename... VarTypes>
	FDelegateHandle AddSP(const TSharedPtr<UserClass, Mode>& InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, typename... VarTypes>
		requires(!std::is_const_v<UserClass>)
	FDelegateHandle AddSP(UserClass* InUserObject, TMethodPtr<false, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...));
	}
	template<typename UserClass, typename... VarTypes>
	FDelegateHandle AddSP(UserClass* InUserObject, TMethodPtr<true, UserClass, VarTypes...> InFunc, VarTypes&&... Vars)
	{
		return Add(FDelegate::CreateSP(InUserObject, InFunc, Forward<VarTypes>(Vars)...));
	}

	/** Removes the binding that the handle names; tells whether there was one. */
	bool Remove(FDelegateHandle Handle)
	{
		if (!Handle.IsValid())
		{
			return false;
		}
		InstancePtr Removed;
		{
			FScopeLock Lock(AccessLock);
			for (int32 Index = 0; Index < InvocationList.Num(); ++Index)
			{
				if (InvocationList[Index].IsValid() && InvocationList[Index]->GetHandle() == Handle)
				{
					Removed = DetachAt(Index);
					break;
				}
			}
		}
		return Removed.IsValid();
	}

	/** Removes every binding whose object is the given one; gives how many were removed. */
	int32 RemoveAll(const void* InUserObject)
	{
		TArray<InstancePtr> Removed;
		{
			FScopeLock Lock(AccessLock);
			for (int32 Index = InvocationList.Num() - 1; Index >= 0; --Index)
			{
				if (InvocationList[Index].IsValid() && InvocationList[Index]->HasSameObject(InUserObject))
				{
					Removed.Add(DetachAt(Index));
				}
			}
		}
		return Removed.Num();
	}

	void Clear()
	{
		TArray<InstancePtr> Removed;
		{
			FScopeLock Lock(AccessLock);
			for (int32 Index = InvocationList.Num() - 1; Index >= 0; --Index)
			{
				if (InvocationList[Index].IsValid())
				{
					Removed.Add(DetachAt(Index));
				}
			}
		}
	}

	/** Whether some binding would run, i.e. is there and its object lives. */
	bool IsBound() const
	{
		FScopeLock Lock(AccessLock);
		for (const InstancePtr& Entry : InvocationList)
		{
			if (Entry.IsValid() && Entry->IsSafeToExecute())
			{
				return true;
			}
		}
		return false;
	}

	bool IsBoundToObject(const void* InUserObject) const
	{
		FScopeLock Lock(AccessLock);
		for (const InstancePtr& Entry : InvocationList)
		{
			if (Entry.IsValid() && Entry->HasSameObject(InUserObject))
			{
				return true;
			}
		}
		return false;
	}

	/** Calls every binding whose object lives. */
	void Broadcast(ParamTypes... Params) const
	{
		FScopeLock Lock(AccessLock);
		++BroadcastDepth;
		// From the end, so that bindings added by the callbacks (appended) are left for the next broadcast.
		for (int32 Index = InvocationList.Num() - 1; Index >= 0; --Index)
		{
			// A local reference keeps the binding alive if its own callback removes it.
			const InstancePtr Entry = InvocationList[Index];
			if (Entry.IsValid() && !Entry->ExecuteIfSafe(Params...))
			{
				bNeedsCompaction = true;
			}
		}
		--BroadcastDepth;
		if (BroadcastDepth == 0 && bNeedsCompaction)
		{
			Compact();
		}
	}

private:
	FDelegateHandle AddInstance(InstancePtr&& NewInstance)
	{
		if (!NewInstance.IsValid())
		{
			return FDelegateHandle();
		}
		const FDelegateHandle Handle = NewInstance->GetHandle();
		FScopeLock Lock(AccessLock);
		if (BroadcastDepth == 0)
		{
			Compact();
		}
		InvocationList.Add(MoveTemp(NewInstance));
		return Handle;
	}

	/** Takes a binding out of the list; during a broadcast its slot is emptied instead, so indices hold. */
	InstancePtr DetachAt(int32 Index)
	{
		InstancePtr Detached = MoveTemp(InvocationList[Index]);
		InvocationList[Index].Reset();
		if (BroadcastDepth > 0)
		{
			bNeedsCompaction = true;
		}
		else
		{
			InvocationList.RemoveAtSwap(Index);
		}
		return Detached;
	}

	/** Drops emptied slots and bindings whose object has gone. */
	void Compact() const
	{
		for (int32 Index = InvocationList.Num() - 1; Index >= 0; --Index)
		{
			if (!InvocationList[Index].IsValid() || InvocationList[Index]->IsCompactable())
			{
				InvocationList.RemoveAtSwap(Index);
			}
		}
		bNeedsCompaction = false;
	}

	void CopyFrom(const TMulticastDelegate& Other)
	{
		FScopeLock OtherLock(Other.AccessLock);
		for (const InstancePtr& Entry : Other.InvocationList)
		{
			if (Entry.IsValid())
			{
				AddInstance(Entry->CreateCopy());
			}
		}
	}

	// Mutable because a broadcast, which is const, tidies the list once no broadcast is running.
	mutable TArray<InstancePtr> InvocationList;
	mutable int32 BroadcastDepth = 0;
	mutable bool bNeedsCompaction = false;
	[[no_unique_address]] UE::Delegates::Private::TDelegateAccessLock<UserPolicy::bIsThreadSafe> AccessLock;
};
