#include "UObject/UnrealType.h"
#include "Misc/OutputDevice.h"
#include "CoreUObjectLog.h"

IMPLEMENT_FIELD(FProperty)

FProperty::FProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FField(InOwner, InName, InObjectFlags)
{
}

FProperty::FProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags)
	: FField(InOwner, InName, InObjectFlags)
	, PropertyFlags(InFlags)
	, Offset_Internal(InOffset)
{
}

FString FProperty::GetCPPMacroType(FString& ExtendedTypeText) const
{
	ExtendedTypeText = GetCPPType();
	return TEXT("PROPERTY");
}

bool FProperty::SameType(const FProperty* Other) const
{
	return Other != nullptr && GetClass() == Other->GetClass();
}

bool FProperty::ExportText_Direct(FString& ValueStr, const void* Data, const void* Delta, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	if (Data == Delta || !Identical(Data, Delta, PortFlags))
	{
		ExportText_Internal(ValueStr, Data, EPropertyPointerType::Direct, Delta, Parent, PortFlags, ExportRootScope);
		return true;
	}
	return false;
}

bool FProperty::ShouldPort(uint32 PortFlags) const
{
	if (GetSize() <= 0)
	{
		return false;
	}
	if (HasAnyPropertyFlags(CPF_Deprecated) && !(PortFlags & (PPF_ParsingDefaultProperties | PPF_UseDeprecatedProperties)))
	{
		return false;
	}
	if (HasAnyPropertyFlags(CPF_Transient) && (PortFlags & (PPF_ParsingDefaultProperties | PPF_IncludeTransient)))
	{
		return true;
	}
	if ((PortFlags & PPF_Copy) && HasAnyPropertyFlags(CPF_DuplicateTransient | CPF_TextExportTransient) && !(PortFlags & (PPF_ParsingDefaultProperties | PPF_IncludeTransient)))
	{
		return false;
	}
	if ((PortFlags & PPF_PropertyWindow) && !HasAnyPropertyFlags(CPF_Edit))
	{
		return false;
	}
	return true;
}

bool FProperty::ValidateImportFlags(uint32 PortFlags, FOutputDevice* ErrorHandler) const
{
	// Default properties may not set what comes from config files.
	if ((PortFlags & PPF_RestrictImportTypes) && HasAnyPropertyFlags(CPF_Config))
	{
		const FString Message = FString::Printf(TEXT("Import failed for '%s': property is config (Check to see if the property is listed in the DefaultProperties.  It should only be listed in the specific .ini file)"), *GetName());
		if (ErrorHandler != nullptr)
		{
			ErrorHandler->Log(*Message);
		}
		else
		{
			UE_LOG(LogProperty, Warning, TEXT("%s"), *Message);
		}
		return false;
	}
	return true;
}

bool FProperty::ShouldSerializeValue() const
{
	return !HasAnyPropertyFlags(CPF_Transient | CPF_Deprecated | CPF_SkipSerialization);
}

void FProperty::ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ExportText_Internal(ValueStr, PropertyValue, EPropertyPointerType::Direct, DefaultValue, Parent, PortFlags, ExportRootScope);
}

void FProperty::ExportTextItem_InContainer(FString& ValueStr, const void* Container, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	ExportText_Internal(ValueStr, Container, EPropertyPointerType::Container, DefaultValue, Parent, PortFlags, ExportRootScope);
}

bool FProperty::ExportText_InContainer(int32 Index, FString& ValueStr, const void* Data, const void* Delta, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	if (Data == nullptr || Index < 0 || Index >= ArrayDim)
	{
		return false;
	}
	return ExportText_Direct(ValueStr, ContainerPtrToValuePtr<void>(Data, Index), Delta ? ContainerPtrToValuePtr<void>(Delta, Index) : nullptr, Parent, PortFlags, ExportRootScope);
}

const TCHAR* FProperty::ImportText_Direct(const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (Buffer == nullptr || PropertyPtr == nullptr)
	{
		return nullptr;
	}
	return ImportText_Internal(Buffer, PropertyPtr, EPropertyPointerType::Direct, OwnerObject, PortFlags, ErrorText);
}

const TCHAR* FProperty::ImportText_InContainer(const TCHAR* Buffer, void* Container, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	if (Buffer == nullptr || Container == nullptr)
	{
		return nullptr;
	}
	return ImportText_Internal(Buffer, Container, EPropertyPointerType::Container, OwnerObject, PortFlags, ErrorText);
}

bool FProperty::Identical_InContainer(const void* A, const void* B, int32 ArrayIndex, uint32 PortFlags) const
{
	return Identical(ContainerPtrToValuePtr<void>(A, ArrayIndex), B ? ContainerPtrToValuePtr<void>(B, ArrayIndex) : nullptr, PortFlags);
}

void FProperty::CopySingleValue(void* Dest, const void* Src) const
{
	if (Dest != Src)
	{
		CopyValuesInternal(Dest, Src, 1);
	}
}

void FProperty::CopyCompleteValue(void* Dest, const void* Src) const
{
	if (Dest != Src)
	{
		CopyValuesInternal(Dest, Src, ArrayDim);
	}
}

void FProperty::CopyCompleteValue_InContainer(void* Dest, const void* Src) const
{
	CopyCompleteValue(ContainerPtrToValuePtr<void>(Dest), ContainerPtrToValuePtr<void>(Src));
}

void FProperty::InitializeValue(void* Dest) const
{
	InitializeValueInternal(Dest);
}

void FProperty::InitializeValue_InContainer(void* Dest) const
{
	InitializeValueInternal(ContainerPtrToValuePtr<void>(Dest));
}

void FProperty::DestroyValue(void* Dest) const
{
	DestroyValueInternal(Dest);
}

void FProperty::DestroyValue_InContainer(void* Dest) const
{
	DestroyValueInternal(ContainerPtrToValuePtr<void>(Dest));
}

void FProperty::ClearValue(void* Data) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		ClearValueInternal(static_cast<uint8*>(Data) + Index * ElementSize);
	}
}

void FProperty::ClearValue_InContainer(void* Data, int32 ArrayIndex) const
{
	ClearValueInternal(ContainerPtrToValuePtr<void>(Data, ArrayIndex));
}

void FProperty::InitializeValueInternal(void* Dest) const
{
	FMemory::Memzero(Dest, static_cast<SIZE_T>(ElementSize) * ArrayDim);
}

void FProperty::DestroyValueInternal(void* Dest) const
{
}

void FProperty::ClearValueInternal(void* Data) const
{
	FMemory::Memzero(Data, static_cast<SIZE_T>(ElementSize));
}

void FProperty::ReportImportError(FOutputDevice* ErrorText, const TCHAR* Buffer, const TCHAR* Reason) const
{
	const FString Message = FString::Printf(TEXT("%s: can't read '%s': %s"), *GetName(), Buffer ? Buffer : TEXT(""), Reason);
	if (ErrorText != nullptr)
	{
		ErrorText->Log(ELogVerbosity::Warning, *Message);
	}
	else
	{
		UE_LOG(LogProperty, Warning, TEXT("%s"), *Message);
	}
}
