#include "Misc/FeedbackContext.h"
#include "Misc/ITransaction.h"
#include "Misc/OutputDeviceError.h"
#include "Misc/OutputDeviceRedirector.h"
#include "CoreGlobals.h"

namespace
{
	// In the editor a fatal error ends the process; here errors are logged, so that callers can report them.
	class FOutputDeviceErrorToLog final : public FOutputDeviceError
	{
	public:
		void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
		{
			GLog->Serialize(V, Verbosity == ELogVerbosity::Fatal ? ELogVerbosity::Error : Verbosity, Category);
		}
		void HandleError() override
		{
		}
	};

	FOutputDeviceErrorToLog& ErrorDevice()
	{
		static FOutputDeviceErrorToLog Device;
		return Device;
	}

	FFeedbackContext& WarnDevice()
	{
		static FFeedbackContext Device;
		return Device;
	}
}

void FFeedbackContext::Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category)
{
	if (Verbosity == ELogVerbosity::Warning)
	{
		Warnings.Add(V);
	}
	else if (Verbosity == ELogVerbosity::Error || Verbosity == ELogVerbosity::Fatal)
	{
		Errors.Add(V);
	}
	GLog->Serialize(V, Verbosity, Category);
}

ITransaction* GUndo = nullptr;
bool GIsTransacting = false;
FOutputDeviceError* GError = &ErrorDevice();
FFeedbackContext* GWarn = &WarnDevice();
