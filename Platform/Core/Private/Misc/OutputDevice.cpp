#include "Misc/OutputDevice.h"

#include "Misc/OutputDeviceRedirector.h"

void FOutputDevice::Log(const TCHAR* S)
{
	Serialize(S, ELogVerbosity::Log, NAME_None);
}

void FOutputDevice::Log(ELogVerbosity::Type Verbosity, const TCHAR* S)
{
	Serialize(S, Verbosity, NAME_None);
}

void FOutputDevice::Log(const FName& Category, ELogVerbosity::Type Verbosity, const TCHAR* Str)
{
	Serialize(Str, Verbosity, Category);
}

void FOutputDevice::Log(const FString& S)
{
	Serialize(*S, ELogVerbosity::Log, NAME_None);
}

FOutputDeviceRedirector* FOutputDeviceRedirector::Get()
{
	// Never destroyed: devices held by other statics (a plugin's log capture) leave it from their own
	// destructors at exit, in an order that no module controls.
	static FOutputDeviceRedirector* const Redirector = new FOutputDeviceRedirector();
	return Redirector;
}

void FOutputDeviceRedirector::AddOutputDevice(FOutputDevice* OutputDevice)
{
	std::lock_guard<std::recursive_mutex> Lock(Mutex);
	if (OutputDevice)
	{
		OutputDevices.AddUnique(OutputDevice);
	}
}

void FOutputDeviceRedirector::RemoveOutputDevice(FOutputDevice* OutputDevice)
{
	std::lock_guard<std::recursive_mutex> Lock(Mutex);
	OutputDevices.Remove(OutputDevice);
}

bool FOutputDeviceRedirector::IsRedirectingTo(FOutputDevice* OutputDevice) const
{
	std::lock_guard<std::recursive_mutex> Lock(Mutex);
	return OutputDevices.Contains(OutputDevice);
}

void FOutputDeviceRedirector::Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category)
{
	std::lock_guard<std::recursive_mutex> Lock(Mutex);
	// A copy, so a device may remove itself while it is being served.
	const TArray<FOutputDevice*> Devices = OutputDevices;
	for (FOutputDevice* Device : Devices)
	{
		Device->Serialize(V, Verbosity, Category);
	}
}

void FOutputDeviceRedirector::Flush()
{
	std::lock_guard<std::recursive_mutex> Lock(Mutex);
	for (FOutputDevice* Device : OutputDevices)
	{
		Device->Flush();
	}
}
