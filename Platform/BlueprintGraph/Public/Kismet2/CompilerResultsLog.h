// FCompilerResultsLog: the errors, warnings and notes of a Blueprint compile. (The engine keeps it in UnrealEd;
// here it lives beside the nodes that report into it, at the same include path.)
#pragma once

#include "CoreMinimal.h"
#include "EdGraph/EdGraphNode.h"

class UEdGraphNode;
class UBlueprint;

namespace EMessageSeverity
{
	enum Type
	{
		Error = 1,
		PerformanceWarning = 2,
		Warning = 3,
		Info = 4,
	};
}

// One message of the compile, with the node it is about (when any).
class FTokenizedMessage
{
public:
	FTokenizedMessage(EMessageSeverity::Type InSeverity, const FString& InText, const UEdGraphNode* InNode)
		: Severity(InSeverity)
		, Text(InText)
		, Node(InNode)
	{
	}
	EMessageSeverity::Type GetSeverity() const
	{
		return Severity;
	}
	FText ToText() const
	{
		return FText::FromString(Text);
	}
	const UEdGraphNode* GetNode() const
	{
		return Node;
	}

private:
	EMessageSeverity::Type Severity;
	FString Text;
	const UEdGraphNode* Node;
};

class FCompilerResultsLog
{
public:
	explicit FCompilerResultsLog(bool bIsCompatibleWithEvents = true)
	{
	}
	virtual ~FCompilerResultsLog() = default;

	// "@@" in the format is replaced by the node's title, as the editor links it.
	void Error(const TCHAR* Format, const UEdGraphNode* Node = nullptr)
	{
		++NumErrors;
		Add(EMessageSeverity::Error, Format, Node);
	}
	void Warning(const TCHAR* Format, const UEdGraphNode* Node = nullptr)
	{
		++NumWarnings;
		Add(EMessageSeverity::Warning, Format, Node);
	}
	void Note(const TCHAR* Format, const UEdGraphNode* Node = nullptr)
	{
		Add(EMessageSeverity::Info, Format, Node);
	}

	int32 NumErrors = 0;
	int32 NumWarnings = 0;
	bool bSilentMode = false;
	bool bLogInfoOnly = false;
	bool bAnnotateMentionedNodes = true;
	TArray<TSharedRef<FTokenizedMessage>> Messages;

private:
	void Add(EMessageSeverity::Type Severity, const TCHAR* Format, const UEdGraphNode* Node)
	{
		FString Text(Format);
		if (Node != nullptr)
		{
			Text.ReplaceInline(TEXT("@@"), *FString::Printf(TEXT("'%s'"), *Node->GetNodeTitle(ENodeTitleType::ListView).ToString()));
		}
		Messages.Add(MakeShared<FTokenizedMessage>(Severity, Text, Node));
	}
};
