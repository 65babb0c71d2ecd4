#pragma once

#include "UObject/Object.h"
#include "RawEnumMember.generated.h"

UENUM()
enum EOldColor
{
	Red,
	Green
};

UCLASS()
class UPainted : public UObject
{
	GENERATED_BODY()
	UPROPERTY()
	EOldColor Color;
};
