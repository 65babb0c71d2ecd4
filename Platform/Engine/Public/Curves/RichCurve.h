// FRichCurve: a float curve of timed keys with interpolation between them.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Curves/KeyHandle.h"
#include "RichCurve.generated.h"

/** How the value moves from one key to the next. */
UENUM(BlueprintType)
enum ERichCurveInterpMode : int
{
	RCIM_Linear,
	RCIM_Constant,
	RCIM_Cubic,
	RCIM_None,
};

/** What the curve gives before its first key and after its last. */
UENUM(BlueprintType)
enum ERichCurveExtrapolation : int
{
	RCCE_Cycle,
	RCCE_CycleWithOffset,
	RCCE_Oscillate,
	RCCE_Linear,
	RCCE_Constant,
	RCCE_None,
};

USTRUCT(BlueprintType)
struct FRichCurveKey
{
	GENERATED_BODY()

	UPROPERTY(EditAnywhere, Category = "Key")
	TEnumAsByte<ERichCurveInterpMode> InterpMode = RCIM_Linear;

	UPROPERTY(EditAnywhere, Category = "Key")
	float Time = 0.0f;

	UPROPERTY(EditAnywhere, Category = "Key")
	float Value = 0.0f;

	UPROPERTY(EditAnywhere, Category = "Key")
	float ArriveTangent = 0.0f;

	UPROPERTY(EditAnywhere, Category = "Key")
	float LeaveTangent = 0.0f;

	FRichCurveKey() = default;
	FRichCurveKey(float InTime, float InValue)
		: Time(InTime)
		, Value(InValue)
	{
	}
};

USTRUCT()
struct ENGINE_API FRichCurve
{
	GENERATED_BODY()

	/** The keys, sorted by time. */
	UPROPERTY()
	TArray<FRichCurveKey> Keys;

	/** The value of a curve without keys. */
	UPROPERTY()
	float DefaultValue = MAX_flt;

	UPROPERTY()
	TEnumAsByte<ERichCurveExtrapolation> PreInfinityExtrap = RCCE_Constant;

	UPROPERTY()
	TEnumAsByte<ERichCurveExtrapolation> PostInfinityExtrap = RCCE_Constant;

	// Adds a key in time order and gives its handle.
	virtual FKeyHandle AddKey(float InTime, float InValue, const bool bUnwindRotation = false, FKeyHandle KeyHandle = FKeyHandle());
	// The key at InTime (within the tolerance) gets the value, or a key is added.
	FKeyHandle UpdateOrAddKey(float InTime, float InValue, const bool bUnwindRotation = false, float KeyTimeTolerance = UE_KINDA_SMALL_NUMBER);
	float Eval(float InTime, float InDefaultValue = 0.0f) const;
	const TArray<FRichCurveKey>& GetConstRefOfKeys() const
	{
		return Keys;
	}
	TArray<FRichCurveKey> GetCopyOfKeys() const
	{
		return Keys;
	}
	void SetKeys(const TArray<FRichCurveKey>& InKeys);
	int32 GetNumKeys() const
	{
		return Keys.Num();
	}
	void GetTimeRange(float& MinTime, float& MaxTime) const;
	void Reset();

	virtual ~FRichCurve() = default;

private:
	TArray<FKeyHandle> KeyHandles;
};
