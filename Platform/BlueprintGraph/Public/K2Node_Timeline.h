// UK2Node_Timeline: plays a timeline of the Blueprint; shows the timeline's name.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "K2Node.h"
#include "K2Node_Timeline.generated.h"

UCLASS()
class BLUEPRINTGRAPH_API UK2Node_Timeline : public UK2Node
{
	GENERATED_BODY()

public:
	UK2Node_Timeline(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UPROPERTY()
	FName TimelineName;

	UPROPERTY()
	FGuid TimelineGuid;

	UPROPERTY()
	uint32 bAutoPlay : 1;

	UPROPERTY()
	uint32 bLoop : 1;

	UPROPERTY()
	uint32 bReplicated : 1;

	UPROPERTY()
	uint32 bIgnoreTimeDilation : 1;

	UEdGraphPin* GetPlayPin() const;
	UEdGraphPin* GetPlayFromStartPin() const;
	UEdGraphPin* GetStopPin() const;
	UEdGraphPin* GetReversePin() const;
	UEdGraphPin* GetReverseFromEndPin() const;
	UEdGraphPin* GetUpdatePin() const;
	UEdGraphPin* GetFinishedPin() const;
	UEdGraphPin* GetNewTimePin() const;
	UEdGraphPin* GetSetNewTimePin() const;
	UEdGraphPin* GetDirectionPin() const;
	UEdGraphPin* GetTrackPin(const FName TrackName) const;

	virtual void AllocateDefaultPins() override;
	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual void ValidateNodeDuringCompilation(FCompilerResultsLog& MessageLog) const override;
};
