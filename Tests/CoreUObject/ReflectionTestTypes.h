// Reflected types written as plugin code writes them; the header tool reads this file at build time.
#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/Interface.h"
#include "UObject/ScriptInterface.h"
#include "UObject/SoftObjectPtr.h"
#include "UObject/WeakObjectPtrTemplates.h"
#include "Templates/SubclassOf.h"
#include "ReflectionTestTypes.generated.h"

/** How a test object answers. */
UENUM(BlueprintType)
enum class ETestAnswerMode : uint8
{
	/** Says nothing at all. */
	Quiet UMETA(DisplayName = "Stay Quiet"),
	// Says a lot.
	VeryTalkative,
	Hidden UMETA(Hidden)
};

UENUM()
enum ETestLegacyColor : uint8
{
	TLC_Red,
	TLC_Green = 5,
};

UENUM()
namespace ETestNamespacedLevel
{
	enum Type : int
	{
		Low,
		High = 10 UMETA(DisplayName = "Very High")
	};
}

USTRUCT(BlueprintType)
struct FReflectionTestStruct
{
	GENERATED_BODY()

	UPROPERTY(EditAnywhere)
	int32 Count = 3;

	UPROPERTY()
	FString Label;

	UPROPERTY()
	uint32 bLowBit : 1;

	uint32 Unreflected : 8;

	/** Grüße, 世界 — not only ASCII. */
	UPROPERTY()
	uint32 bHighBit : 1;
};

UINTERFACE(MinimalAPI)
class UReflectionTestGreeter : public UInterface
{
	GENERATED_BODY()
};

class IReflectionTestGreeter
{
	GENERATED_BODY()

public:
	virtual FString Greet() const = 0;
};

/**
 * Settings-like class: stored per user.
 *
 * Second paragraph of the comment.
 */
UCLASS(config = TestPerUserSettings, defaultconfig)
class UReflectionTestSettings : public UObject, public IReflectionTestGreeter
{
	GENERATED_BODY()

public:
	UReflectionTestSettings(const FObjectInitializer& ObjectInitializer);

	UPROPERTY(Config, EditAnywhere, Category = "Test|Authentication", meta = (DisplayName = "API Key", ToolTip = "Key for the service"))
	FString ApiKey;

	/** Show changed files in the chat. */
	UPROPERTY(config, EditAnywhere, Category = "Test|Interface")
	bool bShowChanges = true;

	// Ticking it restores the list.
	UPROPERTY(EditAnywhere, Category = "Test|Lists")
	bool bResetList = false;

	UPROPERTY(Config, EditAnywhere, Category = "Test|Lists", meta = (DisplayName = "Listed Extensions"))
	TArray<FString> Extensions;

	UPROPERTY(Config, EditAnywhere, BlueprintReadOnly, Category = "Test")
	ETestAnswerMode AnswerMode = ETestAnswerMode::VeryTalkative;

	UPROPERTY(Config)
	TEnumAsByte<ETestLegacyColor> LegacyColor = TLC_Green;

	UPROPERTY(Config, VisibleAnywhere)
	int32 RetentionDays = 30;

	UPROPERTY(Config)
	float ScrollSeconds = 10.0f;

	UPROPERTY(Transient)
	int32 TransientCounter = 0;

	UPROPERTY(Config)
	uint8 bFirstFlag : 1;

	UPROPERTY(Config)
	uint8 bSecondFlag : 1;

	UPROPERTY(Config)
	FName FavoriteName;

	UPROPERTY(Config)
	int64 BigNumber = 0;

	// Shared by the subclasses: stored in this class's section.
	UPROPERTY(GlobalConfig)
	FString SharedNote;

	UPROPERTY(Config)
	int32 Slots[3] = {1, 2, 3};

	UPROPERTY(Config)
	TEnumAsByte<ETestNamespacedLevel::Type> Level = ETestNamespacedLevel::High;

	UPROPERTY()
	TArray<ETestAnswerMode> AnswerHistory;

#if WITH_EDITORONLY_DATA
	UPROPERTY(EditAnywhere)
	FString EditorNote;
#endif

	/** Adds two numbers. */
	UFUNCTION(BlueprintCallable, Category = "Test")
	int32 AddNumbers(int32 A, int32 B = 2) const;

	UFUNCTION(BlueprintPure)
	static bool IsReady(const FString& Reason, TArray<FString>& OutNotes);

	virtual FString Greet() const override;
	virtual void PostEditChangeProperty(FPropertyChangedEvent& PropertyChangedEvent) override;

	// Not reflected: neither the config file nor the editor can touch it.
	ETestAnswerMode HiddenMode = ETestAnswerMode::Quiet;

	int32 PostEditChangeCount = 0;
	FName LastChangedProperty;

protected:
	UPROPERTY()
	int32 ProtectedValue = 7;

private:
	UPROPERTY()
	int32 PrivateValue = 9;
};

