#include "Factories/Factory.h"
#include "Templates/Casts.h"
#include "Factories/BlueprintFactory.h"
#include "Factories/AnimBlueprintFactory.h"
#include "Kismet2/KismetEditorUtilities.h"
#include "Engine/BlueprintGeneratedClass.h"
#include "Animation/AnimBlueprint.h"
#include "Animation/AnimBlueprintGeneratedClass.h"
#include "Animation/AnimInstance.h"

DEFINE_LOG_CATEGORY_STATIC(LogFactory, Log, All);

UFactory::UFactory(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, bCreateNew(false)
	, bEditAfterNew(false)
{
}

UObject* UFactory::FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn, FName CallingContext)
{
	return FactoryCreateNew(InClass, InParent, InName, Flags, Context, Warn);
}

UObject* UFactory::FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn)
{
	return nullptr;
}

bool UFactory::DoesSupportClass(UClass* Class)
{
	return Class != nullptr && Class == SupportedClass.Get();
}

UBlueprintFactory::UBlueprintFactory(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	SupportedClass = UBlueprint::StaticClass();
	bCreateNew = true;
	bEditAfterNew = true;
}

UObject* UBlueprintFactory::FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn, FName CallingContext)
{
	UClass* Parent = ParentClass.Get();
	if (Parent == nullptr || !FKismetEditorUtilities::CanCreateBlueprintOfClass(Parent))
	{
		UE_LOG(LogFactory, Warning, TEXT("Cannot create a blueprint based on the class '%s'."), Parent != nullptr ? *Parent->GetName() : TEXT("(null)"));
		return nullptr;
	}
	UClass* BlueprintClass = InClass != nullptr && InClass->IsChildOf(UBlueprint::StaticClass()) ? InClass : UBlueprint::StaticClass();
	return FKismetEditorUtilities::CreateBlueprint(Parent, InParent, InName, BlueprintType, BlueprintClass, UBlueprintGeneratedClass::StaticClass(), CallingContext);
}

UObject* UBlueprintFactory::FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn)
{
	return FactoryCreateNew(InClass, InParent, InName, Flags, Context, Warn, NAME_None);
}

UAnimBlueprintFactory::UAnimBlueprintFactory(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	SupportedClass = UAnimBlueprint::StaticClass();
	ParentClass = UAnimInstance::StaticClass();
	bCreateNew = true;
	bEditAfterNew = true;
}

UObject* UAnimBlueprintFactory::FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn, FName CallingContext)
{
	UClass* Parent = ParentClass.Get();
	if (Parent == nullptr || !Parent->IsChildOf(UAnimInstance::StaticClass()))
	{
		UE_LOG(LogFactory, Warning, TEXT("Cannot create an animation blueprint based on the class '%s'."), Parent != nullptr ? *Parent->GetName() : TEXT("(null)"));
		return nullptr;
	}
	UAnimBlueprint* Blueprint = Cast<UAnimBlueprint>(FKismetEditorUtilities::CreateBlueprint(Parent, InParent, InName, BlueprintType, UAnimBlueprint::StaticClass(), UAnimBlueprintGeneratedClass::StaticClass(), CallingContext));
	if (Blueprint != nullptr)
	{
		Blueprint->TargetSkeleton = TargetSkeleton;
		FKismetEditorUtilities::CompileBlueprint(Blueprint);
	}
	return Blueprint;
}

UObject* UAnimBlueprintFactory::FactoryCreateNew(UClass* InClass, UObject* InParent, FName InName, EObjectFlags Flags, UObject* Context, FFeedbackContext* Warn)
{
	return FactoryCreateNew(InClass, InParent, InName, Flags, Context, Warn, NAME_None);
}
