// Properties: the reflected members of structs and classes, their values in memory and their text forms.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Field.h"
#include "UObject/Class.h"
#include "UObject/PropertyPortFlags.h"
#include "UObject/ObjectPtr.h"
#include "UObject/WeakObjectPtr.h"
#include "UObject/SoftObjectPtr.h"
#include "UObject/ScriptInterface.h"
#include "UObject/ScriptDelegates.h"

class FOutputDevice;

// Whether a pointer handed to a property is its container or the value itself.
enum class EPropertyPointerType
{
	Container = 0,
	Direct = 1,
};

class COREUOBJECT_API FProperty : public FField
{
	DECLARE_FIELD(FProperty, FField, CASTCLASS_FProperty)

public:
	FProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags);

	int32 GetSize() const
	{
		return ArrayDim * ElementSize;
	}
	int32 GetElementSize() const
	{
		return ElementSize;
	}
	virtual int32 GetMinAlignment() const
	{
		return 1;
	}
	int32 GetOffset_ForInternal() const
	{
		return Offset_Internal;
	}
	int32 GetOffset_ForUFunction() const
	{
		return Offset_Internal;
	}
	int32 GetOffset_ForDebug() const
	{
		return Offset_Internal;
	}
	void SetOffset_Internal(int32 NewOffset)
	{
		Offset_Internal = NewOffset;
	}

	EPropertyFlags GetPropertyFlags() const
	{
		return PropertyFlags;
	}
	void SetPropertyFlags(EPropertyFlags NewFlags)
	{
		PropertyFlags |= NewFlags;
	}
	void ClearPropertyFlags(EPropertyFlags NewFlags)
	{
		PropertyFlags &= ~NewFlags;
	}
	bool HasAnyPropertyFlags(uint64 FlagsToCheck) const
	{
		return (PropertyFlags & FlagsToCheck) != 0;
	}
	bool HasAllPropertyFlags(uint64 FlagsToCheck) const
	{
		return (PropertyFlags & FlagsToCheck) == FlagsToCheck;
	}
	bool IsEditorOnlyProperty() const
	{
		return HasAnyPropertyFlags(CPF_EditorOnly);
	}

	// The address of the value (of element ArrayIndex of a C array) inside its container.
	template<typename ValueType>
	ValueType* ContainerPtrToValuePtr(void* ContainerPtr, int32 ArrayIndex = 0) const
	{
		return reinterpret_cast<ValueType*>(static_cast<uint8*>(ContainerPtr) + Offset_Internal + ElementSize * ArrayIndex);
	}
	template<typename ValueType>
	const ValueType* ContainerPtrToValuePtr(const void* ContainerPtr, int32 ArrayIndex = 0) const
	{
		return reinterpret_cast<const ValueType*>(static_cast<const uint8*>(ContainerPtr) + Offset_Internal + ElementSize * ArrayIndex);
	}

	// The C++ type, such as "FString"; templates put their arguments ("<FString>") in ExtendedTypeText.
	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const = 0;
	virtual FString GetCPPMacroType(FString& ExtendedTypeText) const;
	virtual bool SameType(const FProperty* Other) const;

	// Writes the value at Data in the engine's text form, unless it equals Delta (null: the type's default);
	// passing the value itself as Delta always writes it. With PPF_Delimited the form can be read back
	// from inside a list. True when something was written.
	bool ExportText_Direct(FString& ValueStr, const void* Data, const void* Delta, UObject* Parent, int32 PortFlags, UObject* ExportRootScope = nullptr) const;
	void ExportTextItem_Direct(FString& ValueStr, const void* PropertyValue, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope = nullptr) const;
	void ExportTextItem_InContainer(FString& ValueStr, const void* Container, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope = nullptr) const;
	bool ExportText_InContainer(int32 Index, FString& ValueStr, const void* Data, const void* Delta, UObject* Parent, int32 PortFlags, UObject* ExportRootScope = nullptr) const;
	// Reads a value from text into PropertyPtr. Returns the text after what was read, or null when the
	// text is not a value of this property (the value is then unchanged and ErrorText, or the log, says why).
	const TCHAR* ImportText_Direct(const TCHAR* Buffer, void* PropertyPtr, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText = nullptr) const;
	const TCHAR* ImportText_InContainer(const TCHAR* Buffer, void* Container, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText = nullptr) const;

	// Whether the property takes part in a text export or import with these flags.
	bool ShouldPort(uint32 PortFlags = 0) const;
	// False (with a message to ErrorHandler, or the log) when the flags forbid importing into this property.
	bool ValidateImportFlags(uint32 PortFlags, FOutputDevice* ErrorHandler = nullptr) const;
	// Whether the value is written to package files: not for transient or deprecated properties.
	bool ShouldSerializeValue() const;

	// The address of the value in the defaults container, or null without one.
	template<typename ValueType>
	const ValueType* ContainerPtrToValuePtrForDefaults(const UStruct* ContainerClass, const void* ContainerPtr, int32 ArrayIndex = 0) const
	{
		return ContainerPtr != nullptr ? ContainerPtrToValuePtr<ValueType>(ContainerPtr, ArrayIndex) : nullptr;
	}

	// True when the values at A and B are the same; a null B stands for the default value.
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const = 0;
	bool Identical_InContainer(const void* A, const void* B, int32 ArrayIndex = 0, uint32 PortFlags = 0) const;

	void CopySingleValue(void* Dest, const void* Src) const;
	// Copies every element of a C array property.
	void CopyCompleteValue(void* Dest, const void* Src) const;
	void CopyCompleteValue_InContainer(void* Dest, const void* Src) const;
	void InitializeValue(void* Dest) const;
	void InitializeValue_InContainer(void* Dest) const;
	void DestroyValue(void* Dest) const;
	void DestroyValue_InContainer(void* Dest) const;
	// Sets the value back to the type's default.
	void ClearValue(void* Data) const;
	void ClearValue_InContainer(void* Data, int32 ArrayIndex = 0) const;

	// Finishes the layout once the owner is complete.
	virtual void LinkInternal()
	{
	}

	int32 ArrayDim = 1;
	int32 ElementSize = 0;
	EPropertyFlags PropertyFlags = CPF_None;
	FName RepNotifyFunc;
	// The next property of the owner's PropertyLink chain.
	FProperty* PropertyLinkNext = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const = 0;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const = 0;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const = 0;
	// Initialize and destroy work on all ArrayDim elements, clear on one.
	virtual void InitializeValueInternal(void* Dest) const;
	virtual void DestroyValueInternal(void* Dest) const;
	virtual void ClearValueInternal(void* Data) const;

	const void* PointerToValuePtr(const void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, int32 ArrayIndex = 0) const
	{
		return PointerType == EPropertyPointerType::Container ? ContainerPtrToValuePtr<void>(ContainerOrPropertyPtr, ArrayIndex) : ContainerOrPropertyPtr;
	}
	void* PointerToValuePtr(void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, int32 ArrayIndex = 0) const
	{
		return PointerType == EPropertyPointerType::Container ? ContainerPtrToValuePtr<void>(ContainerOrPropertyPtr, ArrayIndex) : ContainerOrPropertyPtr;
	}
	// Tells why an import failed: to ErrorText when given, else to the log.
	void ReportImportError(FOutputDevice* ErrorText, const TCHAR* Buffer, const TCHAR* Reason) const;

