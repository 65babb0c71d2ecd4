// UCurveBase: an asset holding curves.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "CurveBase.generated.h"

UCLASS(abstract)
class ENGINE_API UCurveBase : public UObject
{
	GENERATED_BODY()

public:
	UCurveBase(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// The smallest and largest key time of its curves.
	virtual void GetTimeRange(float& MinTime, float& MaxTime) const;
};
