// check aborts (a broken invariant); ensure logs once per call site and lets the caller go on.
#pragma once

#include "CoreTypes.h"

struct FDebug
{
	UE_NORETURN static CORE_API void AssertFailed(const ANSICHAR* Expr, const ANSICHAR* File, int32 Line, const TCHAR* Message = nullptr);
	// Logs the failed ensure; returns false so the macro's value is the condition's.
	static CORE_API bool OptionallyLogFormattedEnsureMessageReturningFalse(bool bLog, const ANSICHAR* Expr, const ANSICHAR* File, int32 Line, const TCHAR* Message);
};

namespace UE::Core::Private
{
	// Defined with FString, which the message formatting needs.
	template<typename... Types>
	const TCHAR* FormatAssertMessage(const TCHAR* Format, Types... Args);

	UE_NORETURN CORE_API void OnInvalidArrayIndex(int32 Index, int32 Num);
}

#define UE_CHECK_IMPL(expr, Message) \
	do \
	{ \
		if (UNLIKELY(!(expr))) \
		{ \
			FDebug::AssertFailed(#expr, __FILE__, __LINE__, Message); \
		} \
	} while (0)

#define check(expr) UE_CHECK_IMPL(expr, nullptr)
#define checkf(expr, format, ...) UE_CHECK_IMPL(expr, ::UE::Core::Private::FormatAssertMessage(format, ##__VA_ARGS__))
#define checkSlow(expr) \
	do \
	{ \
	} while (0)
#define checkfSlow(expr, format, ...) \
	do \
	{ \
	} while (0)
#define checkNoEntry() FDebug::AssertFailed("Enclosing block should never be called", __FILE__, __LINE__)
#define checkNoReentry() \
	do \
	{ \
	} while (0)
#define unimplemented() FDebug::AssertFailed("Unimplemented function called", __FILE__, __LINE__)
#define verify(expr) UE_CHECK_IMPL(expr, nullptr)
#define verifyf(expr, format, ...) UE_CHECK_IMPL(expr, ::UE::Core::Private::FormatAssertMessage(format, ##__VA_ARGS__))

#define UE_ENSURE_IMPL(bAlways, expr, Message) \
	(LIKELY(!!(expr)) || ([](const TCHAR* InMessage) -> bool \
		{ \
			static bool bExecuted = false; \
			const bool bLog = (bAlways) || !bExecuted; \
			bExecuted = true; \
			return FDebug::OptionallyLogFormattedEnsureMessageReturningFalse(bLog, #expr, __FILE__, __LINE__, InMessage); \
		})(Message))

#define ensure(expr) UE_ENSURE_IMPL(false, expr, nullptr)
#define ensureMsgf(expr, format, ...) UE_ENSURE_IMPL(false, expr, ::UE::Core::Private::FormatAssertMessage(format, ##__VA_ARGS__))
#define ensureAlways(expr) UE_ENSURE_IMPL(true, expr, nullptr)
#define ensureAlwaysMsgf(expr, format, ...) UE_ENSURE_IMPL(true, expr, ::UE::Core::Private::FormatAssertMessage(format, ##__VA_ARGS__))

// A member's name as an FName, checked by the compiler: a renamed member breaks the build, not the lookup.
#define GET_MEMBER_NAME_CHECKED(ClassName, MemberName) \
	((void)sizeof(decltype(((ClassName*)nullptr)->MemberName)), FName(TEXT(#MemberName)))
#define GET_MEMBER_NAME_STRING_CHECKED(ClassName, MemberName) \
	((void)sizeof(decltype(((ClassName*)nullptr)->MemberName)), TEXT(#MemberName))
