#include "Agent/Agent.h"

#include "Agent/FileHistory.h"
#include "Agent/FileUtils.h"
#include "Agent/TavrineInterface.h"
#include "HAL/FileManager.h"
#include "Misc/CString.h"
#include "Misc/Paths.h"

namespace
{
	const TCHAR* const MissingFields = TEXT("Error: Missing required fields");
	const TCHAR* const MissingPathField = TEXT("Error: Missing required path field");

	void SendDiff(const FString& Path, const FString& OldText, const FString& NewText)
	{
		FTavrineInterface::Get().OnAddDiffMessage(Path, OldText, NewText);
	}

	/** The C++ tools name a file by its folder and its name. */
	bool ReadCppPath(const TSharedPtr<FJsonObject>& Input, FString& OutPath)
	{
		FString FolderPath;
		FString FileName;
		if (!Input->TryGetStringField(TEXT("filepath"), FolderPath) || !Input->TryGetStringField(TEXT("filename"), FileName))
		{
			return false;
		}
		OutPath = FPaths::Combine(FolderPath, FileName);
		return true;
	}

	/** A view range counts only as two numbers from line 1 on, ending at a line or at -1 for the end. */
	bool ReadViewRange(const TSharedPtr<FJsonObject>& Input, int32& OutStart, int32& OutEnd)
	{
		const TArray<TSharedPtr<FJsonValue>>* Range = nullptr;
		if (!Input->TryGetArrayField(TEXT("view_range"), Range) || !Range || Range->Num() != 2)
		{
			return false;
		}
		double First = 0.0;
		double Second = 0.0;
		if (!(*Range)[0].IsValid() || !(*Range)[1].IsValid() || !(*Range)[0]->TryGetNumber(First) || !(*Range)[1]->TryGetNumber(Second))
		{
			return false;
		}
		// Cut toward zero; a number past the int32 range is held at its end rather than wrapped.
		const auto ToLine = [](double Number)
		{
			return static_cast<int32>(FMath::Clamp(Number, static_cast<double>(MIN_int32), static_cast<double>(MAX_int32)));
		};
		OutStart = ToLine(First);
		OutEnd = ToLine(Second);
		return OutStart >= 1 && (OutEnd > 0 || OutEnd == -1);
	}
}

FString FAgent::HandleCreateFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Creating File..."));
	FString Path;
	FString FileText;
	if (!Input->TryGetStringField(TEXT("path"), Path) || !Input->TryGetStringField(TEXT("file_text"), FileText))
	{
		return MissingFields;
	}

	const FString FullPath = FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), Path);
	if (FPaths::FileExists(FullPath))
	{
		const FString OldText = FFileUtils::ReadFile(FullPath);
		FFileHistory::Get().StoreFileVersion(UndoConversationId, FullPath, OldText);
		const FString Result = FFileUtils::ReplaceFile(FullPath, FileText);
		if (!FFileUtils::IsErrorText(Result))
		{
			SendDiff(Path, OldText, FileText);
		}
		return Result;
	}

	if (FPaths::GetCleanFilename(FullPath).IsEmpty())
	{
		return TEXT("Error: The provided path must include a filename");
	}
	FFileHistory::Get().StoreFileCreation(UndoConversationId, FullPath, FileText);
	const FString Result = FFileUtils::CreateNewFileWithContent(FullPath, FileText);
	if (!FFileUtils::IsErrorText(Result))
	{
		SendDiff(Path, FString(), FileText);
	}
	return Result;
}

FString FAgent::HandleCreateCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	FString Path;
	if (!ReadCppPath(Input, Path))
	{
		return MissingFields;
	}
	// A file that is already there is replaced, so its undo data is a version, not a creation.
	if (FPaths::FileExists(FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), Path)))
	{
		return HandleUpdateAndReplaceCppFile(Id, Input);
	}
	return HandleCreateNewCppFile(Id, Input);
}

FString FAgent::HandleCreateNewCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Creating File ..."));
	FString Path;
	FString Contents;
	if (!ReadCppPath(Input, Path) || !Input->TryGetStringField(TEXT("contents"), Contents))
	{
		return MissingFields;
	}

	FFileHistory::Get().StoreFileCreation(UndoConversationId, Path, Contents);
	const FString Result = FFileUtils::CreateNewFileWithContent(Path, Contents);
	if (!FFileUtils::IsErrorText(Result))
	{
		SendDiff(Path, FString(), Contents);
	}
	return Result;
}

FString FAgent::HandleUpdateAndReplaceCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Updating/Replacing File ..."));
	FString Path;
	FString Contents;
	if (!ReadCppPath(Input, Path) || !Input->TryGetStringField(TEXT("contents"), Contents))
	{
		return MissingFields;
	}

	const FString OldText = FFileUtils::ReadFile(Path);
	FFileHistory::Get().StoreFileVersion(UndoConversationId, Path, OldText);
	const FString Result = FFileUtils::ReplaceFile(Path, Contents);
	if (!FFileUtils::IsErrorText(Result))
	{
		SendDiff(Path, OldText, Contents);
	}
	return Result;
}

