#include "Kismet/KismetSystemLibrary.h"
#include "UObject/Class.h"

DEFINE_LOG_CATEGORY(LogBlueprintUserMessages);

void UKismetSystemLibrary::PrintString(const UObject* WorldContextObject, const FString& InString, bool bPrintToScreen, bool bPrintToLog, FLinearColor TextColor, float Duration, const FName Key)
{
	// There is no screen here: text meant for it goes to the log as well.
	if (bPrintToLog || bPrintToScreen)
	{
		UE_LOG(LogBlueprintUserMessages, Log, TEXT("[%s] %s"), WorldContextObject != nullptr ? *WorldContextObject->GetName() : TEXT(""), *InString);
	}
	else
	{
		UE_LOG(LogBlueprintUserMessages, Verbose, TEXT("[%s] %s"), WorldContextObject != nullptr ? *WorldContextObject->GetName() : TEXT(""), *InString);
	}
}

void UKismetSystemLibrary::PrintText(const UObject* WorldContextObject, const FText InText, bool bPrintToScreen, bool bPrintToLog, FLinearColor TextColor, float Duration, const FName Key)
{
	PrintString(WorldContextObject, InText.ToString(), bPrintToScreen, bPrintToLog, TextColor, Duration, Key);
}

bool UKismetSystemLibrary::IsValid(const UObject* Object)
{
	return ::IsValid(Object);
}

bool UKismetSystemLibrary::IsValidClass(UClass* Class)
{
	return ::IsValid(Class);
}

FString UKismetSystemLibrary::GetObjectName(const UObject* Object)
{
	return Object != nullptr ? Object->GetName() : FString(TEXT("None"));
}

FString UKismetSystemLibrary::GetPathName(const UObject* Object)
{
	return Object != nullptr ? Object->GetPathName() : FString();
}

FString UKismetSystemLibrary::GetDisplayName(const UObject* Object)
{
	return Object != nullptr ? Object->GetName() : FString();
}

UClass* UKismetSystemLibrary::GetObjectClass(const UObject* Object)
{
	return Object != nullptr ? Object->GetClass() : nullptr;
}

int32 UKismetSystemLibrary::MakeLiteralInt(int32 Value)
{
	return Value;
}

bool UKismetSystemLibrary::MakeLiteralBool(bool Value)
{
	return Value;
}

double UKismetSystemLibrary::MakeLiteralDouble(double Value)
{
	return Value;
}

FName UKismetSystemLibrary::MakeLiteralName(FName Value)
{
	return Value;
}

FString UKismetSystemLibrary::MakeLiteralString(const FString& Value)
{
	return Value;
}
