#include "Dom/JsonValue.h"

#include "Dom/JsonObject.h"
#include "JsonNumberFormat.h"

#include <limits>

using namespace UE::Json::Private;

namespace
{
	// What the converters give back when a value has no array or object to offer.
	const TArray<TSharedPtr<FJsonValue>>& EmptyArray()
	{
		static const TArray<TSharedPtr<FJsonValue>> Empty;
		return Empty;
	}

	const TSharedPtr<FJsonObject>& EmptyObject()
	{
		static const TSharedPtr<FJsonObject> Empty = MakeShared<FJsonObject>();
		return Empty;
	}

	// Numeric text as a double, like the engine's text-to-float.
	bool NumericTextToDouble(const FString& Text, double& OutNumber)
	{
		if (!Text.IsNumeric())
		{
			return false;
		}
		OutNumber = FCString::Atod(*Text);
		return true;
	}

	// Numeric text as an integer: the part before the point, as the engine's text-to-integer reads it.
	bool NumericTextToInt64(const FString& Text, int64& OutNumber)
	{
		if (!Text.IsNumeric())
		{
			return false;
		}
		int32 Start = Text[0] == TEXT('+') ? 1 : 0;
		int32 End = Start;
		while (End < Text.Len() && Text[End] != TEXT('.'))
		{
			++End;
		}
		if (End == Start || (End == Start + 1 && Text[Start] == TEXT('-')))
		{
			OutNumber = 0;
			return true;
		}
		return ParseIntegerText(*Text + Start, End - Start, OutNumber);
	}

	bool NumericTextToUInt64(const FString& Text, uint64& OutNumber)
	{
		if (!Text.IsNumeric() || Text[0] == TEXT('-'))
		{
			return false;
		}
		int32 Start = Text[0] == TEXT('+') ? 1 : 0;
		int32 End = Start;
		while (End < Text.Len() && Text[End] != TEXT('.'))
		{
			++End;
		}
		if (End == Start)
		{
			OutNumber = 0;
			return true;
		}
		return ParseUnsignedText(*Text + Start, End - Start, OutNumber);
	}

	template<typename IntType>
	bool NarrowInteger(int64 Wide, IntType& OutNumber)
	{
		if (Wide < static_cast<int64>(std::numeric_limits<IntType>::lowest()) || Wide > static_cast<int64>(std::numeric_limits<IntType>::max()))
		{
			return false;
		}
		OutNumber = static_cast<IntType>(Wide);
		return true;
	}

	bool NumberTextToInt64(const FString& Text, int64& OutNumber)
	{
		if (ParseIntegerText(*Text, Text.Len(), OutNumber))
		{
			return true;
		}
		double Number = 0.0;
		return ParseNumberText(*Text, Text.Len(), Number) && RoundToInt64(Number, OutNumber);
	}

	bool NumberTextToUInt64(const FString& Text, uint64& OutNumber)
	{
		if (ParseUnsignedText(*Text, Text.Len(), OutNumber))
		{
			return true;
		}
		double Number = 0.0;
		return ParseNumberText(*Text, Text.Len(), Number) && RoundToUInt64(Number, OutNumber);
	}
}

double FJsonValue::AsNumber() const
{
	double Number = 0.0;
	if (!TryGetNumber(Number))
	{
		ErrorMessage(TEXT("Number"));
		return 0.0;
	}
	return Number;
}

FString FJsonValue::AsString() const
{
	FString String;
	if (!TryGetString(String))
	{
		ErrorMessage(TEXT("String"));
		return FString();
	}
	return String;
}

bool FJsonValue::AsBool() const
{
	bool bValue = false;
	if (!TryGetBool(bValue))
	{
		ErrorMessage(TEXT("Boolean"));
		return false;
	}
	return bValue;
}

const TArray<TSharedPtr<FJsonValue>>& FJsonValue::AsArray() const
{
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	if (!TryGetArray(Array))
	{
		ErrorMessage(TEXT("Array"));
		return EmptyArray();
	}
	return *Array;
}