private:
	int32 Offset_Internal = 0;
};

// A property that holds one C++ value of a copyable type, with the accessors the engine gives.
template<typename InTCppType, class TInPropertyBaseClass>
class TProperty : public TInPropertyBaseClass
{
public:
	typedef InTCppType TCppType;

	TProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
		: TInPropertyBaseClass(InOwner, InName, InObjectFlags)
	{
		this->ElementSize = sizeof(TCppType);
	}
	TProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags)
		: TInPropertyBaseClass(InOwner, InName, InObjectFlags, InOffset, InFlags)
	{
		this->ElementSize = sizeof(TCppType);
	}

	static const TCppType* GetPropertyValuePtr(const void* A)
	{
		return static_cast<const TCppType*>(A);
	}
	static TCppType* GetPropertyValuePtr(void* A)
	{
		return static_cast<TCppType*>(A);
	}
	static const TCppType& GetPropertyValue(const void* A)
	{
		return *GetPropertyValuePtr(A);
	}
	static TCppType GetDefaultPropertyValue()
	{
		return TCppType();
	}
	static void SetPropertyValue(void* A, const TCppType& Value)
	{
		*GetPropertyValuePtr(A) = Value;
	}
	TCppType* GetPropertyValuePtr_InContainer(void* A, int32 ArrayIndex = 0) const
	{
		return GetPropertyValuePtr(this->template ContainerPtrToValuePtr<void>(A, ArrayIndex));
	}
	const TCppType* GetPropertyValuePtr_InContainer(const void* A, int32 ArrayIndex = 0) const
	{
		return GetPropertyValuePtr(this->template ContainerPtrToValuePtr<void>(A, ArrayIndex));
	}
	const TCppType& GetPropertyValue_InContainer(const void* A, int32 ArrayIndex = 0) const
	{
		return *GetPropertyValuePtr_InContainer(A, ArrayIndex);
	}
	void SetPropertyValue_InContainer(void* A, const TCppType& Value, int32 ArrayIndex = 0) const
	{
		*GetPropertyValuePtr_InContainer(A, ArrayIndex) = Value;
	}

	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override
	{
		if constexpr (requires(const TCppType& Left, const TCppType& Right) { Left == Right; })
		{
			return B ? GetPropertyValue(A) == GetPropertyValue(B) : GetPropertyValue(A) == TCppType();
		}
		else
		{
			// Types without == say how they compare in their own property class.
			return false;
		}
	}
	virtual int32 GetMinAlignment() const override
	{
		return alignof(TCppType);
	}

protected:
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override
	{
		for (int32 Index = 0; Index < Count; ++Index)
		{
			GetPropertyValuePtr(Dest)[Index] = GetPropertyValuePtr(Src)[Index];
		}
	}
	virtual void InitializeValueInternal(void* Dest) const override
	{
		for (int32 Index = 0; Index < this->ArrayDim; ++Index)
		{
			new (GetPropertyValuePtr(Dest) + Index) TCppType();
		}
	}
	virtual void DestroyValueInternal(void* Dest) const override
	{
		for (int32 Index = 0; Index < this->ArrayDim; ++Index)
		{
			(GetPropertyValuePtr(Dest) + Index)->~TCppType();
		}
	}
	virtual void ClearValueInternal(void* Data) const override
	{
		*GetPropertyValuePtr(Data) = TCppType();
	}
};

// The numbers: integers of every width and floating point, with conversions between them.
class COREUOBJECT_API FNumericProperty : public FProperty
{
	DECLARE_FIELD(FNumericProperty, FProperty, CASTCLASS_FNumericProperty)

public:
	FNumericProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FNumericProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags);

	virtual bool IsFloatingPoint() const
	{
		return false;
	}
	virtual bool IsInteger() const
	{
		return true;
	}
	// The enum of a byte property that holds one, else null.
	virtual UEnum* GetIntPropertyEnum() const
	{
		return nullptr;
	}
	bool IsEnum() const
	{
		return GetIntPropertyEnum() != nullptr;
	}

	virtual void SetIntPropertyValue(void* Data, uint64 Value) const = 0;
	virtual void SetIntPropertyValue(void* Data, int64 Value) const = 0;
	virtual void SetFloatingPointPropertyValue(void* Data, double Value) const = 0;
	// Reads a number from text; text that isn't one sets zero.
	virtual void SetNumericPropertyValueFromString(void* Data, const TCHAR* Value) const;
	virtual FString GetNumericPropertyValueToString(const void* Data) const;
	virtual int64 GetSignedIntPropertyValue(const void* Data) const = 0;
	virtual uint64 GetUnsignedIntPropertyValue(const void* Data) const = 0;
	virtual double GetFloatingPointPropertyValue(const void* Data) const = 0;

protected:
	virtual bool IsSignedInteger() const = 0;
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
};

template<typename InTCppType>
class TProperty_Numeric : public TProperty<InTCppType, FNumericProperty>
{
	typedef TProperty<InTCppType, FNumericProperty> BaseType;
	static constexpr bool bIsFloat = InTCppType(0.5) != InTCppType(0);

public:
	typedef InTCppType TCppType;