FString FAgent::HandleUpdateFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Updating File Content..."));
	FString Path;
	FString OldString;
	FString NewString;
	if (!Input->TryGetStringField(TEXT("path"), Path) || !Input->TryGetStringField(TEXT("old_string"), OldString) || !Input->TryGetStringField(TEXT("new_string"), NewString))
	{
		return TEXT("Error: Missing required fields. Need path, old_string, and new_string.");
	}

	// A file that can't be read has nothing to undo.
	const FString OldText = FFileUtils::ReadFile(Path);
	if (OldText.StartsWith(TEXT("Error:"), ESearchCase::CaseSensitive))
	{
		return OldText;
	}
	FFileHistory::Get().StoreFileVersion(UndoConversationId, Path, OldText);

	FString OriginalContent;
	FString UpdatedContent;
	const FString Result = FFileUtils::UpdateFile(Path, OldString, NewString, OriginalContent, UpdatedContent);
	if (!FFileUtils::IsErrorText(Result))
	{
		SendDiff(Path, OriginalContent, UpdatedContent);
	}
	return Result;
}

FString FAgent::HandleInsertIntoFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Inserting content into file..."));
	FString Path;
	FString LineText;
	FString NewString;
	if (!Input->TryGetStringField(TEXT("path"), Path) || !Input->TryGetStringField(TEXT("insert_line"), LineText) || !Input->TryGetStringField(TEXT("new_string"), NewString))
	{
		return TEXT("Error: Missing required fields. Need path, insert_line, and new_string.");
	}

	const int32 Line = FCString::Atoi(*LineText);
	if (Line < 0)
	{
		return TEXT("Error: insert_line must be a non-negative integer.");
	}

	const FString OldText = FFileUtils::ReadFile(Path);
	if (OldText.StartsWith(TEXT("Error:"), ESearchCase::CaseSensitive))
	{
		return OldText;
	}
	FFileHistory::Get().StoreFileVersion(UndoConversationId, Path, OldText);

	const FString Result = FFileUtils::InsertIntoFile(Path, Line, NewString);
	if (!FFileUtils::IsErrorText(Result))
	{
		// The rewrite goes through lines, so only a fresh read shows what the file holds now.
		const FString NewText = FFileUtils::ReadFile(Path);
		if (!FFileUtils::IsErrorText(NewText))
		{
			SendDiff(Path, OldText, NewText);
		}
	}
	return Result;
}

FString FAgent::HandleDeleteFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Deleting File..."));
	FString Path;
	if (!Input->TryGetStringField(TEXT("path"), Path))
	{
		return MissingPathField;
	}

	const FString OldText = FFileUtils::ReadFile(Path);
	// A missing file has no text to bring back: storing the read's failure text would make undo create
	// a file that holds it.
	if (FPaths::FileExists(FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), Path)))
	{
		FFileHistory::Get().StoreFileDeletion(UndoConversationId, Path, OldText);
	}
	const FString Result = FFileUtils::DeleteFile(Path);
	if (!FFileUtils::IsErrorText(Result))
	{
		SendDiff(Path, OldText, FString());
	}
	return Result;
}

FString FAgent::HandleDeleteCppFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Deleting File..."));
	FString Path;
	if (!ReadCppPath(Input, Path))
	{
		return MissingFields;
	}
	const TSharedPtr<FJsonObject> DeleteInput = MakeShared<FJsonObject>();
	DeleteInput->SetStringField(TEXT("path"), Path);
	return HandleDeleteFile(Id, DeleteInput);
}

FString FAgent::HandleReadFile(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	AddInfoMessage(TEXT("Reading File..."));
	FString Resolved;
	if (!Input->TryGetStringField(TEXT("path"), Resolved))
	{
		return MissingPathField;
	}

	int32 StartLine = 0;
	int32 EndLine = 0;
	const bool bHasRange = ReadViewRange(Input, StartLine, EndLine);

	// Models often name a source file without its folder; look for it under Source.
	if (!FPaths::FileExists(FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), Resolved)))
	{
		const FString FileName = FPaths::GetCleanFilename(Resolved);
		const FString SourceDir = FPaths::Combine(FPaths::ConvertRelativePathToFull(FPaths::ProjectDir()), TEXT("Source"));
		TArray<FString> Found;
		IFileManager::Get().FindFilesRecursive(Found, *SourceDir, *FileName, true, false, false);
		if (Found.IsEmpty())
		{
			return TEXT("Error: File not found");
		}
		Resolved = Found[0];
	}

	return bHasRange ? FFileUtils::ReadFileLineRange(Resolved, StartLine, EndLine) : FFileUtils::ReadFile(Resolved);
}

FString FAgent::HandleGetFilesystemTree(const FString& Id, const TSharedPtr<FJsonObject>& Input)
{
	FString DirPath;
	if (!Input->TryGetStringField(TEXT("dir_path"), DirPath))
	{
		return TEXT("Error: Missing dir_path field");
	}
	return FFileUtils::GetSubDirectoryStructureAsJsonObject(FPaths::Combine(FPaths::ProjectDir(), DirPath));
}