const TSharedPtr<FJsonObject>& FJsonValue::AsObject() const
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (!TryGetObject(Object))
	{
		ErrorMessage(TEXT("Object"));
		return EmptyObject();
	}
	return *Object;
}

bool FJsonValue::TryGetNumber(float& OutNumber) const
{
	double Number = 0.0;
	if (TryGetNumber(Number) && Number >= -static_cast<double>(MAX_flt) && Number <= static_cast<double>(MAX_flt))
	{
		OutNumber = static_cast<float>(Number);
		return true;
	}
	return false;
}

bool FJsonValue::TryGetNumber(int8& OutNumber) const
{
	int64 Wide = 0;
	return TryGetNumber(Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValue::TryGetNumber(int16& OutNumber) const
{
	int64 Wide = 0;
	return TryGetNumber(Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValue::TryGetNumber(int32& OutNumber) const
{
	int64 Wide = 0;
	return TryGetNumber(Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValue::TryGetNumber(int64& OutNumber) const
{
	double Number = 0.0;
	return TryGetNumber(Number) && RoundToInt64(Number, OutNumber);
}

bool FJsonValue::TryGetNumber(uint8& OutNumber) const
{
	int64 Wide = 0;
	return TryGetNumber(Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValue::TryGetNumber(uint16& OutNumber) const
{
	int64 Wide = 0;
	return TryGetNumber(Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValue::TryGetNumber(uint32& OutNumber) const
{
	int64 Wide = 0;
	return TryGetNumber(Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValue::TryGetNumber(uint64& OutNumber) const
{
	double Number = 0.0;
	return TryGetNumber(Number) && RoundToUInt64(Number, OutNumber);
}

TSharedPtr<FJsonValue> FJsonValue::Duplicate(const TSharedPtr<const FJsonValue>& Src)
{
	if (!Src.IsValid())
	{
		return nullptr;
	}
	switch (Src->Type)
	{
	case EJson::Boolean:
		return MakeShared<FJsonValueBoolean>(Src->AsBool());
	case EJson::Number:
		if (Src->PreferStringRepresentation())
		{
			return MakeShared<FJsonValueNumberString>(Src->AsString());
		}
		return MakeShared<FJsonValueNumber>(Src->AsNumber());
	case EJson::String:
		return MakeShared<FJsonValueString>(Src->AsString());
	case EJson::Array:
	{
		TArray<TSharedPtr<FJsonValue>> Copies;
		for (const TSharedPtr<FJsonValue>& Element : Src->AsArray())
		{
			Copies.Add(Duplicate(Element));
		}
		return MakeShared<FJsonValueArray>(MoveTemp(Copies));
	}
	case EJson::Object:
	{
		TSharedPtr<FJsonObject> Copy = MakeShared<FJsonObject>();
		FJsonObject::Duplicate(Src->AsObject(), Copy);
		return MakeShared<FJsonValueObject>(Copy);
	}
	case EJson::Null:
	case EJson::None:
	default:
		return MakeShared<FJsonValueNull>();
	}
}

TSharedPtr<FJsonValue> FJsonValue::Duplicate(const TSharedPtr<FJsonValue>& Src)
{
	return Duplicate(TSharedPtr<const FJsonValue>(Src));
}

bool FJsonValue::CompareEqual(const FJsonValue& Lhs, const FJsonValue& Rhs)
{
	if (Lhs.Type != Rhs.Type)
	{
		return false;
	}
	switch (Lhs.Type)
	{
	case EJson::None:
	case EJson::Null:
		return true;
	case EJson::String:
		return Lhs.AsString().Equals(Rhs.AsString(), ESearchCase::CaseSensitive);
	case EJson::Number:
		return Lhs.AsNumber() == Rhs.AsNumber();
	case EJson::Boolean:
		return Lhs.AsBool() == Rhs.AsBool();
	case EJson::Array:
	{
		const TArray<TSharedPtr<FJsonValue>>& LhsArray = Lhs.AsArray();
		const TArray<TSharedPtr<FJsonValue>>& RhsArray = Rhs.AsArray();
		if (LhsArray.Num() != RhsArray.Num())
		{
			return false;
		}
		for (int32 Index = 0; Index < LhsArray.Num(); ++Index)
		{
			const TSharedPtr<FJsonValue>& Left = LhsArray[Index];
			const TSharedPtr<FJsonValue>& Right = RhsArray[Index];
			if (Left.IsValid() != Right.IsValid() || (Left.IsValid() && !CompareEqual(*Left, *Right)))
			{
				return false;
			}
		}
		return true;
	}
	case EJson::Object:
	{
		const TSharedPtr<FJsonObject>& LhsObject = Lhs.AsObject();
		const TSharedPtr<FJsonObject>& RhsObject = Rhs.AsObject();
		if (!LhsObject.IsValid() || !RhsObject.IsValid())
		{
			return LhsObject.IsValid() == RhsObject.IsValid();
		}
		if (LhsObject->Values.Num() != RhsObject->Values.Num())
		{
			return false;
		}
		for (const TPair<FString, TSharedPtr<FJsonValue>>& Pair : LhsObject->Values)
		{
			const TSharedPtr<FJsonValue>* Other = RhsObject->Values.Find(Pair.Key);
			if (Other == nullptr || Pair.Value.IsValid() != Other->IsValid() || (Pair.Value.IsValid() && !CompareEqual(*Pair.Value, **Other)))
			{
				return false;
			}
		}
		return true;
	}
	default:
		return false;
	}
}

void FJsonValue::ErrorMessage(const FString& InType) const
{
	UE_LOG(LogJson, Error, TEXT("Json Value of type '%s' used as a '%s'."), *GetType(), *InType);
}

bool FJsonValueString::TryGetString(FString& OutString) const
{
	OutString = Value;
	return true;
}

bool FJsonValueString::TryGetNumber(double& OutNumber) const
{
	return NumericTextToDouble(Value, OutNumber);
}

bool FJsonValueString::TryGetNumber(int32& OutNumber) const
{
	int64 Wide = 0;
	return NumericTextToInt64(Value, Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValueString::TryGetNumber(uint32& OutNumber) const
{
	uint64 Wide = 0;
	if (!NumericTextToUInt64(Value, Wide) || Wide > MAX_uint32)
	{
		return false;
	}
	OutNumber = static_cast<uint32>(Wide);
	return true;
}

bool FJsonValueString::TryGetNumber(int64& OutNumber) const
{
	return NumericTextToInt64(Value, OutNumber);
}

bool FJsonValueString::TryGetNumber(uint64& OutNumber) const
{
	return NumericTextToUInt64(Value, OutNumber);
}

bool FJsonValueString::TryGetBool(bool& OutBool) const
{
	OutBool = Value.ToBool();
	return true;
}

bool FJsonValueNumber::TryGetString(FString& OutString) const
{
	OutString = FString::SanitizeFloat(Value, 0);
	return true;
}

bool FJsonValueNumberString::TryGetNumber(double& OutNumber) const
{
	return ParseNumberText(*Value, Value.Len(), OutNumber);
}

bool FJsonValueNumberString::TryGetNumber(int32& OutNumber) const
{
	int64 Wide = 0;
	return NumberTextToInt64(Value, Wide) && NarrowInteger(Wide, OutNumber);
}

bool FJsonValueNumberString::TryGetNumber(uint32& OutNumber) const
{
	uint64 Wide = 0;
	if (!NumberTextToUInt64(Value, Wide) || Wide > MAX_uint32)
	{
		return false;
	}
	OutNumber = static_cast<uint32>(Wide);
	return true;
}

bool FJsonValueNumberString::TryGetNumber(int64& OutNumber) const
{
	return NumberTextToInt64(Value, OutNumber);
}

bool FJsonValueNumberString::TryGetNumber(uint64& OutNumber) const
{
	return NumberTextToUInt64(Value, OutNumber);
}

bool FJsonValueNumberString::TryGetBool(bool& OutBool) const
{
	OutBool = Value.ToBool();
	return true;
}
