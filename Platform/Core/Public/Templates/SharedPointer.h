// Reference-counted pointers with the engine's interface, kept on std::shared_ptr. The reference count
// is always thread-safe here; ESPMode is accepted for source compatibility.
#pragma once

#include "CoreTypes.h"
#include "Misc/AssertionMacros.h"
#include "Templates/SharedPointerFwd.h"
#include "Templates/TypeHash.h"
#include <memory>
#include <type_traits>
#include <utility>

namespace SharedPointerInternals
{
	template<class ObjectType>
	struct TRawPtrProxy
	{
		ObjectType* Object;
		explicit TRawPtrProxy(ObjectType* InObject)
			: Object(InObject)
		{
		}
	};

	// Grants the pointer types access to each other's storage across element types.
	struct FAccess
	{
		template<typename PointerType>
		static auto& Get(PointerType& Pointer)
		{
			return Pointer.Storage;
		}
		template<typename PointerType>
		static const auto& Get(const PointerType& Pointer)
		{
			return Pointer.Storage;
		}
	};
}

template<class ObjectType, ESPMode InMode>
class TSharedRef
{
	template<class, ESPMode>
	friend class TSharedRef;
	friend struct SharedPointerInternals::FAccess;

public:
	using ElementType = ObjectType;
	static constexpr ESPMode Mode = InMode;

	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TSharedRef(const TSharedRef<OtherType, InMode>& Other)
		: Storage(Other.Storage)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TSharedRef(TSharedRef<OtherType, InMode>&& Other)
		: Storage(Other.Storage)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TSharedRef(SharedPointerInternals::TRawPtrProxy<OtherType> Proxy)
		: Storage(Proxy.Object)
	{
		check(Proxy.Object != nullptr);
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	explicit TSharedRef(OtherType* InObject)
		: Storage(InObject)
	{
		check(InObject != nullptr);
	}

	ObjectType& Get() const
	{
		return *Storage;
	}
	ObjectType& operator*() const
	{
		return *Storage;
	}
	ObjectType* operator->() const
	{
		return Storage.get();
	}
	TSharedPtr<ObjectType, InMode> ToSharedPtr() const
	{
		return TSharedPtr<ObjectType, InMode>(*this);
	}
	TWeakPtr<ObjectType, InMode> ToWeakPtr() const
	{
		return TWeakPtr<ObjectType, InMode>(*this);
	}
	int32 GetSharedReferenceCount() const
	{
		return static_cast<int32>(Storage.use_count());
	}
	bool IsUnique() const
	{
		return Storage.use_count() == 1;
	}
	// A shared reference is never null.
	bool IsValid() const
	{
		return true;
	}

	static TSharedRef FromStd(std::shared_ptr<ObjectType> InStorage)
	{
		check(InStorage != nullptr);
		return TSharedRef(std::move(InStorage), 0);
	}

private:
	TSharedRef(std::shared_ptr<ObjectType> InStorage, int)
		: Storage(std::move(InStorage))
	{
	}

	std::shared_ptr<ObjectType> Storage;
};

template<class ObjectType, ESPMode InMode>
class TSharedPtr
{
	template<class, ESPMode>
	friend class TSharedPtr;
	friend struct SharedPointerInternals::FAccess;

public:
	using ElementType = ObjectType;
	static constexpr ESPMode Mode = InMode;

	TSharedPtr() = default;
	TSharedPtr(TYPE_OF_NULLPTR)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	explicit TSharedPtr(OtherType* InObject)
		: Storage(InObject)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TSharedPtr(SharedPointerInternals::TRawPtrProxy<OtherType> Proxy)
		: Storage(Proxy.Object)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TSharedPtr(const TSharedPtr<OtherType, InMode>& Other)
		: Storage(Other.Storage)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TSharedPtr(TSharedPtr<OtherType, InMode>&& Other)
		: Storage(std::move(Other.Storage))
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TSharedPtr(const TSharedRef<OtherType, InMode>& Other)
		: Storage(SharedPointerInternals::FAccess::Get(Other))
	{
	}

