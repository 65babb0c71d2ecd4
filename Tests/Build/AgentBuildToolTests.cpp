// The compile and Python tools as the agent runs them: their texts, and how a compile's result reaches the
// backend, through the real HTTP client and the local backend.

#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "BuildTestEnvironment.h"
#include "ILiveCodingModule.h"
#include "Modules/ModuleManager.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

using namespace BuildTests;

namespace
{
	/** One answer of the backend that asks for a single tool, then an empty answer for each later request. */
	std::string ScenarioWithTool(const std::string& ToolUse)
	{
		const std::string Empty = R"({"response": {"auto_continue": true, "messages": [], "response": []}})";
		return R"({"turns": [{"response": {"auto_continue": true, "messages": [], "response": [)" + ToolUse + "]}}, " + Empty + ", " + Empty + "]}";
	}

	const rapidjson::Value& OnlyToolResult(const rapidjson::Document& Body)
	{
		static const rapidjson::Value Null;
		if (!Body.IsObject() || !Body.HasMember("tool_results") || !Body["tool_results"].IsArray() || Body["tool_results"].Size() != 1)
		{
			ADD_FAILURE() << "the body should hold exactly one tool result";
			return Null;
		}
		return Body["tool_results"][0];
	}
}

class AgentBuildToolTest : public ::testing::Test
{
protected:
	void SetUp() override
	{
		ChatHandle = FTavrineInterface::Get().OnAddStatusMessageDelegate.AddLambda([this](const FString& Text, const FLinearColor&, const FName&, float)
		{
			Chat.push_back(ToUtf8(Text));
		});
		FModuleManager::LoadModuleChecked<ILiveCodingModule>(TEXT(LIVE_CODING_MODULE_NAME)).EnableForSession(true);
		GetBackend().ClearRequests();
		ASSERT_TRUE(PumpUntil([]() { return FAgent::Get().GetState() == EAgentState::Idle; }, 30.0));
	}

	void TearDown() override
	{
		FTavrineInterface::Get().EndRequest(FString());
		FTavrineInterface::Get().OnAddStatusMessageDelegate.Remove(ChatHandle);
		FModuleManager::LoadModuleChecked<ILiveCodingModule>(TEXT(LIVE_CODING_MODULE_NAME)).EnableForSession(true);
		RestoreProject();
	}

	void UseScenario(const std::string& Json)
	{
		FScenario Scenario;
		std::string Error;
		ASSERT_TRUE(ParseScenario(Json, Scenario, Error)) << Error;
		GetBackend().SetScenario(Scenario);
	}

	std::vector<FRecordedRequest> Commands() const
	{
		std::vector<FRecordedRequest> Posts;
		for (const FRecordedRequest& Request : GetBackend().GetRequests())
		{
			if (Request.Method == "POST")
			{
				Posts.push_back(Request);
			}
		}
		return Posts;
	}

	static rapidjson::Document Parse(const FRecordedRequest& Request)
	{
		rapidjson::Document Body;
		Body.Parse(Request.Body.c_str());
		EXPECT_FALSE(Body.HasParseError()) << Request.Body;
		return Body;
	}

	bool HasChat(const std::string& Text) const
	{
		return std::find(Chat.begin(), Chat.end(), Text) != Chat.end();
	}

	FDelegateHandle ChatHandle;
	std::vector<std::string> Chat;
};

TEST_F(AgentBuildToolTest, PythonToolTextsAndTheMissingCode)
{
	FString Out;
	FAgent::Get().RunTool(Out, TEXT("EXECUTE_UNREAL_ENGINE_API_PYTHON_SCRIPT"), TEXT("toolu_py"), MakeShared<FJsonObject>());
	EXPECT_EQ(Out, TEXT("Error: Missing code field"));
	EXPECT_TRUE(HasChat("Executing Unreal Engine Api Python Script ..."));

	const TSharedRef<FJsonObject> Input = MakeShared<FJsonObject>();
	Input->SetStringField(TEXT("code"), TEXT("print(6 * 7)"));
	FAgent::Get().RunTool(Out, TEXT("execute_unreal_engine_api_python_script"), TEXT("toolu_py"), Input);
	EXPECT_EQ(Out, TEXT("Python script completed: \n42\n: "));

	Input->SetStringField(TEXT("code"), TEXT("raise KeyError('k')"));
	FAgent::Get().RunTool(Out, TEXT("execute_unreal_engine_api_python_script"), TEXT("toolu_py"), Input);
	EXPECT_TRUE(Out.StartsWith(TEXT("Error: Python script execution failed.: "))) << ToUtf8(Out);
	EXPECT_TRUE(Out.Contains(TEXT("KeyError: 'k'"))) << ToUtf8(Out);
}

