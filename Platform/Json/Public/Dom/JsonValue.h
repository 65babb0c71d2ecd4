// A JSON value of any kind; the derived classes hold the data of each kind.
#pragma once

#include "CoreMinimal.h"
#include "JsonGlobals.h"
#include "Serialization/JsonTypes.h"

class FJsonObject;

class JSON_API FJsonValue
{
public:
	virtual ~FJsonValue() = default;

	// The As* converters log an error and give an empty value when the value can't be converted.
	double AsNumber() const;
	FString AsString() const;
	bool AsBool() const;
	const TArray<TSharedPtr<FJsonValue>>& AsArray() const;
	const TSharedPtr<FJsonObject>& AsObject() const;

	virtual bool TryGetNumber(double& OutNumber) const
	{
		return false;
	}
	// The integer forms round to the nearest integer and fail when the value is out of range.
	bool TryGetNumber(float& OutNumber) const;
	bool TryGetNumber(int8& OutNumber) const;
	bool TryGetNumber(int16& OutNumber) const;
	virtual bool TryGetNumber(int32& OutNumber) const;
	virtual bool TryGetNumber(int64& OutNumber) const;
	bool TryGetNumber(uint8& OutNumber) const;
	bool TryGetNumber(uint16& OutNumber) const;
	virtual bool TryGetNumber(uint32& OutNumber) const;
	virtual bool TryGetNumber(uint64& OutNumber) const;

	virtual bool TryGetString(FString& OutString) const
	{
		return false;
	}
	virtual bool TryGetBool(bool& OutBool) const
	{
		return false;
	}
	virtual bool TryGetArray(const TArray<TSharedPtr<FJsonValue>>*& OutArray) const
	{
		return false;
	}
	virtual bool TryGetArray(TArray<TSharedPtr<FJsonValue>>*& OutArray)
	{
		return false;
	}
	virtual bool TryGetObject(const TSharedPtr<FJsonObject>*& Object) const
	{
		return false;
	}
	virtual bool TryGetObject(TSharedPtr<FJsonObject>*& Object)
	{
		return false;
	}
	// True for values whose text is their natural form, such as numbers kept as text.
	virtual bool PreferStringRepresentation() const
	{
		return false;
	}

	bool IsNull() const
	{
		return Type == EJson::Null || Type == EJson::None;
	}

	static TSharedPtr<FJsonValue> Duplicate(const TSharedPtr<const FJsonValue>& Src);
	static TSharedPtr<FJsonValue> Duplicate(const TSharedPtr<FJsonValue>& Src);

	// Deep comparison; strings compare with case, objects without regard to key order.
	static bool CompareEqual(const FJsonValue& Lhs, const FJsonValue& Rhs);

	EJson Type = EJson::None;

protected:
	FJsonValue() = default;

	virtual FString GetType() const = 0;
	void ErrorMessage(const FString& InType) const;
};

inline bool operator==(const FJsonValue& Lhs, const FJsonValue& Rhs)
{
	return FJsonValue::CompareEqual(Lhs, Rhs);
}

inline bool operator!=(const FJsonValue& Lhs, const FJsonValue& Rhs)
{
	return !FJsonValue::CompareEqual(Lhs, Rhs);
}

class JSON_API FJsonValueString : public FJsonValue
{
public:
	FJsonValueString(const FString& InString)
		: Value(InString)
	{
		Type = EJson::String;
	}
	FJsonValueString(FString&& InString)
		: Value(MoveTemp(InString))
	{
		Type = EJson::String;
	}

	using FJsonValue::TryGetNumber;
	virtual bool TryGetString(FString& OutString) const override;
	// Numeric text ("-12.5") converts; the integer forms truncate as the engine's text-to-integer does.
	virtual bool TryGetNumber(double& OutNumber) const override;
	virtual bool TryGetNumber(int32& OutNumber) const override;
	virtual bool TryGetNumber(uint32& OutNumber) const override;
	virtual bool TryGetNumber(int64& OutNumber) const override;
	virtual bool TryGetNumber(uint64& OutNumber) const override;
	// "true", "yes" and "on" in any case, or a non-zero integer, are true; all else is false.
	virtual bool TryGetBool(bool& OutBool) const override;

	bool IsEmpty() const
	{
		return Value.IsEmpty();
	}

protected:
	virtual FString GetType() const override
	{
		return TEXT("String");
	}

	FString Value;
};

