#include "ReflectionTestTypes.h"
#include "UObject/UnrealType.h"
#include "UObject/Class.h"
#include "Misc/FeedbackContext.h"

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

FVector UReflectionTestAllKinds::ScaleVector(const FVector& Value, float Factor) const
{
	return Value * static_cast<double>(Factor);
}

UObject* UReflectionTestAllKinds::PickObject(UReflectionTestChild* Preferred, TSubclassOf<UObject> Fallback)
{
	return Preferred != nullptr ? static_cast<UObject*>(Preferred) : static_cast<UObject*>(Fallback.GetDefaultObject());
}

UReflectionTestOwner::UReflectionTestOwner(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
	Part = CreateDefaultSubobject<UReflectionTestChild>(TEXT("Part"));
}

void UReflectionTestCustom::ExportCustomProperties(FOutputDevice& Out, uint32 Indent)
{
	for (const FString& Note : Notes)
	{
		Out.Logf(TEXT("%sCustomProperties Note %s\n"), *FString::ChrN(static_cast<int32>(Indent), TEXT(' ')), *Note);
	}
}

void UReflectionTestCustom::ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn)
{
	const FString Text(SourceText);
	if (Text.StartsWith(TEXT("Note ")))
	{
		Notes.Add(Text.Mid(5));
	}
	else if (Warn != nullptr)
	{
		Warn->Log(ELogVerbosity::Warning, *FString::Printf(TEXT("unknown custom line: %s"), SourceText));
	}
}