	TProperty_Numeric(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags)
		: BaseType(InOwner, InName, InObjectFlags)
	{
		this->PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
	}
	TProperty_Numeric(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags)
		: BaseType(InOwner, InName, InObjectFlags, InOffset, InFlags)
	{
		this->PropertyFlags |= CPF_IsPlainOldData | CPF_NoDestructor | CPF_ZeroConstructor | CPF_HasGetValueTypeHash;
	}

	virtual bool IsFloatingPoint() const override
	{
		return bIsFloat;
	}
	virtual bool IsInteger() const override
	{
		return !bIsFloat;
	}
	virtual void SetIntPropertyValue(void* Data, uint64 Value) const override
	{
		*BaseType::GetPropertyValuePtr(Data) = static_cast<TCppType>(Value);
	}
	virtual void SetIntPropertyValue(void* Data, int64 Value) const override
	{
		*BaseType::GetPropertyValuePtr(Data) = static_cast<TCppType>(Value);
	}
	virtual void SetFloatingPointPropertyValue(void* Data, double Value) const override
	{
		*BaseType::GetPropertyValuePtr(Data) = static_cast<TCppType>(Value);
	}
	virtual int64 GetSignedIntPropertyValue(const void* Data) const override
	{
		return static_cast<int64>(BaseType::GetPropertyValue(Data));
	}
	virtual uint64 GetUnsignedIntPropertyValue(const void* Data) const override
	{
		return static_cast<uint64>(BaseType::GetPropertyValue(Data));
	}
	virtual double GetFloatingPointPropertyValue(const void* Data) const override
	{
		return static_cast<double>(BaseType::GetPropertyValue(Data));
	}

protected:
	virtual bool IsSignedInteger() const override
	{
		return !bIsFloat && static_cast<TCppType>(-1) < static_cast<TCppType>(0);
	}
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override
	{
		FMemory::Memcpy(Dest, Src, sizeof(TCppType) * Count);
	}
};

#define UE_DECLARE_NUMERIC_PROPERTY(TClass, TCppType, TCastFlags) \
	class COREUOBJECT_API TClass : public TProperty_Numeric<TCppType> \
	{ \
		DECLARE_FIELD(TClass, FNumericProperty, TCastFlags) \
	public: \
		using TProperty_Numeric<TCppType>::TProperty_Numeric; \
		virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override; \
	};

UE_DECLARE_NUMERIC_PROPERTY(FInt8Property, int8, CASTCLASS_FInt8Property)
UE_DECLARE_NUMERIC_PROPERTY(FInt16Property, int16, CASTCLASS_FInt16Property)
UE_DECLARE_NUMERIC_PROPERTY(FIntProperty, int32, CASTCLASS_FIntProperty)
UE_DECLARE_NUMERIC_PROPERTY(FInt64Property, int64, CASTCLASS_FInt64Property)
UE_DECLARE_NUMERIC_PROPERTY(FUInt16Property, uint16, CASTCLASS_FUInt16Property)
UE_DECLARE_NUMERIC_PROPERTY(FUInt32Property, uint32, CASTCLASS_FUInt32Property)
UE_DECLARE_NUMERIC_PROPERTY(FUInt64Property, uint64, CASTCLASS_FUInt64Property)
UE_DECLARE_NUMERIC_PROPERTY(FFloatProperty, float, CASTCLASS_FFloatProperty)
UE_DECLARE_NUMERIC_PROPERTY(FDoubleProperty, double, CASTCLASS_FDoubleProperty)

#undef UE_DECLARE_NUMERIC_PROPERTY

// A byte, or an old-style enum held in a byte (TEnumAsByte).
class COREUOBJECT_API FByteProperty : public TProperty_Numeric<uint8>
{
	DECLARE_FIELD(FByteProperty, FNumericProperty, CASTCLASS_FByteProperty)

public:
	using TProperty_Numeric<uint8>::TProperty_Numeric;

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual UEnum* GetIntPropertyEnum() const override
	{
		return Enum;
	}

	UEnum* Enum = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
};

// A bool, or one bit of a bitfield ("uint8 bFlag : 1").
class COREUOBJECT_API FBoolProperty : public FProperty
{
	DECLARE_FIELD(FBoolProperty, FProperty, CASTCLASS_FBoolProperty)

public:
	FBoolProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FBoolProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, uint32 InBitMask, uint32 InElementSize, bool bIsNativeBool);

	// Size of the storage; a native bool has all bits of its byte, a bitfield one bit (InBitMask).
	void SetBoolSize(const uint32 InSize, const bool bIsNativeBool = false, const uint32 InBitMask = 0);
	bool IsNativeBool() const
	{
		return FieldMask == 0xff;
	}
	uint8 GetFieldMask() const
	{
		return FieldMask;
	}
	uint8 GetByteOffset() const
	{
		return ByteOffset;
	}

	/**
	 * A native bitfield's place is up to the compiler: it is found on a constructed instance of its owner,
	 * whose generated setters move the bit (PlaceNativeBitfield). Until then the property has no place.
	 */
	void SetNativeBitfieldAccessors(void (*InSetBit)(void*), void (*InClearBit)(void*), int32 InOwnerSize);
	bool IsAwaitingNativeBitfieldPlace() const
	{
		return NativeSetBit != nullptr;
	}
	/** Places the bit from OwnerInstance, a constructed owner, which keeps its value; false when no bit moved. */
	bool PlaceNativeBitfield(void* OwnerInstance);

	bool GetPropertyValue(const void* A) const
	{
		return (static_cast<const uint8*>(A)[ByteOffset] & FieldMask) != 0;
	}
	void SetPropertyValue(void* A, bool Value) const
	{
		uint8* Byte = static_cast<uint8*>(A) + ByteOffset;
		*Byte = static_cast<uint8>((*Byte & ~FieldMask) | (Value ? ByteMask : 0));
	}
	bool GetPropertyValue_InContainer(const void* A, int32 ArrayIndex = 0) const
	{
		return GetPropertyValue(ContainerPtrToValuePtr<void>(A, ArrayIndex));
	}
	void SetPropertyValue_InContainer(void* A, bool Value, int32 ArrayIndex = 0) const
	{
		SetPropertyValue(ContainerPtrToValuePtr<void>(A, ArrayIndex), Value);
	}
	static bool GetDefaultPropertyValue()
	{
		return false;
	}

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override
	{
		return FieldSize;
	}

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;

