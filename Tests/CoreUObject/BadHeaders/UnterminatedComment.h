#pragma once

#include "UObject/Object.h"
#include "UnterminatedComment.generated.h"

/** This comment never ends.
UCLASS()
class UOpen : public UObject
{
	GENERATED_BODY()
};
