#pragma once

#include "CoreTypes.h"

#include <mutex>
#include <shared_mutex>

/** A recursive mutex, as the engine's critical section is on every platform: the owner may lock it again. */
class FCriticalSection
{
public:
	FCriticalSection() = default;
	FCriticalSection(const FCriticalSection&) = delete;
	FCriticalSection& operator=(const FCriticalSection&) = delete;

	void Lock()
	{
		Mutex.lock();
	}
	bool TryLock()
	{
		return Mutex.try_lock();
	}
	void Unlock()
	{
		Mutex.unlock();
	}

private:
	std::recursive_mutex Mutex;
};

/** A reader-writer lock; unlike FCriticalSection it is not recursive. */
class FRWLock
{
public:
	FRWLock() = default;
	FRWLock(const FRWLock&) = delete;
	FRWLock& operator=(const FRWLock&) = delete;

	void ReadLock()
	{
		Mutex.lock_shared();
	}
	void ReadUnlock()
	{
		Mutex.unlock_shared();
	}
	bool TryReadLock()
	{
		return Mutex.try_lock_shared();
	}
	void WriteLock()
	{
		Mutex.lock();
	}
	void WriteUnlock()
	{
		Mutex.unlock();
	}
	bool TryWriteLock()
	{
		return Mutex.try_lock();
	}

private:
	std::shared_mutex Mutex;
};
