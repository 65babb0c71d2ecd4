#include "Agent/Agent.h"

#include "Agent/CompilationManager.h"
#include "Agent/PythonUtils.h"
#include "ScopedTransaction.h"

void FAgent::Compile(const FString& ToolUseId, const TArray<TSharedPtr<FJsonValue>>& InMessages)
{
	TArray<TSharedPtr<FJsonObject>> MessageObjects;
	for (const TSharedPtr<FJsonValue>& Value : InMessages)
	{
		const TSharedPtr<FJsonObject>* Object = nullptr;
		if (Value.IsValid() && Value->TryGetObject(Object) && Object != nullptr && Object->IsValid())
		{
			MessageObjects.Add(*Object);
		}
	}
	FCompilationManager::CompileGameProject(ToolUseId, MessageObjects);
}

void FAgent::OnCompilationFinished(const TArray<TSharedPtr<FJsonObject>>& InMessages, FString ToolUseId, FString Output, bool bSuccess)
{
	// Nothing is sent here: the result waits for the next request, or for the answer handler's own send.
	const TSharedRef<FJsonObject> Result = MakeShared<FJsonObject>();
	Result->SetStringField(TEXT("type"), TEXT("tool_result"));
	Result->SetStringField(TEXT("tool_use_id"), ToolUseId);
	Result->SetStringField(TEXT("content"), Output);
	Result->SetBoolField(TEXT("is_error"), !bSuccess);
	AddToolResult(MakeShared<FJsonValueObject>(Result));

	const TSharedRef<FJsonObject> Message = MakeShared<FJsonObject>();
	Message->SetStringField(TEXT("role"), TEXT("user"));
	Message->SetArrayField(TEXT("content"), ToolResults);
	AddMessage(MakeShared<FJsonValueObject>(Message));

	AddInfoMessage(bSuccess ? TEXT("Compilation successful!") : TEXT("Compilation failed, processing error..."));
}

FString FAgent::HandleCompile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Compiling..."));
	Compile(Id, Messages);
	return TEXT("Compilation executed");
}

FString FAgent::HandleExecutePythonScript(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Executing Unreal Engine Api Python Script ..."));
	FString Code;
	if (!Input->TryGetStringField(TEXT("code"), Code))
	{
		return TEXT("Error: Missing code field");
	}
	// What the script does to assets can be undone at once.
	FScopedTransaction Transaction(FText::FromString(MakeTransactionName(ConversationId)), true);
	const FPythonScriptResult Result = FTavrinePythonUtils::CreateAndExecutePythonScript(Code);
	return FString::Printf(TEXT("%s: %s"), *Result.Message, *Result.Details);
}
