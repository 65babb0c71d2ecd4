#include "Misc/StandInProject.h"

#include "Misc/App.h"
#include "Misc/Paths.h"
#include "Misc/UnicodeTranscoding.h"

#include <cerrno>
#include <mutex>
#include <string>

#include <unistd.h>

namespace
{
	struct FProjectState
	{
		std::mutex Mutex;
		FString ProjectFile;
		FString ProjectDir;
		FString EngineDir;
	};

	FProjectState& GetState()
	{
		static FProjectState State;
		return State;
	}

	FString AsDirectory(FString Path)
	{
		if (!Path.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
		{
			Path.AppendChar(TEXT('/'));
		}
		return Path;
	}
}

FString FStandInProject::GetWorkingDir()
{
	std::string Buffer(4096, '\0');
	while (getcwd(Buffer.data(), Buffer.size()) == nullptr)
	{
		if (errno != ERANGE || Buffer.size() > (1u << 20))
		{
			return TEXT("/");
		}
		Buffer.resize(Buffer.size() * 2);
	}
	Buffer.resize(std::char_traits<char>::length(Buffer.c_str()));
	const std::u16string Wide = UE::Core::Private::FromFileSystemString(Buffer.data(), (int64)Buffer.size());
	return AsDirectory(FString::ConstructFromPtrSize(Wide.data(), (int32)Wide.size()));
}

void FStandInProject::SetProjectFile(const FString& UProjectPath)
{
	const FString FullPath = FPaths::ConvertRelativePathToFull(GetWorkingDir(), UProjectPath);
	{
		FProjectState& State = GetState();
		std::lock_guard<std::mutex> Lock(State.Mutex);
		State.ProjectFile = FullPath;
		State.ProjectDir = AsDirectory(FPaths::GetPath(FullPath));
	}
	FApp::SetProjectName(*FPaths::GetBaseFilename(FullPath));
}

void FStandInProject::SetEngineDir(const FString& EngineDir)
{
	const FString FullPath = AsDirectory(FPaths::ConvertRelativePathToFull(GetWorkingDir(), EngineDir));
	FProjectState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	State.EngineDir = FullPath;
}

void FStandInProject::Reset()
{
	{
		FProjectState& State = GetState();
		std::lock_guard<std::mutex> Lock(State.Mutex);
		State.ProjectFile.Empty();
		State.ProjectDir.Empty();
		State.EngineDir.Empty();
	}
	FApp::SetProjectName(TEXT(""));
}

FString FStandInProject::GetProjectFile()
{
	FProjectState& State = GetState();
	std::lock_guard<std::mutex> Lock(State.Mutex);
	return State.ProjectFile;
}

FString FStandInProject::GetProjectDir()
{
	{
		FProjectState& State = GetState();
		std::lock_guard<std::mutex> Lock(State.Mutex);
		if (!State.ProjectDir.IsEmpty())
		{
			return State.ProjectDir;
		}
	}
	return GetWorkingDir();
}

FString FStandInProject::GetEngineDir()
{
	{
		FProjectState& State = GetState();
		std::lock_guard<std::mutex> Lock(State.Mutex);
		if (!State.EngineDir.IsEmpty())
		{
			return State.EngineDir;
		}
	}
	return GetWorkingDir() + TEXT("Engine/");
}
