// The global log: every message goes to each registered output device, under a lock so that any thread may log.
#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Misc/OutputDevice.h"
#include <mutex>

class FOutputDeviceRedirector final : public FOutputDevice
{
public:
	CORE_API static FOutputDeviceRedirector* Get();

	CORE_API void AddOutputDevice(FOutputDevice* OutputDevice);
	CORE_API void RemoveOutputDevice(FOutputDevice* OutputDevice);
	CORE_API bool IsRedirectingTo(FOutputDevice* OutputDevice) const;

	CORE_API void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override;
	CORE_API void Flush() override;
	bool CanBeUsedOnAnyThread() const override
	{
		return true;
	}

private:
	mutable std::recursive_mutex Mutex;
	TArray<FOutputDevice*> OutputDevices;
};

/** The global log, which GLog names too; never null. */
inline FOutputDeviceRedirector* GetGlobalLogSingleton()
{
	return FOutputDeviceRedirector::Get();
}
