// Dynamic delegates and their properties; as text "Object.Function" and "(Object.Function,...)".
#include "UObject/UnrealType.h"
#include "UObject/ScriptDelegates.h"
#include "PropertyText.h"
#include "Misc/Char.h"

using namespace UE::CoreUObject::Private;

IMPLEMENT_FIELD(FDelegateProperty)
IMPLEMENT_FIELD(FMulticastDelegateProperty)
IMPLEMENT_FIELD(FMulticastInlineDelegateProperty)

namespace
{
	// "Object.Function": the function is the last part; the object is found inside the owner's outers first.
	const TCHAR* ReadDelegate(const TCHAR* Buffer, UObject* OwnerObject, FScriptDelegate& OutDelegate)
	{
		// The text runs to the ',' or ')' that ends it inside a list; a path has '/' in it.
		FString Text;
		const TCHAR* End = SkipWhitespace(Buffer);
		if (*End == TEXT('"'))
		{
			End = ReadQuotedString(End, Text);
		}
		else
		{
			while (*End && *End != TEXT(',') && *End != TEXT(')') && !FChar::IsWhitespace(*End))
			{
				Text.AppendChar(*End++);
			}
		}
		if (End == nullptr || Text.IsEmpty())
		{
			return nullptr;
		}
		if (Text.Equals(TEXT("None"), ESearchCase::IgnoreCase) || Text.Equals(TEXT("(null).None"), ESearchCase::IgnoreCase))
		{
			OutDelegate.Unbind();
			return End;
		}
		const int32 Dot = Text.Find(TEXT("."), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
		if (Dot == INDEX_NONE)
		{
			return nullptr;
		}
		const FString ObjectText = Text.Left(Dot);
		UObject* Object = nullptr;
		for (UObject* Scope = OwnerObject; Scope != nullptr && Object == nullptr; Scope = Scope->GetOuter())
		{
			Object = StaticFindObject(UObject::StaticClass(), Scope, *ObjectText);
		}
		if (Object == nullptr)
		{
			Object = StaticFindObject(UObject::StaticClass(), nullptr, *ObjectText);
		}
		if (Object == nullptr)
		{
			return nullptr;
		}
		OutDelegate.BindUFunction(Object, FName(*Text.Mid(Dot + 1)));
		return End;
	}
}

// FScriptDelegate and FMulticastScriptDelegate

void FScriptDelegate::BindUFunction(UObject* InObject, const FName& InFunctionName)
{
	Object = InObject;
	FunctionName = InFunctionName;
}

bool FScriptDelegate::IsBound() const
{
	return !FunctionName.IsNone() && Object.Get() != nullptr;
}

bool FScriptDelegate::IsBoundToObject(const void* InUserObject) const
{
	return InUserObject != nullptr && Object.Get() == InUserObject;
}

FString FScriptDelegate::ToString() const
{
	const UObject* BoundObject = Object.Get();
	return BoundObject != nullptr ? BoundObject->GetPathName() + TEXT(".") + FunctionName.ToString() : FString(TEXT("(null)"));
}

bool FMulticastScriptDelegate::IsBound() const
{
	for (const FScriptDelegate& Delegate : InvocationList)
	{
		if (Delegate.IsBound())
		{
			return true;
		}
	}
	return false;
}

bool FMulticastScriptDelegate::Contains(const FScriptDelegate& InDelegate) const
{
	return InvocationList.Contains(InDelegate);
}

bool FMulticastScriptDelegate::Contains(const UObject* InObject, FName InFunctionName) const
{
	FScriptDelegate Delegate;
	Delegate.BindUFunction(const_cast<UObject*>(InObject), InFunctionName);
	return Contains(Delegate);
}

void FMulticastScriptDelegate::Add(const FScriptDelegate& InDelegate)
{
	InvocationList.Add(InDelegate);
}

void FMulticastScriptDelegate::AddUnique(const FScriptDelegate& InDelegate)
{
	InvocationList.AddUnique(InDelegate);
}

void FMulticastScriptDelegate::Remove(const FScriptDelegate& InDelegate)
{
	InvocationList.Remove(InDelegate);
}

void FMulticastScriptDelegate::Remove(const UObject* InObject, FName InFunctionName)
{
	FScriptDelegate Delegate;
	Delegate.BindUFunction(const_cast<UObject*>(InObject), InFunctionName);
	Remove(Delegate);
}

void FMulticastScriptDelegate::RemoveAll(const UObject* Object)
{
	InvocationList.RemoveAll([Object](const FScriptDelegate& Delegate)
	{
		return Delegate.GetUObject() == Object;
	});
}

FString FMulticastScriptDelegate::ToString() const
{
	FString Result(TEXT("("));
	for (int32 Index = 0; Index < InvocationList.Num(); ++Index)
	{
		if (Index > 0)
		{
			Result.AppendChar(TEXT(','));
		}
		Result += InvocationList[Index].ToString();
	}
	return Result + TEXT(")");
}

// FDelegateProperty

FDelegateProperty::FDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: TProperty(InOwner, InName, InObjectFlags)
{
}

FDelegateProperty::FDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UFunction* InSignatureFunction)
	: TProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
	, SignatureFunction(InSignatureFunction)
{
}

