#pragma once

#include "UObject/Object.h"

UCLASS()
class UForgotInclude : public UObject
{
	GENERATED_BODY()
};
