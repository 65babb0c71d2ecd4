// UBlueprintFactory: makes a Blueprint of a parent class.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/Blueprint.h"
#include "Factories/Factory.h"
#include "BlueprintFactory.generated.h"

UCLASS(hidecategories = Object, collapsecategories)
class UNREALED_API UBlueprintFactory : public UFactory
{
	GENERATED_BODY()

public:
	UBlueprintFactory(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The class the new Blueprint derives from. */
	UPROPERTY(EditAnywhere, Category = BlueprintFactory)
	TSubclassOf<UObject> ParentClass;

	UPROPERTY(EditAnywhere, Category = BlueprintFactory)
	TEnumAsByte<EBlueprintType> BlueprintType = BPTYPE_Normal;

	UPROPERTY()
	bool bSkipClassPicker = false;

	virtual UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn, FName CallingContext) override;
	virtual UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn) override;
};
