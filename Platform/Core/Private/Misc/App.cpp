#include "Misc/App.h"

#include <atomic>
#include <deque>
#include <mutex>

namespace
{
	// The values a 5.5 release build carries; the stand-in has no build system to stamp them.
	const TCHAR* const BranchName = TEXT("++UE5+Release-5.5");
	const TCHAR* const BuildVersion = TEXT("++UE5+Release-5.5-CL-0");
	const TCHAR* const BuildDate = TEXT("Jan  1 2025");

	struct FAppState
	{
		std::mutex Mutex;
		// Old names stay alive and in place (a deque never moves its elements): GetProjectName hands out
		// a pointer that callers may still hold.
		std::deque<FString> ProjectNames;
		std::atomic<double> DeltaTime{1.0 / 30.0};
		std::atomic<double> CurrentTime{0.0};
	};

	FAppState& GetState()
	{
		static FAppState State;
		return State;
	}
}

FString FApp::GetBranchName()
{
	return BranchName;
}

const TCHAR* FApp::GetBuildVersion()
{
	return BuildVersion;
}

FString FApp::GetBuildDate()
{
	return BuildDate;
}

const TCHAR* FApp::GetProjectName()
{
	FAppState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	return State.ProjectNames.empty() ? TEXT("") : *State.ProjectNames.back();
}

bool FApp::HasProjectName()
{
	const TCHAR* Name = GetProjectName();
	return Name[0] != 0 && FCString::Stricmp(Name, TEXT("None")) != 0;
}

void FApp::SetProjectName(const TCHAR* InProjectName)
{
	FAppState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	const FString Name(InProjectName != nullptr ? InProjectName : TEXT(""));
	if (State.ProjectNames.empty() || !State.ProjectNames.back().Equals(Name))
	{
		State.ProjectNames.push_back(Name);
	}
}

double FApp::GetDeltaTime()
{
	return GetState().DeltaTime.load();
}

void FApp::SetDeltaTime(double Seconds)
{
	GetState().DeltaTime.store(Seconds);
}

double FApp::GetCurrentTime()
{
	return GetState().CurrentTime.load();
}

void FApp::SetCurrentTime(double Seconds)
{
	GetState().CurrentTime.store(Seconds);
}