private:
	uint8 FieldSize = 0;
	uint8 ByteOffset = 0;
	uint8 ByteMask = 1;
	uint8 FieldMask = 1;
	void (*NativeSetBit)(void*) = nullptr;
	void (*NativeClearBit)(void*) = nullptr;
	int32 NativeOwnerSize = 0;
};

class COREUOBJECT_API FStrProperty : public TProperty<FString, FProperty>
{
	DECLARE_FIELD(FStrProperty, FProperty, CASTCLASS_FStrProperty)

public:
	FStrProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FStrProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	// Strings that differ only in case are different values.
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
};

class COREUOBJECT_API FNameProperty : public TProperty<FName, FProperty>
{
	DECLARE_FIELD(FNameProperty, FProperty, CASTCLASS_FNameProperty)

public:
	FNameProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FNameProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
};

// What an array property needs to work on a TArray whose element type it only knows through its inner property.
struct FScriptArrayOps
{
	int32 Size;
	int32 Alignment;
	void (*Construct)(void* Array);
	void (*Destruct)(void* Array);
	int32 (*Num)(const void* Array);
	void* (*GetData)(void* Array);
	// New elements are default-constructed.
	void (*Insert)(void* Array, int32 Index, int32 Count);
	void (*Remove)(void* Array, int32 Index, int32 Count);
	void (*Resize)(void* Array, int32 NewNum);
	void (*Empty)(void* Array, int32 Slack);
	void (*Assign)(void* Dest, const void* Src);
};

template<typename ElementType>
struct TScriptArrayOps
{
	static const FScriptArrayOps Ops;
};

template<typename ElementType>
const FScriptArrayOps TScriptArrayOps<ElementType>::Ops = {
	sizeof(TArray<ElementType>),
	alignof(TArray<ElementType>),
	[](void* Array) { new (Array) TArray<ElementType>(); },
	[](void* Array) { static_cast<TArray<ElementType>*>(Array)->~TArray<ElementType>(); },
	[](const void* Array) { return static_cast<const TArray<ElementType>*>(Array)->Num(); },
	[](void* Array) -> void* { return static_cast<TArray<ElementType>*>(Array)->GetData(); },
	[](void* Array, int32 Index, int32 Count) { static_cast<TArray<ElementType>*>(Array)->InsertDefaulted(Index, Count); },
	[](void* Array, int32 Index, int32 Count) { static_cast<TArray<ElementType>*>(Array)->RemoveAt(Index, Count); },
	[](void* Array, int32 NewNum) { static_cast<TArray<ElementType>*>(Array)->SetNum(NewNum); },
	[](void* Array, int32 Slack) { static_cast<TArray<ElementType>*>(Array)->Empty(Slack); },
	[](void* Dest, const void* Src) { *static_cast<TArray<ElementType>*>(Dest) = *static_cast<const TArray<ElementType>*>(Src); },
};

class COREUOBJECT_API FArrayProperty : public FProperty
{
	DECLARE_FIELD(FArrayProperty, FProperty, CASTCLASS_FArrayProperty)

public:
	FArrayProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FArrayProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, const FScriptArrayOps* InArrayOps);
	virtual ~FArrayProperty();

	// Takes ownership of the element property.
	void AddCppProperty(FProperty* Property);
	void SetArrayOps(const FScriptArrayOps* InArrayOps);
	const FScriptArrayOps* GetArrayOps() const
	{
		return ArrayOps;
	}

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual FString GetCPPMacroType(FString& ExtendedTypeText) const override;
	virtual bool SameType(const FProperty* Other) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override;
	virtual void LinkInternal() override;

	// The element property.
	FProperty* Inner = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void DestroyValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;

private:
	const FScriptArrayOps* ArrayOps = nullptr;
};

// Works on the TArray value of an array property without knowing its element type.
class COREUOBJECT_API FScriptArrayHelper
{
public:
	FScriptArrayHelper(const FArrayProperty* InProperty, const void* InArray);

	int32 Num() const;
	bool IsValidIndex(int32 Index) const
	{
		return Index >= 0 && Index < Num();
	}
	// The element's address; valid until the array changes size.
	uint8* GetRawPtr(int32 Index = 0);
	// Adds default elements at the end; returns the index of the first.
	int32 AddValue();
	int32 AddValues(int32 Count);
	void InsertValues(int32 Index, int32 Count = 1);
	void RemoveValues(int32 Index, int32 Count = 1);
	void EmptyValues(int32 Slack = 0);
	void EmptyAndAddValues(int32 Count);
	void Resize(int32 NewNum);

private:
	const FArrayProperty* Property;
	void* Array;
	int32 ElementSize;
};

// The type-erased storage of an array, set or map property that reflection made at run time (a Blueprint
// variable): element after element, each laid out as the element property says.
struct FScriptContainerStorage
{
	uint8* Data = nullptr;
	int32 Num = 0;
	int32 Max = 0;
};

