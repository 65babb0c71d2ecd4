#include "Dom/JsonObject.h"

namespace
{
	FString ToKey(FStringView FieldName)
	{
		return FString(FieldName.Len(), FieldName.GetData());
	}

	const TArray<TSharedPtr<FJsonValue>>& NoArray()
	{
		static const TArray<TSharedPtr<FJsonValue>> Empty;
		return Empty;
	}

	template<typename NumberType>
	bool TryGetNumberFrom(const FJsonObject& Object, FStringView FieldName, NumberType& OutNumber)
	{
		const TSharedPtr<FJsonValue> Field = Object.TryGetField(FieldName);
		return Field.IsValid() && Field->TryGetNumber(OutNumber);
	}
}

TSharedPtr<FJsonValue> FJsonObject::GetField(FStringView FieldName, EJson JsonType) const
{
	const FString Key = ToKey(FieldName);
	const TSharedPtr<FJsonValue>* Field = Values.Find(Key);
	if (Field != nullptr && Field->IsValid())
	{
		if (JsonType == EJson::None || (*Field)->Type == JsonType)
		{
			return *Field;
		}
		UE_LOG(LogJson, Warning, TEXT("Field %s is of the wrong type."), *Key);
	}
	else
	{
		UE_LOG(LogJson, Warning, TEXT("Field %s was not found."), *Key);
	}
	return MakeShared<FJsonValueNull>();
}

TSharedPtr<FJsonValue> FJsonObject::TryGetField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(ToKey(FieldName));
	return Field != nullptr ? *Field : TSharedPtr<FJsonValue>();
}

bool FJsonObject::HasField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(ToKey(FieldName));
	return Field != nullptr && Field->IsValid();
}

bool FJsonObject::HasTypedField(FStringView FieldName, EJson JsonType) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(ToKey(FieldName));
	return Field != nullptr && Field->IsValid() && (*Field)->Type == JsonType;
}

void FJsonObject::SetField(const FString& FieldName, const TSharedPtr<FJsonValue>& Value)
{
	Values.Add(FieldName, Value);
}

void FJsonObject::SetField(FString&& FieldName, const TSharedPtr<FJsonValue>& Value)
{
	Values.Add(MoveTemp(FieldName), Value);
}

void FJsonObject::RemoveField(FStringView FieldName)
{
	Values.Remove(ToKey(FieldName));
}

double FJsonObject::GetNumberField(FStringView FieldName) const
{
	return GetField<EJson::None>(FieldName)->AsNumber();
}

int32 FJsonObject::GetIntegerField(FStringView FieldName) const
{
	const double Number = GetNumberField(FieldName);
	// Clamped, because a cast of an out-of-range double is undefined.
	if (!(Number > static_cast<double>(MIN_int32)))
	{
		return Number != Number ? 0 : MIN_int32;
	}
	if (Number >= static_cast<double>(MAX_int32))
	{
		return MAX_int32;
	}
	return static_cast<int32>(Number);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, float& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, double& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, int8& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, int16& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, int32& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, int64& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, uint8& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, uint16& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, uint32& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

bool FJsonObject::TryGetNumberField(FStringView FieldName, uint64& OutNumber) const
{
	return TryGetNumberFrom(*this, FieldName, OutNumber);
}

void FJsonObject::SetNumberField(const FString& FieldName, double Number)
{
	Values.Add(FieldName, MakeShared<FJsonValueNumber>(Number));
}

void FJsonObject::SetNumberField(FString&& FieldName, double Number)
{
	Values.Add(MoveTemp(FieldName), MakeShared<FJsonValueNumber>(Number));
}

FString FJsonObject::GetStringField(FStringView FieldName) const
{
	return GetField<EJson::None>(FieldName)->AsString();
}

bool FJsonObject::TryGetStringField(FStringView FieldName, FString& OutString) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetString(OutString);
}

bool FJsonObject::TryGetStringArrayField(FStringView FieldName, TArray<FString>& OutArray) const
{
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	if (!TryGetArrayField(FieldName, Array))
	{
		return false;
	}
	for (const TSharedPtr<FJsonValue>& Element : *Array)
	{
		FString Text;
		if (!Element.IsValid() || !Element->TryGetString(Text))
		{
			return false;
		}
		OutArray.Add(MoveTemp(Text));
	}
	return true;
}

