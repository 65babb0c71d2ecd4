#include "Git/GitSourceControlProvider.h"

#include "Containers/StringConv.h"
#include "Git/GitCommand.h"
#include "Misc/Paths.h"
#include "SourceControlLog.h"
#include "SourceControlOperationBase.h"

#include <filesystem>
#include <system_error>

namespace
{
	const FName CheckOutName(TEXT("CheckOut"));
	const FName DeleteName(TEXT("Delete"));
	const FName MarkForAddName(TEXT("MarkForAdd"));
	const FName RevertName(TEXT("Revert"));
	const FName UpdateStatusName(TEXT("UpdateStatus"));

	// Paths are passed as they are named: a '*' or '[' in a file name must not act as a pattern.
	const char* const LiteralPathspecs = "--literal-pathspecs";

	std::string ToUtf8(const FString& Text)
	{
		const FTCHARToUTF8 Converted(*Text, Text.Len());
		return std::string(reinterpret_cast<const char*>(Converted.Get()), static_cast<size_t>(Converted.Length()));
	}

	FString FromUtf8(const std::string& Text)
	{
		const FUTF8ToTCHAR Converted(Text.data(), static_cast<int32>(Text.size()));
		return FString(Converted.Length(), Converted.Get());
	}

	std::u8string Utf8Path(const std::string& Text)
	{
		return std::u8string(Text.begin(), Text.end());
	}

	FString TrimmedGitMessage(const std::string& Text)
	{
		FString Message = FromUtf8(Text);
		Message.TrimStartAndEndInline();
		return Message;
	}

	void ReportError(const FSourceControlOperationRef& Operation, const FString& Message)
	{
		UE_LOG(LogSourceControl, Warning, TEXT("Git %s: %s"), *Operation->GetName().ToString(), *Message);
		// Every operation the plugin makes derives from the base that keeps messages.
		StaticCastSharedRef<FSourceControlOperationBase>(Operation)->AddErrorMessge(FText::FromString(Message));
	}

	/** The states "git status --porcelain -z" reports for one path, strongest first. */
	EGitWorkingCopyState StateFromPorcelain(const std::string& Output, bool& bOutHadEntries)
	{
		bool bAdded = false;
		bool bDeleted = false;
		bool bModified = false;
		bool bUntracked = false;
		bool bIgnored = false;
		bOutHadEntries = false;
		size_t Position = 0;
		while (Position < Output.size())
		{
			const size_t End = Output.find('\0', Position);
			const std::string Entry = Output.substr(Position, End == std::string::npos ? std::string::npos : End - Position);
			Position = End == std::string::npos ? Output.size() : End + 1;
			if (Entry.size() < 4)
			{
				continue;
			}
			bOutHadEntries = true;
			const char IndexCode = Entry[0];
			const char TreeCode = Entry[1];
			if (IndexCode == 'R' || IndexCode == 'C')
			{
				// A rename or copy is followed by its source path as a field of its own.
				const size_t SourceEnd = Output.find('\0', Position);
				Position = SourceEnd == std::string::npos ? Output.size() : SourceEnd + 1;
			}
			if (IndexCode == '?' && TreeCode == '?')
			{
				bUntracked = true;
			}
			else if (IndexCode == '!' && TreeCode == '!')
			{
				bIgnored = true;
			}
			else if (IndexCode == 'A')
			{
				bAdded = true;
			}
			else if (IndexCode == 'D')
			{
				bDeleted = true;
			}
			else
			{
				bModified = true;
			}
		}
		if (bAdded)
		{
			return EGitWorkingCopyState::Added;
		}
		if (bDeleted)
		{
			return EGitWorkingCopyState::Deleted;
		}
		if (bModified)
		{
			return EGitWorkingCopyState::Modified;
		}
		if (bUntracked)
		{
			return EGitWorkingCopyState::Untracked;
		}
		return bIgnored ? EGitWorkingCopyState::Ignored : EGitWorkingCopyState::Unknown;
	}
}

void FGitSourceControlProvider::Init(bool bForceConnection)
{
	RepositoryRoot.Reset();
	RepositoryRootUtf8.clear();
	StateCache.Empty();

	const FString ProjectDir = FPaths::ConvertRelativePathToFull(FPaths::ProjectDir());
	const FGitCommandResult TopLevel = RunGitCommand(ToUtf8(ProjectDir), {"rev-parse", "--show-toplevel"});
	if (TopLevel.ExitCode < 0)
	{
		StatusText = TEXT("The git command could not be run");
	}
	else if (!TopLevel.Succeeded())
	{
		StatusText = FString::Printf(TEXT("%s is not inside a git work tree"), *ProjectDir);
	}
	else
	{
		RepositoryRootUtf8 = TopLevel.StdOut;
		while (!RepositoryRootUtf8.empty() && (RepositoryRootUtf8.back() == '\n' || RepositoryRootUtf8.back() == '\r'))
		{
			RepositoryRootUtf8.pop_back();
		}
		RepositoryRoot = FromUtf8(RepositoryRootUtf8);
		StatusText = FString::Printf(TEXT("Git work tree at %s"), *RepositoryRoot);
		return;
	}
	// Not a fault: most projects outside a work tree simply have no git.
	UE_LOG(LogSourceControl, Log, TEXT("Git source control is not available: %s"), *StatusText);
}