// The base of the properties that refer to objects: strong, weak, soft, class and soft class references.
class COREUOBJECT_API FObjectPropertyBase : public FProperty
{
	DECLARE_FIELD(FObjectPropertyBase, FProperty, CASTCLASS_FObjectPropertyBase)

public:
	FObjectPropertyBase(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FObjectPropertyBase(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass);

	// The object held at the value's address (loaded, for soft references, only if already in memory).
	virtual UObject* GetObjectPropertyValue(const void* PropertyValueAddress) const = 0;
	virtual void SetObjectPropertyValue(void* PropertyValueAddress, UObject* Value) const = 0;
	UObject* GetObjectPropertyValue_InContainer(const void* ContainerAddress, int32 ArrayIndex = 0) const
	{
		return GetObjectPropertyValue(ContainerPtrToValuePtr<void>(ContainerAddress, ArrayIndex));
	}
	void SetObjectPropertyValue_InContainer(void* ContainerAddress, UObject* Value, int32 ArrayIndex = 0) const
	{
		SetObjectPropertyValue(ContainerPtrToValuePtr<void>(ContainerAddress, ArrayIndex), Value);
	}
	void SetPropertyClass(UClass* NewPropertyClass)
	{
		PropertyClass = NewPropertyClass;
	}
	virtual bool SameType(const FProperty* Other) const override;
	virtual FString GetCPPTypeCustom(FString* ExtendedTypeText, uint32 CPPExportFlags, const FString& InnerNativeTypeName) const;

	// The engine's text form of a reference: "/Script/Engine.StaticMesh'/Game/Cube.Cube'", or "None".
	static FString GetExportPath(const UObject* Object, const UObject* Parent = nullptr, const UObject* ExportRootScope = nullptr, const uint32 PortFlags = PPF_None);
	// Reads a reference written in any of the engine's forms and finds (or loads) the object; false
	// when the text names no object of the class.
	static bool ParseObjectPropertyValue(const FProperty* Property, UObject* OwnerObject, UClass* RequiredMetaClass, uint32 PortFlags, const TCHAR*& Buffer, UObject*& out_ResolvedValue, FOutputDevice* ErrorText = nullptr);
	static UObject* FindImportedObject(const FProperty* Property, UObject* OwnerObject, UClass* ObjectClass, UClass* RequiredMetaClass, const TCHAR* Text, uint32 PortFlags = 0);

	// The class the referred objects must be of.
	UClass* PropertyClass = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	// The class a class reference's value must derive from; null for object references.
	virtual UClass* GetRequiredMetaClass() const
	{
		return nullptr;
	}
};

// A strong reference: TObjectPtr<T> or T*. Keeps its object alive.
class COREUOBJECT_API FObjectProperty : public FObjectPropertyBase
{
	DECLARE_FIELD(FObjectProperty, FObjectPropertyBase, CASTCLASS_FObjectProperty)

public:
	typedef TObjectPtr<UObject> TCppType;

	FObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override
	{
		return alignof(UObject*);
	}
	virtual UObject* GetObjectPropertyValue(const void* PropertyValueAddress) const override
	{
		return *static_cast<UObject* const*>(PropertyValueAddress);
	}
	virtual void SetObjectPropertyValue(void* PropertyValueAddress, UObject* Value) const override
	{
		*static_cast<UObject**>(PropertyValueAddress) = Value;
	}
	static UObject* GetPropertyValue(const void* A)
	{
		return *static_cast<UObject* const*>(A);
	}
	static void SetPropertyValue(void* A, UObject* Value)
	{
		*static_cast<UObject**>(A) = Value;
	}
	UObject* GetPropertyValue_InContainer(const void* A, int32 ArrayIndex = 0) const
	{
		return GetObjectPropertyValue(ContainerPtrToValuePtr<void>(A, ArrayIndex));
	}
	void SetPropertyValue_InContainer(void* A, UObject* Value, int32 ArrayIndex = 0) const
	{
		SetObjectPropertyValue(ContainerPtrToValuePtr<void>(A, ArrayIndex), Value);
	}

protected:
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
};

// A class reference: TSubclassOf<T>, UClass* or TObjectPtr<UClass>; MetaClass is the T.
class COREUOBJECT_API FClassProperty : public FObjectProperty
{
	DECLARE_FIELD(FClassProperty, FObjectProperty, CASTCLASS_FClassProperty)

public:
	FClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InMetaClass);

	void SetMetaClass(UClass* NewMetaClass)
	{
		MetaClass = NewMetaClass;
	}
	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool SameType(const FProperty* Other) const override;

	UClass* MetaClass = nullptr;

protected:
	virtual UClass* GetRequiredMetaClass() const override
	{
		return MetaClass;
	}
};

// A weak reference: TWeakObjectPtr<T>.
class COREUOBJECT_API FWeakObjectProperty : public FObjectPropertyBase
{
	DECLARE_FIELD(FWeakObjectProperty, FObjectPropertyBase, CASTCLASS_FWeakObjectProperty)

public:
	typedef FWeakObjectPtr TCppType;

	FWeakObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FWeakObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override
	{
		return alignof(FWeakObjectPtr);
	}
	virtual UObject* GetObjectPropertyValue(const void* PropertyValueAddress) const override;
	virtual void SetObjectPropertyValue(void* PropertyValueAddress, UObject* Value) const override;

protected:
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void DestroyValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;
};

// A soft reference: TSoftObjectPtr<T>; a path, with the object if it is loaded.
class COREUOBJECT_API FSoftObjectProperty : public FObjectPropertyBase
{
	DECLARE_FIELD(FSoftObjectProperty, FObjectPropertyBase, CASTCLASS_FSoftObjectProperty)

public:
	typedef FSoftObjectPtr TCppType;

	FSoftObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FSoftObjectProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InClass);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override
	{
		return alignof(FSoftObjectPtr);
	}
	virtual UObject* GetObjectPropertyValue(const void* PropertyValueAddress) const override;
	virtual void SetObjectPropertyValue(void* PropertyValueAddress, UObject* Value) const override;
	const FSoftObjectPtr& GetPropertyValue(const void* A) const
	{
		return *static_cast<const FSoftObjectPtr*>(A);
	}
	void SetPropertyValue(void* A, const FSoftObjectPtr& Value) const
	{
		*static_cast<FSoftObjectPtr*>(A) = Value;
	}

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void DestroyValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;
};

// A soft class reference: TSoftClassPtr<T>; MetaClass is the T.
class COREUOBJECT_API FSoftClassProperty : public FSoftObjectProperty
{
	DECLARE_FIELD(FSoftClassProperty, FSoftObjectProperty, CASTCLASS_FSoftClassProperty)

public:
	FSoftClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FSoftClassProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InMetaClass);

	void SetMetaClass(UClass* NewMetaClass)
	{
		MetaClass = NewMetaClass;
	}
	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool SameType(const FProperty* Other) const override;

	UClass* MetaClass = nullptr;

protected:
	virtual UClass* GetRequiredMetaClass() const override
	{
		return MetaClass;
	}
};

