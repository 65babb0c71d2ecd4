#include "UObject/UObjectBaseUtility.h"
#include "UObject/Class.h"
#include "UObject/Package.h"

namespace
{
	// A subobject of an object that sits directly in a package is written "Package.Object:Subobject".
	constexpr TCHAR SubobjectDelimiter = TEXT(':');
}

FString UObjectBaseUtility::GetPathName(const UObject* StopOuter) const
{
	FString Result;
	GetPathName(StopOuter, Result);
	return Result;
}

void UObjectBaseUtility::GetPathName(const UObject* StopOuter, FString& ResultString) const
{
	if (static_cast<const UObjectBase*>(this) == static_cast<const UObjectBase*>(StopOuter))
	{
		ResultString += TEXT("None");
		return;
	}
	UObject* Outer = GetOuter();
	if (Outer != nullptr && Outer != StopOuter)
	{
		Outer->GetPathName(StopOuter, ResultString);
		UObject* OuterOuter = Outer->GetOuter();
		const bool bOuterIsPackage = Outer->IsA(UPackage::StaticClass());
		const bool bOuterOuterIsPackage = OuterOuter != nullptr && OuterOuter->IsA(UPackage::StaticClass());
		ResultString.AppendChar(!bOuterIsPackage && bOuterOuterIsPackage ? SubobjectDelimiter : TEXT('.'));
	}
	GetFName().AppendString(ResultString);
}

FString UObjectBaseUtility::GetFullName(const UObject* StopOuter) const
{
	if (GetClass() == nullptr)
	{
		return TEXT("None");
	}
	return GetClass()->GetName() + TEXT(" ") + GetPathName(StopOuter);
}

FString UObjectBaseUtility::GetFullGroupName(bool bStartWithOuter) const
{
	const UObject* Top = GetOutermostObject();
	const UObject* Start = bStartWithOuter ? GetOuter() : static_cast<const UObject*>(static_cast<const UObjectBase*>(this));
	if (Start == nullptr || Start == Top)
	{
		return FString();
	}
	return Start->GetPathName(Top);
}

UObject* UObjectBaseUtility::GetOutermostObject() const
{
	UObject* Top = const_cast<UObject*>(static_cast<const UObject*>(static_cast<const UObjectBase*>(this)));
	while (Top->GetOuter() != nullptr)
	{
		Top = Top->GetOuter();
	}
	return Top;
}

UPackage* UObjectBaseUtility::GetOutermost() const
{
	UObject* Top = GetOutermostObject();
	return Top->IsA(UPackage::StaticClass()) ? static_cast<UPackage*>(Top) : nullptr;
}

bool UObjectBaseUtility::IsIn(const UObject* SomeOuter) const
{
	for (UObject* Outer = GetOuter(); Outer != nullptr; Outer = Outer->GetOuter())
	{
		if (Outer == SomeOuter)
		{
			return true;
		}
	}
	return SomeOuter == nullptr;
}

UObject* UObjectBaseUtility::GetTypedOuter(UClass* Target) const
{
	for (UObject* Outer = GetOuter(); Outer != nullptr; Outer = Outer->GetOuter())
	{
		if (Outer->IsA(Target))
		{
			return Outer;
		}
	}
	return nullptr;
}

bool UObjectBaseUtility::IsA(const UClass* SomeBase) const
{
	return SomeBase != nullptr && GetClass() != nullptr && GetClass()->IsChildOf(SomeBase);
}

bool UObjectBaseUtility::IsTemplate(EObjectFlags TemplateTypes) const
{
	for (const UObjectBaseUtility* Test = this; Test != nullptr; Test = Test->GetOuter())
	{
		if (Test->HasAnyFlags(TemplateTypes))
		{
			return true;
		}
	}
	return false;
}
