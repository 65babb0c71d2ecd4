// UEdGraphSchema: the rules of a kind of graph (which pins may connect, what a new graph holds).
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphSchema.generated.h"

class UEdGraph;

/** What a connection between two pins would do. */
UENUM()
enum ECanCreateConnectionResponse : int
{
	/** Make the connection; the pins may keep other links. */
	CONNECT_RESPONSE_MAKE,
	/** The pins can't be connected. */
	CONNECT_RESPONSE_DISALLOW,
	/** Break the other links of pin A first. */
	CONNECT_RESPONSE_BREAK_OTHERS_A,
	/** Break the other links of pin B first. */
	CONNECT_RESPONSE_BREAK_OTHERS_B,
	/** Break the other links of both pins first. */
	CONNECT_RESPONSE_BREAK_OTHERS_AB,
	/** Connect through a conversion node. */
	CONNECT_RESPONSE_MAKE_WITH_CONVERSION_NODE,
	/** Connect through a promotion. */
	CONNECT_RESPONSE_MAKE_WITH_PROMOTION,
	CONNECT_RESPONSE_MAX,
};

/** The answer of CanCreateConnection: the response and a message for the user. */
struct FPinConnectionResponse
{
	FPinConnectionResponse()
		: Response(CONNECT_RESPONSE_MAKE)
	{
	}
	FPinConnectionResponse(const ECanCreateConnectionResponse InResponse, FText InMessage)
		: Message(MoveTemp(InMessage))
		, Response(InResponse)
	{
	}
	FPinConnectionResponse(const ECanCreateConnectionResponse InResponse, const TCHAR* InMessage)
		: Message(FText::FromString(InMessage))
		, Response(InResponse)
	{
	}

	bool CanSafeConnect() const
	{
		return Response != CONNECT_RESPONSE_DISALLOW;
	}
	bool IsFatal() const
	{
		return Response == CONNECT_RESPONSE_DISALLOW;
	}

	FText Message;
	TEnumAsByte<ECanCreateConnectionResponse> Response;
};

UCLASS(abstract)
class ENGINE_API UEdGraphSchema : public UObject
{
	GENERATED_BODY()

public:
	UEdGraphSchema(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// Whether A and B may be linked, and how.
	virtual const FPinConnectionResponse CanCreateConnection(const UEdGraphPin* A, const UEdGraphPin* B) const;
	// Links A and B when CanCreateConnection allows it (breaking the links it says to); true when linked.
	virtual bool TryCreateConnection(UEdGraphPin* A, UEdGraphPin* B) const;
	virtual void BreakNodeLinks(UEdGraphNode& TargetNode) const;
	virtual void BreakPinLinks(UEdGraphPin& TargetPin, bool bSendsNodeNotifcation) const;
	virtual void BreakSinglePinLink(UEdGraphPin* SourcePin, UEdGraphPin* DestinationPin) const;
	// The nodes a new graph of this kind starts with.
	virtual void CreateDefaultNodesForGraph(UEdGraph& Graph) const;
	virtual bool ShouldHidePinDefaultValue(UEdGraphPin* Pin) const
	{
		return false;
	}
	virtual FText GetPinDisplayName(const UEdGraphPin* Pin) const;
	// Sets the pin's default from text, for a pin without links.
	virtual void TrySetDefaultValue(UEdGraphPin& Pin, const FString& NewDefaultValue, bool bMarkAsModified = true) const;
	virtual void TrySetDefaultObject(UEdGraphPin& Pin, UObject* NewDefaultObject, bool bMarkAsModified = true) const;
	virtual void TrySetDefaultText(UEdGraphPin& InPin, const FText& InNewDefaultText, bool bMarkAsModified = true) const;
	// Empty when the text is a valid default for the pin, else why not.
	virtual FString IsPinDefaultValid(const UEdGraphPin* Pin, const FString& NewDefaultValue, UObject* NewDefaultObject, const FText& InNewDefaultText) const
	{
		return FString();
	}
};