class JSON_API FJsonValueNumber : public FJsonValue
{
public:
	FJsonValueNumber(double InNumber)
		: Value(InNumber)
	{
		Type = EJson::Number;
	}

	using FJsonValue::TryGetNumber;
	virtual bool TryGetNumber(double& OutNumber) const override
	{
		OutNumber = Value;
		return true;
	}
	virtual bool TryGetBool(bool& OutBool) const override
	{
		OutBool = Value != 0.0;
		return true;
	}
	// Fixed notation with six decimals at most, trailing zeros dropped: 42 gives "42", 0.5 gives "0.5".
	virtual bool TryGetString(FString& OutString) const override;

protected:
	virtual FString GetType() const override
	{
		return TEXT("Number");
	}

	double Value;
};

// A number kept as its text, so that no precision is lost; written back as that text.
class JSON_API FJsonValueNumberString : public FJsonValue
{
public:
	FJsonValueNumberString(const FString& InString)
		: Value(InString)
	{
		Type = EJson::Number;
	}
	FJsonValueNumberString(FString&& InString)
		: Value(MoveTemp(InString))
	{
		Type = EJson::Number;
	}

	using FJsonValue::TryGetNumber;
	virtual bool TryGetString(FString& OutString) const override
	{
		OutString = Value;
		return true;
	}
	virtual bool TryGetNumber(double& OutNumber) const override;
	virtual bool TryGetNumber(int32& OutNumber) const override;
	virtual bool TryGetNumber(uint32& OutNumber) const override;
	virtual bool TryGetNumber(int64& OutNumber) const override;
	virtual bool TryGetNumber(uint64& OutNumber) const override;
	virtual bool TryGetBool(bool& OutBool) const override;
	virtual bool PreferStringRepresentation() const override
	{
		return true;
	}

protected:
	virtual FString GetType() const override
	{
		return TEXT("NumberString");
	}

	FString Value;
};

class JSON_API FJsonValueBoolean : public FJsonValue
{
public:
	FJsonValueBoolean(bool InBool)
		: Value(InBool)
	{
		Type = EJson::Boolean;
	}

	using FJsonValue::TryGetNumber;
	virtual bool TryGetNumber(double& OutNumber) const override
	{
		OutNumber = Value ? 1.0 : 0.0;
		return true;
	}
	virtual bool TryGetBool(bool& OutBool) const override
	{
		OutBool = Value;
		return true;
	}
	virtual bool TryGetString(FString& OutString) const override
	{
		OutString = Value ? TEXT("true") : TEXT("false");
		return true;
	}

protected:
	virtual FString GetType() const override
	{
		return TEXT("Boolean");
	}

	bool Value;
};

class JSON_API FJsonValueArray : public FJsonValue
{
public:
	FJsonValueArray(const TArray<TSharedPtr<FJsonValue>>& InArray)
		: Value(InArray)
	{
		Type = EJson::Array;
	}
	FJsonValueArray(TArray<TSharedPtr<FJsonValue>>&& InArray)
		: Value(MoveTemp(InArray))
	{
		Type = EJson::Array;
	}

	virtual bool TryGetArray(const TArray<TSharedPtr<FJsonValue>>*& OutArray) const override
	{
		OutArray = &Value;
		return true;
	}
	virtual bool TryGetArray(TArray<TSharedPtr<FJsonValue>>*& OutArray) override
	{
		OutArray = &Value;
		return true;
	}

protected:
	virtual FString GetType() const override
	{
		return TEXT("Array");
	}

	TArray<TSharedPtr<FJsonValue>> Value;
};

class JSON_API FJsonValueObject : public FJsonValue
{
public:
	FJsonValueObject(TSharedPtr<FJsonObject> InObject)
		: Value(MoveTemp(InObject))
	{
		Type = EJson::Object;
	}

	virtual bool TryGetObject(const TSharedPtr<FJsonObject>*& OutObject) const override
	{
		OutObject = &Value;
		return true;
	}
	virtual bool TryGetObject(TSharedPtr<FJsonObject>*& OutObject) override
	{
		OutObject = &Value;
		return true;
	}

protected:
	virtual FString GetType() const override
	{
		return TEXT("Object");
	}

	TSharedPtr<FJsonObject> Value;
};

class JSON_API FJsonValueNull : public FJsonValue
{
public:
	FJsonValueNull()
	{
		Type = EJson::Null;
	}

protected:
	virtual FString GetType() const override
	{
		return TEXT("Null");
	}
};
