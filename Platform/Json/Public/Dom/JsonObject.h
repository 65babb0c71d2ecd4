// A JSON object: named values, kept in the order they were first added; names compare without case.
#pragma once

#include "CoreMinimal.h"
#include "JsonGlobals.h"
#include "Dom/JsonValue.h"

class JSON_API FJsonObject
{
public:
	TMap<FString, TSharedPtr<FJsonValue>> Values;

	// The field when it exists with the type (EJson::None takes any); else logs a warning and gives a null value.
	TSharedPtr<FJsonValue> GetField(FStringView FieldName, EJson JsonType) const;
	template<EJson JsonType>
	TSharedPtr<FJsonValue> GetField(FStringView FieldName) const
	{
		return GetField(FieldName, JsonType);
	}
	// The field, or an invalid pointer when it doesn't exist; nothing is logged.
	TSharedPtr<FJsonValue> TryGetField(FStringView FieldName) const;
	bool HasField(FStringView FieldName) const;
	bool HasTypedField(FStringView FieldName, EJson JsonType) const;
	template<EJson JsonType>
	bool HasTypedField(FStringView FieldName) const
	{
		return HasTypedField(FieldName, JsonType);
	}
	void SetField(const FString& FieldName, const TSharedPtr<FJsonValue>& Value);
	void SetField(FString&& FieldName, const TSharedPtr<FJsonValue>& Value);
	void RemoveField(FStringView FieldName);

	// The Get*Field accessors log and give a default value when the field is missing or can't convert.
	double GetNumberField(FStringView FieldName) const;
	int32 GetIntegerField(FStringView FieldName) const;
	bool TryGetNumberField(FStringView FieldName, float& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, double& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, int8& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, int16& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, int32& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, int64& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, uint8& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, uint16& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, uint32& OutNumber) const;
	bool TryGetNumberField(FStringView FieldName, uint64& OutNumber) const;
	void SetNumberField(const FString& FieldName, double Number);
	void SetNumberField(FString&& FieldName, double Number);

	FString GetStringField(FStringView FieldName) const;
	// Like the value's TryGetString: numbers and booleans give their text form.
	bool TryGetStringField(FStringView FieldName, FString& OutString) const;
	// Fails when the field isn't an array or an element has no text form.
	bool TryGetStringArrayField(FStringView FieldName, TArray<FString>& OutArray) const;
	void SetStringField(const FString& FieldName, const FString& StringValue);
	void SetStringField(FString&& FieldName, FString&& StringValue);

	bool GetBoolField(FStringView FieldName) const;
	bool TryGetBoolField(FStringView FieldName, bool& OutBool) const;
	void SetBoolField(const FString& FieldName, bool InValue);
	void SetBoolField(FString&& FieldName, bool InValue);

	const TArray<TSharedPtr<FJsonValue>>& GetArrayField(FStringView FieldName) const;
	bool TryGetArrayField(FStringView FieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const;
	void SetArrayField(const FString& FieldName, const TArray<TSharedPtr<FJsonValue>>& Array);
	void SetArrayField(const FString& FieldName, TArray<TSharedPtr<FJsonValue>>&& Array);

	const TSharedPtr<FJsonObject>& GetObjectField(FStringView FieldName) const;
	bool TryGetObjectField(FStringView FieldName, const TSharedPtr<FJsonObject>*& OutObject) const;
	void SetObjectField(const FString& FieldName, const TSharedPtr<FJsonObject>& JsonObject);
	void SetObjectField(FString&& FieldName, const TSharedPtr<FJsonObject>& JsonObject);

	// Deep copies: Dest gets copies of all of Source's fields.
	static void Duplicate(const TSharedPtr<const FJsonObject>& Source, const TSharedPtr<FJsonObject>& Dest);
	static void Duplicate(const TSharedPtr<FJsonObject>& Source, TSharedPtr<FJsonObject>& Dest);
};
