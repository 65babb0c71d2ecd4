#include "Agent/Agent.h"

#include "Agent/FileUtils.h"

namespace
{
	const TCHAR* const AbortContent = TEXT("Abort: User added new input");

	/** Reads what every tool_use block carries; false when it has no "input" object, which makes it no call at all. */
	bool ReadToolUse(const TSharedPtr<FJsonObject>& Block, FString& OutName, FString& OutId, TSharedPtr<FJsonObject>& OutInput)
	{
		if (!Block.IsValid())
		{
			return false;
		}
		Block->TryGetStringField(TEXT("name"), OutName);
		Block->TryGetStringField(TEXT("id"), OutId);
		const TSharedPtr<FJsonObject>* Input = nullptr;
		if (!Block->TryGetObjectField(TEXT("input"), Input) || !Input || !Input->IsValid())
		{
			return false;
		}
		OutInput = *Input;
		return true;
	}
}

const FAgent::FToolEntry* FAgent::FindTool(const FString& Name)
{
	// Looked up in this order, names in any case. A row without a handler answers as an unknown tool.
	static const FToolEntry Tools[] =
	{
		{ TEXT("finish"), &FAgent::HandleFinish },
		{ TEXT("compile"), &FAgent::HandleCompile },
		{ TEXT("execute_unreal_engine_api_python_script"), &FAgent::HandleExecutePythonScript },
		{ TEXT("create_file"), &FAgent::HandleCreateFile },
		{ TEXT("create_cpp_file"), &FAgent::HandleCreateCppFile },
		{ TEXT("update_and_replace_cpp_file"), &FAgent::HandleUpdateAndReplaceCppFile },
		{ TEXT("update_file"), &FAgent::HandleUpdateFile },
		{ TEXT("insert_into_file"), &FAgent::HandleInsertIntoFile },
		{ TEXT("delete_file"), &FAgent::HandleDeleteFile },
		{ TEXT("delete_cpp_file"), &FAgent::HandleDeleteCppFile },
		{ TEXT("read_file"), &FAgent::HandleReadFile },
		{ TEXT("get_filesystem_tree"), &FAgent::HandleGetFilesystemTree },
		{ TEXT("create_blueprint"), &FAgent::HandleCreateBlueprint },
		{ TEXT("read_blueprint"), &FAgent::HandleReadBlueprint },
		{ TEXT("modify_blueprint_variables"), &FAgent::HandleModifyBlueprintVariables },
		{ TEXT("read_behavior_tree"), &FAgent::HandleReadBehaviorTree },
		{ TEXT("save_and_compile_all_dirty_blueprints"), &FAgent::HandleSaveAndCompileAllDirtyBlueprints },
		{ TEXT("find_reference_in_all_files"), &FAgent::HandleFindReferenceInAllFiles },
	};

	for (const FToolEntry& Tool : Tools)
	{
		if (Name.Equals(Tool.Name, ESearchCase::IgnoreCase))
		{
			return Tool.Handler ? &Tool : nullptr;
		}
	}
	return nullptr;
}

void FAgent::RunTool(FString& Out, const FString& Name, const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	if (!Input.IsValid())
	{
		Out = TEXT("Error: Invalid input");
		return;
	}

	const FToolEntry* Tool = FindTool(Name);
	if (!Tool)
	{
		Out = FString::Printf(TEXT("Error: Unknown tool '%s'"), *Name);
		return;
	}
	Out = (this->*Tool->Handler)(Id, Input);
}

void FAgent::RunToolUse(TSharedPtr<FJsonObject> Block)
{
	FString Name;
	FString Id;
	TSharedPtr<FJsonObject> Input;
	if (!ReadToolUse(Block, Name, Id, Input))
	{
		return;
	}

	FString Out;
	RunTool(Out, Name, Id, Input);

	// A compilation reports its result later, when it is done.
	if (Name.Equals(TEXT("compile"), ESearchCase::IgnoreCase))
	{
		return;
	}

	const TSharedRef<FJsonObject> Result = MakeShared<FJsonObject>();
	Result->SetStringField(TEXT("type"), TEXT("tool_result"));
	Result->SetStringField(TEXT("tool_use_id"), Id);
	Result->SetStringField(TEXT("content"), Out);
	Result->SetBoolField(TEXT("is_error"), FFileUtils::IsErrorText(Out));
	AddToolResult(MakeShared<FJsonValueObject>(Result));
}

void FAgent::AbortToolUse(TSharedPtr<FJsonObject> Block)
{
	FString Name;
	FString Id;
	TSharedPtr<FJsonObject> Input;
	if (!ReadToolUse(Block, Name, Id, Input))
	{
		return;
	}

	const TSharedRef<FJsonObject> Result = MakeShared<FJsonObject>();
	Result->SetStringField(TEXT("type"), TEXT("tool_result"));
	Result->SetStringField(TEXT("tool_use_id"), Id);
	Result->SetStringField(TEXT("content"), AbortContent);
	Result->SetBoolField(TEXT("is_abort"), true);
	AddToolResult(MakeShared<FJsonValueObject>(Result));
}

FString FAgent::HandleFinish(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	SetState(EAgentState::AwaitingUpdate);
	return TEXT("Finished");
}
