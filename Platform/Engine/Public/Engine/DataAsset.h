// UDataAsset: an asset that holds data only, the base of data-driven asset types.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "DataAsset.generated.h"

/** Base class for a simple asset containing data. */
UCLASS(abstract, MinimalAPI)
class UDataAsset : public UObject
{
	GENERATED_BODY()
};
