// Starting and watching processes, as the build and the Python plugin do it.

#include "BuildTestEnvironment.h"
#include "HAL/PlatformProcess.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace BuildTests;

TEST(PlatformProcessTest, QuotedArgumentsExitCodeAndSeparateStreams)
{
	int32 ReturnCode = -1;
	FString StdOut;
	FString StdErr;
	// Double quotes group words and \" stands for a quote inside them.
	ASSERT_TRUE(FPlatformProcess::ExecProcess(TEXT("/bin/sh"), TEXT("-c \"printf '%s|' \\\"a  b\\\" c; echo oops >&2; exit 3\""), &ReturnCode, &StdOut, &StdErr));
	EXPECT_EQ(ReturnCode, 3);
	EXPECT_EQ(StdOut, TEXT("a  b|c|"));
	EXPECT_EQ(StdErr, TEXT("oops\n"));

	ASSERT_TRUE(FPlatformProcess::ExecProcess(TEXT("pwd"), TEXT(""), &ReturnCode, &StdOut, nullptr, TEXT("/tmp")));
	EXPECT_EQ(StdOut, TEXT("/tmp\n"));

	EXPECT_FALSE(FPlatformProcess::ExecProcess(TEXT("no-such-program-here"), TEXT(""), &ReturnCode, nullptr, nullptr));
}

TEST(PlatformProcessTest, TerminatingTheTreeEndsWhatTheChildStarted)
{
	void* ReadPipe = nullptr;
	void* WritePipe = nullptr;
	ASSERT_TRUE(FPlatformProcess::CreatePipe(ReadPipe, WritePipe));
	FProcHandle Process = FPlatformProcess::CreateProc(TEXT("/bin/sh"), TEXT("-c \"sleep 30 & echo $!; wait\""), false, true, true, nullptr, 0, nullptr, WritePipe);
	ASSERT_TRUE(Process.IsValid());

	FString Output;
	const auto Deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
	while (!Output.Contains(TEXT("\n")) && std::chrono::steady_clock::now() < Deadline)
	{
		Output += FPlatformProcess::ReadPipe(ReadPipe);
		FPlatformProcess::Sleep(0.01f);
	}
	const pid_t Grandchild = static_cast<pid_t>(FCString::Atoi(*Output));
	ASSERT_GT(Grandchild, 0) << ToUtf8(Output);
	EXPECT_TRUE(FPlatformProcess::IsProcRunning(Process));

	FPlatformProcess::TerminateProc(Process, true);
	EXPECT_FALSE(FPlatformProcess::IsProcRunning(Process));
	int32 ReturnCode = 0;
	EXPECT_TRUE(FPlatformProcess::GetProcReturnCode(Process, &ReturnCode));
	EXPECT_EQ(ReturnCode, -1) << "ended by a signal";
	// The orphaned sleep is killed too: gone, or dead and waiting for whoever adopted it to collect it.
	bool bEnded = false;
	for (int32 Attempt = 0; Attempt < 200 && !bEnded; ++Attempt)
	{
		const std::string Stat = ReadText("/proc/" + std::to_string(Grandchild) + "/stat");
		const size_t StateAt = Stat.rfind(") ");
		bEnded = Stat.empty() || (StateAt != std::string::npos && Stat.compare(StateAt + 2, 1, "Z") == 0);
		std::this_thread::sleep_for(std::chrono::milliseconds(10));
	}
	EXPECT_TRUE(bEnded);
	FPlatformProcess::CloseProc(Process);
	FPlatformProcess::ClosePipe(ReadPipe, WritePipe);
}