FString FDelegateProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FScriptDelegate");
}

bool FDelegateProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FDelegateProperty*>(Other)->SignatureFunction == SignatureFunction;
}

void FDelegateProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const FScriptDelegate& Delegate = GetPropertyValue(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	ValueStr += Delegate.IsBound() ? Delegate.ToString() : FString(TEXT("None"));
}

const TCHAR* FDelegateProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	FScriptDelegate Delegate;
	const TCHAR* End = ReadDelegate(Buffer, OwnerObject, Delegate);
	if (End == nullptr)
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected Object.Function"));
		return nullptr;
	}
	SetPropertyValue(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), Delegate);
	return End;
}

// FMulticastDelegateProperty

FMulticastDelegateProperty::FMulticastDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FProperty(InOwner, InName, InObjectFlags)
{
}

FMulticastDelegateProperty::FMulticastDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UFunction* InSignatureFunction)
	: FProperty(InOwner, InName, InObjectFlags, InOffset, InFlags)
	, SignatureFunction(InSignatureFunction)
{
}

bool FMulticastDelegateProperty::SameType(const FProperty* Other) const
{
	return FProperty::SameType(Other) && static_cast<const FMulticastDelegateProperty*>(Other)->SignatureFunction == SignatureFunction;
}

void FMulticastDelegateProperty::ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const
{
	const FMulticastScriptDelegate* Delegate = GetMulticastDelegate(PointerToValuePtr(PropertyValueOrContainer, PointerType));
	ValueStr += Delegate != nullptr ? Delegate->ToString() : FString(TEXT("()"));
}

const TCHAR* FMulticastDelegateProperty::ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const
{
	const TCHAR* Cursor = SkipWhitespace(Buffer);
	if (*Cursor != TEXT('('))
	{
		ReportImportError(ErrorText, Buffer, TEXT("expected '(' to open the list of bindings"));
		return nullptr;
	}
	FMulticastScriptDelegate Result;
	Cursor = SkipWhitespace(Cursor + 1);
	while (*Cursor != TEXT(')'))
	{
		FScriptDelegate Delegate;
		Cursor = ReadDelegate(Cursor, OwnerObject, Delegate);
		if (Cursor == nullptr)
		{
			ReportImportError(ErrorText, Buffer, TEXT("expected Object.Function"));
			return nullptr;
		}
		if (Delegate.IsBound())
		{
			Result.AddUnique(Delegate);
		}
		Cursor = SkipWhitespace(Cursor);
		if (*Cursor == TEXT(','))
		{
			Cursor = SkipWhitespace(Cursor + 1);
		}
		else if (*Cursor != TEXT(')'))
		{
			ReportImportError(ErrorText, Buffer, TEXT("expected ',' or ')' in the list of bindings"));
			return nullptr;
		}
	}
	SetMulticastDelegate(PointerToValuePtr(ContainerOrPropertyPtr, PointerType), MoveTemp(Result));
	return Cursor + 1;
}

// FMulticastInlineDelegateProperty

FMulticastInlineDelegateProperty::FMulticastInlineDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
	: FMulticastDelegateProperty(InOwner, InName, InObjectFlags)
{
	ElementSize = sizeof(FMulticastScriptDelegate);
}

FMulticastInlineDelegateProperty::FMulticastInlineDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UFunction* InSignatureFunction)
	: FMulticastDelegateProperty(InOwner, InName, InObjectFlags, InOffset, InFlags, InSignatureFunction)
{
	ElementSize = sizeof(FMulticastScriptDelegate);
}

FString FMulticastInlineDelegateProperty::GetCPPType(FString* ExtendedTypeText, uint32 CPPExportFlags) const
{
	return TEXT("FMulticastScriptDelegate");
}

bool FMulticastInlineDelegateProperty::Identical(const void* A, const void* B, uint32 PortFlags) const
{
	const FMulticastScriptDelegate& DelegateA = *static_cast<const FMulticastScriptDelegate*>(A);
	return B != nullptr ? DelegateA == *static_cast<const FMulticastScriptDelegate*>(B) : !DelegateA.IsBound();
}

void FMulticastInlineDelegateProperty::CopyValuesInternal(void* Dest, const void* Src, int32 Count) const
{
	for (int32 Index = 0; Index < Count; ++Index)
	{
		static_cast<FMulticastScriptDelegate*>(Dest)[Index] = static_cast<const FMulticastScriptDelegate*>(Src)[Index];
	}
}

void FMulticastInlineDelegateProperty::InitializeValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		new (static_cast<FMulticastScriptDelegate*>(Dest) + Index) FMulticastScriptDelegate();
	}
}

void FMulticastInlineDelegateProperty::DestroyValueInternal(void* Dest) const
{
	for (int32 Index = 0; Index < ArrayDim; ++Index)
	{
		(static_cast<FMulticastScriptDelegate*>(Dest) + Index)->~FMulticastScriptDelegate();
	}
}

void FMulticastInlineDelegateProperty::ClearValueInternal(void* Data) const
{
	static_cast<FMulticastScriptDelegate*>(Data)->Clear();
}
