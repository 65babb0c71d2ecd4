#include "ReflectionTestTypes.h"
#include "UObject/UnrealType.h"
#include "UObject/Class.h"

UReflectionTestSettings::UReflectionTestSettings(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	Extensions = {TEXT("py"), TEXT("cs"), TEXT("json")};
	bFirstFlag = false;
	bSecondFlag = true;
}

int32 UReflectionTestSettings::AddNumbers(int32 A, int32 B) const
{
	return A + B;
}

bool UReflectionTestSettings::IsReady(const FString& Reason, TArray<FString>& OutNotes)
{
	OutNotes.Add(Reason);
	return true;
}

FString UReflectionTestSettings::Greet() const
{
	return TEXT("Hello from ") + GetName();
}

void UReflectionTestSettings::PostEditChangeProperty(FPropertyChangedEvent& PropertyChangedEvent)
{
	Super::PostEditChangeProperty(PropertyChangedEvent);
	++PostEditChangeCount;
	LastChangedProperty = PropertyChangedEvent.GetPropertyName();
}

UReflectionTestStartupSettings::UReflectionTestStartupSettings()
{
	Words.Add(TEXT("default"));
}

UReflectionTestPerObject::UReflectionTestPerObject()
{
	// Asking for the defaults while they are being made gives the object under construction.
	DefaultsSeenByConstructor = GetDefault<UReflectionTestPerObject>();
}
