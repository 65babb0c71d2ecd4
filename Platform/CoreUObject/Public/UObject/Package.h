// UPackage: the outermost object of a group of objects; "/Script/<Module>" holds a module's native types.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

class COREUOBJECT_API UPackage : public UObject
{
	DECLARE_CLASS_INTRINSIC(UPackage, UObject, CLASS_None, TEXT("/Script/CoreUObject"), CASTCLASS_UPackage)

public:
	UPackage(const FObjectInitializer& ObjectInitializer);

	// A package changed since it was loaded or saved.
	void SetDirtyFlag(bool bInIsDirty)
	{
		bDirty = bInIsDirty;
	}
	bool IsDirty() const
	{
		return bDirty;
	}
	bool MarkPackageDirty()
	{
		bDirty = true;
		return true;
	}

private:
	bool bDirty = false;
};
