// Platform types and compiler macros of the stand-in engine (Linux, 64-bit, TCHAR as UTF-16).
#pragma once

#include <cstddef>
#include <cstdint>

#ifndef PLATFORM_LINUX
#define PLATFORM_LINUX 1
#endif
#define PLATFORM_WINDOWS 0
#define PLATFORM_MAC 0
#define PLATFORM_64BITS 1
#define PLATFORM_LITTLE_ENDIAN 1
#define PLATFORM_TCHAR_IS_CHAR16 1

typedef std::uint8_t uint8;
typedef std::uint16_t uint16;
typedef std::uint32_t uint32;
typedef std::uint64_t uint64;
typedef std::int8_t int8;
typedef std::int16_t int16;
typedef std::int32_t int32;
typedef std::int64_t int64;

typedef char ANSICHAR;
typedef char16_t WIDECHAR;
typedef char8_t UTF8CHAR;
typedef char16_t UTF16CHAR;
typedef char32_t UTF32CHAR;
// A TCHAR is one UTF-16 code unit, as on the engine's Linux targets.
typedef char16_t TCHAR;

typedef std::size_t SIZE_T;
typedef std::ptrdiff_t SSIZE_T;
typedef std::intptr_t PTRINT;
typedef std::uintptr_t UPTRINT;
typedef decltype(nullptr) TYPE_OF_NULLPTR;

#define TEXT_PASTE(x) u ## x
#define TEXT(x) TEXT_PASTE(x)

#ifndef LINE_TERMINATOR
#define LINE_TERMINATOR TEXT("\n")
#endif
#ifndef LINE_TERMINATOR_ANSI
#define LINE_TERMINATOR_ANSI "\n"
#endif

#define FORCEINLINE inline __attribute__((always_inline))
#define FORCENOINLINE __attribute__((noinline))
#define UE_NODISCARD [[nodiscard]]
#define UE_NORETURN [[noreturn]]
#define UE_LIFETIMEBOUND
#define CONSTEXPR constexpr
#define DLLEXPORT __attribute__((visibility("default")))
#define DLLIMPORT __attribute__((visibility("default")))
#define LIKELY(x) __builtin_expect(!!(x), 1)
#define UNLIKELY(x) __builtin_expect(!!(x), 0)
#define PRAGMA_DISABLE_DEPRECATION_WARNINGS _Pragma("GCC diagnostic push") _Pragma("GCC diagnostic ignored \"-Wdeprecated-declarations\"")
#define PRAGMA_ENABLE_DEPRECATION_WARNINGS _Pragma("GCC diagnostic pop")

#ifndef CORE_API
#define CORE_API
#endif