void FJsonObject::SetStringField(const FString& FieldName, const FString& StringValue)
{
	Values.Add(FieldName, MakeShared<FJsonValueString>(StringValue));
}

void FJsonObject::SetStringField(FString&& FieldName, FString&& StringValue)
{
	Values.Add(MoveTemp(FieldName), MakeShared<FJsonValueString>(MoveTemp(StringValue)));
}

bool FJsonObject::GetBoolField(FStringView FieldName) const
{
	return GetField<EJson::None>(FieldName)->AsBool();
}

bool FJsonObject::TryGetBoolField(FStringView FieldName, bool& OutBool) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetBool(OutBool);
}

void FJsonObject::SetBoolField(const FString& FieldName, bool InValue)
{
	Values.Add(FieldName, MakeShared<FJsonValueBoolean>(InValue));
}

void FJsonObject::SetBoolField(FString&& FieldName, bool InValue)
{
	Values.Add(MoveTemp(FieldName), MakeShared<FJsonValueBoolean>(InValue));
}

const TArray<TSharedPtr<FJsonValue>>& FJsonObject::GetArrayField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(ToKey(FieldName));
	if (Field != nullptr && Field->IsValid() && (*Field)->Type == EJson::Array)
	{
		// The map keeps the value alive, so the reference stays good after this call.
		return (*Field)->AsArray();
	}
	GetField<EJson::Array>(FieldName);
	return NoArray();
}

bool FJsonObject::TryGetArrayField(FStringView FieldName, const TArray<TSharedPtr<FJsonValue>>*& OutArray) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetArray(OutArray);
}

void FJsonObject::SetArrayField(const FString& FieldName, const TArray<TSharedPtr<FJsonValue>>& Array)
{
	Values.Add(FieldName, MakeShared<FJsonValueArray>(Array));
}

void FJsonObject::SetArrayField(const FString& FieldName, TArray<TSharedPtr<FJsonValue>>&& Array)
{
	Values.Add(FieldName, MakeShared<FJsonValueArray>(MoveTemp(Array)));
}

const TSharedPtr<FJsonObject>& FJsonObject::GetObjectField(FStringView FieldName) const
{
	const TSharedPtr<FJsonValue>* Field = Values.Find(ToKey(FieldName));
	if (Field != nullptr && Field->IsValid() && (*Field)->Type == EJson::Object)
	{
		return (*Field)->AsObject();
	}
	// A null value's AsObject logs the misuse and gives the shared empty object.
	return GetField<EJson::Object>(FieldName)->AsObject();
}

bool FJsonObject::TryGetObjectField(FStringView FieldName, const TSharedPtr<FJsonObject>*& OutObject) const
{
	const TSharedPtr<FJsonValue> Field = TryGetField(FieldName);
	return Field.IsValid() && Field->TryGetObject(OutObject);
}

void FJsonObject::SetObjectField(const FString& FieldName, const TSharedPtr<FJsonObject>& JsonObject)
{
	Values.Add(FieldName, JsonObject.IsValid() ? TSharedPtr<FJsonValue>(MakeShared<FJsonValueObject>(JsonObject)) : TSharedPtr<FJsonValue>(MakeShared<FJsonValueNull>()));
}

void FJsonObject::SetObjectField(FString&& FieldName, const TSharedPtr<FJsonObject>& JsonObject)
{
	Values.Add(MoveTemp(FieldName), JsonObject.IsValid() ? TSharedPtr<FJsonValue>(MakeShared<FJsonValueObject>(JsonObject)) : TSharedPtr<FJsonValue>(MakeShared<FJsonValueNull>()));
}

void FJsonObject::Duplicate(const TSharedPtr<const FJsonObject>& Source, const TSharedPtr<FJsonObject>& Dest)
{
	if (!Source.IsValid() || !Dest.IsValid())
	{
		return;
	}
	for (const TPair<FString, TSharedPtr<FJsonValue>>& Pair : Source->Values)
	{
		Dest->SetField(Pair.Key, FJsonValue::Duplicate(Pair.Value));
	}
}

void FJsonObject::Duplicate(const TSharedPtr<FJsonObject>& Source, TSharedPtr<FJsonObject>& Dest)
{
	Duplicate(TSharedPtr<const FJsonObject>(Source), static_cast<const TSharedPtr<FJsonObject>&>(Dest));
}
