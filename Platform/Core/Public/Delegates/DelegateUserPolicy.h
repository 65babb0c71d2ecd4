#pragma once

#include "CoreTypes.h"

#include <mutex>

/** Delegates for one thread at a time: no locking. */
struct FDefaultDelegateUserPolicy
{
	static constexpr bool bIsThreadSafe = false;
};

/** Delegates that may be bound, unbound and called from several threads at once. */
struct FDefaultTSDelegateUserPolicy
{
	static constexpr bool bIsThreadSafe = true;
};

namespace UE::Delegates::Private
{
	/** Guards a delegate's bindings when the policy asks for it, and costs nothing when it does not. */
	template<bool bThreadSafe>
	class TDelegateAccessLock
	{
	public:
		void Lock() const
		{
		}
		void Unlock() const
		{
		}
	};

	template<>
	class TDelegateAccessLock<true>
	{
	public:
		TDelegateAccessLock() = default;
		// A copied delegate gets a lock of its own.
		TDelegateAccessLock(const TDelegateAccessLock&)
		{
		}
		TDelegateAccessLock& operator=(const TDelegateAccessLock&)
		{
			return *this;
		}

		// Recursive so that a callback may bind, unbind or add on the delegate that is calling it.
		void Lock() const
		{
			Mutex.lock();
		}
		void Unlock() const
		{
			Mutex.unlock();
		}

	private:
		mutable std::recursive_mutex Mutex;
	};

	template<bool bThreadSafe>
	class TDelegateScopeLock
	{
	public:
		explicit TDelegateScopeLock(const TDelegateAccessLock<bThreadSafe>& InLock)
			: Lock(InLock)
		{
			Lock.Lock();
		}
		~TDelegateScopeLock()
		{
			Lock.Unlock();
		}
		TDelegateScopeLock(const TDelegateScopeLock&) = delete;
		TDelegateScopeLock& operator=(const TDelegateScopeLock&) = delete;

	private:
		const TDelegateAccessLock<bThreadSafe>& Lock;
	};
}
