// Every branch of the source-control steps against a scripted provider: result, operations run, log lines.
#include "Agent/FileUtils.h"
#include "FilesTestFixture.h"

namespace
{
	const FName CheckOutName(TEXT("CheckOut"));
	const FName DeleteName(TEXT("Delete"));
	const FName MarkForAddName(TEXT("MarkForAdd"));
	const FName RevertName(TEXT("Revert"));

	FScriptedSourceControlFileState State(bool bSourceControlled, bool bAdded, bool bCanCheckout)
	{
		FScriptedSourceControlFileState Facts;
		Facts.bSourceControlled = bSourceControlled;
		Facts.bAdded = bAdded;
		Facts.bCanCheckout = bCanCheckout;
		Facts.bCheckedOut = bSourceControlled && !bAdded && !bCanCheckout;
		return Facts;
	}
	const FScriptedSourceControlFileState Untracked = State(false, false, false);
	const FScriptedSourceControlFileState Added = State(true, true, false);
	const FScriptedSourceControlFileState CanCheckOut = State(true, false, true);
	const FScriptedSourceControlFileState CheckedOut = State(true, false, false);

	/** Both the operations run and the log lines, with the file's path shortened to "F". */
	TArray<FString> Shortened(const TArray<FString>& Lines, const FString& File)
	{
		TArray<FString> Result;
		for (const FString& Line : Lines)
		{
			Result.Add(Line.Replace(*File, TEXT("F"), ESearchCase::CaseSensitive));
		}
		return Result;
	}

	class FSourceControlBridgeTest : public FFilesTest
	{
	protected:
		void SetUp() override
		{
			FFilesTest::SetUp();
			File = ProjectPath(TEXT("Source/Game.cpp"));
			WriteBytes(TEXT("Source/Game.cpp"), "int Game;\n");
		}

		TArray<FString> Operations(const FScriptedSourceControlProvider& Provider) const
		{
			return Shortened(Provider.GetExecutedOperations(), File);
		}

		TArray<FString> TakeLog()
		{
			const TArray<FString> Lines = Shortened(Log.Lines, File);
			Log.Lines.Reset();
			return Lines;
		}

		FString File;
	};
}

TEST_F(FSourceControlBridgeTest, AProviderThatIsOffOrUnreachableIsNeverAskedAndMarkForAddRunsAlone)
{
	for (const bool bEnabled : {false, true})
	{
		FScriptedSourceControlProvider& Provider = UseScriptedProvider();
		Provider.bEnabled = bEnabled;
		Provider.bAvailable = !bEnabled;
		Provider.SetFileState(File, CanCheckOut);
		EXPECT_FALSE(FFileUtils::AddNewFileToSourceControl(File));
		EXPECT_FALSE(FFileUtils::CheckoutFileFromSourceControl(File));
		EXPECT_FALSE(FFileUtils::RemoveFileFromSourceControl(File, true));
		EXPECT_TRUE(Provider.GetExecutedOperations().IsEmpty());
		EXPECT_EQ(TakeLog(), TArray<FString>({TEXT("Warning: Source control is not available"), TEXT("Warning: Source control is not available"), TEXT("Warning: Source control is not available")}));
		EXPECT_TRUE(Exists(TEXT("Source/Game.cpp")));
	}

	FScriptedSourceControlProvider& Provider = UseScriptedProvider();
	EXPECT_TRUE(FFileUtils::AddNewFileToSourceControl(File));
	EXPECT_EQ(Operations(Provider), TArray<FString>({TEXT("MarkForAdd F")}));
	EXPECT_EQ(TakeLog(), TArray<FString>({TEXT("Display: Successfully added F to source control")}));
	Provider.SetOutcome(MarkForAddName, ECommandResult::Failed);
	EXPECT_FALSE(FFileUtils::AddNewFileToSourceControl(File));
	EXPECT_EQ(TakeLog(), TArray<FString>({TEXT("Error: Failed to add F to source control")}));
}

