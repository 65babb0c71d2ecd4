#include "EndToEndFixture.h"

#include "API/HTTPAPI.h"
#include "HAL/StandInClock.h"
#include "Http.h"
#include "HttpStandInSettings.h"
#include "Misc/StandInEngineLoop.h"
#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"
#include "TestCertificate.h"
#include "UObject/UObjectGlobals.h"

#include <rapidjson/error/en.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace
{
	// One backend, certificate and sample project for the whole program: the plugin's
	// singletons live that long too, so the tests share them and reset the conversation instead.
	class FEndToEndEnvironment : public ::testing::Environment
	{
	public:
		void SetUp() override
		{
			FStandInClock::UseManualTime(true);
			Certificate = std::make_unique<FTemporaryCertificate>();
			ASSERT_TRUE(Certificate->IsValid()) << Certificate->GetError();
			FHttpStandInSettings::SetExtraCaFile(Utf8ToFString(Certificate->GetCertFile()));

			FLocalBackendOptions Options;
			Options.CertFile = Certificate->GetCertFile();
			Options.KeyFile = Certificate->GetKeyFile();
			Options.ApiKey = EndToEndApiKey;
			std::string Error;
			ASSERT_TRUE(Backend.Start(Options, Error)) << Error;

			// The stage file of the project points the plugin at the backend, as in the demo.
			const std::filesystem::path Project = std::filesystem::path(Certificate->GetFolder()) / "Project";
			std::filesystem::create_directories(Project / "Config");
			std::filesystem::create_directories(Project / "Source");
			std::filesystem::create_directories(Project / "Content");
			std::ofstream(Project / "EndToEnd.uproject") << "{\n\t\"FileVersion\": 3,\n\t\"EngineAssociation\": \"5.5\"\n}\n";
			std::ofstream(Project / "Config" / "DefaultPlugin.ini") << "[Tavrine]\nStage=Dev\nDevApiUrl=127.0.0.1:"
				<< Backend.GetPort() << "/dev\nDevApiKey=" << EndToEndApiKey << "\n";
			FStandInProject::SetProjectFile(Utf8ToFString((Project / "EndToEnd.uproject").string()));
			ASSERT_NE(FModuleManager::Get().LoadModule(TEXT("Tavrine")), nullptr) << "the plugin's module must load by name";
			ASSERT_EQ(FAgent::Get().GetState(), EAgentState::Idle);
		}

		void TearDown() override
		{
			FModuleManager::Get().UnloadModule(TEXT("Tavrine"));
			FHttpModule::Get().GetHttpManager().Flush(EHttpFlushReason::Shutdown);
			Backend.Stop();
			FStandInProject::Reset();
			Certificate.reset();
		}

		FLocalBackend Backend;
		std::unique_ptr<FTemporaryCertificate> Certificate;
	};

	FEndToEndEnvironment* const Environment = static_cast<FEndToEndEnvironment*>(::testing::AddGlobalTestEnvironment(new FEndToEndEnvironment()));

	bool IsBookkeepingHeader(const std::string& Name)
	{
		return Name == "Host" || Name == "Accept" || Name == "Content-Length" || Name == "User-Agent";
	}
}

FLocalBackend& EndToEndTest::Backend()
{
	return Environment->Backend;
}

void EndToEndTest::SetMode(ETavrineMode Mode)
{
	GetMutableDefault<UTavrineSettings>()->Mode = Mode;
}

void EndToEndTest::SetUp()
{
	ASSERT_TRUE(Backend().IsRunning());
	ASSERT_EQ(State(), EAgentState::Idle);
	SetMode(ETavrineMode::ExplainerAndImplementerMode);
	Backend().ClearRequests();
	Chat.clear();
	ChatHandle = Facade().OnAddStatusMessageDelegate.AddLambda([this](const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize)
	{
		Chat.push_back(FChatLine { FStringToUtf8(Text), Color, FontName, FontSize });
	});
}

