#pragma once

#include "CoreTypes.h"

/** Names a profiler counter. The stand-in has no profiler, so every id is the same empty one. */
struct TStatId
{
	constexpr TStatId() = default;

	constexpr bool IsValidStat() const
	{
		return false;
	}
	constexpr bool operator==(const TStatId&) const
	{
		return true;
	}
	constexpr bool operator!=(const TStatId&) const
	{
		return false;
	}
};

// The cycle-stat macros compile to nothing: their names need no declaration.
#define DECLARE_STATS_GROUP(GroupDesc, GroupId, GroupCat)
#define DECLARE_CYCLE_STAT(CounterName, StatId, GroupId)
#define DECLARE_CYCLE_STAT_EXTERN(CounterName, StatId, GroupId, API)
#define DEFINE_STAT(Stat)
#define GET_STATID(Stat) (TStatId())
#define QUICK_USE_CYCLE_STAT(StatId, GroupId) (TStatId())
#define RETURN_QUICK_DECLARE_CYCLE_STAT(StatId, GroupId) return TStatId();
#define SCOPE_CYCLE_COUNTER(Stat)
#define QUICK_SCOPE_CYCLE_COUNTER(Stat)
#define DECLARE_SCOPE_CYCLE_COUNTER(CounterName, Stat, GroupId)
