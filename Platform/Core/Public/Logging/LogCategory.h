#pragma once

#include "CoreTypes.h"
#include "Logging/LogVerbosity.h"
#include "UObject/NameTypes.h"

struct FLogCategoryBase
{
	CORE_API FLogCategoryBase(const TCHAR* CategoryName, ELogVerbosity::Type DefaultVerbosity, ELogVerbosity::Type CompileTimeVerbosity = ELogVerbosity::All);

	bool IsSuppressed(ELogVerbosity::Type VerbosityLevel) const
	{
		return (VerbosityLevel & ELogVerbosity::VerbosityMask) > Verbosity;
	}
	const FName& GetCategoryName() const
	{
		return CategoryName;
	}
	ELogVerbosity::Type GetVerbosity() const
	{
		return Verbosity;
	}
	void SetVerbosity(ELogVerbosity::Type NewVerbosity)
	{
		Verbosity = static_cast<ELogVerbosity::Type>(NewVerbosity & ELogVerbosity::VerbosityMask);
	}

private:
	ELogVerbosity::Type Verbosity;
	FName CategoryName;
};

template<ELogVerbosity::Type InDefaultVerbosity, ELogVerbosity::Type InCompileTimeVerbosity>
struct FLogCategory : public FLogCategoryBase
{
	static constexpr ELogVerbosity::Type CompileTimeVerbosity = InCompileTimeVerbosity;

	explicit FLogCategory(const TCHAR* InCategoryName)
		: FLogCategoryBase(InCategoryName, InDefaultVerbosity, InCompileTimeVerbosity)
	{
	}
};
