#include "Engine/MemberReference.h"
#include "Engine/Blueprint.h"

void FMemberReference::SetSelfMember(FName InMemberName, const FGuid& InMemberGuid)
{
	MemberParent = nullptr;
	MemberScope.Reset();
	MemberName = InMemberName;
	MemberGuid = InMemberGuid;
	bSelfContext = true;
}

void FMemberReference::SetExternalMember(FName InMemberName, TSubclassOf<UObject> InMemberParentClass, const FGuid& InMemberGuid)
{
	MemberParent = InMemberParentClass.Get();
	MemberScope.Reset();
	MemberName = InMemberName;
	MemberGuid = InMemberGuid;
	bSelfContext = false;
}

void FMemberReference::SetFromField(const UField* InField, bool bIsConsideredSelfContext, UClass* OwnerClass)
{
	MemberParent = bIsConsideredSelfContext ? nullptr : (OwnerClass != nullptr ? OwnerClass : InField->GetOwnerClass());
	MemberScope.Reset();
	MemberName = InField->GetFName();
	bSelfContext = bIsConsideredSelfContext;
}

void FMemberReference::SetFromField(const FField* InField, bool bIsConsideredSelfContext, UClass* OwnerClass)
{
	MemberParent = bIsConsideredSelfContext ? nullptr : (OwnerClass != nullptr ? OwnerClass : InField->GetOwnerClass());
	MemberScope.Reset();
	MemberName = InField->GetFName();
	bSelfContext = bIsConsideredSelfContext;
}

void FMemberReference::SetLocalMember(FName InMemberName, const FString& InScopeName, const FGuid& InMemberGuid)
{
	MemberParent = nullptr;
	MemberScope = InScopeName;
	MemberName = InMemberName;
	MemberGuid = InMemberGuid;
	bSelfContext = false;
}

UFunction* FMemberReference::ResolveMemberFunction(UClass* SelfScope) const
{
	UClass* Class = GetMemberParentClass(SelfScope);
	return Class != nullptr ? Class->FindFunctionByName(MemberName) : nullptr;
}

FProperty* FMemberReference::ResolveMemberProperty(UClass* SelfScope) const
{
	UClass* Class = GetMemberParentClass(SelfScope);
	return Class != nullptr ? Class->FindPropertyByName(MemberName) : nullptr;
}
