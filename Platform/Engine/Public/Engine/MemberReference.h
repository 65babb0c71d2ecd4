// FMemberReference: a function, event or variable referred to by its owner and name (or as a member of self).
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "Templates/SubclassOf.h"
#include "Templates/Casts.h"
#include "MemberReference.generated.h"

USTRUCT()
struct ENGINE_API FMemberReference
{
	GENERATED_BODY()

	/** The class (or package) that holds the member; null for a member of self. */
	UPROPERTY()
	TObjectPtr<UObject> MemberParent = nullptr;

	/** The scope of a local variable: the function's name. */
	UPROPERTY()
	FString MemberScope;

	UPROPERTY()
	FName MemberName;

	UPROPERTY()
	FGuid MemberGuid;

	/** Whether the member belongs to the Blueprint that refers to it. */
	UPROPERTY()
	bool bSelfContext = false;

	UPROPERTY()
	bool bWasDeprecated = false;

	void SetSelfMember(FName InMemberName, const FGuid& InMemberGuid = FGuid());
	void SetExternalMember(FName InMemberName, TSubclassOf<UObject> InMemberParentClass, const FGuid& InMemberGuid = FGuid());
	void SetFromField(const UField* InField, bool bIsConsideredSelfContext, UClass* OwnerClass = nullptr);
	void SetFromField(const FField* InField, bool bIsConsideredSelfContext, UClass* OwnerClass = nullptr);
	template<class TFieldType>
	void SetFromField(const TFieldType* InField, bool bIsConsideredSelfContext)
	{
		SetFromField(static_cast<const FField*>(InField), bIsConsideredSelfContext, nullptr);
	}
	void SetLocalMember(FName InMemberName, const FString& InScopeName, const FGuid& InMemberGuid);

	FName GetMemberName() const
	{
		return MemberName;
	}
	FGuid GetMemberGuid() const
	{
		return MemberGuid;
	}
	bool IsSelfContext() const
	{
		return bSelfContext;
	}
	bool IsLocalScope() const
	{
		return !MemberScope.IsEmpty();
	}
	UClass* GetMemberParentClass() const
	{
		return Cast<UClass>(MemberParent);
	}
	// The owner class when the member is of self: SelfScope; else the member parent.
	UClass* GetMemberParentClass(UClass* SelfScope) const
	{
		return bSelfContext ? SelfScope : GetMemberParentClass();
	}

	// The function of this reference in SelfScope (for a self member) or the parent class, or null.
	UFunction* ResolveMemberFunction(UClass* SelfScope) const;
	// The property of this reference in SelfScope (for a self member) or the parent class, or null.
	FProperty* ResolveMemberProperty(UClass* SelfScope) const;

	template<class TFieldType>
	TFieldType* ResolveMember(UClass* SelfScope) const
	{
		if constexpr (__is_base_of(UFunction, TFieldType))
		{
			return ResolveMemberFunction(SelfScope);
		}
		else
		{
			return CastField<TFieldType>(ResolveMemberProperty(SelfScope));
		}
	}

	bool operator==(const FMemberReference& Other) const
	{
		return MemberParent == Other.MemberParent && MemberScope == Other.MemberScope && MemberName == Other.MemberName && bSelfContext == Other.bSelfContext;
	}
};