void FGitSourceControlProvider::Close()
{
	RepositoryRoot.Reset();
	RepositoryRootUtf8.clear();
	StateCache.Empty();
	StatusText = TEXT("Closed");
}

const FName& FGitSourceControlProvider::GetName() const
{
	static const FName ProviderName(TEXT("Git"));
	return ProviderName;
}

FText FGitSourceControlProvider::GetStatusText() const
{
	return FText::FromString(StatusText);
}

bool FGitSourceControlProvider::IsEnabled() const
{
	return true;
}

bool FGitSourceControlProvider::IsAvailable() const
{
	return !RepositoryRoot.IsEmpty();
}

FString FGitSourceControlProvider::CacheKey(const FString& InFile) const
{
	return FPaths::ConvertRelativePathToFull(InFile);
}

bool FGitSourceControlProvider::ToRelativePath(const FString& InFile, std::string& OutRelativePath) const
{
	if (RepositoryRootUtf8.empty())
	{
		return false;
	}
	std::error_code Error;
	// Canonical forms on both sides, so that a symbolic link in either path doesn't put the file "outside".
	const std::filesystem::path Root = std::filesystem::weakly_canonical(std::filesystem::path(Utf8Path(RepositoryRootUtf8)), Error);
	if (Error)
	{
		return false;
	}
	const std::filesystem::path File = std::filesystem::weakly_canonical(std::filesystem::path(Utf8Path(ToUtf8(CacheKey(InFile)))), Error);
	if (Error)
	{
		return false;
	}
	const std::filesystem::path Relative = File.lexically_relative(Root);
	if (Relative.empty() || *Relative.begin() == ".." || Relative == ".")
	{
		return false;
	}
	const std::u8string RelativeUtf8 = Relative.generic_u8string();
	OutRelativePath.assign(RelativeUtf8.begin(), RelativeUtf8.end());
	return true;
}

EGitWorkingCopyState FGitSourceControlProvider::QueryState(const std::string& RelativePath, bool& bOutGitAnswered) const
{
	bOutGitAnswered = false;
	const FGitCommandResult Status = RunGitCommand(RepositoryRootUtf8, {LiteralPathspecs, "status", "--porcelain=v1", "-z", "--ignored=matching", "--untracked-files=all", "--", RelativePath});
	if (!Status.Succeeded())
	{
		UE_LOG(LogSourceControl, Warning, TEXT("git status failed for %s: %s"), *FromUtf8(RelativePath), *TrimmedGitMessage(Status.StdErr));
		return EGitWorkingCopyState::Unknown;
	}
	bool bHadEntries = false;
	const EGitWorkingCopyState FromStatus = StateFromPorcelain(Status.StdOut, bHadEntries);
	if (bHadEntries)
	{
		bOutGitAnswered = true;
		return FromStatus;
	}
	// Nothing to report: either tracked and unchanged, or unknown to git and absent from disk.
	const FGitCommandResult Listed = RunGitCommand(RepositoryRootUtf8, {LiteralPathspecs, "ls-files", "-z", "--", RelativePath});
	if (!Listed.Succeeded())
	{
		UE_LOG(LogSourceControl, Warning, TEXT("git ls-files failed for %s: %s"), *FromUtf8(RelativePath), *TrimmedGitMessage(Listed.StdErr));
		return EGitWorkingCopyState::Unknown;
	}
	bOutGitAnswered = true;
	return Listed.StdOut.empty() ? EGitWorkingCopyState::Untracked : EGitWorkingCopyState::Unchanged;
}

bool FGitSourceControlProvider::UpdateStatus(const TArray<FString>& InFiles)
{
	bool bAllAnswered = true;
	for (const FString& File : InFiles)
	{
		EGitWorkingCopyState State = EGitWorkingCopyState::NotInWorkTree;
		std::string RelativePath;
		if (ToRelativePath(File, RelativePath))
		{
			bool bGitAnswered = false;
			State = QueryState(RelativePath, bGitAnswered);
			bAllAnswered &= bGitAnswered;
		}
		const FString Key = CacheKey(File);
		StateCache.Add(Key, MakeShared<FGitSourceControlState, ESPMode::ThreadSafe>(Key, State));
	}
	return bAllAnswered;
}

