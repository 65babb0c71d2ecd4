// The object system's access to the private parts of objects, initializers and classes while it builds them.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/Class.h"

namespace UE::CoreUObject::Private
{
	struct FObjectBaseAccess
	{
		static void SetClass(UObjectBase* Object, UClass* Class)
		{
			Object->ClassPrivate = Class;
		}
		static int32 GetIndex(const UObjectBase* Object)
		{
			return Object->InternalIndex;
		}
		static void Rename(UObjectBase* Object, FName NewName, UObject* NewOuter)
		{
			Object->LowLevelRename(NewName, NewOuter);
		}
	};

	// Gives the native bitfields declared by Struct itself their place, from Instance: a constructed
	// instance of Struct (a class's default object, right after its constructor).
	void PlaceNativeBitfields(UStruct* Struct, void* Instance);

	struct FObjectConstruction
	{
		// The initializer of the innermost construction in progress on this thread, or null.
		static FObjectInitializer* TopInitializer();

		// Runs Constructor on zeroed Memory with an initializer that gives the object its identity.
		static UObject* Construct(void* Memory, UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags, UObject* Archetype, void (*Constructor)(const FObjectInitializer&));

		static void* AllocateObjectMemory(int32 Size, int32 Alignment);
		static void FreeObjectMemory(void* Memory, int32 Alignment);

		// Properties that reflection added at run time (a Blueprint's variables) live past the native part of
		// the object; its C++ constructor and destructor don't know them.
		static bool IsNonNativeProperty(const FProperty* Property);
		static void InitializeNonNativeProperties(UObject* Object);
		static void DestroyNonNativeProperties(UObject* Object);
		// Runs the destructor and frees the memory of an object that is not registered anywhere else.
		static void DestroyAndFree(UObject* Object);

		static void SetClassDefaultObject(UClass* Class, UObject* Object)
		{
			Class->ClassDefaultObject = Object;
		}
		static UObject* CreateDefaultObject(UClass* Class)
		{
			return Class->CreateDefaultObject();
		}
		// Copies into a new object the values in which its class default object differs from a fresh construction.
		static void CopyFromClassDefaults(UObject* Object, UClass* Class, UObject* ClassDefaults);
	};
}
