// UFactory: makes new assets of a class.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Templates/SubclassOf.h"
#include "Factory.generated.h"

class FFeedbackContext;

UCLASS(abstract)
class UNREALED_API UFactory : public UObject
{
	GENERATED_BODY()

public:
	UFactory(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The class of the assets this factory makes. */
	UPROPERTY()
	TSubclassOf<UObject> SupportedClass;

	UPROPERTY()
	uint32 bCreateNew : 1;

	UPROPERTY()
	uint32 bEditAfterNew : 1;

	// Makes the asset named InName in InParent (its package); null when it can't.
	virtual UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn, FName CallingContext);
	virtual UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn);
	virtual bool ConfigureProperties()
	{
		return true;
	}
	virtual bool ShouldShowInNewMenu() const
	{
		return bCreateNew;
	}
	UClass* GetSupportedClass() const
	{
		return SupportedClass;
	}
	virtual bool DoesSupportClass(UClass* Class);
};
