// UAnimBlueprintFactory: makes an Animation Blueprint for a skeleton.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Engine/Blueprint.h"
#include "Factories/Factory.h"
#include "AnimBlueprintFactory.generated.h"

class USkeleton;

UCLASS(hidecategories = Object, collapsecategories)
class UNREALED_API UAnimBlueprintFactory : public UFactory
{
	GENERATED_BODY()

public:
	UAnimBlueprintFactory(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The class the Animation Blueprint derives from (UAnimInstance or a child of it). */
	UPROPERTY(EditAnywhere, Category = AnimBlueprintFactory)
	TSubclassOf<UObject> ParentClass;

	UPROPERTY(EditAnywhere, Category = AnimBlueprintFactory)
	TObjectPtr<USkeleton> TargetSkeleton;

	UPROPERTY(EditAnywhere, Category = AnimBlueprintFactory)
	TEnumAsByte<EBlueprintType> BlueprintType = BPTYPE_Normal;

	virtual UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn, FName CallingContext) override;
	virtual UObject* FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn) override;
};
