// UCurveFloat: an asset holding one float curve.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Curves/CurveBase.h"
#include "Curves/RichCurve.h"
#include "CurveFloat.generated.h"

UCLASS(BlueprintType)
class ENGINE_API UCurveFloat : public UCurveBase
{
	GENERATED_BODY()

public:
	UCurveFloat(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UPROPERTY()
	FRichCurve FloatCurve;

	/** Whether the curve's keys are events (of a timeline's event track) rather than values. */
	UPROPERTY()
	bool bIsEventCurve = false;

	UFUNCTION(BlueprintCallable, Category = "Math|Curves")
	float GetFloatValue(float InTime) const;

	virtual void GetTimeRange(float& MinTime, float& MaxTime) const override;
};
