// The tavrine program as a new user meets it: a run against the local backend, with its output
// piped to files and its exit status read.

#include "LocalBackend.h"
#include "TestCertificate.h"

#include "CoreMinimal.h"
#include "HAL/PlatformProcess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace
{
	struct FHostRun
	{
		int32 ExitCode = -1;
		std::string Out;
		std::string Err;
	};

	class HostProgramTest : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			ASSERT_TRUE(Certificate.IsValid()) << Certificate.GetError();
		}

		void StartBackend(const std::string& ScenarioJson)
		{
			FLocalBackendOptions Options;
			Options.CertFile = Certificate.GetCertFile();
			Options.KeyFile = Certificate.GetKeyFile();
			Options.ApiKey = "host-key";
			std::string Error;
			ASSERT_TRUE(ParseScenario(ScenarioJson, Options.Scenario, Error)) << Error;
			ASSERT_TRUE(Backend.Start(Options, Error)) << Error;
			Port = Backend.GetPort();
		}

		// Runs the host on a fresh project that points at Port, with Input as its terminal.
		FHostRun RunHost(const std::string& Arguments, const std::string& Input = std::string())
		{
			const std::filesystem::path Project = std::filesystem::path(Certificate.GetFolder()) / ("Project" + std::to_string(++Runs));
			std::filesystem::create_directories(Project / "Config");
			std::filesystem::create_directories(Project / "Content");
			std::filesystem::create_directories(Project / "Source");
			std::ofstream(Project / "Host.uproject") << "{\n\t\"FileVersion\": 3,\n\t\"EngineAssociation\": \"5.5\"\n}\n";
			std::ofstream(Project / "Config" / "DefaultPlugin.ini") << "[Tavrine]\nStage=Dev\nDevApiUrl=127.0.0.1:" << Port << "/dev\nDevApiKey=host-key\n";
			const std::filesystem::path InputFile = Project / "input.txt";
			std::ofstream(InputFile) << Input;

			const std::string Command = std::string("exec '") + TAVRINE_HOST_PROGRAM + "' --project '" + Project.string() + "' --ca-file '"
				+ Certificate.GetCertFile() + "' --source-control none --no-color --timeout 60 " + Arguments + " < '" + InputFile.string() + "'";
			FHostRun Run;
			FString Out;
			FString Err;
			EXPECT_TRUE(FPlatformProcess::ExecProcess(TEXT("/bin/sh"), *FString::Printf(TEXT("-c \"%s\""), *FString(UTF8_TO_TCHAR(Command.c_str())).Replace(TEXT("\""), TEXT("\\\""))), &Run.ExitCode, &Out, &Err));
			Run.Out = TCHAR_TO_UTF8(*Out);
			Run.Err = TCHAR_TO_UTF8(*Err);
			return Run;
		}

		FTemporaryCertificate Certificate;
		FLocalBackend Backend;
		int32 Port = 0;
		int32 Runs = 0;
	};

	// A first answer whose tool call waits for approval (the default mode asks before tools run).
	const char* WaitingCallScenario = R"([
		{ "response": { "auto_continue": false, "messages": [], "response": [
			{ "type": "text", "text": "I would read a file." },
			{ "type": "tool_use", "name": "read_file", "id": "r1", "input": { "path": "Config/DefaultPlugin.ini" } } ] } },
		{ "response": { "auto_continue": false, "messages": [], "response": [ { "type": "text", "text": "Understood." } ] } }
	])";

	size_t Find(const std::string& Text, const std::string& What)
	{
		const size_t At = Text.find(What);
		EXPECT_NE(At, std::string::npos) << "no \"" << What << "\" in:\n" << Text;
		return At;
	}
}

TEST_F(HostProgramTest, PromptEndingWithWaitingCallsSaysHowToGoOnAndExitsWithItsOwnStatus)
{
	StartBackend(WaitingCallScenario);
	const FHostRun Run = RunHost("--prompt Hello");
	EXPECT_EQ(Run.ExitCode, 4) << Run.Out << Run.Err;
	EXPECT_LT(Find(Run.Out, "I would read a file."), Find(Run.Out, "1 tool call waits for your approval, and the run ends here: add --interactive"));
	EXPECT_EQ(Backend.GetRequestCount(), 2u) << "one POST and one poll; the call never ran";
}

