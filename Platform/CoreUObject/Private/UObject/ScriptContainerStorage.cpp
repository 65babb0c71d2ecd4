#include "ScriptContainerStorage.h"

namespace UE::CoreUObject::Private
{
	namespace
	{
		int32 AlignUp(int32 Value, int32 Alignment)
		{
			return Alignment > 1 ? (Value + Alignment - 1) / Alignment * Alignment : Value;
		}

		// Moves elements by copying them into a new buffer, since element types may not be trivially movable.
		void Reallocate(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 NewMax)
		{
			uint8* NewData = NewMax > 0 ? static_cast<uint8*>(FMemory::Malloc(static_cast<SIZE_T>(NewMax) * Layout.Stride, static_cast<uint32>(Layout.Alignment))) : nullptr;
			for (int32 Index = 0; Index < Storage.Num; ++Index)
			{
				uint8* Target = NewData + Index * Layout.Stride;
				Layout.Initialize(Target);
				Layout.Copy(Target, Storage.Data + Index * Layout.Stride);
				Layout.Destroy(Storage.Data + Index * Layout.Stride);
			}
			FMemory::Free(Storage.Data);
			Storage.Data = NewData;
			Storage.Max = NewMax;
		}
	}

	FContainerElementLayout FContainerElementLayout::ForElement(const FProperty* Element)
	{
		FContainerElementLayout Layout;
		Layout.First = Element;
		Layout.Alignment = Element != nullptr ? FMath::Max(Element->GetMinAlignment(), 1) : 1;
		Layout.Stride = Element != nullptr ? AlignUp(Element->GetSize(), Layout.Alignment) : 0;
		return Layout;
	}

	FContainerElementLayout FContainerElementLayout::ForPair(const FProperty* Key, const FProperty* Value)
	{
		FContainerElementLayout Layout;
		Layout.First = Key;
		Layout.Second = Value;
		const int32 KeyAlignment = Key != nullptr ? FMath::Max(Key->GetMinAlignment(), 1) : 1;
		const int32 ValueAlignment = Value != nullptr ? FMath::Max(Value->GetMinAlignment(), 1) : 1;
		Layout.Alignment = FMath::Max(KeyAlignment, ValueAlignment);
		Layout.SecondOffset = AlignUp(Key != nullptr ? Key->GetSize() : 0, ValueAlignment);
		Layout.Stride = AlignUp(Layout.SecondOffset + (Value != nullptr ? Value->GetSize() : 0), Layout.Alignment);
		return Layout;
	}

	void FContainerElementLayout::Initialize(void* Element) const
	{
		if (First)
		{
			First->InitializeValue(Element);
		}
		if (Second)
		{
			Second->InitializeValue(static_cast<uint8*>(Element) + SecondOffset);
		}
	}

	void FContainerElementLayout::Destroy(void* Element) const
	{
		if (First)
		{
			First->DestroyValue(Element);
		}
		if (Second)
		{
			Second->DestroyValue(static_cast<uint8*>(Element) + SecondOffset);
		}
	}

	void FContainerElementLayout::Copy(void* Dest, const void* Src) const
	{
		if (First)
		{
			First->CopyCompleteValue(Dest, Src);
		}
		if (Second)
		{
			Second->CopyCompleteValue(static_cast<uint8*>(Dest) + SecondOffset, static_cast<const uint8*>(Src) + SecondOffset);
		}
	}

	namespace ContainerStorage
	{
		uint8* GetElement(const FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 Index)
		{
			return Storage.Data + Index * Layout.Stride;
		}

		void Insert(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 Index, int32 Count)
		{
			if (Count <= 0 || Index < 0 || Index > Storage.Num || Layout.Stride <= 0)
			{
				return;
			}
			if (Storage.Num + Count > Storage.Max)
			{
				Reallocate(Storage, Layout, FMath::Max(Storage.Num + Count, Storage.Max * 2));
			}
			// Shift the tail up by copying from the end, so that every slot ends up holding a live value.
			for (int32 Slot = Storage.Num + Count - 1; Slot >= Index + Count; --Slot)
			{
				uint8* Target = GetElement(Storage, Layout, Slot);
				if (Slot >= Storage.Num)
				{
					Layout.Initialize(Target);
				}
				Layout.Copy(Target, GetElement(Storage, Layout, Slot - Count));
			}
			for (int32 Slot = Index; Slot < Index + Count; ++Slot)
			{
				uint8* Target = GetElement(Storage, Layout, Slot);
				if (Slot < Storage.Num)
				{
					Layout.Destroy(Target);
				}
				Layout.Initialize(Target);
			}
			Storage.Num += Count;
		}

		void Remove(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 Index, int32 Count)
		{
			if (Count <= 0 || Index < 0 || Index + Count > Storage.Num)
			{
				return;
			}
			for (int32 Slot = Index; Slot + Count < Storage.Num; ++Slot)
			{
				Layout.Copy(GetElement(Storage, Layout, Slot), GetElement(Storage, Layout, Slot + Count));
			}
			for (int32 Slot = Storage.Num - Count; Slot < Storage.Num; ++Slot)
			{
				Layout.Destroy(GetElement(Storage, Layout, Slot));
			}
			Storage.Num -= Count;
		}

		void Resize(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout, int32 NewNum)
		{
			if (NewNum > Storage.Num)
			{
				Insert(Storage, Layout, Storage.Num, NewNum - Storage.Num);
			}
			else if (NewNum < Storage.Num)
			{
				Remove(Storage, Layout, FMath::Max(NewNum, 0), Storage.Num - FMath::Max(NewNum, 0));
			}
		}

		void Empty(FScriptContainerStorage& Storage, const FContainerElementLayout& Layout)
		{
			for (int32 Slot = 0; Slot < Storage.Num; ++Slot)
			{
				Layout.Destroy(GetElement(Storage, Layout, Slot));
			}
			FMemory::Free(Storage.Data);
			Storage = FScriptContainerStorage();
		}

		void Assign(FScriptContainerStorage& Dest, const FScriptContainerStorage& Src, const FContainerElementLayout& Layout)
		{
			if (&Dest == &Src)
			{
				return;
			}
			Resize(Dest, Layout, Src.Num);
			for (int32 Slot = 0; Slot < Src.Num; ++Slot)
			{
				Layout.Copy(GetElement(Dest, Layout, Slot), GetElement(Src, Layout, Slot));
			}
		}
	}
}
