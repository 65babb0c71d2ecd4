#pragma once

#include "CoreTypes.h"

/** How a build of the game's modules ended, as the build tool reports it through its exit code. */
namespace ECompilationResult
{
	enum Type
	{
		Succeeded = 0,
		/** Only the editor uses this one: the build was stopped. */
		Canceled = 1,
		/** Nothing had to be rebuilt. */
		UpToDate = 2,
		CrashOrAssert = 3,
		FailedDueToHeaderChange = 4,
		FailedDueToEngineChange = 5,
		OtherCompilationError = 6,
		Unsupported = 7,
		Unknown = 8
	};

	inline const TCHAR* ToString(ECompilationResult::Type Result)
	{
		switch (Result)
		{
		case Succeeded:
			return TEXT("Succeeded");
		case Canceled:
			return TEXT("Canceled");
		case UpToDate:
			return TEXT("UpToDate");
		case CrashOrAssert:
			return TEXT("CrashOrAssert");
		case FailedDueToHeaderChange:
			return TEXT("FailedDueToHeaderChange");
		case FailedDueToEngineChange:
			return TEXT("FailedDueToEngineChange");
		case OtherCompilationError:
			return TEXT("OtherCompilationError");
		case Unsupported:
			return TEXT("Unsupported");
		default:
			return TEXT("Unknown");
		}
	}

	/** False for Succeeded and UpToDate. */
	inline bool Failed(ECompilationResult::Type Result)
	{
		return Result != Succeeded && Result != UpToDate;
	}
}
