// UInterface and IInterface: the two halves of a reflected interface.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

// The reflected side of an interface: "UINTERFACE() class UFoo : public UInterface".
class COREUOBJECT_API UInterface : public UObject
{
	DECLARE_CLASS_INTRINSIC(UInterface, UObject, CLASS_Interface | CLASS_Abstract, TEXT("/Script/CoreUObject"), CASTCLASS_None)

public:
	UInterface(const FObjectInitializer& ObjectInitializer);
};

// The native side: "class IFoo" holds the functions that implementing classes provide.
class COREUOBJECT_API IInterface
{
protected:
	virtual ~IInterface()
	{
	}

public:
	typedef UInterface UClassType;
};