TEST_F(HostProgramTest, TypedTextWhileCallsWaitContinuesAndStateIsNamedInOrder)
{
	StartBackend(WaitingCallScenario);
	const FHostRun Run = RunHost("--prompt Hello --interactive", "/state\nDo something else\n");
	EXPECT_EQ(Run.ExitCode, 0) << Run.Out << Run.Err;
	const size_t Waiting = Find(Run.Out, "1 tool call waits for your approval: /continue runs them");
	const size_t State = Find(Run.Out, "State: AwaitingApproval. Pause possible: no.");
	const size_t Typed = Find(Run.Out, " [ User ]\n\nDo something else\n");
	const size_t Answer = Find(Run.Out, "Understood.");
	EXPECT_LT(Waiting, State);
	EXPECT_LT(State, Typed);
	EXPECT_LT(Typed, Answer);
	EXPECT_EQ(Run.Out.find("busy"), std::string::npos);

	// The text went out through Continue: the waiting call is settled as aborted, not run.
	const std::vector<FRecordedRequest> Requests = Backend.GetRequests();
	const FRecordedRequest* Continued = nullptr;
	for (const FRecordedRequest& Request : Requests)
	{
		if (Request.Method == "POST")
		{
			Continued = &Request;
		}
	}
	ASSERT_NE(Continued, nullptr);
	EXPECT_NE(Continued->Body.find("\"message\": \"Do something else\""), std::string::npos) << Continued->Body;
	EXPECT_NE(Continued->Body.find("\"is_abort\": true"), std::string::npos) << Continued->Body;
}

TEST_F(HostProgramTest, TransportFailureShowsItsReasonBeneathRequestFailed)
{
	// A port where nothing listens.
	StartBackend("[]");
	Backend.Stop();
	const FHostRun Refused = RunHost("--prompt Hello");
	EXPECT_EQ(Refused.ExitCode, 1) << Refused.Out << Refused.Err;
	const size_t Failed = Find(Refused.Out, "Request Failed\n");
	const size_t Reason = Find(Refused.Out, "LogHttp: POST https://127.0.0.1:" + std::to_string(Port) + "/dev/command failed (ConnectionError): connection refused");
	EXPECT_EQ(Refused.Out.find_first_not_of('\n', Failed + 14), Reason) << "the reason stands right beneath";
	EXPECT_EQ(Refused.Err.find("LogHttp"), std::string::npos) << "said once, under the chat line";

	// A backend whose certificate the host doesn't trust.
	FTemporaryCertificate Untrusted;
	ASSERT_TRUE(Untrusted.IsValid()) << Untrusted.GetError();
	FLocalBackendOptions Options;
	Options.CertFile = Untrusted.GetCertFile();
	Options.KeyFile = Untrusted.GetKeyFile();
	std::string Error;
	ASSERT_TRUE(Backend.Start(Options, Error)) << Error;
	Port = Backend.GetPort();
	const FHostRun Distrusted = RunHost("--prompt Hello");
	EXPECT_EQ(Distrusted.ExitCode, 1);
	EXPECT_GT(Distrusted.Out.find("certificate not trusted"), Find(Distrusted.Out, "Request Failed\n"));
}

TEST_F(HostProgramTest, UndoAndRedoTakeBackAndPutBackTheConversationsFilesAndStateSaysWhichIsPossible)
{
	StartBackend(R"([
		{ "response": { "auto_continue": true, "messages": [], "response": [
			{ "type": "tool_use", "name": "create_file", "id": "c1", "input": { "path": "Source/Note.h", "file_text": "// note\n" } },
			{ "type": "tool_use", "name": "finish", "id": "f1", "input": {} } ] } },
		{ "response": { "auto_continue": true, "messages": [], "response": [ { "type": "text", "text": "Created." } ] } }
	])");
	const FHostRun Run = RunHost("--prompt Hello --interactive", "/end\n/state\n/undo\n/state\n/redo\n/state\n");
	EXPECT_EQ(Run.ExitCode, 0) << Run.Out << Run.Err;
	const size_t Ended = Find(Run.Out, "State: Idle. Pause possible: no. Undo possible: yes. Redo possible: no.");
	const size_t Undoing = Find(Run.Out, "Undoing Last Changes...");
	const size_t Undone = Find(Run.Out, "State: Idle. Pause possible: no. Undo possible: no. Redo possible: yes.");
	const size_t Redoing = Find(Run.Out, "Redoing Last Changes...");
	EXPECT_LT(Ended, Undoing);
	EXPECT_LT(Undoing, Undone);
	EXPECT_LT(Undone, Redoing);
	EXPECT_NE(Run.Out.find("Undo possible: yes. Redo possible: no.", Redoing), std::string::npos) << Run.Out;
	// Redo put the created file back as the conversation left it.
	const std::filesystem::path Note = std::filesystem::path(Certificate.GetFolder()) / ("Project" + std::to_string(Runs)) / "Source" / "Note.h";
	std::ifstream NoteFile(Note);
	const std::string NoteText((std::istreambuf_iterator<char>(NoteFile)), std::istreambuf_iterator<char>());
	EXPECT_NE(NoteText.find("// note"), std::string::npos) << Note;
}
