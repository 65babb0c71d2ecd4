#pragma once

#include "CoreTypes.h"
#include "Templates/TypeHash.h"

#include <atomic>
#include <type_traits>

/** An object that counts its own references (thread-safe) and deletes itself when the last one goes. */
class FRefCountBase
{
public:
	FRefCountBase() = default;
	virtual ~FRefCountBase() = default;
	FRefCountBase(const FRefCountBase&) = delete;
	FRefCountBase& operator=(const FRefCountBase&) = delete;

	uint32 AddRef() const
	{
		return NumRefs.fetch_add(1, std::memory_order_relaxed) + 1;
	}
	uint32 Release() const
	{
		const uint32 Remaining = NumRefs.fetch_sub(1, std::memory_order_acq_rel) - 1;
		if (Remaining == 0)
		{
			delete this;
		}
		return Remaining;
	}
	uint32 GetRefCount() const
	{
		return NumRefs.load(std::memory_order_relaxed);
	}

private:
	mutable std::atomic<uint32> NumRefs{0};
};

/** A pointer to an object with AddRef and Release of its own. */
template<typename ReferencedType>
class TRefCountPtr
{
public:
	TRefCountPtr() = default;
	TRefCountPtr(ReferencedType* InReference, bool bAddRef = true)
		: Reference(InReference)
	{
		if (Reference && bAddRef)
		{
			Reference->AddRef();
		}
	}
	TRefCountPtr(const TRefCountPtr& Other)
		: TRefCountPtr(Other.Reference)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ReferencedType*>>>
	TRefCountPtr(const TRefCountPtr<OtherType>& Other)
		: TRefCountPtr(Other.GetReference())
	{
	}
	TRefCountPtr(TRefCountPtr&& Other)
		: Reference(Other.Reference)
	{
		Other.Reference = nullptr;
	}
	~TRefCountPtr()
	{
		if (Reference)
		{
			Reference->Release();
		}
	}

	TRefCountPtr& operator=(ReferencedType* InReference)
	{
		// Take the new reference before dropping the old one: they may be the same object.
		if (InReference)
		{
			InReference->AddRef();
		}
		ReferencedType* Old = Reference;
		Reference = InReference;
		if (Old)
		{
			Old->Release();
		}
		return *this;
	}
	TRefCountPtr& operator=(const TRefCountPtr& Other)
	{
		return *this = Other.Reference;
	}
	TRefCountPtr& operator=(TRefCountPtr&& Other)
	{
		if (this != &Other)
		{
			ReferencedType* Old = Reference;
			Reference = Other.Reference;
			Other.Reference = nullptr;
			if (Old)
			{
				Old->Release();
			}
		}
		return *this;
	}

	ReferencedType* operator->() const
	{
		return Reference;
	}
	operator ReferencedType*() const
	{
		return Reference;
	}
	ReferencedType* GetReference() const
	{
		return Reference;
	}
	bool IsValid() const
	{
		return Reference != nullptr;
	}
	void SafeRelease()
	{
		*this = nullptr;
	}
	uint32 GetRefCount() const
	{
		return Reference ? Reference->GetRefCount() : 0;
	}

	friend uint32 GetTypeHash(const TRefCountPtr& Pointer)
	{
		return PointerHash(Pointer.Reference);
	}

private:
	ReferencedType* Reference = nullptr;
};
