// Type-erased element buffers for array, set and map properties that reflection made at run time.
#pragma once

#include "CoreMinimal.h"
#include "UObject/UnrealType.h"

namespace UE::CoreUObject::Private
{
	// How one element of a buffer is made, copied and destroyed: one property, or a map's key and value.
	struct FContainerElementLayout
	{
		const FProperty* First = nullptr;
		const FProperty* Second = nullptr;
		int32 SecondOffset = 0;
		int32 Stride = 0;
		int32 Alignment = 1;

		static FContainerElementLayout ForElement(const FProperty* Element);
		static FContainerElementLayout ForPair(const FProperty* Key, const FProperty* Value);

		void Initialize(void* Element) const;
		void Destroy(void* Element) const;
		void Copy(void* Dest, const void* Src) const;
	};

	namespace ContainerStorage
	{
		uint8* GetElement(const FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 Index);
		// New elements are initialised to their default values.
		void Insert(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 Index, int32 Count);
		void Remove(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 Index, int32 Count);
		void Resize(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 NewNum);
		void Empty(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout);
		void Assign(FScriptContainerStorage& Dest, const FScriptContainerStorage& Src, const FContainerElementLayout& Layout);
	}
}
