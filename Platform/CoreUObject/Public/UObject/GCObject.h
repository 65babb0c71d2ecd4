// FGCObject: a plain C++ object that holds object references and tells the garbage collector about them.
#pragma once

#include "CoreMinimal.h"
#include "UObject/UObjectGlobals.h"

class COREUOBJECT_API FGCObject
{
public:
	// Registers with the garbage collector for the object's lifetime.
	FGCObject();
	FGCObject(const FGCObject&);
	FGCObject& operator=(const FGCObject&)
	{
		return *this;
	}
	virtual ~FGCObject();

	virtual void AddReferencedObjects(FReferenceCollector& Collector) = 0;
	virtual FString GetReferencerName() const = 0;
};
