#include "GenericPlatform/GenericPlatformProcess.h"

#include "Containers/StringConv.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

struct FProcState
{
	pid_t Pid = -1;
	bool bExited = false;
	int32 ReturnCode = -1;
};

namespace
{
	struct FPipeEnd
	{
		int Fd = -1;
	};

	int PipeFd(void* Pipe)
	{
		return Pipe != nullptr ? static_cast<FPipeEnd*>(Pipe)->Fd : -1;
	}

	std::string ToUtf8(const TCHAR* Text)
	{
		return Text != nullptr ? std::string(TCHAR_TO_UTF8(Text)) : std::string();
	}

	std::vector<std::string> SplitCommandLine(const std::string& Line)
	{
		std::vector<std::string> Words;
		std::string Word;
		bool bInWord = false;
		bool bInQuotes = false;
		for (size_t Index = 0; Index < Line.size(); ++Index)
		{
			const char Char = Line[Index];
			if (bInQuotes)
			{
				if (Char == '\\' && Index + 1 < Line.size() && Line[Index + 1] == '"')
				{
					Word += '"';
					++Index;
				}
				else if (Char == '"')
				{
					bInQuotes = false;
				}
				else
				{
					Word += Char;
				}
			}
			else if (Char == ' ' || Char == '\t' || Char == '\r' || Char == '\n')
			{
				if (bInWord)
				{
					Words.push_back(Word);
					Word.clear();
					bInWord = false;
				}
			}
			else
			{
				bInWord = true;
				if (Char == '"')
				{
					bInQuotes = true;
				}
				else
				{
					Word += Char;
				}
			}
		}
		if (bInWord)
		{
			Words.push_back(Word);
		}
		return Words;
	}

	// Collects the exit of a child once; true when it has ended.
	bool Reap(FProcState& State, bool bWait)
	{
		while (!State.bExited)
		{
			int Status = 0;
			const pid_t Result = waitpid(State.Pid, &Status, bWait ? 0 : WNOHANG);
			if (Result == State.Pid)
			{
				State.bExited = true;
				State.ReturnCode = WIFEXITED(Status) ? WEXITSTATUS(Status) : -1;
			}
			else if (Result == 0)
			{
				return false;
			}
			else if (errno != EINTR)
			{
				// Collected elsewhere: the process is gone and its code with it.
				State.bExited = true;
				State.ReturnCode = -1;
			}
		}
		return true;
	}

	void AppendAvailable(int Fd, std::string& Out)
	{
		char Buffer[4096];
		for (;;)
		{
			const ssize_t Count = read(Fd, Buffer, sizeof(Buffer));
			if (Count > 0)
			{
				Out.append(Buffer, static_cast<size_t>(Count));
			}
			else if (Count < 0 && errno == EINTR)
			{
				continue;
			}
			else
			{
				return;
			}
		}
	}

	FString Utf8ToFString(const std::string& Utf8)
	{
		return FString(FUTF8ToTCHAR(Utf8.data(), static_cast<int32>(Utf8.size())).Get());
	}
}

