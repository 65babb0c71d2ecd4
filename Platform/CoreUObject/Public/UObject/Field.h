// FField: the lightweight reflected member (properties), not an object; its class, owner, name and metadata.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"

class FField;
class FFieldVariant;
class UStruct;
class UField;

// Describes one kind of field, such as "StrProperty", and what it derives from.
class COREUOBJECT_API FFieldClass
{
public:
	typedef FField* (*FConstructFn)(const FFieldVariant&, const FName&, EObjectFlags);

	// A class with a construct function is found by its name (FField::Construct).
	FFieldClass(const TCHAR* InName, uint64 InId, uint64 InCastFlags, FFieldClass* InSuperClass, FConstructFn InConstructFn = nullptr);
	static FFieldClass* GetNameToFieldClassMap(FName InName);
	FField* Construct(const FFieldVariant& InOwner, const FName& InName, EObjectFlags InFlags = RF_NoFlags) const
	{
		return ConstructFn != nullptr ? ConstructFn(InOwner, InName, InFlags) : nullptr;
	}
	FFieldClass(const FFieldClass&) = delete;
	FFieldClass& operator=(const FFieldClass&) = delete;

	FString GetName() const
	{
		return Name.ToString();
	}
	FName GetFName() const
	{
		return Name;
	}
	uint64 GetId() const
	{
		return Id;
	}
	uint64 GetCastFlags() const
	{
		return CastFlags;
	}
	bool HasAnyCastFlags(const uint64 InCastFlags) const
	{
		return (CastFlags & InCastFlags) != 0;
	}
	bool HasAllCastFlags(const uint64 InCastFlags) const
	{
		return (CastFlags & InCastFlags) == InCastFlags;
	}
	bool IsChildOf(const FFieldClass* InClass) const;
	FFieldClass* GetSuperClass() const
	{
		return SuperClass;
	}

private:
	FName Name;
	uint64 Id;
	uint64 CastFlags;
	FFieldClass* SuperClass;
	FConstructFn ConstructFn;
};

// The owner of a field: an object (a struct, class or function) or another field (an array's element).
class COREUOBJECT_API FFieldVariant
{
public:
	FFieldVariant()
	{
	}
	FFieldVariant(const FField* InField)
		: Field(const_cast<FField*>(InField))
	{
	}
	FFieldVariant(const UObject* InObject)
		: Object(const_cast<UObject*>(InObject))
	{
	}
	FFieldVariant(TYPE_OF_NULLPTR)
	{
	}

	bool IsUObject() const
	{
		return Object != nullptr;
	}
	bool IsValid() const
	{
		return Object != nullptr || Field != nullptr;
	}
	explicit operator bool() const
	{
		return IsValid();
	}
	UObject* ToUObject() const
	{
		return Object;
	}
	FField* ToField() const
	{
		return Field;
	}
	FName GetFName() const;
	FString GetName() const
	{
		return GetFName().ToString();
	}

	bool operator==(const FFieldVariant& Other) const
	{
		return Object == Other.Object && Field == Other.Field;
	}
	bool operator!=(const FFieldVariant& Other) const
	{
		return !(*this == Other);
	}

private:
	UObject* Object = nullptr;
	FField* Field = nullptr;
};

// What every concrete field class declares: its field class and its place in the hierarchy.
#define DECLARE_FIELD(TClass, TSuperClass, TStaticFlags) \
public: \
	typedef TSuperClass Super; \
	typedef TClass ThisClass; \
	static FFieldClass* StaticClass(); \
	static constexpr uint64 StaticClassCastFlagsPrivate() \
	{ \
		return uint64(TStaticFlags); \
	} \
	virtual FFieldClass* GetClass() const override \
	{ \
		return StaticClass(); \
	}

namespace UE::CoreUObject::Private
{
	template<class TFieldType>
	FField* ConstructField(const FFieldVariant& InOwner, const FName& InName, EObjectFlags InFlags)
	{
		return new TFieldType(InOwner, InName, InFlags);
	}
	template<class TFieldType>
	constexpr FFieldClass::FConstructFn FieldConstructFn()
	{
		if constexpr (__is_abstract(TFieldType))
		{
			return nullptr;
		}
		else
		{
			return &ConstructField<TFieldType>;
		}
	}
}