ECommandResult::Type FGitSourceControlProvider::GetState(const TArray<FString>& InFiles, TArray<FSourceControlStateRef>& OutState, EStateCacheUsage::Type InStateCacheUsage)
{
	if (!IsAvailable())
	{
		return ECommandResult::Failed;
	}
	if (InStateCacheUsage == EStateCacheUsage::ForceUpdate)
	{
		UpdateStatus(InFiles);
	}
	for (const FString& File : InFiles)
	{
		const FString Key = CacheKey(File);
		if (const TSharedRef<FGitSourceControlState, ESPMode::ThreadSafe>* Cached = StateCache.Find(Key))
		{
			OutState.Add(*Cached);
		}
		else
		{
			// As the engine's providers do: a file never asked about has a state, an unknown one.
			OutState.Add(MakeShared<FGitSourceControlState, ESPMode::ThreadSafe>(Key, EGitWorkingCopyState::Unknown));
		}
	}
	return ECommandResult::Succeeded;
}

bool FGitSourceControlProvider::RunOnFiles(std::vector<std::string> Arguments, const TArray<FString>& InFiles, const FSourceControlOperationRef& InOperation)
{
	Arguments.insert(Arguments.begin(), LiteralPathspecs);
	Arguments.push_back("--");
	bool bAllInWorkTree = true;
	size_t FileCount = 0;
	for (const FString& File : InFiles)
	{
		std::string RelativePath;
		if (ToRelativePath(File, RelativePath))
		{
			Arguments.push_back(RelativePath);
			++FileCount;
		}
		else
		{
			ReportError(InOperation, FString::Printf(TEXT("%s is not inside the work tree %s"), *File, *RepositoryRoot));
			bAllInWorkTree = false;
		}
	}
	if (FileCount == 0)
	{
		return false;
	}
	const FGitCommandResult Result = RunGitCommand(RepositoryRootUtf8, Arguments);
	if (!Result.Succeeded())
	{
		ReportError(InOperation, TrimmedGitMessage(Result.StdErr));
	}
	return Result.Succeeded() && bAllInWorkTree;
}

bool FGitSourceControlProvider::RunOperation(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles)
{
	const FName Name = InOperation->GetName();
	if (Name == UpdateStatusName)
	{
		return UpdateStatus(InFiles);
	}
	if (Name == MarkForAddName)
	{
		const bool bAdded = RunOnFiles({"add"}, InFiles, InOperation);
		UpdateStatus(InFiles);
		return bAdded;
	}
	if (Name == DeleteName)
	{
		// Only the index: the file on disk is the caller's to delete.
		const bool bRemoved = RunOnFiles({"rm", "--cached", "--quiet"}, InFiles, InOperation);
		UpdateStatus(InFiles);
		return bRemoved;
	}
	if (Name == RevertName)
	{
		UpdateStatus(InFiles);
		bool bAllReverted = true;
		for (const FString& File : InFiles)
		{
			const TSharedRef<FGitSourceControlState, ESPMode::ThreadSafe>* State = StateCache.Find(CacheKey(File));
			const EGitWorkingCopyState WorkingCopyState = State ? (*State)->GetWorkingCopyState() : EGitWorkingCopyState::Unknown;
			if (WorkingCopyState == EGitWorkingCopyState::Unchanged)
			{
				continue;
			}
			if (WorkingCopyState == EGitWorkingCopyState::Added)
			{
				// Unstaging keeps the file on disk, now untracked. Forced, since git otherwise refuses an
				// added file that was changed after it was staged, the usual case after an edit.
				bAllReverted &= RunOnFiles({"rm", "--cached", "--force", "--quiet"}, {File}, InOperation);
			}
			else if (WorkingCopyState == EGitWorkingCopyState::Modified || WorkingCopyState == EGitWorkingCopyState::Deleted)
			{
				bAllReverted &= RunOnFiles({"checkout", "HEAD"}, {File}, InOperation);
			}
			else
			{
				ReportError(InOperation, FString::Printf(TEXT("%s is not under source control, nothing to revert"), *File));
				bAllReverted = false;
			}
		}
		UpdateStatus(InFiles);
		return bAllReverted;
	}
	if (Name == CheckOutName)
	{
		ReportError(InOperation, TEXT("git has no checkout: tracked files are always writable"));
		return false;
	}
	ReportError(InOperation, TEXT("operation not supported by the git provider"));
	return false;
}

ECommandResult::Type FGitSourceControlProvider::Execute(const FSourceControlOperationRef& InOperation, const TArray<FString>& InFiles, EConcurrency::Type InConcurrency, const FSourceControlOperationComplete& InOperationCompleteDelegate)
{
	ECommandResult::Type Result = ECommandResult::Failed;
	if (!IsAvailable())
	{
		ReportError(InOperation, StatusText);
	}
	else if (RunOperation(InOperation, InFiles))
	{
		Result = ECommandResult::Succeeded;
	}
	InOperationCompleteDelegate.ExecuteIfBound(InOperation, Result);
	return Result;
}
