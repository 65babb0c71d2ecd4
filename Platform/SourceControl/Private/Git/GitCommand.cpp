#include "Git/GitCommand.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace
{
	// Closes both ends of the pipes on every path out of RunGitCommand.
	struct FPipePair
	{
		int Out[2] = {-1, -1};
		int Err[2] = {-1, -1};

		~FPipePair()
		{
			for (int Fd : {Out[0], Out[1], Err[0], Err[1]})
			{
				if (Fd >= 0)
				{
					close(Fd);
				}
			}
		}
	};

	void CloseAndForget(int& Fd)
	{
		if (Fd >= 0)
		{
			close(Fd);
			Fd = -1;
		}
	}
}

FGitCommandResult RunGitCommand(const std::string& WorkingDirectory, const std::vector<std::string>& Arguments)
{
	FGitCommandResult Result;

	std::vector<std::string> Argv = {"git", "-C", WorkingDirectory};
	Argv.insert(Argv.end(), Arguments.begin(), Arguments.end());
	std::vector<char*> ArgvPointers;
	for (std::string& Argument : Argv)
	{
		ArgvPointers.push_back(Argument.data());
	}
	ArgvPointers.push_back(nullptr);

	// A credential or editor prompt would hang the editor's thread: git must fail instead.
	std::vector<std::string> Environment;
	for (char** Entry = environ; Entry && *Entry; ++Entry)
	{
		Environment.emplace_back(*Entry);
	}
	Environment.emplace_back("GIT_TERMINAL_PROMPT=0");
	Environment.emplace_back("GIT_EDITOR=true");
	std::vector<char*> EnvironmentPointers;
	for (std::string& Entry : Environment)
	{
		EnvironmentPointers.push_back(Entry.data());
	}
	EnvironmentPointers.push_back(nullptr);

	FPipePair Pipes;
	if (pipe2(Pipes.Out, O_CLOEXEC) != 0 || pipe2(Pipes.Err, O_CLOEXEC) != 0)
	{
		Result.StdErr = "could not create pipes for git";
		return Result;
	}

	posix_spawn_file_actions_t Actions;
	posix_spawn_file_actions_init(&Actions);
	posix_spawn_file_actions_addopen(&Actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
	posix_spawn_file_actions_adddup2(&Actions, Pipes.Out[1], STDOUT_FILENO);
	posix_spawn_file_actions_adddup2(&Actions, Pipes.Err[1], STDERR_FILENO);

	pid_t Pid = -1;
	const int SpawnError = posix_spawnp(&Pid, "git", &Actions, nullptr, ArgvPointers.data(), EnvironmentPointers.data());
	posix_spawn_file_actions_destroy(&Actions);
	CloseAndForget(Pipes.Out[1]);
	CloseAndForget(Pipes.Err[1]);
	if (SpawnError != 0)
	{
		Result.StdErr = "could not start git";
		return Result;
	}

	// Both streams are drained together, so a chatty stderr can't block git while stdout is read.
	pollfd Fds[2] = {{Pipes.Out[0], POLLIN, 0}, {Pipes.Err[0], POLLIN, 0}};
	std::string* Sinks[2] = {&Result.StdOut, &Result.StdErr};
	int OpenStreams = 2;
	char Buffer[8192];
	while (OpenStreams > 0)
	{
		if (poll(Fds, 2, -1) < 0)
		{
			if (errno == EINTR)
			{
				continue;
			}
			break;
		}
		for (int Index = 0; Index < 2; ++Index)
		{
			if (Fds[Index].fd < 0 || (Fds[Index].revents & (POLLIN | POLLHUP | POLLERR)) == 0)
			{
				continue;
			}
			const ssize_t Count = read(Fds[Index].fd, Buffer, sizeof(Buffer));
			if (Count > 0)
			{
				Sinks[Index]->append(Buffer, static_cast<size_t>(Count));
			}
			else if (Count == 0 || errno != EINTR)
			{
				Fds[Index].fd = -1;
				--OpenStreams;
			}
		}
	}

	int Status = 0;
	while (waitpid(Pid, &Status, 0) < 0 && errno == EINTR)
	{
	}
	Result.ExitCode = WIFEXITED(Status) ? WEXITSTATUS(Status) : -1;
	return Result;
}