FProcHandle FGenericPlatformProcess::CreateProc(const TCHAR* URL, const TCHAR* Parms, bool bLaunchDetached, bool bLaunchHidden, bool bLaunchReallyHidden, uint32* OutProcessID, int32 PriorityModifier, const TCHAR* OptionalWorkingDirectory, void* PipeWriteChild, void* PipeReadChild, void* PipeStdErrChild)
{
	if (OutProcessID != nullptr)
	{
		*OutProcessID = 0;
	}
	std::vector<std::string> Args;
	Args.push_back(ToUtf8(URL));
	if (Args[0].empty())
	{
		return FProcHandle();
	}
	for (std::string& Word : SplitCommandLine(ToUtf8(Parms)))
	{
		Args.push_back(std::move(Word));
	}
	std::vector<char*> Argv;
	for (std::string& Arg : Args)
	{
		Argv.push_back(Arg.data());
	}
	Argv.push_back(nullptr);

	posix_spawn_file_actions_t Actions;
	posix_spawn_file_actions_init(&Actions);
	const std::string WorkingDirectory = ToUtf8(OptionalWorkingDirectory);
	if (!WorkingDirectory.empty())
	{
		posix_spawn_file_actions_addchdir_np(&Actions, WorkingDirectory.c_str());
	}
	// Without a pipe for its input the child reads nothing, never the terminal of the editor.
	if (PipeReadChild != nullptr)
	{
		posix_spawn_file_actions_adddup2(&Actions, PipeFd(PipeReadChild), STDIN_FILENO);
	}
	else
	{
		posix_spawn_file_actions_addopen(&Actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
	}
	if (PipeWriteChild != nullptr)
	{
		posix_spawn_file_actions_adddup2(&Actions, PipeFd(PipeWriteChild), STDOUT_FILENO);
	}
	if (PipeStdErrChild != nullptr || PipeWriteChild != nullptr)
	{
		posix_spawn_file_actions_adddup2(&Actions, PipeFd(PipeStdErrChild != nullptr ? PipeStdErrChild : PipeWriteChild), STDERR_FILENO);
	}

	posix_spawnattr_t Attributes;
	posix_spawnattr_init(&Attributes);
	posix_spawnattr_setflags(&Attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
	posix_spawnattr_setpgroup(&Attributes, 0);
	sigset_t NoSignals;
	sigemptyset(&NoSignals);
	posix_spawnattr_setsigmask(&Attributes, &NoSignals);
	// Signals that the editor ignores (a broken pipe, for one) act normally in the child.
	sigset_t DefaultSignals;
	sigemptyset(&DefaultSignals);
	sigaddset(&DefaultSignals, SIGPIPE);
	sigaddset(&DefaultSignals, SIGINT);
	sigaddset(&DefaultSignals, SIGTERM);
	sigaddset(&DefaultSignals, SIGCHLD);
	posix_spawnattr_setsigdefault(&Attributes, &DefaultSignals);

	pid_t Pid = -1;
	const int Error = posix_spawnp(&Pid, Argv[0], &Actions, &Attributes, Argv.data(), environ);
	posix_spawnattr_destroy(&Attributes);
	posix_spawn_file_actions_destroy(&Actions);
	if (Error != 0)
	{
		return FProcHandle();
	}
	if (OutProcessID != nullptr)
	{
		*OutProcessID = static_cast<uint32>(Pid);
	}
	FProcState* State = new FProcState();
	State->Pid = Pid;
	return FProcHandle(State);
}

bool FGenericPlatformProcess::IsProcRunning(FProcHandle& ProcessHandle)
{
	FProcState* State = ProcessHandle.GetProcessInfo();
	return State != nullptr && !Reap(*State, false);
}

void FGenericPlatformProcess::WaitForProc(FProcHandle& ProcessHandle)
{
	if (FProcState* State = ProcessHandle.GetProcessInfo())
	{
		Reap(*State, true);
	}
}

bool FGenericPlatformProcess::GetProcReturnCode(FProcHandle& ProcHandle, int32* ReturnCode)
{
	FProcState* State = ProcHandle.GetProcessInfo();
	if (State == nullptr || !Reap(*State, false))
	{
		return false;
	}
	if (ReturnCode != nullptr)
	{
		*ReturnCode = State->ReturnCode;
	}
	return true;
}

void FGenericPlatformProcess::TerminateProc(FProcHandle& ProcessHandle, bool KillTree)
{
	FProcState* State = ProcessHandle.GetProcessInfo();
	if (State == nullptr || Reap(*State, false))
	{
		return;
	}
	// The child leads its own group, so the group's id is its pid.
	if (KillTree)
	{
		killpg(State->Pid, SIGKILL);
	}
	else
	{
		kill(State->Pid, SIGKILL);
	}
	Reap(*State, true);
}

void FGenericPlatformProcess::CloseProc(FProcHandle& ProcessHandle)
{
	delete ProcessHandle.GetProcessInfo();
	ProcessHandle.Reset();
}

bool FGenericPlatformProcess::CreatePipe(void*& ReadPipe, void*& WritePipe, bool bWritePipeLocal)
{
	ReadPipe = nullptr;
	WritePipe = nullptr;
	int Fds[2];
	if (pipe2(Fds, O_CLOEXEC) != 0)
	{
		return false;
	}
	if (!bWritePipeLocal)
	{
		fcntl(Fds[0], F_SETFL, fcntl(Fds[0], F_GETFL) | O_NONBLOCK);
	}
	ReadPipe = new FPipeEnd{Fds[0]};
	WritePipe = new FPipeEnd{Fds[1]};
	return true;
}

void FGenericPlatformProcess::ClosePipe(void* ReadPipe, void* WritePipe)
{
	for (void* Pipe : {ReadPipe, WritePipe})
	{
		if (Pipe != nullptr)
		{
			close(PipeFd(Pipe));
			delete static_cast<FPipeEnd*>(Pipe);
		}
	}
}

FString FGenericPlatformProcess::ReadPipe(void* ReadPipe)
{
	std::string Bytes;
	if (ReadPipe != nullptr)
	{
		AppendAvailable(PipeFd(ReadPipe), Bytes);
	}
	return Utf8ToFString(Bytes);
}

bool FGenericPlatformProcess::ReadPipeToArray(void* ReadPipe, TArray<uint8>& Output)
{
	Output.Reset();
	std::string Bytes;
	if (ReadPipe != nullptr)
	{
		AppendAvailable(PipeFd(ReadPipe), Bytes);
	}
	Output.Append(reinterpret_cast<const uint8*>(Bytes.data()), static_cast<int32>(Bytes.size()));
	return !Bytes.empty();
}

bool FGenericPlatformProcess::ExecProcess(const TCHAR* URL, const TCHAR* Params, int32* OutReturnCode, FString* OutStdOut, FString* OutStdErr, const TCHAR* OptionalWorkingDirectory, bool bShouldEndWithParentProcess)
{
	void* OutRead = nullptr;
	void* OutWrite = nullptr;
	void* ErrRead = nullptr;
	void* ErrWrite = nullptr;
	if (!CreatePipe(OutRead, OutWrite) || !CreatePipe(ErrRead, ErrWrite))
	{
		ClosePipe(OutRead, OutWrite);
		return false;
	}
	FProcHandle Process = CreateProc(URL, Params, false, true, true, nullptr, 0, OptionalWorkingDirectory, OutWrite, nullptr, ErrWrite);
	if (!Process.IsValid())
	{
		ClosePipe(OutRead, OutWrite);
		ClosePipe(ErrRead, ErrWrite);
		return false;
	}
	std::string Out;
	std::string Err;
	for (;;)
	{
		// Read before testing for the end, so that what was written last is never left behind.
		const bool bRunning = IsProcRunning(Process);
		AppendAvailable(PipeFd(OutRead), Out);
		AppendAvailable(PipeFd(ErrRead), Err);
		if (!bRunning)
		{
			break;
		}
		pollfd Fds[2] = {{PipeFd(OutRead), POLLIN, 0}, {PipeFd(ErrRead), POLLIN, 0}};
		poll(Fds, 2, 20);
	}
	int32 ReturnCode = -1;
	GetProcReturnCode(Process, &ReturnCode);
	CloseProc(Process);
	ClosePipe(OutRead, OutWrite);
	ClosePipe(ErrRead, ErrWrite);
	if (OutReturnCode != nullptr)
	{
		*OutReturnCode = ReturnCode;
	}
	if (OutStdOut != nullptr)
	{
		*OutStdOut = Utf8ToFString(Out);
	}
	if (OutStdErr != nullptr)
	{
		*OutStdErr = Utf8ToFString(Err);
	}
	return true;
}

void FGenericPlatformProcess::Sleep(float Seconds)
{
	if (Seconds > 0.0f)
	{
		std::this_thread::sleep_for(std::chrono::duration<double>(Seconds));
	}
}
