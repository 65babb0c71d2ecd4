#pragma once

#include "CoreTypes.h"
#include "Containers/UnrealString.h"

#include <type_traits>

/** Trace events for Unreal Insights. The stand-in records none; the calls only check their arguments. */
struct FMiscTrace
{
	template<typename... Types>
	static void OutputBookmark(const void* BookmarkPoint, Types... FormatArgs)
	{
	}
	static void OutputBeginRegion(const TCHAR* RegionName)
	{
	}
	static void OutputEndRegion(const TCHAR* RegionName)
	{
	}
};

// The format must be a TEXT() literal, as the engine asserts; the arguments are checked as FString::Printf
// would check them, in a branch that never runs.
#define TRACE_BOOKMARK(Format, ...) \
	do \
	{ \
		static_assert(std::is_array_v<std::remove_reference_t<decltype(Format)>>, "TRACE_BOOKMARK's format must be a TEXT() literal"); \
		if (false) \
		{ \
			(void)FString::Printf(Format __VA_OPT__(, ) __VA_ARGS__); \
		} \
		FMiscTrace::OutputBookmark(nullptr __VA_OPT__(, ) __VA_ARGS__); \
	} while (0)

#define TRACE_BEGIN_REGION(RegionName) FMiscTrace::OutputBeginRegion(RegionName)
#define TRACE_END_REGION(RegionName) FMiscTrace::OutputEndRegion(RegionName)
