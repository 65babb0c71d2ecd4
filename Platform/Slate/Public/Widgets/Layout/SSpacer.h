#pragma once

#include "CoreMinimal.h"
#include "Math/Vector2D.h"
#include "Widgets/SLeafWidget.h"

/** Empty room of a given size. */
class SSpacer : public SLeafWidget
{
public:
	SLATE_BEGIN_ARGS(SSpacer)
		: _Size(FVector2D(0.0, 0.0))
		{}
		SLATE_ATTRIBUTE(FVector2D, Size)
	SLATE_END_ARGS()

	SLATE_API void Construct(const FArguments& InArgs);
	FVector2D GetSize() const
	{
		return SpacerSize.Get(FVector2D(0.0, 0.0));
	}
	void SetSize(TAttribute<FVector2D> InSpacerSize)
	{
		SpacerSize = MoveTemp(InSpacerSize);
	}
	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

private:
	TAttribute<FVector2D> SpacerSize;
};
