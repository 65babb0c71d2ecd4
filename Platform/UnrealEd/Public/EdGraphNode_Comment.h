// UEdGraphNode_Comment: a comment box in a graph; its title is the comment text.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "Math/Color.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraphNode_Comment.generated.h"

namespace ECommentBoxMode
{
	enum Type
	{
		// Moving the box moves the nodes inside it.
		GroupMovement,
		// The box moves alone.
		NoGroupMovement,
	};
}

UCLASS()
class UNREALED_API UEdGraphNode_Comment : public UEdGraphNode
{
	GENERATED_BODY()

public:
	UEdGraphNode_Comment(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	UPROPERTY(EditAnywhere, Category = Comment)
	FLinearColor CommentColor = FLinearColor::White;

	UPROPERTY(EditAnywhere, Category = Comment)
	int32 FontSize = 18;

	UPROPERTY()
	uint32 bCommentBubbleVisible_InDetailsPanel : 1;

	UPROPERTY()
	uint32 bColorCommentBubble : 1;

	UPROPERTY()
	int32 CommentDepth = -1;

	virtual FText GetNodeTitle(ENodeTitleType::Type TitleType) const override;
	virtual void AllocateDefaultPins() override
	{
	}
};