#define IMPLEMENT_FIELD(TClass) \
	FFieldClass* TClass::StaticClass() \
	{ \
		static FFieldClass Class(TEXT(#TClass) + 1, TClass::StaticClassCastFlagsPrivate(), TClass::StaticClassCastFlagsPrivate() | TClass::Super::StaticClass()->GetCastFlags(), TClass::Super::StaticClass(), UE::CoreUObject::Private::FieldConstructFn<TClass>()); \
		return &Class; \
	} \
	static FFieldClass* const TClass##_RegisteredFieldClass = TClass::StaticClass();

class COREUOBJECT_API FField
{
public:
	FField(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	virtual ~FField();
	FField(const FField&) = delete;
	FField& operator=(const FField&) = delete;

	typedef FField Super;
	typedef FField ThisClass;
	static FFieldClass* StaticClass();
	static constexpr uint64 StaticClassCastFlagsPrivate()
	{
		return 0;
	}
	virtual FFieldClass* GetClass() const
	{
		return StaticClass();
	}
	// A new field of the class of that name ("IntProperty"), or null for an unknown or abstract class.
	static FField* Construct(const FName& FieldTypeName, const FFieldVariant& InOwner, const FName& InName, EObjectFlags InFlags);

	bool IsA(const FFieldClass* FieldType) const
	{
		return GetClass()->IsChildOf(FieldType);
	}
	template<typename T>
	bool IsA() const
	{
		return IsA(T::StaticClass());
	}
	uint64 GetCastFlags() const
	{
		return GetClass()->GetCastFlags();
	}

	FName GetFName() const
	{
		return NamePrivate;
	}
	FString GetName() const
	{
		return NamePrivate.ToString();
	}
	// The name in source, which is the name for native fields.
	virtual FString GetAuthoredName() const
	{
		return GetName();
	}
	// "OwnerPath:FieldName".
	FString GetPathName(const UObject* StopOuter = nullptr) const;
	// Field class name, a space, and the path name.
	FString GetFullName() const;
	EObjectFlags GetFlags() const
	{
		return FlagsPrivate;
	}

	FFieldVariant GetOwnerVariant() const
	{
		return Owner;
	}
	// The closest object among the owners: the struct, class or function the field belongs to.
	UObject* GetOwnerUObject() const;
	UStruct* GetOwnerStruct() const;
	UClass* GetOwnerClass() const;
	template<typename T>
	T* GetOwner() const
	{
		if constexpr (__is_base_of(FField, T))
		{
			FField* OwnerField = Owner.ToField();
			return OwnerField && OwnerField->IsA<T>() ? static_cast<T*>(OwnerField) : nullptr;
		}
		else
		{
			UObject* OwnerObject = Owner.ToUObject();
			return OwnerObject && OwnerObject->IsA<T>() ? static_cast<T*>(OwnerObject) : nullptr;
		}
	}

#if WITH_EDITORONLY_DATA
	bool HasMetaData(const TCHAR* Key) const
	{
		return FindMetaData(Key) != nullptr;
	}
	bool HasMetaData(const FName& Key) const
	{
		return FindMetaData(Key) != nullptr;
	}
	// The value of the key, or an empty string.
	const FString& GetMetaData(const TCHAR* Key) const;
	const FString& GetMetaData(const FName& Key) const;
	const FString* FindMetaData(const TCHAR* Key) const;
	const FString* FindMetaData(const FName& Key) const;
	FText GetMetaDataText(const TCHAR* MetaDataKey, const FString LocalizationNamespace = FString(), const FString LocalizationKey = FString()) const;
	void SetMetaData(const TCHAR* Key, const TCHAR* InValue);
	void SetMetaData(const FName& Key, const TCHAR* InValue);
	void SetMetaData(const FName& Key, FString&& InValue);
	void RemoveMetaData(const TCHAR* Key);
	bool GetBoolMetaData(const TCHAR* Key) const;
	int32 GetIntMetaData(const TCHAR* Key) const;
	float GetFloatMetaData(const TCHAR* Key) const;
	const TMap<FName, FString>* GetMetaDataMap() const
	{
		return MetaDataMap;
	}
	void AppendMetaData(const TMap<FName, FString>& MetaDataMapToAppend);
	void CopyMetaData(const FField* InSourceField, FField* InDestField);
#endif
	// The DisplayName metadata, else the name spelled for people ("bDisplayFileChanges" -> "Display File Changes").
	FText GetDisplayNameText() const;
	// The ToolTip metadata, else the display name. A short tooltip stops at the first blank line.
	FText GetToolTipText(bool bShortTooltip = false) const;

	FField* Next = nullptr;

protected:
	FFieldVariant Owner;

private:
	FName NamePrivate;
	EObjectFlags FlagsPrivate;
#if WITH_EDITORONLY_DATA
	TMap<FName, FString>* MetaDataMap = nullptr;
#endif
};

// The field as T when it is one, else null.
template<typename FieldType>
FieldType* CastField(FField* Src)
{
	return Src && Src->IsA<FieldType>() ? static_cast<FieldType*>(Src) : nullptr;
}
template<typename FieldType>
const FieldType* CastField(const FField* Src)
{
	return Src && Src->IsA<FieldType>() ? static_cast<const FieldType*>(Src) : nullptr;
}
template<typename FieldType>
FieldType* CastFieldChecked(FField* Src)
{
	check(Src && Src->IsA<FieldType>());
	return static_cast<FieldType*>(Src);
}
template<typename FieldType>
const FieldType* CastFieldChecked(const FField* Src)
{
	check(Src && Src->IsA<FieldType>());
	return static_cast<const FieldType*>(Src);
}
template<typename FieldType>
FieldType* ExactCastField(FField* Src)
{
	return Src && Src->GetClass() == FieldType::StaticClass() ? static_cast<FieldType*>(Src) : nullptr;
}
