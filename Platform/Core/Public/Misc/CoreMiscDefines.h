#pragma once

#include "HAL/Platform.h"

enum { INDEX_NONE = -1 };
enum { UNICODE_BOM = 0xfeff };

enum EForceInit { ForceInit, ForceInitToZero };
enum ENoInit { NoInit };
enum EInPlace { InPlace };

#define MAX_uint8 ((uint8)0xff)
#define MAX_uint16 ((uint16)0xffff)
#define MAX_uint32 ((uint32)0xffffffff)
#define MAX_uint64 ((uint64)0xffffffffffffffffULL)
#define MAX_int8 ((int8)0x7f)
#define MAX_int16 ((int16)0x7fff)
#define MAX_int32 ((int32)0x7fffffff)
#define MAX_int64 ((int64)0x7fffffffffffffffLL)
#define MIN_int32 ((int32)0x80000000)
#define MIN_int64 ((int64)0x8000000000000000LL)
#define MAX_flt (3.402823466e+38F)

#define UE_DEPRECATED(Version, Message) [[deprecated(Message)]]
#define UE_NONCOPYABLE(TypeName) \
	TypeName(TypeName&&) = delete; \
	TypeName(const TypeName&) = delete; \
	TypeName& operator=(const TypeName&) = delete; \
	TypeName& operator=(TypeName&&) = delete;

#define PURE_VIRTUAL(Func, ...) { LowLevelFatalErrorPureVirtual(#Func); __VA_ARGS__ }
UE_NORETURN void LowLevelFatalErrorPureVirtual(const char* FunctionName);

#define UE_ARRAY_COUNT(Array) (sizeof(Array) / sizeof((Array)[0]))
#define ARRAY_COUNT(Array) UE_ARRAY_COUNT(Array)
