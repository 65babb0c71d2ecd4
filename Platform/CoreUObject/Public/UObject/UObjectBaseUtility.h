// Object helpers above the registry layer: flags, names and paths, outers, class tests.
#pragma once

#include "CoreMinimal.h"
#include "UObject/UObjectBase.h"

class COREUOBJECT_API UObjectBaseUtility : public UObjectBase
{
public:
	UObjectBaseUtility() = default;

	void SetFlags(EObjectFlags NewFlags)
	{
		SetFlagsTo(GetFlags() | NewFlags);
	}
	void ClearFlags(EObjectFlags FlagsToClear)
	{
		SetFlagsTo(GetFlags() & ~FlagsToClear);
	}
	bool HasAnyFlags(EObjectFlags FlagsToCheck) const
	{
		return (GetFlags() & FlagsToCheck) != 0;
	}
	bool HasAllFlags(EObjectFlags FlagsToCheck) const
	{
		return (GetFlags() & FlagsToCheck) == FlagsToCheck;
	}
	EObjectFlags GetMaskedFlags(EObjectFlags Mask = RF_AllFlags) const
	{
		return GetFlags() & Mask;
	}

	// Rooted objects survive garbage collection.
	void AddToRoot()
	{
		SetRootedInternal(true);
	}
	void RemoveFromRoot()
	{
		SetRootedInternal(false);
	}
	bool IsRooted() const
	{
		return IsRootedInternal();
	}

	FString GetName() const
	{
		return GetFName().ToString();
	}
	void GetName(FString& ResultString) const
	{
		ResultString = GetName();
	}
	// The object's path: its outers' names and its own, "/Package/Path.Object:Subobject".
	FString GetPathName(const UObject* StopOuter = nullptr) const;
	void GetPathName(const UObject* StopOuter, FString& ResultString) const;
	// The class name, a space, and the path name.
	FString GetFullName(const UObject* StopOuter = nullptr) const;
	// The path below the outermost package, with dots.
	FString GetFullGroupName(bool bStartWithOuter) const;

	UPackage* GetOutermost() const;
	UPackage* GetPackage() const
	{
		return GetOutermost();
	}
	UObject* GetOutermostObject() const;
	bool IsIn(const UObject* SomeOuter) const;
	UObject* GetTypedOuter(UClass* Target) const;
	template<typename T>
	T* GetTypedOuter() const
	{
		return static_cast<T*>(GetTypedOuter(T::StaticClass()));
	}

	bool IsA(const UClass* SomeBase) const;
	template<class T>
	bool IsA() const
	{
		return IsA(T::StaticClass());
	}

	bool IsTemplate(EObjectFlags TemplateTypes = RF_ArchetypeObject | RF_ClassDefaultObject) const;

	// An object marked as garbage is destroyed by the next garbage collection even while referenced, and
	// the references to it are cleared then.
	void MarkAsGarbage()
	{
		SetFlags(RF_MirroredGarbage);
	}
	void ClearGarbage()
	{
		ClearFlags(RF_MirroredGarbage);
	}
	bool IsGarbage() const
	{
		return HasAnyFlags(RF_MirroredGarbage);
	}
	// Only true for objects the garbage collector is destroying.
	bool IsUnreachable() const
	{
		return HasAnyFlags(RF_BeginDestroyed);
	}
	// A native type, or an object inside one (such as a native class's function).
	bool IsNative() const;
	bool IsPackageExternal() const
	{
		return false;
	}
	bool IsDefaultSubobject() const
	{
		return HasAnyFlags(RF_DefaultSubObject);
	}
};

// A live object that isn't marked as garbage.
inline bool IsValid(const UObject* Test)
{
	return Test != nullptr && !reinterpret_cast<const UObjectBaseUtility*>(Test)->IsGarbage() && !reinterpret_cast<const UObjectBaseUtility*>(Test)->IsUnreachable();
}
inline bool IsValidChecked(const UObject* Test)
{
	check(Test);
	return IsValid(Test);
}
