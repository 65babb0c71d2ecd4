#pragma once

#include "CoreMinimal.h"

class SWidget;

/** The widget that stands for "no widget": empty slots hold it, and it draws nothing. */
class SNullWidget
{
public:
	static SLATECORE_API TSharedRef<SWidget> NullWidget;
};
