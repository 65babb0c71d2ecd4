#pragma once

#include "CoreMinimal.h"
#include "Styling/SlateBrush.h"
#include "Widgets/SLeafWidget.h"

class SImage : public SLeafWidget
{
public:
	SLATE_BEGIN_ARGS(SImage)
		: _Image(nullptr)
		, _ColorAndOpacity(FLinearColor::White)
		{}
		SLATE_ATTRIBUTE(const FSlateBrush*, Image)
		SLATE_ATTRIBUTE(FSlateColor, ColorAndOpacity)
	SLATE_END_ARGS()

	SLATE_API void Construct(const FArguments& InArgs);
	void SetImage(TAttribute<const FSlateBrush*> InImage)
	{
		Image = MoveTemp(InImage);
	}
	const FSlateBrush* GetImage() const
	{
		return Image.Get(nullptr);
	}
	void SetColorAndOpacity(TAttribute<FSlateColor> InColor)
	{
		ColorAndOpacity = MoveTemp(InColor);
	}
	SLATE_API virtual void DescribeForStandIn(FJsonObject& Out) const override;

private:
	TAttribute<const FSlateBrush*> Image;
	TAttribute<FSlateColor> ColorAndOpacity;
};
