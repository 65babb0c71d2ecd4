#pragma once

#include "CoreMinimal.h"

DECLARE_MULTICAST_DELEGATE(FOnTavrineInitialized);
DECLARE_MULTICAST_DELEGATE_OneParam(FOnTavrinePluginEnabledChanged, bool);
DECLARE_MULTICAST_DELEGATE_FourParams(FOnTavrineAddStatusMessage, const FString& /*Text*/, const FLinearColor& /*Color*/, const FName& /*FontName*/, float /*FontSize*/);
DECLARE_MULTICAST_DELEGATE_ThreeParams(FOnTavrineAddDiffMessage, const FString& /*FilePath*/, const FString& /*OldText*/, const FString& /*NewText*/);

/**
 * The chat window's one door to the agent: forwards the user's actions with their guards and carries
 * status and diff messages back to whoever listens.
 */
class TAVRINE_API FTavrineInterface
{
public:
	static const FLinearColor UserColor;
	static const FLinearColor TavrineColor;
	/** Fully transparent on purpose: the colour tints a message's background, and status lines get none. */
	static const FLinearColor MessageColor;
	static constexpr float UserFontSize = 10.0f;
	static constexpr float TavrineFontSize = 10.0f;
	static constexpr float MessageFontSize = 8.0f;
	static const FName RegularFontName;
	static const FName BoldFontName;
	static const FName ItalicFontName;

	static FTavrineInterface& Get();

	FTavrineInterface(const FTavrineInterface&) = delete;
	FTavrineInterface& operator=(const FTavrineInterface&) = delete;

	FOnTavrineInitialized OnInitialized;
	FOnTavrinePluginEnabledChanged OnPluginEnabledChanged;
	FOnTavrineAddStatusMessage OnAddStatusMessageDelegate;
	FOnTavrineAddDiffMessage OnAddDiffMessageDelegate;

	void Initialize();
	/** Cancels any conversation; called before the module goes away. */
	void Shutdown();

	bool IsInitialized() const { return bInitialized; }
	bool IsPluginEnabled() const { return bPluginEnabled; }
	void SetPluginEnabled(bool bEnabled) { bPluginEnabled = bEnabled; }
	FString GetVersion() const;

	/** Starts a conversation; ignored unless the agent is idle. */
	void InitialRequest(const FString& Text);
	/** Sends the next message of a conversation; ignored unless the agent awaits one. */
	void RegularRequest(const FString& Text);
	/** Resumes in any state: empty text runs the waiting tool calls, other text aborts them. */
	void Continue(FString Text);
	/** Ignored unless tool calls wait for approval. */
	void Approve();
	/** Takes effect when the next answer arrives: its tool calls wait. */
	void PauseRequest();
	void CancelRequest(const FString& Reason);
	void EndRequest(const FString& Reason);

	void OnAddStatusMessage(const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize);
	void OnAddDiffMessage(const FString& FilePath, const FString& OldText, const FString& NewText);

	/** Today's prompt log: one file a local calendar day; empty until the facade has started. */
	FString GetPromptLogFilePath() const;
	/** Appends one entry as UTF-8; with the time stamp it stands apart as a block of its own. An empty path writes nothing. */
	void TavrineInterfaceLogString(const FString& Text, const FString& FilePath, bool bWithTimestamp);

	/** The last conversation's changes can be taken back: its files, or its editor transactions. */
	bool CanUndo() const;
	bool CanRedo() const;
	/** Takes back every file and editor change of the last conversation, then compiles. */
	void UndoLastOperation();
	/** Puts the undone files of the last conversation back, then compiles. */
	void RedoLastOperation();
	/** Undoes the editor's queue back to and including the first open transaction of that title; false when none is open. */
	bool UndoUntilLastTransactionByName(const FString& Name);

private:
	FTavrineInterface() = default;

	void EnsureLogDirectoryExists();
	TArray<FString> GetAllLogFiles() const;
	bool IsLogFileOlderThanDays(const FString& FilePath, int32 Days) const;
	void DeleteOldLogs(int32 Days);
	void DeleteAllLogs();
	/** Sets up the log folder and applies the retention policy of the settings. */
	void StartPromptLog();

	/** Queue index of the first transaction with that title, in any case; -1 without one or without an editor. */
	static int32 FindTransactionIndexByName(const FString& Name);

	bool bInitialized = false;
	bool bPluginEnabled = false;
	FString LogDirectory;
};