// An object together with its interface part: TScriptInterface<IFoo>; InterfaceClass is UFoo.
class COREUOBJECT_API FInterfaceProperty : public FProperty
{
	DECLARE_FIELD(FInterfaceProperty, FProperty, CASTCLASS_FInterfaceProperty)

public:
	FInterfaceProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FInterfaceProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UClass* InInterfaceClass);

	void SetInterfaceClass(UClass* NewInterfaceClass)
	{
		InterfaceClass = NewInterfaceClass;
	}
	const FScriptInterface& GetPropertyValue(const void* A) const
	{
		return *static_cast<const FScriptInterface*>(A);
	}
	void SetPropertyValue(void* A, const FScriptInterface& Value) const
	{
		*static_cast<FScriptInterface*>(A) = Value;
	}
	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool SameType(const FProperty* Other) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override
	{
		return alignof(FScriptInterface);
	}

	UClass* InterfaceClass = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
};

// A value of a reflected struct, such as FVector: "(X=1.000000,Y=2.000000,Z=3.000000)" as text.
class COREUOBJECT_API FStructProperty : public FProperty
{
	DECLARE_FIELD(FStructProperty, FProperty, CASTCLASS_FStructProperty)

public:
	FStructProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FStructProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UScriptStruct* InStruct);

	// Sets the struct and the element size from it.
	void SetStruct(UScriptStruct* InStruct);
	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual FString GetCPPMacroType(FString& ExtendedTypeText) const override;
	virtual bool SameType(const FProperty* Other) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override;
	virtual void LinkInternal() override;

	UScriptStruct* Struct = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void DestroyValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;
};

// What a set property needs to work on a native TSet whose element type it only knows through its element property.
struct FScriptSetOps
{
	int32 Size;
	int32 Alignment;
	void (*Construct)(void* Set);
	void (*Destruct)(void* Set);
	int32 (*Num)(const void* Set);
	// Visits the elements in the set's order.
	void (*ForEach)(const void* Set, TFunctionRef<void(const void* Element)> Visit);
	// Copies the element in; an equal element already there is replaced.
	void (*Add)(void* Set, const void* Element);
	bool (*Contains)(const void* Set, const void* Element);
	void (*Empty)(void* Set);
	void (*Assign)(void* Dest, const void* Src);
};

template<typename ElementType>
struct TScriptSetOps
{
	static const FScriptSetOps Ops;
};

template<typename ElementType>
const FScriptSetOps TScriptSetOps<ElementType>::Ops = {
	sizeof(TSet<ElementType>),
	alignof(TSet<ElementType>),
	[](void* Set) { new (Set) TSet<ElementType>(); },
	[](void* Set) { static_cast<TSet<ElementType>*>(Set)->~TSet<ElementType>(); },
	[](const void* Set) { return static_cast<const TSet<ElementType>*>(Set)->Num(); },
	[](const void* Set, TFunctionRef<void(const void*)> Visit) { for (const ElementType& Element : *static_cast<const TSet<ElementType>*>(Set)) { Visit(&Element); } },
	[](void* Set, const void* Element) { static_cast<TSet<ElementType>*>(Set)->Add(*static_cast<const ElementType*>(Element)); },
	[](const void* Set, const void* Element) { return static_cast<const TSet<ElementType>*>(Set)->Contains(*static_cast<const ElementType*>(Element)); },
	[](void* Set) { static_cast<TSet<ElementType>*>(Set)->Empty(); },
	[](void* Dest, const void* Src) { *static_cast<TSet<ElementType>*>(Dest) = *static_cast<const TSet<ElementType>*>(Src); },
};

// What a map property needs to work on a native TMap.
struct FScriptMapOps
{
	int32 Size;
	int32 Alignment;
	void (*Construct)(void* Map);
	void (*Destruct)(void* Map);
	int32 (*Num)(const void* Map);
	// Visits the pairs in the map's order.
	void (*ForEach)(const void* Map, TFunctionRef<void(const void* Key, const void* Value)> Visit);
	// Copies the pair in, replacing the value of an equal key.
	void (*Add)(void* Map, const void* Key, const void* Value);
	// The value of an equal key, or null.
	const void* (*Find)(const void* Map, const void* Key);
	void (*Empty)(void* Map);
	void (*Assign)(void* Dest, const void* Src);
};

template<typename KeyType, typename ValueType>
struct TScriptMapOps
{
	static const FScriptMapOps Ops;
};

template<typename KeyType, typename ValueType>
const FScriptMapOps TScriptMapOps<KeyType, ValueType>::Ops = {
	sizeof(TMap<KeyType, ValueType>),
	alignof(TMap<KeyType, ValueType>),
	[](void* Map) { new (Map) TMap<KeyType, ValueType>(); },
	[](void* Map) { static_cast<TMap<KeyType, ValueType>*>(Map)->~TMap<KeyType, ValueType>(); },
	[](const void* Map) { return static_cast<const TMap<KeyType, ValueType>*>(Map)->Num(); },
	[](const void* Map, TFunctionRef<void(const void*, const void*)> Visit) { for (const auto& Pair : *static_cast<const TMap<KeyType, ValueType>*>(Map)) { Visit(&Pair.Key, &Pair.Value); } },
	[](void* Map, const void* Key, const void* Value) { static_cast<TMap<KeyType, ValueType>*>(Map)->Add(*static_cast<const KeyType*>(Key), *static_cast<const ValueType*>(Value)); },
	[](const void* Map, const void* Key) -> const void* { return static_cast<const TMap<KeyType, ValueType>*>(Map)->Find(*static_cast<const KeyType*>(Key)); },
	[](void* Map) { static_cast<TMap<KeyType, ValueType>*>(Map)->Empty(); },
	[](void* Dest, const void* Src) { *static_cast<TMap<KeyType, ValueType>*>(Dest) = *static_cast<const TMap<KeyType, ValueType>*>(Src); },
};

