// UAnimSequence: one animation of a skeleton's bones.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Animation/AnimSequenceBase.h"
#include "AnimSequence.generated.h"

UCLASS(BlueprintType)
class ENGINE_API UAnimSequence : public UAnimSequenceBase
{
	GENERATED_BODY()

public:
	UAnimSequence(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// Stand-in only: sets the length an imported animation would have.
	void SetPlayLength(float InLength)
	{
		SequenceLength = InLength;
	}
};