	TSharedPtr& operator=(TYPE_OF_NULLPTR)
	{
		Storage.reset();
		return *this;
	}

	ObjectType* Get() const
	{
		return Storage.get();
	}
	bool IsValid() const
	{
		return Storage != nullptr;
	}
	explicit operator bool() const
	{
		return Storage != nullptr;
	}
	ObjectType& operator*() const
	{
		check(IsValid());
		return *Storage;
	}
	ObjectType* operator->() const
	{
		check(IsValid());
		return Storage.get();
	}
	void Reset()
	{
		Storage.reset();
	}
	TSharedRef<ObjectType, InMode> ToSharedRef() const
	{
		check(IsValid());
		return TSharedRef<ObjectType, InMode>::FromStd(Storage);
	}
	int32 GetSharedReferenceCount() const
	{
		return static_cast<int32>(Storage.use_count());
	}
	bool IsUnique() const
	{
		return Storage.use_count() == 1;
	}

	static TSharedPtr FromStd(std::shared_ptr<ObjectType> InStorage)
	{
		TSharedPtr Result;
		Result.Storage = std::move(InStorage);
		return Result;
	}

private:
	std::shared_ptr<ObjectType> Storage;
};

template<class ObjectType, ESPMode InMode>
class TWeakPtr
{
	template<class, ESPMode>
	friend class TWeakPtr;
	friend struct SharedPointerInternals::FAccess;

public:
	using ElementType = ObjectType;

	TWeakPtr() = default;
	TWeakPtr(TYPE_OF_NULLPTR)
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TWeakPtr(const TSharedRef<OtherType, InMode>& Other)
		: Storage(SharedPointerInternals::FAccess::Get(Other))
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TWeakPtr(const TSharedPtr<OtherType, InMode>& Other)
		: Storage(SharedPointerInternals::FAccess::Get(Other))
	{
	}
	template<typename OtherType, typename = std::enable_if_t<std::is_convertible_v<OtherType*, ObjectType*>>>
	TWeakPtr(const TWeakPtr<OtherType, InMode>& Other)
		: Storage(Other.Storage)
	{
	}

