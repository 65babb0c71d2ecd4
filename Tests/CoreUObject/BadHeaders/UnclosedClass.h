#pragma once

#include "UObject/Object.h"
#include "UnclosedClass.generated.h"

UCLASS()
class UUnclosed : public UObject
{
	GENERATED_BODY()
	UPROPERTY()
	int32 Value;