TEST_F(FSourceControlBridgeTest, CheckoutAndRemovalFollowTheFileStateAndDeleteFromDiskOnlyWhenRemoved)
{
	enum ECall
	{
		Checkout,
		Remove,
		RemoveFromDisk
	};
	const struct
	{
		const char* Name;
		ECall Call;
		TOptional<FScriptedSourceControlFileState> State;
		FName FailingOperation;
		bool bExpected;
		TArray<FString> ExpectedOperations;
		TArray<FString> ExpectedLog;
	} Cases[] = {
		{"checkout, no state", Checkout, {}, NAME_None, false, {TEXT("UpdateStatus F")}, {TEXT("Warning: Could not get file state for F")}},
		{"checkout, untracked", Checkout, Untracked, NAME_None, false, {TEXT("UpdateStatus F")}, {TEXT("Warning: File F is not under source control")}},
		{"checkout, checked out", Checkout, CheckedOut, NAME_None, false, {TEXT("UpdateStatus F")}, {TEXT("Warning: File F cannot be checked out (it may already be checked out)")}},
		{"checkout", Checkout, CanCheckOut, NAME_None, true, {TEXT("UpdateStatus F"), TEXT("CheckOut F")}, {}},
		{"checkout fails", Checkout, CanCheckOut, CheckOutName, false, {TEXT("UpdateStatus F"), TEXT("CheckOut F")}, {}},
		{"remove, no state", RemoveFromDisk, {}, NAME_None, false, {TEXT("UpdateStatus F")}, {TEXT("Error: Could not determine source control status for F")}},
		{"remove added", Remove, Added, NAME_None, true, {TEXT("UpdateStatus F"), TEXT("Revert F")}, {TEXT("Display: Successfully reverted addition of F from source control")}},
		{"remove added, revert fails", RemoveFromDisk, Added, RevertName, false, {TEXT("UpdateStatus F"), TEXT("Revert F")}, {TEXT("Error: Failed to revert addition of F from source control")}},
		{"remove untracked", Remove, Untracked, NAME_None, true, {TEXT("UpdateStatus F")}, {TEXT("Display: File F is not under source control, nothing to remove")}},
		{"remove untracked from disk", RemoveFromDisk, Untracked, NAME_None, true, {TEXT("UpdateStatus F")}, {TEXT("Display: File F is not under source control, nothing to remove"), TEXT("Display: Deleted F from disk")}},
		// A failed checkout is passed over: the delete still runs.
		{"remove tracked, checkout fails", Remove, CanCheckOut, CheckOutName, true, {TEXT("UpdateStatus F"), TEXT("CheckOut F"), TEXT("Delete F")}, {TEXT("Display: Successfully marked F for deletion in source control")}},
		{"remove checked out from disk", RemoveFromDisk, CheckedOut, NAME_None, true, {TEXT("UpdateStatus F"), TEXT("Delete F")}, {TEXT("Display: Successfully marked F for deletion in source control"), TEXT("Display: Deleted F from disk")}},
		{"remove, delete fails", RemoveFromDisk, CheckedOut, DeleteName, false, {TEXT("UpdateStatus F"), TEXT("Delete F")}, {TEXT("Error: Failed to mark F for deletion in source control")}},
	};
	for (const auto& Case : Cases)
	{
		WriteBytes(TEXT("Source/Game.cpp"), "int Game;\n");
		FScriptedSourceControlProvider& Provider = UseScriptedProvider();
		if (Case.State.IsSet())
		{
			Provider.SetFileState(File, Case.State.GetValue());
		}
		Provider.SetOutcome(Case.FailingOperation, ECommandResult::Failed);
		const bool bResult = Case.Call == Checkout ? FFileUtils::CheckoutFileFromSourceControl(File) : FFileUtils::RemoveFileFromSourceControl(File, Case.Call == RemoveFromDisk);
		EXPECT_EQ(bResult, Case.bExpected) << Case.Name;
		EXPECT_EQ(Operations(Provider), Case.ExpectedOperations) << Case.Name;
		EXPECT_EQ(TakeLog(), Case.ExpectedLog) << Case.Name;
		EXPECT_EQ(Exists(TEXT("Source/Game.cpp")), !(Case.bExpected && Case.Call == RemoveFromDisk)) << Case.Name;
	}

	// The disk refuses: the removal still counts, with a warning.
	WriteBytes(TEXT("Source/Game.cpp"), "int Game;\n");
	MakeReadOnly(TEXT("Source/Game.cpp"));
	UseScriptedProvider().SetFileState(File, Untracked);
	EXPECT_TRUE(FFileUtils::RemoveFileFromSourceControl(File, true));
	EXPECT_EQ(TakeLog(), TArray<FString>({TEXT("Display: File F is not under source control, nothing to remove"), TEXT("Warning: Failed to delete F from disk")}));
	EXPECT_TRUE(Exists(TEXT("Source/Game.cpp")));
}

TEST_F(FSourceControlBridgeTest, FileOperationsTakeTheirStepsWithTheFullPathAndGoOnRegardless)
{
	FScriptedSourceControlProvider& Provider = UseScriptedProvider();
	EXPECT_EQ(FFileUtils::CreateNewFileWithContent(TEXT("Source/Game.cpp"), TEXT("a\r\nb\nc")), TEXT("File created successfully: Source/Game.cpp"));
	Provider.SetFileState(File, CanCheckOut);
	// Nothing happens before the presence test passes; after it, the checkout runs even when no form matches.
	FString Original;
	FString Updated;
	FFileUtils::UpdateFile(TEXT("Source/Game.cpp"), TEXT("absent"), TEXT("x"), Original, Updated);
	EXPECT_EQ(FFileUtils::UpdateFile(TEXT("Source/Game.cpp"), TEXT("a\nb\r\nc"), TEXT("x"), Original, Updated), TEXT("Error: No replacements made in file: Source/Game.cpp"));
	// Checked out now, the file can't be checked out again and is still written; a missing file is still asked about before its deletion fails.
	EXPECT_EQ(FFileUtils::InsertIntoFile(TEXT("Source/Game.cpp"), 0, TEXT("top")), TEXT("Successfully inserted text at line 0 in file: Source/Game.cpp"));
	EXPECT_EQ(FFileUtils::DeleteFile(TEXT("Source/Missing.cpp")), TEXT("Error: File does not exist at path: Source/Missing.cpp"));
	EXPECT_EQ(Operations(Provider), TArray<FString>({TEXT("MarkForAdd F"), TEXT("UpdateStatus F"), TEXT("CheckOut F"), TEXT("UpdateStatus F"), TEXT("UpdateStatus ") + ProjectPath(TEXT("Source/Missing.cpp"))}));
	EXPECT_EQ(ReadBytes(TEXT("Source/Game.cpp")), "top\na\nb\nc\n");

	// A provider whose delete takes the file off the disk leaves the file operation nothing to delete.
	Provider.bDeleteRemovesFileFromDisk = true;
	EXPECT_EQ(FFileUtils::DeleteFile(File), TEXT("Error: File does not exist at path: ") + File);
	EXPECT_TRUE(Provider.FindFileState(File)->bDeleted);
}