	TSharedPtr<ObjectType, InMode> Pin() const
	{
		return TSharedPtr<ObjectType, InMode>::FromStd(Storage.lock());
	}
	bool IsValid() const
	{
		return !Storage.expired();
	}
	bool IsStale() const
	{
		return Storage.expired();
	}
	void Reset()
	{
		Storage.reset();
	}
	bool HasSameObject(const void* Other) const
	{
		return Pin().Get() == Other;
	}
	bool operator==(const TWeakPtr& Other) const
	{
		return !Storage.owner_before(Other.Storage) && !Other.Storage.owner_before(Storage);
	}

private:
	std::weak_ptr<ObjectType> Storage;
};

template<class ObjectType, ESPMode InMode>
class TSharedFromThis : public std::enable_shared_from_this<ObjectType>
{
public:
	TSharedRef<ObjectType, InMode> AsShared()
	{
		return TSharedRef<ObjectType, InMode>::FromStd(this->shared_from_this());
	}
	TSharedRef<const ObjectType, InMode> AsShared() const
	{
		return TSharedRef<const ObjectType, InMode>::FromStd(this->shared_from_this());
	}
	TWeakPtr<ObjectType, InMode> AsWeak()
	{
		return TWeakPtr<ObjectType, InMode>(TSharedPtr<ObjectType, InMode>::FromStd(this->weak_from_this().lock()));
	}
	bool DoesSharedInstanceExist() const
	{
		return !this->weak_from_this().expired();
	}

protected:
	template<class OtherType>
	static TSharedRef<OtherType, InMode> SharedThis(OtherType* ThisPtr)
	{
		return TSharedRef<OtherType, InMode>::FromStd(std::static_pointer_cast<OtherType>(ThisPtr->shared_from_this()));
	}
	template<class OtherType>
	static TSharedRef<const OtherType, InMode> SharedThis(const OtherType* ThisPtr)
	{
		return TSharedRef<const OtherType, InMode>::FromStd(std::static_pointer_cast<const OtherType>(ThisPtr->shared_from_this()));
	}
};

template<typename InObjectType, ESPMode InMode = ESPMode::ThreadSafe, typename... InArgTypes>
TSharedRef<InObjectType, InMode> MakeShared(InArgTypes&&... Args)
{
	return TSharedRef<InObjectType, InMode>::FromStd(std::make_shared<InObjectType>(std::forward<InArgTypes>(Args)...));
}

template<class ObjectType>
SharedPointerInternals::TRawPtrProxy<ObjectType> MakeShareable(ObjectType* InObject)
{
	return SharedPointerInternals::TRawPtrProxy<ObjectType>(InObject);
}

template<class CastToType, class CastFromType, ESPMode Mode>
TSharedRef<CastToType, Mode> StaticCastSharedRef(const TSharedRef<CastFromType, Mode>& InRef)
{
	return TSharedRef<CastToType, Mode>::FromStd(std::static_pointer_cast<CastToType>(SharedPointerInternals::FAccess::Get(InRef)));
}

template<class CastToType, class CastFromType, ESPMode Mode>
TSharedPtr<CastToType, Mode> StaticCastSharedPtr(const TSharedPtr<CastFromType, Mode>& InPtr)
{
	return TSharedPtr<CastToType, Mode>::FromStd(std::static_pointer_cast<CastToType>(SharedPointerInternals::FAccess::Get(InPtr)));
}

template<class CastToType, class CastFromType, ESPMode Mode>
TSharedRef<CastToType, Mode> ConstCastSharedRef(const TSharedRef<CastFromType, Mode>& InRef)
{
	return TSharedRef<CastToType, Mode>::FromStd(std::const_pointer_cast<CastToType>(SharedPointerInternals::FAccess::Get(InRef)));
}

template<class CastToType, class CastFromType, ESPMode Mode>
TSharedPtr<CastToType, Mode> ConstCastSharedPtr(const TSharedPtr<CastFromType, Mode>& InPtr)
{
	return TSharedPtr<CastToType, Mode>::FromStd(std::const_pointer_cast<CastToType>(SharedPointerInternals::FAccess::Get(InPtr)));
}

template<class A, class B, ESPMode Mode>
bool operator==(const TSharedPtr<A, Mode>& Lhs, const TSharedPtr<B, Mode>& Rhs)
{
	return Lhs.Get() == Rhs.Get();
}
template<class A, class B, ESPMode Mode>
bool operator==(const TSharedRef<A, Mode>& Lhs, const TSharedRef<B, Mode>& Rhs)
{
	return &Lhs.Get() == &Rhs.Get();
}
template<class A, class B, ESPMode Mode>
bool operator==(const TSharedPtr<A, Mode>& Lhs, const TSharedRef<B, Mode>& Rhs)
{
	return Lhs.Get() == &Rhs.Get();
}
template<class A, class B, ESPMode Mode>
bool operator==(const TSharedRef<A, Mode>& Lhs, const TSharedPtr<B, Mode>& Rhs)
{
	return &Lhs.Get() == Rhs.Get();
}
template<class A, ESPMode Mode>
bool operator==(const TSharedPtr<A, Mode>& Lhs, TYPE_OF_NULLPTR)
{
	return !Lhs.IsValid();
}
template<class A, ESPMode Mode>
bool operator==(TYPE_OF_NULLPTR, const TSharedPtr<A, Mode>& Rhs)
{
	return !Rhs.IsValid();
}

template<class ObjectType, ESPMode Mode>
uint32 GetTypeHash(const TSharedPtr<ObjectType, Mode>& Pointer)
{
	return PointerHash(Pointer.Get());
}
template<class ObjectType, ESPMode Mode>
uint32 GetTypeHash(const TSharedRef<ObjectType, Mode>& Reference)
{
	return PointerHash(&Reference.Get());
}
template<class ObjectType, ESPMode Mode>
uint32 GetTypeHash(const TWeakPtr<ObjectType, Mode>& Pointer)
{
	return PointerHash(Pointer.Pin().Get());
}
