#include "Serialization/JsonSerializer.h"

#include <algorithm>
#include <vector>

namespace UE::Json::Private
{
	namespace
	{
		// One step of writing a tree: a value to write (with its member name, if any) or the end of
		// a container. Steps live on an explicit stack, so deep trees can't exhaust the call stack.
		struct FWriteStep
		{
			const FString* Identifier = nullptr;
			const FJsonValue* Value = nullptr;
			EJson Closes = EJson::None;
		};

		using FWriteStack = std::vector<FWriteStep>;

		// Far deeper than any real document; reached only by a tree that contains itself.
		constexpr int32 MaxWriteDepth = 4096;

		void OpenObject(const FJsonObject& Object, const FString* Identifier, FJsonTextWriter& Writer, FWriteStack& Steps)
		{
			if (Identifier != nullptr)
			{
				Writer.WriteObjectStart(*Identifier);
			}
			else
			{
				Writer.WriteObjectStart();
			}
			Steps.push_back({ nullptr, nullptr, EJson::Object });
			const size_t First = Steps.size();
			for (const TPair<FString, TSharedPtr<FJsonValue>>& Pair : Object.Values)
			{
				Steps.push_back({ &Pair.Key, Pair.Value.Get(), EJson::None });
			}
			// The stack pops from the back: reversed, the first member comes out first.
			std::reverse(Steps.begin() + static_cast<std::ptrdiff_t>(First), Steps.end());
		}

		void OpenArray(const TArray<TSharedPtr<FJsonValue>>& Array, const FString* Identifier, FJsonTextWriter& Writer, FWriteStack& Steps)
		{
			if (Identifier != nullptr)
			{
				Writer.WriteArrayStart(*Identifier);
			}
			else
			{
				Writer.WriteArrayStart();
			}
			Steps.push_back({ nullptr, nullptr, EJson::Array });
			for (int32 Index = Array.Num() - 1; Index >= 0; --Index)
			{
				Steps.push_back({ nullptr, Array[Index].Get(), EJson::None });
			}
		}

		void WriteNullValue(const FString* Identifier, FJsonTextWriter& Writer)
		{
			if (Identifier != nullptr)
			{
				Writer.WriteNull(*Identifier);
			}
			else
			{
				Writer.WriteNull();
			}
		}

		void WriteStep(const FWriteStep& Step, FJsonTextWriter& Writer, FWriteStack& Steps, FString& TextBuffer)
		{
			const FString* Identifier = Step.Identifier;
			const FJsonValue* Value = Step.Value;
			if (Value == nullptr)
			{
				WriteNullValue(Identifier, Writer);
				return;
			}
			switch (Value->Type)
			{
			case EJson::String:
				Value->TryGetString(TextBuffer);
				if (Identifier != nullptr)
				{
					Writer.WriteValue(*Identifier, TextBuffer);
				}
				else
				{
					Writer.WriteValue(TextBuffer);
				}
				break;
			case EJson::Number:
				if (Value->PreferStringRepresentation())
				{
					Value->TryGetString(TextBuffer);
					if (Identifier != nullptr)
					{
						Writer.WriteRawJSONValue(*Identifier, TextBuffer);
					}
					else
					{
						Writer.WriteRawJSONValue(TextBuffer);
					}
				}
				else
				{
					double Number = 0.0;
					Value->TryGetNumber(Number);
					if (Identifier != nullptr)
					{
						Writer.WriteValue(*Identifier, Number);
					}
					else
					{
						Writer.WriteValue(Number);
					}
				}
				break;
			case EJson::Boolean:
			{
				bool bValue = false;
				Value->TryGetBool(bValue);
				if (Identifier != nullptr)
				{
					Writer.WriteValue(*Identifier, bValue);
				}
				else
				{
					Writer.WriteValue(bValue);
				}
				break;
			}
			case EJson::Array:
			{
				const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
				Value->TryGetArray(Array);
				if (Array != nullptr)
				{
					OpenArray(*Array, Identifier, Writer, Steps);
				}
				else
				{
					WriteNullValue(Identifier, Writer);
				}
				break;
			}
			case EJson::Object:
			{
				const TSharedPtr<FJsonObject>* Object = nullptr;
				Value->TryGetObject(Object);
				if (Object != nullptr && Object->IsValid())
				{
					OpenObject(**Object, Identifier, Writer, Steps);
				}
				else
				{
					WriteNullValue(Identifier, Writer);
				}
				break;
			}
			case EJson::None:
			case EJson::Null:
			default:
				WriteNullValue(Identifier, Writer);
				break;
			}
		}

		bool Drain(FWriteStack& Steps, int32 Depth, FJsonTextWriter& Writer, bool bCloseWriter)
		{
			FString TextBuffer;
			while (!Steps.empty())
			{
				const FWriteStep Step = Steps.back();
				Steps.pop_back();
				if (Step.Closes == EJson::Object)
				{
					Writer.WriteObjectEnd();
					--Depth;
				}
				else if (Step.Closes == EJson::Array)
				{
					Writer.WriteArrayEnd();
					--Depth;
				}
				else
				{
					const size_t SizeBefore = Steps.size();
					WriteStep(Step, Writer, Steps, TextBuffer);
					if (Steps.size() > SizeBefore && ++Depth > MaxWriteDepth)
					{
						UE_LOG(LogJson, Error, TEXT("Json tree nested deeper than %d levels (does it contain itself?); not written."), MaxWriteDepth);
						return false;
					}
				}
			}
			return bCloseWriter ? Writer.Close() : true;
		}
	}

	bool SerializeObject(const FJsonObject& Object, FJsonTextWriter& Writer, bool bCloseWriter)
	{
		FWriteStack Steps;
		OpenObject(Object, nullptr, Writer, Steps);
		return Drain(Steps, 1, Writer, bCloseWriter);
	}

	bool SerializeArray(const TArray<TSharedPtr<FJsonValue>>& Array, FJsonTextWriter& Writer, bool bCloseWriter)
	{
		FWriteStack Steps;
		OpenArray(Array, nullptr, Writer, Steps);
		return Drain(Steps, 1, Writer, bCloseWriter);
	}

	bool SerializeValue(const TSharedPtr<FJsonValue>& Value, const FString& Identifier, FJsonTextWriter& Writer, bool bCloseWriter)
	{
		FWriteStack Steps;
		Steps.push_back({ Identifier.IsEmpty() ? nullptr : &Identifier, Value.Get(), EJson::None });
		return Drain(Steps, 0, Writer, bCloseWriter);
	}
}
