// UKismetSystemLibrary: general functions for Blueprints: printing, object names and validity, literals.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Kismet/BlueprintFunctionLibrary.h"
#include "KismetSystemLibrary.generated.h"

ENGINE_API DECLARE_LOG_CATEGORY_EXTERN(LogBlueprintUserMessages, Log, All);

UCLASS(meta = (ScriptName = "SystemLibrary"))
class ENGINE_API UKismetSystemLibrary : public UBlueprintFunctionLibrary
{
	GENERATED_BODY()

public:
	/**
	 * Prints a string to the log, and optionally, to the screen.
	 * If Print To Log is true, it will be visible in the Output Log window. Otherwise it will be logged only as 'Verbose', so it generally won't show up.
	 */
	UFUNCTION(BlueprintCallable, meta = (WorldContext = "WorldContextObject", CallableWithoutWorldContext, Keywords = "log print", AdvancedDisplay = "2", DevelopmentOnly), Category = "Development")
	static void PrintString(const UObject* WorldContextObject, const FString& InString = FString(TEXT("Hello")), bool bPrintToScreen = true, bool bPrintToLog = true, FLinearColor TextColor = FLinearColor(0.0f, 0.66f, 1.0f), float Duration = 2.f, const FName Key = NAME_None);

	/** Prints text to the log, and optionally, to the screen. */
	UFUNCTION(BlueprintCallable, meta = (WorldContext = "WorldContextObject", CallableWithoutWorldContext, Keywords = "log", AdvancedDisplay = "2", DevelopmentOnly), Category = "Development")
	static void PrintText(const UObject* WorldContextObject, const FText InText = INVTEXT("Hello"), bool bPrintToScreen = true, bool bPrintToLog = true, FLinearColor TextColor = FLinearColor(0.0f, 0.66f, 1.0f), float Duration = 2.f, const FName Key = NAME_None);

	/** Return true if the object is usable: non-null and not pending kill. */
	UFUNCTION(BlueprintPure, Category = "Utilities")
	static bool IsValid(const UObject* Object);

	/** Return true if the class is usable: non-null and not pending kill. */
	UFUNCTION(BlueprintPure, Category = "Utilities")
	static bool IsValidClass(UClass* Class);

	/** Returns the actual object name. */
	UFUNCTION(BlueprintPure, Category = "Utilities")
	static FString GetObjectName(const UObject* Object);

	/** Returns the full path to the specified object as a string. */
	UFUNCTION(BlueprintPure, Category = "Utilities")
	static FString GetPathName(const UObject* Object);

	/** Returns the display name (or actor label), for displaying as a debugging aid. */
	UFUNCTION(BlueprintPure, Category = "Utilities")
	static FString GetDisplayName(const UObject* Object);

	/** Returns the class of the object. */
	UFUNCTION(BlueprintPure, Category = "Utilities")
	static UClass* GetObjectClass(const UObject* Object);

	/** Creates a literal integer. */
	UFUNCTION(BlueprintPure, Category = "Math|Integer")
	static int32 MakeLiteralInt(int32 Value);

	/** Creates a literal bool. */
	UFUNCTION(BlueprintPure, Category = "Math|Boolean")
	static bool MakeLiteralBool(bool Value);

	/** Creates a literal double. */
	UFUNCTION(BlueprintPure, Category = "Math|Float")
	static double MakeLiteralDouble(double Value);

	/** Creates a literal name. */
	UFUNCTION(BlueprintPure, Category = "Utilities|Name")
	static FName MakeLiteralName(FName Value);

	/** Creates a literal string. */
	UFUNCTION(BlueprintPure, Category = "Utilities|String")
	static FString MakeLiteralString(const FString& Value);
};
