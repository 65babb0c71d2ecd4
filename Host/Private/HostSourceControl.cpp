#include "HostSourceControl.h"

#include "CoreMinimal.h"
#include "ISourceControlModule.h"

#include <filesystem>

bool SelectSourceControl(const std::string& Choice, const std::string& ProjectDir, std::string& Error)
{
	ISourceControlModule& SourceControl = ISourceControlModule::Get();
	// The top of a work tree holds ".git" (a folder, or a file for linked work trees and submodules).
	// A project nested in another repository (this one's sample project, for instance) is left alone
	// unless git is asked for: its new files would be staged in that other repository.
	std::error_code FileError;
	const bool bWantGit = Choice == "git" || (Choice == "auto" && std::filesystem::exists(std::filesystem::path(ProjectDir) / ".git", FileError));
	if (!bWantGit)
	{
		SourceControl.SetProvider(FName(TEXT("None")));
		return true;
	}
	SourceControl.SetProvider(FName(TEXT("Git")));
	if (!SourceControl.GetProvider().IsAvailable())
	{
		Error = "git source control is not available: " + std::string(TCHAR_TO_UTF8(*SourceControl.GetProvider().GetStatusText().ToString()));
		SourceControl.SetProvider(FName(TEXT("None")));
		return false;
	}
	return true;
}
