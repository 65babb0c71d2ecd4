// UK2Node_EditablePinBase: nodes whose pins the user defines (function entry and result, events).
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Math/Color.h"
#include "K2Node.h"
#include "K2Node_EditablePinBase.generated.h"

/** A pin the user defined on the node: its name, type, direction and default. */
USTRUCT()
struct FUserPinInfo
{
	GENERATED_BODY()

	UPROPERTY()
	FName PinName;

	UPROPERTY()
	FEdGraphPinType PinType;

	UPROPERTY()
	TEnumAsByte<EEdGraphPinDirection> DesiredPinDirection = EGPD_MAX;

	UPROPERTY()
	FString PinDefaultValue;

	FUserPinInfo() = default;
	FUserPinInfo(const UEdGraphPin& InPin)
		: PinName(InPin.PinName)
		, PinType(InPin.PinType)
		, DesiredPinDirection(InPin.Direction)
		, PinDefaultValue(InPin.DefaultValue)
	{
	}
};

/** What the user declared about a function: its tooltip, category, keywords and flags for the editor. */
USTRUCT()
struct BLUEPRINTGRAPH_API FKismetUserDeclaredFunctionMetadata
{
	GENERATED_BODY()

	UPROPERTY()
	FText ToolTip;

	UPROPERTY()
	FText Category;

	UPROPERTY()
	FText Keywords;

	UPROPERTY()
	FText CompactNodeTitle;

	UPROPERTY()
	FLinearColor InstanceTitleColor = FLinearColor::White;

	UPROPERTY()
	FString DeprecationMessage;

	UPROPERTY()
	bool bIsDeprecated = false;

	UPROPERTY()
	bool bCallInEditor = false;

	UPROPERTY()
	bool bIsUnsafeDuringActorConstruction = false;

	UPROPERTY()
	bool bThreadSafe = false;

	UPROPERTY()
	int8 HasLatentFunctions = -1;

	void SetMetaData(FName Key, FString&& Value);
	void SetMetaData(FName Key, const FStringView Value);
	// The value of the key; the key must be there.
	const FString& GetMetaData(FName Key) const;
	bool HasMetaData(FName Key) const
	{
		return MetaDataMap.Contains(Key);
	}
	void RemoveMetaData(FName Key)
	{
		MetaDataMap.Remove(Key);
	}
	const TMap<FName, FString>& GetMetaDataMap() const
	{
		return MetaDataMap;
	}

private:
	UPROPERTY()
	TMap<FName, FString> MetaDataMap;
};

UCLASS(abstract)
class BLUEPRINTGRAPH_API UK2Node_EditablePinBase : public UK2Node
{
	GENERATED_BODY()

public:
	UK2Node_EditablePinBase(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	/** The pins the user defined, kept so that the node can be rebuilt. */
	TArray<TSharedPtr<FUserPinInfo>> UserDefinedPins;

	// Adds a user-defined pin (a unique name when asked, "NewParam_1" style) and makes it on the node.
	UEdGraphPin* CreateUserDefinedPin(const FName InPinName, const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, bool bUseUniqueName = true);
	void RemoveUserDefinedPin(TSharedPtr<FUserPinInfo> PinToRemove);
	void RemoveUserDefinedPinByName(const FName PinName);
	bool UserDefinedPinExists(const FName PinName) const;
	virtual bool CanCreateUserDefinedPin(const FEdGraphPinType& InPinType, EEdGraphPinDirection InDesiredDirection, FText& OutErrorMessage)
	{
		return true;
	}
	virtual bool CanUseRefParams() const
	{
		return false;
	}
	// Sets the default value of a user-defined pin, on the pin and in its record.
	bool ModifyUserDefinedPinDefaultValue(TSharedPtr<FUserPinInfo> PinInfo, const FString& NewDefaultValue);
	virtual void AllocateDefaultPins() override;
	// The user-defined pins are written with the node and made again from those lines.
	virtual void ExportCustomProperties(FOutputDevice& Out, uint32 Indent) override;
	virtual void ImportCustomProperties(const TCHAR* SourceText, FFeedbackContext* Warn) override;
	virtual void ResetCustomProperties() override;

protected:
	virtual UEdGraphPin* CreatePinFromUserDefinition(const TSharedPtr<FUserPinInfo> NewPinInfo);
	// A name for a new pin that no pin of the node has, from the wanted one.
	virtual FName CreateUniquePinName(FName SourcePinName) const;
};
