// FEnumProperty: an enum class (or other enum with a fixed underlying type) held in its underlying integer.
#pragma once

#include "CoreMinimal.h"
#include "UObject/UnrealType.h"

class COREUOBJECT_API FEnumProperty : public FProperty
{
	DECLARE_FIELD(FEnumProperty, FProperty, CASTCLASS_FEnumProperty)

public:
	FEnumProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FEnumProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UEnum* InEnum);
	virtual ~FEnumProperty();

	// Takes ownership of the integer property that stores the value.
	void AddCppProperty(FProperty* Inner);
	void SetEnum(UEnum* InEnum);
	UEnum* GetEnum() const
	{
		return Enum;
	}
	FNumericProperty* GetUnderlyingProperty() const
	{
		return UnderlyingProp;
	}

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override;
	virtual void LinkInternal() override;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;

private:
	FNumericProperty* UnderlyingProp = nullptr;
	UEnum* Enum = nullptr;
};
