#pragma once

#include "CoreTypes.h"
#include "Delegates/IDelegateInstance.h"
#include "Delegates/DelegateUserPolicy.h"
#include "Delegates/DelegateSignatureImpl.h"
#include "Delegates/MulticastDelegate.h"

template<typename DelegateSignature>
using TTSDelegate = TDelegate<DelegateSignature, FDefaultTSDelegateUserPolicy>;

template<typename DelegateSignature>
using TTSMulticastDelegate = TMulticastDelegate<DelegateSignature, FDefaultTSDelegateUserPolicy>;

#define FUNC_DECLARE_DELEGATE(DelegateName, ReturnType, ...) \
	typedef TDelegate<ReturnType(__VA_ARGS__)> DelegateName;

#define FUNC_DECLARE_MULTICAST_DELEGATE(MulticastDelegateName, ReturnType, ...) \
	typedef TMulticastDelegate<ReturnType(__VA_ARGS__)> MulticastDelegateName;

#define FUNC_DECLARE_TS_MULTICAST_DELEGATE(MulticastDelegateName, ReturnType, ...) \
	typedef TMulticastDelegate<ReturnType(__VA_ARGS__), FDefaultTSDelegateUserPolicy> MulticastDelegateName;

// An event is a multicast delegate that names the class which owns it.
#define FUNC_DECLARE_EVENT(OwningType, EventName, ReturnType, ...) \
	class EventName : public TMulticastDelegate<ReturnType(__VA_ARGS__)> \
	{ \
		friend class OwningType; \
	};

#define DECLARE_DERIVED_EVENT(OwningType, BaseTypeEvent, EventName) \
	class EventName : public BaseTypeEvent \
	{ \
		friend class OwningType; \
	};

#include "Delegates/DelegateCombinations.h"

DECLARE_DELEGATE(FSimpleDelegate);
DECLARE_MULTICAST_DELEGATE(FSimpleMulticastDelegate);
