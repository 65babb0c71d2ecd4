#pragma once

#include "CoreMinimal.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "UObject/ObjectMacros.h"
#include "Agent.generated.h"

/** Where the conversation with the backend stands. */
UENUM()
enum class EAgentState : uint8
{
	None = 0,
	Indexing = 1,
	Idle = 2,
	InitialRequest = 3,
	RegularRequest = 4,
	PollRequest = 5,
	PollResponse = 6,
	AwaitingApproval = 7,
	Approved = 8,
	Continue = 9,
	AwaitingUpdate = 10,
	Pause = 11,
	CancelRequest = 12,
	EndRequest = 13
};

/** Text that comes with a change of state: the user's message, or the reason of a cancel or an end. */
struct FAgentStateData
{
	FString Message;

	FAgentStateData() = default;
	explicit FAgentStateData(const FString& InMessage)
		: Message(InMessage)
	{
	}
};

DECLARE_MULTICAST_DELEGATE(FOnAgentStateChanged);

/**
 * Owns one conversation with the backend. Every change of state goes through SetState, whose entry
 * actions talk to the chat, start requests and run or abort the backend's tool calls.
 */
class FAgent
{
public:
	static FAgent& Get();

	~FAgent();
	FAgent(const FAgent&) = delete;
	FAgent& operator=(const FAgent&) = delete;

	/** Broadcast after each change of state, inner changes first. */
	FOnAgentStateChanged OnStateChanged;

	EAgentState GetState() const { return State; }
	void SetState(EAgentState NewState, const FAgentStateData* Data = nullptr);

	void SetPaused(bool bInPaused);
	bool IsPaused() const { return bPaused; }
	void SetConfirmed(bool bInConfirmed) { bConfirmed = bInConfirmed; }
	bool IsConfirmed() const { return bConfirmed; }

	const FString& GetConversationId() const { return ConversationId; }
	const FString& GetUndoConversationId() const { return UndoConversationId; }
	const FString& GetRedoConversationId() const { return RedoConversationId; }
	void SetUndoConversationId(const FString& Id) { UndoConversationId = Id; }
	void SetRedoConversationId(const FString& Id) { RedoConversationId = Id; }

	/** Title of the editor transactions that a conversation's changes go into, so that undo can find them. */
	static FString MakeTransactionName(const FString& InConversationId);

	TArray<TSharedPtr<FJsonValue>>& GetMessages() { return Messages; }
	TArray<TSharedPtr<FJsonValue>>& GetToolResults() { return ToolResults; }
	const TArray<TSharedPtr<FJsonObject>>& GetPendingToolUses() const { return PendingToolUses; }
	const TSharedPtr<FJsonObject>& GetLastResponse() const { return LastResponse; }

	void ClearConversationId() { ConversationId.Empty(); }
	void ClearMessages() { Messages.Empty(); }
	void ClearToolResults() { ToolResults.Empty(); }
	void AddMessage(TSharedPtr<FJsonValue> Message) { Messages.Add(MoveTemp(Message)); }
	void AddToolResult(TSharedPtr<FJsonValue> Result) { ToolResults.Add(MoveTemp(Result)); }

	void Cancel(const FString& Reason);
	void End(const FString& Reason);

	/** Runs one tool_use block and keeps its tool_result for the next request. */
	void RunToolUse(TSharedPtr<FJsonObject> Block);
	/** Keeps the abort result of one tool_use block; the tool doesn't run. */
	void AbortToolUse(TSharedPtr<FJsonObject> Block);
	/** Finds the handler of a tool by name, in any case, and gives its text in Out. */
	void RunTool(FString& Out, const FString& Name, const FString& Id, const TSharedPtr<FJsonObject>& Input);

	/** Starts a compile of the game code for the tool call ToolUseId; the result comes to OnCompilationFinished. */
	void Compile(const FString& ToolUseId, const TArray<TSharedPtr<FJsonValue>>& InMessages);
	/** Keeps a finished compile's result for the next request; sends nothing and leaves the state alone. */
	void OnCompilationFinished(const TArray<TSharedPtr<FJsonObject>>& InMessages, FString ToolUseId, FString Output, bool bSuccess);

private:
	FAgent();

	using FToolHandler = FString (FAgent::*)(const FString& Id, const TSharedPtr<FJsonObject>& Input);

	struct FToolEntry
	{
		const TCHAR* Name;
		/** Null while the tool has no handler in this build: the call then counts as an unknown tool. */
		FToolHandler Handler;
	};

	static const FToolEntry* FindTool(const FString& Name);

	// Entry actions of the states.
	void EnterIndexing();
	void EnterIdle();
	void EnterInitialRequest(const FString& Message);
	void EnterRegularRequest(const FString& Message);
	void EnterContinue(const FString& Message);
	void EnterAwaitingUpdate();
	void EnterPause();
	void EnterCancelRequest(const FString& Reason);
	void EnterEndRequest(const FString& Reason);

	// What the backend client reports.
	void HandleStatusMessage(const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize);
	void HandleRequestError(const FString& Text);
	void HandleRequestAccepted();
	void HandleResponse(TSharedPtr<FJsonObject> Response);
	void HandleRequestFailed(const FString& Text);
	void HandlePollSent();

	/** Sends the tool results with the flags that the backend expects after tool calls. */
	void SendToolResults();

	bool IsImplementerMode() const;

	void AddUserMessage(const FString& Text);
	void AddAssistantMessage(const FString& Text);
	void AddInfoMessage(const FString& Text);

	// Tool handlers, one per tool.
	FString HandleFinish(const FString& Id, const TSharedPtr<FJsonObject>& Input);

	// Editor tools: compiling the game code and running Python.
	FString HandleCompile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleExecutePythonScript(const FString& Id, const TSharedPtr<FJsonObject>& Input);

	// Blueprint tools: their results are the Blueprint utilities' texts as they stand.
	FString HandleCreateBlueprint(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleReadBlueprint(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleSaveAndCompileAllDirtyBlueprints(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleModifyBlueprintVariables(const FString& Id, const TSharedPtr<FJsonObject>& Input);

	// File tools: each keeps the undo data before its change and shows the diff after one that worked.
	FString HandleCreateFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleCreateCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleCreateNewCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleUpdateAndReplaceCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleUpdateFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleInsertIntoFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleDeleteFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleDeleteCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleReadFile(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleGetFilesystemTree(const FString& Id, const TSharedPtr<FJsonObject>& Input);

	// Read-only tools over the whole project: the reference search and the behaviour tree reader.
	FString HandleFindReferenceInAllFiles(const FString& Id, const TSharedPtr<FJsonObject>& Input);
	FString HandleReadBehaviorTree(const FString& Id, const TSharedPtr<FJsonObject>& Input);

	EAgentState State = EAgentState::None;
	FString ConversationId;
	FString UndoConversationId;
	FString RedoConversationId;
	TArray<TSharedPtr<FJsonObject>> PendingToolUses;
	TArray<TSharedPtr<FJsonValue>> Messages;
	TArray<TSharedPtr<FJsonValue>> ToolResults;
	TSharedPtr<FJsonObject> LastResponse;
	bool bPaused = false;
	bool bConfirmed = false;
	/** The binding to the compilation manager's completion event, for the agent's lifetime. */
	FDelegateHandle CompilationFinishedHandle;
};