void EndToEndTest::TearDown()
{
	// A POST under way survives a cancel and may start polling again, so settle until quiet.
	for (int32 Attempt = 0; Attempt < 5 && (State() != EAgentState::Idle || FHTTPAPI::Get().IsPolling()); ++Attempt)
	{
		Facade().CancelRequest(FString());
		FHttpModule::Get().GetHttpManager().Flush(EHttpFlushReason::FullFlush);
	}
	Facade().OnAddStatusMessageDelegate.Remove(ChatHandle);
	SetMode(ETavrineMode::ExplainerAndImplementerMode);
	EXPECT_EQ(State(), EAgentState::Idle);
}

void EndToEndTest::UseScenario(const std::string& Json)
{
	FScenario Scenario;
	std::string Error;
	ASSERT_TRUE(ParseScenario(Json, Scenario, Error)) << Error;
	Backend().SetScenario(Scenario);
}

void EndToEndTest::StepWithoutNetwork(double SimulatedSeconds)
{
	FStandInClock::Advance(SimulatedSeconds);
	FStandInEngineLoop::Tick(static_cast<float>(SimulatedSeconds));
}

void EndToEndTest::Step(double SimulatedSeconds)
{
	StepWithoutNetwork(SimulatedSeconds);
	FHttpModule::Get().GetHttpManager().Flush(EHttpFlushReason::FullFlush);
}

bool EndToEndTest::RunUntil(const std::function<bool()>& Done, double MaxSimulatedSeconds)
{
	for (double Elapsed = 0.0; Elapsed < MaxSimulatedSeconds; Elapsed += StepSeconds)
	{
		if (Done())
		{
			return true;
		}
		Step();
	}
	return Done();
}

bool EndToEndTest::RunUntilChat(const std::string& Text, double MaxSimulatedSeconds)
{
	return RunUntil([this, &Text]() { return HasChat(Text); }, MaxSimulatedSeconds);
}

void EndToEndTest::RunFor(double SimulatedSeconds)
{
	for (double Elapsed = 0.0; Elapsed < SimulatedSeconds; Elapsed += StepSeconds)
	{
		Step();
	}
}

std::vector<std::string> EndToEndTest::ChatTexts() const
{
	std::vector<std::string> Texts;
	for (const FChatLine& Line : Chat)
	{
		Texts.push_back(Line.Text);
	}
	return Texts;
}

int32 EndToEndTest::CountChat(const std::string& Text) const
{
	int32 Count = 0;
	for (const FChatLine& Line : Chat)
	{
		Count += Line.Text == Text ? 1 : 0;
	}
	return Count;
}

std::vector<FRecordedRequest> EndToEndTest::Commands() const
{
	std::vector<FRecordedRequest> Found;
	for (const FRecordedRequest& Request : Backend().GetRequests())
	{
		if (Request.Method == "POST")
		{
			Found.push_back(Request);
		}
	}
	return Found;
}

std::vector<FRecordedRequest> EndToEndTest::StatusPolls() const
{
	std::vector<FRecordedRequest> Found;
	for (const FRecordedRequest& Request : Backend().GetRequests())
	{
		if (Request.Method == "GET")
		{
			Found.push_back(Request);
		}
	}
	return Found;
}

rapidjson::Document ParseBody(const FRecordedRequest& Request)
{
	rapidjson::Document Document;
	Document.Parse<rapidjson::kParseValidateEncodingFlag>(Request.Body.c_str(), Request.Body.size());
	EXPECT_FALSE(Document.HasParseError()) << rapidjson::GetParseError_En(Document.GetParseError()) << " at "
		<< Document.GetErrorOffset() << " in body:\n" << Request.Body;
	EXPECT_TRUE(Document.IsObject()) << Request.Body;
	return Document;
}

std::vector<std::string> JsonKeys(const rapidjson::Value& Object)
{
	std::vector<std::string> Names;
	if (Object.IsObject())
	{
		for (auto Member = Object.MemberBegin(); Member != Object.MemberEnd(); ++Member)
		{
			Names.emplace_back(Member->name.GetString(), Member->name.GetStringLength());
		}
	}
	return Names;
}

std::vector<std::pair<std::string, std::string>> SentHeaders(const FRecordedRequest& Request)
{
	std::vector<std::pair<std::string, std::string>> Headers;
	for (const auto& Header : Request.Headers)
	{
		if (!IsBookkeepingHeader(Header.first))
		{
			Headers.push_back(Header);
		}
	}
	return Headers;
}
