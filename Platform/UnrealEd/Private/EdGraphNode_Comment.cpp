#include "EdGraphNode_Comment.h"

UEdGraphNode_Comment::UEdGraphNode_Comment(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, bCommentBubbleVisible_InDetailsPanel(true)
	, bColorCommentBubble(false)
{
	NodeWidth = 400;
	NodeHeight = 100;
	NodeComment = TEXT("Comment");
	bCanRenameNode = true;
}

FText UEdGraphNode_Comment::GetNodeTitle(ENodeTitleType::Type TitleType) const
{
	return FText::FromString(NodeComment);
}