TEST_F(AgentBuildToolTest, FailedLiveCodingCompileGoesOutWithTheFollowUpAsAnError)
{
	EditProjectFile("Source/SampleProject/HealthPool.cpp", "return IsDead();", "return IsDead()");
	UseScenario(ScenarioWithTool(R"({"type": "tool_use", "name": "compile", "id": "toolu_compile", "input": {}})"));
	FTavrineInterface::Get().InitialRequest(TEXT("Compile the game code"));

	// Live Coding waits, so the result is there when the answer handler looks: it goes out at once.
	ASSERT_TRUE(PumpUntil([this]() { return Commands().size() >= 2; }, 60.0));
	const rapidjson::Document Body = Parse(Commands()[1]);
	const rapidjson::Value& Result = OnlyToolResult(Body);
	ASSERT_TRUE(Result.IsObject());
	EXPECT_STREQ(Result["tool_use_id"].GetString(), "toolu_compile");
	EXPECT_TRUE(Result["is_error"].GetBool());
	const std::string Content = Result["content"].GetString();
	EXPECT_NE(Content.find("Source/SampleProject/HealthPool.cpp:"), std::string::npos) << Content;
	EXPECT_NE(Content.find(": error: "), std::string::npos) << Content;
	EXPECT_TRUE(HasChat("Compiling..."));
	EXPECT_TRUE(HasChat("Compilation failed, processing error..."));
	EXPECT_TRUE(FAgent::Get().GetToolResults().IsEmpty());
}

TEST_F(AgentBuildToolTest, HotReloadCompileAsTheOnlyToolWaitsForTheNextRequest)
{
	FModuleManager::LoadModuleChecked<ILiveCodingModule>(TEXT(LIVE_CODING_MODULE_NAME)).EnableForSession(false);
	UseScenario(ScenarioWithTool(R"({"type": "tool_use", "name": "compile", "id": "toolu_hot", "input": {}})"));
	FTavrineInterface::Get().InitialRequest(TEXT("Compile the game code"));

	// The answer handler finds no result yet: the turn is over while the build runs.
	ASSERT_TRUE(PumpUntil([]() { return FAgent::Get().GetState() == EAgentState::AwaitingUpdate; }, 60.0));
	EXPECT_TRUE(HasChat("Compiling..."));
	ASSERT_TRUE(PumpUntil([]() { return FAgent::Get().GetToolResults().Num() > 0; }, 120.0));
	EXPECT_EQ(FAgent::Get().GetToolResults().Num(), 1);
	EXPECT_EQ(FAgent::Get().GetState(), EAgentState::AwaitingUpdate);
	EXPECT_TRUE(HasChat("Compilation successful!"));
	EXPECT_EQ(Commands().size(), 1u) << "the result waits: nothing is sent by the compile";

	FTavrineInterface::Get().RegularRequest(TEXT("What next?"));
	ASSERT_TRUE(PumpUntil([this]() { return Commands().size() >= 2; }, 30.0));
	const rapidjson::Document Body = Parse(Commands()[1]);
	EXPECT_STREQ(Body["message"].GetString(), "What next?");
	const rapidjson::Value& Result = OnlyToolResult(Body);
	ASSERT_TRUE(Result.IsObject());
	EXPECT_STREQ(Result["tool_use_id"].GetString(), "toolu_hot");
	EXPECT_FALSE(Result["is_error"].GetBool());
	EXPECT_TRUE(FAgent::Get().GetToolResults().IsEmpty());
}