// A TSet; "(A,B,C)" as text. Without native operations (a set made at run time) the elements are kept in
// FScriptContainerStorage, without duplicates.
class COREUOBJECT_API FSetProperty : public FProperty
{
	DECLARE_FIELD(FSetProperty, FProperty, CASTCLASS_FSetProperty)

public:
	FSetProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FSetProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, const FScriptSetOps* InSetOps);
	virtual ~FSetProperty();

	// Takes ownership of the element property.
	void AddCppProperty(FProperty* Property);
	void SetSetOps(const FScriptSetOps* InSetOps);
	const FScriptSetOps* GetSetOps() const
	{
		return SetOps;
	}

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual FString GetCPPMacroType(FString& ExtendedTypeText) const override;
	virtual bool SameType(const FProperty* Other) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override;
	virtual void LinkInternal() override;

	// The elements of a value, in order.
	void ForEachElement(const void* SetValue, TFunctionRef<void(const void* Element)> Visit) const;
	int32 Num(const void* SetValue) const;
	// Copies the element in unless an equal one is there.
	void AddElement(void* SetValue, const void* Element) const;
	bool ContainsElement(const void* SetValue, const void* Element) const;
	void EmptyValue(void* SetValue) const;

	FProperty* ElementProp = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void DestroyValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;

private:
	const FScriptSetOps* SetOps = nullptr;
};

// A TMap; "((Key1, Value1),(Key2, Value2))" as text. Without native operations the pairs are kept in
// FScriptContainerStorage, key then value.
class COREUOBJECT_API FMapProperty : public FProperty
{
	DECLARE_FIELD(FMapProperty, FProperty, CASTCLASS_FMapProperty)

public:
	FMapProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FMapProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, const FScriptMapOps* InMapOps);
	virtual ~FMapProperty();

	// The first call takes the key property, the second the value property; ownership passes.
	void AddCppProperty(FProperty* Property);
	void SetMapOps(const FScriptMapOps* InMapOps);
	const FScriptMapOps* GetMapOps() const
	{
		return MapOps;
	}

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual FString GetCPPMacroType(FString& ExtendedTypeText) const override;
	virtual bool SameType(const FProperty* Other) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override;
	virtual void LinkInternal() override;

	void ForEachPair(const void* MapValue, TFunctionRef<void(const void* Key, const void* Value)> Visit) const;
	int32 Num(const void* MapValue) const;
	// Copies the pair in, replacing the value of an equal key.
	void AddPair(void* MapValue, const void* Key, const void* Value) const;
	const void* FindValue(const void* MapValue, const void* Key) const;
	void EmptyValue(void* MapValue) const;

	FProperty* KeyProp = nullptr;
	FProperty* ValueProp = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void DestroyValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;

private:
	const FScriptMapOps* MapOps = nullptr;
};

// A single-cast dynamic delegate (FScriptDelegate); SignatureFunction describes what it calls.
class COREUOBJECT_API FDelegateProperty : public TProperty<FScriptDelegate, FProperty>
{
	DECLARE_FIELD(FDelegateProperty, FProperty, CASTCLASS_FDelegateProperty)

public:
	FDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UFunction* InSignatureFunction);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool SameType(const FProperty* Other) const override;

	UFunction* SignatureFunction = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
};

// The base of multicast dynamic delegates (event dispatchers); SignatureFunction describes what they call.
class COREUOBJECT_API FMulticastDelegateProperty : public FProperty
{
	DECLARE_FIELD(FMulticastDelegateProperty, FProperty, CASTCLASS_FMulticastDelegateProperty)

public:
	FMulticastDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FMulticastDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UFunction* InSignatureFunction);

	virtual const FMulticastScriptDelegate* GetMulticastDelegate(const void* PropertyValue) const = 0;
	virtual void SetMulticastDelegate(void* PropertyValue, FMulticastScriptDelegate ScriptDelegate) const = 0;
	virtual bool SameType(const FProperty* Other) const override;

	UFunction* SignatureFunction = nullptr;

protected:
	virtual void ExportText_Internal(FString& ValueStr, const void* PropertyValueOrContainer, EPropertyPointerType PointerType, const void* DefaultValue, UObject* Parent, int32 PortFlags, UObject* ExportRootScope) const override;
	virtual const TCHAR* ImportText_Internal(const TCHAR* Buffer, void* ContainerOrPropertyPtr, EPropertyPointerType PointerType, UObject* OwnerObject, int32 PortFlags, FOutputDevice* ErrorText) const override;
};

// A multicast dynamic delegate held in place (FMulticastScriptDelegate): what Blueprint event dispatchers are.
class COREUOBJECT_API FMulticastInlineDelegateProperty : public FMulticastDelegateProperty
{
	DECLARE_FIELD(FMulticastInlineDelegateProperty, FMulticastDelegateProperty, CASTCLASS_FMulticastInlineDelegateProperty)

public:
	FMulticastInlineDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags);
	FMulticastInlineDelegateProperty(FFieldVariant InOwner, const FName& InName, EObjectFlags InObjectFlags, int32 InOffset, EPropertyFlags InFlags, UFunction* InSignatureFunction);

	virtual FString GetCPPType(FString* ExtendedTypeText = nullptr, uint32 CPPExportFlags = 0) const override;
	virtual bool Identical(const void* A, const void* B, uint32 PortFlags = 0) const override;
	virtual int32 GetMinAlignment() const override
	{
		return alignof(FMulticastScriptDelegate);
	}
	virtual const FMulticastScriptDelegate* GetMulticastDelegate(const void* PropertyValue) const override
	{
		return static_cast<const FMulticastScriptDelegate*>(PropertyValue);
	}
	virtual void SetMulticastDelegate(void* PropertyValue, FMulticastScriptDelegate ScriptDelegate) const override
	{
		*static_cast<FMulticastScriptDelegate*>(PropertyValue) = MoveTemp(ScriptDelegate);
	}

protected:
	virtual void CopyValuesInternal(void* Dest, const void* Src, int32 Count) const override;
	virtual void InitializeValueInternal(void* Dest) const override;
	virtual void DestroyValueInternal(void* Dest) const override;
	virtual void ClearValueInternal(void* Data) const override;
};

namespace EPropertyChangeType
{
	typedef uint32 Type;

	inline constexpr Type Unspecified = 1 << 0;
	inline constexpr Type ArrayAdd = 1 << 1;
	inline constexpr Type ArrayRemove = 1 << 2;
	inline constexpr Type ArrayClear = 1 << 3;
	inline constexpr Type ValueSet = 1 << 4;
	inline constexpr Type Duplicate = 1 << 5;
	inline constexpr Type Interactive = 1 << 6;
	inline constexpr Type Redirected = 1 << 7;
	inline constexpr Type ArrayMove = 1 << 8;
	inline constexpr Type ToggleEditable = 1 << 9;
}

