// TAttribute: a value that is either fixed or fetched from a getter each time it is read. Slate polls its
// widgets' attributes every frame, which is how a widget follows state it is not told about.
#pragma once

#include "CoreMinimal.h"
#include "Delegates/Delegate.h"

#include <type_traits>

template<typename ObjectType>
class TAttribute
{
public:
	using FGetter = TDelegate<ObjectType()>;
	// Getters must be const: a read must not change the object it reads.
	template<typename SourceType>
	using TConstGetter = ObjectType (SourceType::*)() const;

	TAttribute()
		: Value()
		, bIsSet(false)
	{
	}

	template<typename OtherType>
		requires(std::is_constructible_v<ObjectType, const OtherType&> && !std::is_same_v<std::decay_t<OtherType>, TAttribute> && !std::is_same_v<std::decay_t<OtherType>, FGetter>)
	TAttribute(const OtherType& InInitialValue)
		: Value(static_cast<ObjectType>(InInitialValue))
		, bIsSet(true)
	{
	}

	TAttribute(ObjectType&& InInitialValue)
		: Value(MoveTemp(InInitialValue))
		, bIsSet(true)
	{
	}

	template<typename SourceType>
	TAttribute(const TSharedRef<SourceType>& InUserObject, TConstGetter<SourceType> InMethodPtr)
		: Value()
		, bIsSet(true)
		, Getter(FGetter::CreateSP(InUserObject, InMethodPtr))
	{
	}

	template<typename SourceType>
	TAttribute(SourceType* InUserObject, TConstGetter<SourceType> InMethodPtr)
		: Value()
		, bIsSet(true)
		, Getter(FGetter::CreateRaw(InUserObject, InMethodPtr))
	{
	}

	static TAttribute Create(const FGetter& InGetter)
	{
		TAttribute Attribute;
		Attribute.Bind(InGetter);
		return Attribute;
	}
	static TAttribute Create(TFunction<ObjectType()>&& InFunction)
	{
		return CreateLambda(MoveTemp(InFunction));
	}
	template<typename FunctorType>
	static TAttribute CreateLambda(FunctorType&& InFunctor)
	{
		return Create(FGetter::CreateLambda(Forward<FunctorType>(InFunctor)));
	}
	template<typename SourceType>
	static TAttribute CreateRaw(const SourceType* InUserObject, TConstGetter<SourceType> InMethodPtr)
	{
		return Create(FGetter::CreateRaw(const_cast<SourceType*>(InUserObject), InMethodPtr));
	}
	template<typename SourceType>
	static TAttribute CreateSP(const TSharedRef<SourceType>& InUserObject, TConstGetter<SourceType> InMethodPtr)
	{
		return Create(FGetter::CreateSP(InUserObject, InMethodPtr));
	}
	template<typename SourceType>
	static TAttribute CreateSP(SourceType* InUserObject, TConstGetter<SourceType> InMethodPtr)
	{
		return Create(FGetter::CreateSP(InUserObject, InMethodPtr));
	}
	template<typename SourceType, typename FunctorType>
	static TAttribute CreateSPLambda(SourceType&& InUserObject, FunctorType&& InFunctor)
	{
		return Create(FGetter::CreateSPLambda(Forward<SourceType>(InUserObject), Forward<FunctorType>(InFunctor)));
	}
	static TAttribute CreateStatic(ObjectType (*InFunction)())
	{
		return Create(FGetter::CreateStatic(InFunction));
	}

	void Set(const ObjectType& InNewValue)
	{
		Getter.Unbind();
		Value = InNewValue;
		bIsSet = true;
	}
	void Bind(const FGetter& InGetter)
	{
		bIsSet = true;
		Getter = InGetter;
	}
	void Bind(FGetter&& InGetter)
	{
		bIsSet = true;
		Getter = MoveTemp(InGetter);
	}
	template<typename SourceType>
	void BindRaw(SourceType* InUserObject, TConstGetter<SourceType> InMethodPtr)
	{
		Bind(FGetter::CreateRaw(InUserObject, InMethodPtr));
	}
	template<typename SourceType>
	void Bind(const TSharedRef<SourceType>& InUserObject, TConstGetter<SourceType> InMethodPtr)
	{
		Bind(FGetter::CreateSP(InUserObject, InMethodPtr));
	}
	template<typename SourceType>
	void Bind(SourceType* InUserObject, TConstGetter<SourceType> InMethodPtr)
	{
		Bind(FGetter::CreateSP(InUserObject, InMethodPtr));
	}
	template<typename SourceType, typename FunctorType>
	void BindSPLambda(SourceType&& InUserObject, FunctorType&& InFunctor)
	{
		Bind(FGetter::CreateSPLambda(Forward<SourceType>(InUserObject), Forward<FunctorType>(InFunctor)));
	}

	/** Calls the getter when there is one; a getter whose object is gone leaves the last value. */
	const ObjectType& Get() const
	{
		if (Getter.IsBound())
		{
			Value = Getter.Execute();
		}
		return Value;
	}
	const ObjectType& Get(const ObjectType& DefaultValue) const
	{
		return bIsSet ? Get() : DefaultValue;
	}

	bool IsSet() const
	{
		return bIsSet;
	}
	bool IsBound() const
	{
		return Getter.IsBound();
	}
	const FGetter& GetBinding() const
	{
		return Getter;
	}
	bool IdenticalTo(const TAttribute& Other) const
	{
		return !IsBound() && !Other.IsBound() && bIsSet == Other.bIsSet && Value == Other.Value;
	}

private:
	mutable ObjectType Value;
	bool bIsSet;
	FGetter Getter;
};

template<typename FunctorType>
auto MakeAttributeLambda(FunctorType&& InFunctor)
{
	using ReturnType = std::decay_t<decltype(InFunctor())>;
	return TAttribute<ReturnType>::CreateLambda(Forward<FunctorType>(InFunctor));
}

template<typename SourceType, typename ReturnType>
TAttribute<ReturnType> MakeAttributeSP(SourceType* InUserObject, ReturnType (SourceType::*InMethodPtr)() const)
{
	return TAttribute<ReturnType>::CreateSP(InUserObject, InMethodPtr);
}

template<typename SourceType, typename ReturnType>
TAttribute<ReturnType> MakeAttributeRaw(const SourceType* InUserObject, ReturnType (SourceType::*InMethodPtr)() const)
{
	return TAttribute<ReturnType>::CreateRaw(InUserObject, InMethodPtr);
}

template<typename SourceType, typename FunctorType>
auto MakeAttributeSPLambda(SourceType* InUserObject, FunctorType&& InFunctor)
{
	using ReturnType = std::decay_t<decltype(InFunctor())>;
	return TAttribute<ReturnType>::CreateSPLambda(InUserObject, Forward<FunctorType>(InFunctor));
}
