// tavrine-backend as a program: argument errors, and a whole run from start to a stop signal.

#include "RawTlsClient.h"
#include "TestCertificate.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace
{
	struct FProgram
	{
		pid_t Pid = -1;
		std::string OutFile;
		std::string ErrFile;
	};

	std::string ReadFile(const std::string& Path)
	{
		std::ifstream File(Path);
		std::stringstream Content;
		Content << File.rdbuf();
		return Content.str();
	}

	FProgram Launch(const std::vector<std::string>& Arguments, const std::string& Folder)
	{
		FProgram Program { -1, Folder + "/out.txt", Folder + "/err.txt" };
		std::vector<std::string> All { TAVRINE_BACKEND_PROGRAM };
		All.insert(All.end(), Arguments.begin(), Arguments.end());
		std::vector<char*> Argv;
		for (std::string& Argument : All)
		{
			Argv.push_back(Argument.data());
		}
		Argv.push_back(nullptr);
		posix_spawn_file_actions_t Actions;
		posix_spawn_file_actions_init(&Actions);
		posix_spawn_file_actions_addopen(&Actions, STDOUT_FILENO, Program.OutFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
		posix_spawn_file_actions_addopen(&Actions, STDERR_FILENO, Program.ErrFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
		posix_spawn(&Program.Pid, Argv[0], &Actions, nullptr, Argv.data(), environ);
		posix_spawn_file_actions_destroy(&Actions);
		return Program;
	}

	// The exit code, or -1 if the program was still running after the time and had to be killed.
	int WaitForExit(const FProgram& Program, double TimeoutSeconds = 10.0)
	{
		const auto Deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(TimeoutSeconds);
		int Status = 0;
		while (waitpid(Program.Pid, &Status, WNOHANG) == 0)
		{
			if (std::chrono::steady_clock::now() > Deadline)
			{
				kill(Program.Pid, SIGKILL);
				waitpid(Program.Pid, &Status, 0);
				return -1;
			}
			std::this_thread::sleep_for(std::chrono::milliseconds(10));
		}
		return WIFEXITED(Status) ? WEXITSTATUS(Status) : -1;
	}

	class BackendProgramTest : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			Folder = Certificate.GetFolder();
			Scenario = Folder + "/scenario.json";
			std::ofstream(Scenario) << R"([{ "response": { "auto_continue": true } }])";
		}

		FTemporaryCertificate Certificate;
		std::string Folder;
		std::string Scenario;
	};
}

TEST_F(BackendProgramTest, BadArgumentsEndWithAReasonAndTheUsage)
{
	const std::string Broken = Folder + "/broken.json";
	std::ofstream(Broken) << R"([{ "pending_polls": "two" }])";
	const std::string Cert = Certificate.GetCertFile();
	const std::string Key = Certificate.GetKeyFile();
	const struct
	{
		std::vector<std::string> Arguments;
		std::string Reason;
	} Cases[] = {
		{ {}, "--scenario, --cert and --key are required" },
		{ { "--scenario", Scenario, "--cert", Cert }, "--scenario, --cert and --key are required" },
		{ { "--scenario" }, "'--scenario' needs a value" },
		{ { "--verbose" }, "unknown option '--verbose'" },
		{ { "--scenario", Scenario, "--cert", Cert, "--key", Key, "extra" }, "unknown option 'extra'" },
		{ { "--port", "70000" }, "bad port '70000'" },
		{ { "--port", "80x" }, "bad port '80x'" },
		{ { "--port", "-1" }, "bad port '-1'" },
		{ { "--scenario", Folder + "/missing.json", "--cert", Cert, "--key", Key }, "cannot open scenario file '" + Folder + "/missing.json'" },
		{ { "--scenario", Broken, "--cert", Cert, "--key", Key }, "'" + Broken + "': turn 1: unknown key or bad value for \"pending_polls\"" },
		{ { "--scenario", Scenario, "--cert", Cert, "--key", Folder + "/other-key.pem" }, "only one of" },
		{ { "--scenario", Scenario, "--cert", Cert, "--key", Key, "--port", "0", "--record", Folder + "/no/such/record.jsonl" },
			"cannot write the record file" },
	};
	for (const auto& Case : Cases)
	{
		SCOPED_TRACE(Case.Reason);
		const FProgram Program = Launch(Case.Arguments, Folder);
		EXPECT_EQ(WaitForExit(Program), 2);
		const std::string Error = ReadFile(Program.ErrFile);
		EXPECT_EQ(Error.rfind("tavrine-backend: ", 0), 0u) << Error;
		EXPECT_NE(Error.find(Case.Reason), std::string::npos) << Error;
	}
	EXPECT_FALSE(std::filesystem::exists(Folder + "/other-key.pem")) << "a lone certificate must not get a new key";

	const FProgram Help = Launch({ "--port", "1", "--help" }, Folder);
	EXPECT_EQ(WaitForExit(Help), 0);
	EXPECT_EQ(ReadFile(Help.OutFile).rfind("Usage: tavrine-backend --scenario FILE", 0), 0u);
}

TEST_F(BackendProgramTest, RunsUntilAStopSignalMakingItsCertificateAndRecording)
{
	const std::string Cert = Folder + "/made-cert.pem";
	const std::string Key = Folder + "/made-key.pem";
	const std::string Record = Folder + "/record.jsonl";
	const FProgram Program = Launch({ "--scenario", Scenario, "--cert", Cert, "--key", Key, "--port", "0", "--api-key", "k", "--record", Record }, Folder);
	std::string Out;
	const auto Deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
	while (Out.find(" scenario turn(s)") == std::string::npos && std::chrono::steady_clock::now() < Deadline)
	{
		std::this_thread::sleep_for(std::chrono::milliseconds(20));
		Out = ReadFile(Program.OutFile);
	}
	const size_t PortAt = Out.find("Listening on https://127.0.0.1:");
	ASSERT_NE(PortAt, std::string::npos) << Out << ReadFile(Program.ErrFile);
	EXPECT_NE(Out.find("Made a self-signed certificate: " + Cert), std::string::npos) << Out;
	EXPECT_NE(Out.find(" with 1 scenario turn(s)"), std::string::npos) << Out;
	const uint16_t Port = static_cast<uint16_t>(std::stoi(Out.substr(PortAt + 31)));

	{
		FRawTlsClient Client(Port);
		Client.Send(MakeRawRequest("POST", "/command", "x-api-key: k\r\n", "{}"));
		EXPECT_EQ(Client.Receive().Body, R"({"request_id":"req-1"})");
		Client.Send(MakeRawRequest("GET", "/status?request_id=req-1", "x-api-key: other\r\n"));
		EXPECT_EQ(Client.Receive().Code, 401);
	}

	kill(Program.Pid, SIGTERM);
	EXPECT_EQ(WaitForExit(Program, 5.0), 0);
	EXPECT_NE(ReadFile(Program.OutFile).find("Stopped after 2 request(s)."), std::string::npos) << ReadFile(Program.OutFile);
	EXPECT_TRUE(std::filesystem::exists(Key));
	const std::string Recorded = ReadFile(Record);
	EXPECT_EQ(std::count(Recorded.begin(), Recorded.end(), '\n'), 2) << Recorded;
	EXPECT_NE(Recorded.find("\"response_code\":401"), std::string::npos) << Recorded;

}
