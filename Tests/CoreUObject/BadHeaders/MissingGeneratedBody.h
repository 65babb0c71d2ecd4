#pragma once

#include "UObject/Object.h"
#include "MissingGeneratedBody.generated.h"

UCLASS()
class UNoBody : public UObject
{
public:
	UPROPERTY()
	int32 Value;
};
