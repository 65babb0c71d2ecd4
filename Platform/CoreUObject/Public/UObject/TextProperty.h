// FTextProperty: an FText; as text, NSLOCTEXT("Namespace", "Key", "Source"), INVTEXT("Source") or the string.
#pragma once

#include "CoreMinimal.h"
#include "UObject/UnrealType.h"

class COREUOBJECT_API FTextProperty : public TProperty<FText, FProperty>
{
	DECLARE_FIELD(FTextProperty, FProperty, CASTCLASS_FTextProperty)

public:
	FTextProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FTextProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	// Texts are the same when they show the same string.
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
};
