// UE_LOG and log categories. Messages go to GLog, which hands them to its output devices.
#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"
#include "Logging/LogCategory.h"
#include "Logging/LogVerbosity.h"

struct FMsg
{
	CORE_API static void LogString(const FName& Category, ELogVerbosity::Type Verbosity, const FString& Message, const ANSICHAR* File, int32 Line);

	template<typename FmtType, typename... Types>
	static void Logf(const ANSICHAR* File, int32 Line, const FName& Category, ELogVerbosity::Type Verbosity, const FmtType& Format, Types... Args)
	{
		LogString(Category, Verbosity, FString::Printf(Format, Args...), File, Line);
	}
};

#define UE_LOG(CategoryName, Verbosity, Format, ...) \
	do \
	{ \
		if (!(CategoryName).IsSuppressed(ELogVerbosity::Verbosity)) \
		{ \
			FMsg::Logf(__FILE__, __LINE__, (CategoryName).GetCategoryName(), ELogVerbosity::Verbosity, Format, ##__VA_ARGS__); \
		} \
	} while (0)

#define UE_CLOG(Condition, CategoryName, Verbosity, Format, ...) \
	do \
	{ \
		if (Condition) \
		{ \
			UE_LOG(CategoryName, Verbosity, Format, ##__VA_ARGS__); \
		} \
	} while (0)

#define UE_LOG_ACTIVE(CategoryName, Verbosity) (!(CategoryName).IsSuppressed(ELogVerbosity::Verbosity))

// The category's own type, named after it, so that each category is one object of a distinct type.
#define UE_LOG_CATEGORY_TYPE(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	struct FLogCategory##CategoryName : public FLogCategory<ELogVerbosity::DefaultVerbosity, ELogVerbosity::CompileTimeVerbosity> \
	{ \
		FLogCategory##CategoryName() \
			: FLogCategory(TEXT(#CategoryName)) \
		{ \
		} \
	}

#define DECLARE_LOG_CATEGORY_EXTERN(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	extern UE_LOG_CATEGORY_TYPE(CategoryName, DefaultVerbosity, CompileTimeVerbosity) CategoryName

#define DEFINE_LOG_CATEGORY(CategoryName) FLogCategory##CategoryName CategoryName
#define DEFINE_LOG_CATEGORY_STATIC(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	static UE_LOG_CATEGORY_TYPE(CategoryName, DefaultVerbosity, CompileTimeVerbosity) CategoryName
#define DECLARE_LOG_CATEGORY_CLASS(CategoryName, DefaultVerbosity, CompileTimeVerbosity) \
	DEFINE_LOG_CATEGORY_STATIC(CategoryName, DefaultVerbosity, CompileTimeVerbosity)
