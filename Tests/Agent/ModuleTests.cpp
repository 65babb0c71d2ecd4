#include "AgentTestFixture.h"

#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"

#include <filesystem>
#include <fstream>

namespace
{
	/** Starts the module on a fresh project with this stage file (none for null), as the editor would. */
	void StartOnProject(const std::filesystem::path& Root, const char* Ini)
	{
		std::filesystem::remove_all(Root);
		std::filesystem::create_directories(Root / "Config");
		std::ofstream(Root / "Sample.uproject") << "{}\n";
		if (Ini)
		{
			std::ofstream(Root / "Config" / "DefaultPlugin.ini") << Ini;
		}
		FStandInProject::SetProjectFile(UTF8_TO_TCHAR((Root / "Sample.uproject").string().c_str()));
		FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
		ASSERT_NE(FModuleManager::Get().LoadModule(TEXT("Tavrine")), nullptr);
	}
}

TEST_F(FAgentTest, ModuleTakesTheStageAndLeavesTheAgentIdle)
{
	const std::filesystem::path Root = std::filesystem::temp_directory_path() / ("TavrineModuleTest-" + std::to_string(::getpid()));
	StartOnProject(Root, "[Tavrine]\nStage=dev\nDevApiUrl=localhost:8443/dev\nDevApiKey=dev-key\nSandboxApiUrl=sb/x\n");
	EXPECT_EQ(ApiUrlOverride, TEXT("localhost:8443/dev"));
	EXPECT_EQ(ApiKeyOverride, TEXT("dev-key"));
	EXPECT_EQ(FAgent::Get().GetState(), EAgentState::Idle);
	EXPECT_TRUE(FTavrineInterface::Get().IsInitialized());
	FTavrineInterface::Get().InitialRequest(TEXT("Go"));
	FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
	EXPECT_FALSE(FTavrineInterface::Get().IsInitialized());
	EXPECT_EQ(FAgent::Get().GetState(), EAgentState::Idle);

	StartOnProject(Root, "[Tavrine]\nStage=Sandbox2\nSandboxApiUrl=wrong/sb\nSandbox2ApiUrl=sb2/x\n");
	EXPECT_EQ(ApiUrlOverride, TEXT("sb2/x"));
	EXPECT_TRUE(ApiKeyOverride.IsEmpty());
	for (const char* Ini : { "[Tavrine]\nStage=Production\nDevApiUrl=x\n", "[Other]\nStage=Dev\nDevApiUrl=x\n", static_cast<const char*>(nullptr) })
	{
		StartOnProject(Root, Ini);
		EXPECT_TRUE(ApiUrlOverride.IsEmpty()) << (Ini ? Ini : "no file");
	}
	FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
	std::filesystem::remove_all(Root);
}
