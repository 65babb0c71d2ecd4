#pragma once

#include "CoreMinimal.h"
#include "Layout/Children.h"
#include "Widgets/DeclarativeSyntaxSupport.h"
#include "Widgets/SWidget.h"

/** A widget without children: text, images. */
class SLeafWidget : public SWidget
{
public:
	virtual FChildren* GetChildren() override
	{
		return &NoChildren;
	}

private:
	FNoChildren NoChildren;
};