// A subclass that declares no constructor, so its generated body provides one.
UCLASS()
class UReflectionTestChild : public UReflectionTestSettings
{
	GENERATED_BODY()

public:
	UPROPERTY(EditAnywhere, Category = "Child")
	int32 ChildValue = 11;
};

UCLASS(Abstract)
class UReflectionTestAbstract : public UObject
{
	GENERATED_BODY()
};

// Its config is read when its class default object is made; only the config test touches it.
UCLASS(config = TestStartupSettings)
class UReflectionTestStartupSettings : public UObject
{
	GENERATED_BODY()

public:
	UReflectionTestStartupSettings();

	UPROPERTY(Config)
	FString Greeting = TEXT("Hello");

	UPROPERTY(Config)
	TArray<FString> Words;
};

// Every object of the class has its own config section, named after the object.
UCLASS(config = TestPerUserSettings, perobjectconfig)
class UReflectionTestPerObject : public UObject
{
	GENERATED_BODY()

public:
	UReflectionTestPerObject();

	UPROPERTY(Config)
	int32 Volume = 5;

	// The defaults as the constructor saw them.
	const UReflectionTestPerObject* DefaultsSeenByConstructor = nullptr;
};

// A struct that isn't atomic: its text form lists only the members that differ.
USTRUCT(BlueprintType)
struct FReflectionTestInnerStruct
{
	GENERATED_BODY()

	UPROPERTY()
	int32 Number = 0;

	UPROPERTY()
	FString Word;

	UPROPERTY()
	TObjectPtr<UObject> Reference;

	bool operator==(const FReflectionTestInnerStruct& Other) const
	{
		return Number == Other.Number && Word.Equals(Other.Word, ESearchCase::CaseSensitive) && Reference == Other.Reference;
	}
};

// One property of every kind reflection knows, for the text forms, saving and garbage collection.
UCLASS()
class UReflectionTestAllKinds : public UObject
{
	GENERATED_BODY()

public:
	UPROPERTY(EditAnywhere, BlueprintReadWrite, Category = "Kinds")
	bool bFlag = false;

	UPROPERTY()
	uint8 Byte = 0;

	UPROPERTY()
	int32 Int = 0;

	UPROPERTY()
	int64 Long = 0;

	UPROPERTY()
	float Float = 0.0f;

	UPROPERTY()
	double Double = 0.0;

	UPROPERTY()
	FName Name;

	UPROPERTY()
	FString String;

	UPROPERTY()
	FText Text;

	UPROPERTY()
	ETestAnswerMode Enum = ETestAnswerMode::Quiet;

	UPROPERTY()
	TEnumAsByte<ETestLegacyColor> ByteEnum = TLC_Red;

	UPROPERTY()
	FVector Vector;

	UPROPERTY()
	FRotator Rotator;

	UPROPERTY()
	FTransform Transform;

	UPROPERTY()
	FLinearColor Color;

	UPROPERTY()
	FReflectionTestInnerStruct Inner;

	UPROPERTY()
	TObjectPtr<UObject> Object;

	UPROPERTY()
	UReflectionTestChild* RawPointer = nullptr;

	UPROPERTY()
	TWeakObjectPtr<UObject> Weak;

	UPROPERTY()
	TSoftObjectPtr<UObject> Soft;

	UPROPERTY()
	TSubclassOf<UReflectionTestSettings> Class;

	UPROPERTY()
	TSoftClassPtr<UObject> SoftClass;

	UPROPERTY()
	TScriptInterface<IReflectionTestGreeter> Greeter;

	UPROPERTY()
	TArray<FVector> Points;

	UPROPERTY()
	TArray<TObjectPtr<UObject>> Objects;

	UPROPERTY()
	TSet<FName> Tags;

	UPROPERTY()
	TMap<FString, int32> Counts;

	UPROPERTY()
	TMap<FName, TObjectPtr<UObject>> Named;

	UPROPERTY(Transient)
	int32 TransientValue = 0;

	/** Scales a vector. */
	UFUNCTION(BlueprintCallable, Category = "Kinds")
	FVector ScaleVector(const FVector& Value, float Factor = 2.f) const;

	UFUNCTION(BlueprintCallable, Category = "Kinds")
	UObject* PickObject(UReflectionTestChild* Preferred, TSubclassOf<UObject> Fallback);
};

// Makes a subobject in its constructor, as actors make their components.
UCLASS()
class UReflectionTestOwner : public UObject
{
	GENERATED_BODY()

public:
	UReflectionTestOwner(const FObjectInitializer& ObjectInitializer);

	UPROPERTY()
	TObjectPtr<UReflectionTestChild> Part;

	UPROPERTY()
	TArray<TObjectPtr<UObject>> Extras;
};

// Keeps state outside its reflected properties and writes it as custom property lines.
UCLASS()
class UReflectionTestCustom : public UObject
{
	GENERATED_BODY()

public:
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;

	TArray<FString> Notes;
};
