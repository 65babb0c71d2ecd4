// Cast<T>: an object as a more derived class (or an interface it implements), or null.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/Class.h"
#include "UObject/ObjectPtr.h"

namespace UE::CoreUObject::Private
{
	// The native side of an interface; a class that implements one has its UClassType too, but is an object.
	template<typename T>
	concept CInterfaceType = requires { typename T::UClassType; } && !__is_base_of(UObject, T);
}

template<typename To, typename From>
To* Cast(From* Src)
{
	if (Src == nullptr)
	{
		return nullptr;
	}
	if constexpr (UE::CoreUObject::Private::CInterfaceType<To>)
	{
		return static_cast<To*>(const_cast<UObject*>(static_cast<const UObject*>(Src))->GetInterfaceAddress(To::UClassType::StaticClass()));
	}
	else
	{
		return Src->IsA(To::StaticClass()) ? (To*)Src : nullptr;
	}
}

template<typename To, typename From>
To* Cast(const TObjectPtr<From>& Src)
{
	return Cast<To>(Src.Get());
}

template<typename To, typename From>
To* CastChecked(From* Src)
{
	To* Result = Cast<To>(Src);
	checkf(Src == nullptr || Result != nullptr, TEXT("Cast of %s failed"), Src ? *Src->GetPathName() : TEXT("None"));
	return Result;
}

// The object when its class is exactly T's, else null.
template<typename To, typename From>
To* ExactCast(From* Src)
{
	return Src && Src->GetClass() == To::StaticClass() ? (To*)Src : nullptr;
}

template<typename To, typename From>
To* CastChecked(const TObjectPtr<From>& Src)
{
	return CastChecked<To>(Src.Get());
}
