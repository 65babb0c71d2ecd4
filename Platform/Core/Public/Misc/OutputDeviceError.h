// The output device that errors go to (GError).
#pragma once

#include "CoreTypes.h"
#include "Misc/OutputDevice.h"

class FOutputDeviceError : public FOutputDevice
{
public:
	virtual void HandleError() = 0;
};
