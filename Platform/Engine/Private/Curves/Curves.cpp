#include "Curves/KeyHandle.h"
#include "Curves/RichCurve.h"
#include "Curves/CurveBase.h"
#include "Curves/CurveFloat.h"

FKeyHandle::FKeyHandle()
{
	static uint32 LastIndex = 0;
	Index = ++LastIndex;
}

FKeyHandle FRichCurve::AddKey(float InTime, float InValue, const bool bUnwindRotation, FKeyHandle KeyHandle)
{
	int32 Index = 0;
	while (Index < Keys.Num() && Keys[Index].Time < InTime)
	{
		++Index;
	}
	Keys.Insert(FRichCurveKey(InTime, InValue), Index);
	// Handles follow their keys: the list mirrors Keys (filled lazily for keys set in bulk).
	while (KeyHandles.Num() < Keys.Num() - 1)
	{
		KeyHandles.Add(FKeyHandle());
	}
	KeyHandles.Insert(KeyHandle, FMath::Min(Index, KeyHandles.Num()));
	return KeyHandle;
}

FKeyHandle FRichCurve::UpdateOrAddKey(float InTime, float InValue, const bool bUnwindRotation, float KeyTimeTolerance)
{
	for (int32 Index = 0; Index < Keys.Num(); ++Index)
	{
		if (FMath::Abs(Keys[Index].Time - InTime) <= KeyTimeTolerance)
		{
			Keys[Index].Value = InValue;
			while (KeyHandles.Num() < Keys.Num())
			{
				KeyHandles.Add(FKeyHandle());
			}
			return KeyHandles[Index];
		}
	}
	return AddKey(InTime, InValue, bUnwindRotation);
}

float FRichCurve::Eval(float InTime, float InDefaultValue) const
{
	if (Keys.Num() == 0)
	{
		return DefaultValue == MAX_flt ? InDefaultValue : DefaultValue;
	}
	if (InTime <= Keys[0].Time)
	{
		return Keys[0].Value;
	}
	for (int32 Index = 1; Index < Keys.Num(); ++Index)
	{
		const FRichCurveKey& Previous = Keys[Index - 1];
		const FRichCurveKey& Next = Keys[Index];
		if (InTime <= Next.Time)
		{
			if (Previous.InterpMode == RCIM_Constant || Next.Time <= Previous.Time)
			{
				return Previous.Value;
			}
			const float Alpha = (InTime - Previous.Time) / (Next.Time - Previous.Time);
			return Previous.Value + (Next.Value - Previous.Value) * Alpha;
		}
	}
	return Keys.Last().Value;
}

void FRichCurve::SetKeys(const TArray<FRichCurveKey>& InKeys)
{
	Keys = InKeys;
	Keys.Sort([](const FRichCurveKey& A, const FRichCurveKey& B) { return A.Time < B.Time; });
	KeyHandles.Reset();
}

void FRichCurve::GetTimeRange(float& MinTime, float& MaxTime) const
{
	MinTime = Keys.Num() > 0 ? Keys[0].Time : 0.0f;
	MaxTime = Keys.Num() > 0 ? Keys.Last().Time : 0.0f;
}

void FRichCurve::Reset()
{
	Keys.Reset();
	KeyHandles.Reset();
}

UCurveBase::UCurveBase(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void UCurveBase::GetTimeRange(float& MinTime, float& MaxTime) const
{
	MinTime = 0.0f;
	MaxTime = 0.0f;
}

UCurveFloat::UCurveFloat(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

float UCurveFloat::GetFloatValue(float InTime) const
{
	return FloatCurve.Eval(InTime);
}

void UCurveFloat::GetTimeRange(float& MinTime, float& MaxTime) const
{
	FloatCurve.GetTimeRange(MinTime, MaxTime);
}
