#pragma once

#include "CoreTypes.h"
#include "Templates/TypeHash.h"

class UObject;

/** Names one binding of a delegate, so that it can be removed from a multicast delegate later. */
class FDelegateHandle
{
public:
	enum EGenerateNewHandleType
	{
		GenerateNewHandle
	};

	/** An invalid handle: it names no binding. */
	FDelegateHandle()
		: ID(0)
	{
	}

	explicit FDelegateHandle(EGenerateNewHandleType)
		: ID(GenerateNewID())
	{
	}

	bool IsValid() const
	{
		return ID != 0;
	}

	void Reset()
	{
		ID = 0;
	}

	bool operator==(const FDelegateHandle& Rhs) const
	{
		return ID == Rhs.ID;
	}

	bool operator!=(const FDelegateHandle& Rhs) const
	{
		return ID != Rhs.ID;
	}

	friend uint32 GetTypeHash(const FDelegateHandle& Key)
	{
		return GetTypeHash(Key.ID);
	}

private:
	/** Unique for the life of the process, from any thread; never zero. */
	static CORE_API uint64 GenerateNewID();

	uint64 ID;
};

/** What every bound delegate tells about itself, whatever its signature. */
class IDelegateInstance
{
public:
	virtual ~IDelegateInstance() = default;

	virtual FDelegateHandle GetHandle() const = 0;

	/** Whether this binding calls into the given object; RemoveAll goes by it. */
	virtual bool HasSameObject(const void* InUserObject) const = 0;

	/** False once a weakly held object has gone: the binding must not run then. */
	virtual bool IsSafeToExecute() const = 0;

	/** Whether a multicast delegate may drop this binding without being asked. */
	virtual bool IsCompactable() const
	{
		return !IsSafeToExecute();
	}

	/** The object of a weak UObject binding; null for every other kind. */
	virtual UObject* GetUObject() const
	{
		return nullptr;
	}
};
