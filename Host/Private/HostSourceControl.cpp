#include "HostSourceControl.h"

#include "CoreMinimal.h"
#include "ISourceControlModule.h"

bool SelectSourceControl(const std::string& Choice, std::string& Error)
{
	ISourceControlModule& SourceControl = ISourceControlModule::Get();
	if (Choice == "none")
	{
		SourceControl.SetProvider(FName(TEXT("None")));
		return true;
	}
	SourceControl.SetProvider(FName(TEXT("Git")));
	if (SourceControl.GetProvider().IsAvailable())
	{
		return true;
	}
	// Git's own reason, read before the switch to "None" replaces it with that provider's text.
	const FString Reason = SourceControl.GetProvider().GetStatusText().ToString();
	SourceControl.SetProvider(FName(TEXT("None")));
	if (Choice == "git")
	{
		Error = "git source control is not available: " + std::string(TCHAR_TO_UTF8(*Reason));
		return false;
	}
	// "auto": a project outside any git work tree simply has no source control.
	return true;
}
