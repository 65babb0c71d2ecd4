#pragma once

#include "CoreTypes.h"
#include "HAL/CriticalSection.h"
#include "Misc/AssertionMacros.h"

/** Holds a critical section for the rest of the scope, or until Unlock. */
class FScopeLock
{
public:
	explicit FScopeLock(FCriticalSection* InSynchObject)
		: SynchObject(InSynchObject)
	{
		check(SynchObject);
		SynchObject->Lock();
	}
	~FScopeLock()
	{
		Unlock();
	}
	FScopeLock(const FScopeLock&) = delete;
	FScopeLock& operator=(const FScopeLock&) = delete;

	/** Releases the lock before the scope ends; the destructor then does nothing. */
	void Unlock()
	{
		if (SynchObject)
		{
			SynchObject->Unlock();
			SynchObject = nullptr;
		}
	}

private:
	FCriticalSection* SynchObject;
};

/** Releases a held critical section for the rest of the scope and takes it back at its end. */
class FScopeUnlock
{
public:
	explicit FScopeUnlock(FCriticalSection* InSynchObject)
		: SynchObject(InSynchObject)
	{
		if (SynchObject)
		{
			SynchObject->Unlock();
		}
	}
	~FScopeUnlock()
	{
		if (SynchObject)
		{
			SynchObject->Lock();
		}
	}
	FScopeUnlock(const FScopeUnlock&) = delete;
	FScopeUnlock& operator=(const FScopeUnlock&) = delete;

private:
	FCriticalSection* SynchObject;
};