// What an editor tells an object after it changed one of its properties. The property may be null
// when the editor can't say which one changed.
struct FPropertyChangedEvent
{
	FPropertyChangedEvent(FProperty* InProperty, EPropertyChangeType::Type InChangeType = EPropertyChangeType::Unspecified, const TArray<const UObject*>& InTopLevelObjects = TArray<const UObject*>())
		: Property(InProperty)
		, MemberProperty(InProperty)
		, ChangeType(InChangeType)
		, ObjectIteratorIndex(INDEX_NONE)
		, TopLevelObjects(InTopLevelObjects)
	{
	}

	void SetActiveMemberProperty(FProperty* InActiveMemberProperty)
	{
		MemberProperty = InActiveMemberProperty;
	}
	FName GetPropertyName() const
	{
		return Property ? Property->GetFName() : FName(NAME_None);
	}
	FName GetMemberPropertyName() const
	{
		return MemberProperty ? MemberProperty->GetFName() : FName(NAME_None);
	}
	int32 GetNumObjectsBeingEdited() const
	{
		return TopLevelObjects.Num();
	}
	const UObject* GetObjectBeingEdited(int32 Index) const
	{
		return TopLevelObjects.IsValidIndex(Index) ? TopLevelObjects[Index] : nullptr;
	}

	// The property that changed; inside a struct, the innermost one.
	FProperty* Property;
	// The member of the edited object that holds the changed property.
	FProperty* MemberProperty;
	EPropertyChangeType::Type ChangeType;
	int32 ObjectIteratorIndex;

private:
	TArray<const UObject*> TopLevelObjects;
};

namespace EFieldIteratorFlags
{
	enum SuperClassFlags
	{
		ExcludeSuper = 0,
		IncludeSuper
	};
	enum DeprecatedPropertyFlags
	{
		ExcludeDeprecated = 0,
		IncludeDeprecated
	};
	enum InterfaceClassFlags
	{
		ExcludeInterfaces = 0,
		IncludeInterfaces
	};
}

template<bool bIsProperty>
struct TFieldIteratorBase
{
	using Type = UField*;
};
template<>
struct TFieldIteratorBase<true>
{
	using Type = FField*;
};

// Walks the fields of one kind (properties or functions) of a struct, its own first, then its supers'.
template<class FieldType>
class TFieldIterator
{
	static constexpr bool bIsProperty = __is_base_of(FField, FieldType);

public:
	TFieldIterator(const UStruct* InStruct, EFieldIteratorFlags::SuperClassFlags InSuperClassFlags = EFieldIteratorFlags::IncludeSuper, EFieldIteratorFlags::DeprecatedPropertyFlags InDeprecatedFieldFlags = EFieldIteratorFlags::IncludeDeprecated, EFieldIteratorFlags::InterfaceClassFlags InInterfaceFieldFlags = EFieldIteratorFlags::ExcludeInterfaces)
		: Struct(InStruct)
		, bIncludeSuper(InSuperClassFlags == EFieldIteratorFlags::IncludeSuper)
		, bIncludeDeprecated(InDeprecatedFieldFlags == EFieldIteratorFlags::IncludeDeprecated)
	{
		StartStruct();
		IterateToNext();
	}

	explicit operator bool() const
	{
		return Current != nullptr;
	}
	bool operator!() const
	{
		return Current == nullptr;
	}
	void operator++()
	{
		Advance();
		IterateToNext();
	}
	FieldType* operator*() const
	{
		return static_cast<FieldType*>(Current);
	}
	FieldType* operator->() const
	{
		return static_cast<FieldType*>(Current);
	}
	const UStruct* GetStruct() const
	{
		return Struct;
	}
	bool operator==(const TFieldIterator& Other) const
	{
		return Current == Other.Current;
	}
	bool operator!=(const TFieldIterator& Other) const
	{
		return Current != Other.Current;
	}

private:
	using BaseFieldType = typename TFieldIteratorBase<bIsProperty>::Type;

	void StartStruct()
	{
		if constexpr (bIsProperty)
		{
			Current = Struct ? Struct->ChildProperties : nullptr;
		}
		else
		{
			Current = Struct ? Struct->Children : nullptr;
		}
	}
	void Advance()
	{
		if (Current)
		{
			Current = Current->Next;
		}
	}
	bool Accepts(BaseFieldType Field) const
	{
		if constexpr (bIsProperty)
		{
			if (!Field->template IsA<FieldType>())
			{
				return false;
			}
			if (!bIncludeDeprecated)
			{
				const FProperty* Property = CastField<FProperty>(Field);
				return !(Property && Property->HasAnyPropertyFlags(CPF_Deprecated));
			}
			return true;
		}
		else
		{
			return Field->template IsA<FieldType>();
		}
	}
	void IterateToNext()
	{
		while (Struct)
		{
			while (Current)
			{
				if (Accepts(Current))
				{
					return;
				}
				Current = Current->Next;
			}
			Struct = bIncludeSuper ? Struct->GetSuperStruct() : nullptr;
			StartStruct();
		}
	}

	const UStruct* Struct;
	BaseFieldType Current = nullptr;
	bool bIncludeSuper;
	bool bIncludeDeprecated;
};

// TFieldIterator for range-based for loops.
template<class FieldType>
struct TFieldRange
{
	TFieldRange(const UStruct* InStruct, EFieldIteratorFlags::SuperClassFlags InSuperClassFlags = EFieldIteratorFlags::IncludeSuper, EFieldIteratorFlags::DeprecatedPropertyFlags InDeprecatedFieldFlags = EFieldIteratorFlags::IncludeDeprecated)
		: Begin(InStruct, InSuperClassFlags, InDeprecatedFieldFlags)
	{
	}

	struct FIterator
	{
		TFieldIterator<FieldType> It;
		FieldType* operator*() const
		{
			return *It;
		}
		void operator++()
		{
			++It;
		}
		bool operator!=(const FIterator& Other) const
		{
			return (bool)It;
		}
	};

	FIterator begin() const
	{
		return FIterator{Begin};
	}
	FIterator end() const
	{
		return FIterator{Begin};
	}

private:
	TFieldIterator<FieldType> Begin;
};
