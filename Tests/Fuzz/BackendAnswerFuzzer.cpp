// Any bytes as the backend's answer, through the backend client's completion handlers into the agent,
// which runs the tool calls it finds on a scratch project. Nothing goes on the wire: requests are caught
// as they are made. Tools that would run a compiler or Python are left out, as are paths that could
// leave the scratch project, so a mutated answer can't reach the machine outside it.

#include "API/HTTPAPI.h"
#include "AgentConversationReset.h"
#include "Agent/Agent.h"
#include "Agent/TavrineInterface.h"
#include "FakeHttpResponse.h"
#include "TavrineSettings.h"

#include "CoreMinimal.h"
#include "Containers/StringConv.h"
#include "HAL/StandInClock.h"
#include "HttpManager.h"
#include "HttpModule.h"
#include "Misc/StandInProject.h"
#include "Modules/ModuleManager.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "UObject/UObjectGlobals.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace
{
	std::filesystem::path ScratchProject;

	void RemoveScratchProject()
	{
		std::error_code Error;
		std::filesystem::remove_all(ScratchProject, Error);
	}

	void StartEditorOnScratchProject()
	{
		ScratchProject = std::filesystem::temp_directory_path() / ("tavrine-fuzz-" + std::to_string(getpid()));
		std::filesystem::create_directories(ScratchProject / "Config");
		std::filesystem::create_directories(ScratchProject / "Source" / "Fuzz");
		std::filesystem::create_directories(ScratchProject / "Content");
		std::ofstream(ScratchProject / "Fuzz.uproject") << "{\n\t\"FileVersion\": 3,\n\t\"EngineAssociation\": \"5.5\"\n}\n";
		std::ofstream(ScratchProject / "Source" / "Fuzz" / "Fuzz.h") << "#pragma once\n\nclass FFuzz\n{\n};\n";
		std::ofstream(ScratchProject / "Config" / "DefaultPlugin.ini") << "[Tavrine]\nStage=Dev\nDevApiUrl=127.0.0.1:9/fuzz\nDevApiKey=fuzz\n";
		std::atexit(&RemoveScratchProject);

		FStandInClock::UseManualTime(true);
		FStandInProject::SetProjectFile(UTF8_TO_TCHAR((ScratchProject / "Fuzz.uproject").string().c_str()));
		FModuleManager::Get().LoadModule(TEXT("UnrealEd"));
		if (FModuleManager::Get().LoadModule(TEXT("Tavrine")) == nullptr)
		{
			std::abort();
		}
		FHttpModule::Get().GetHttpManager().SetRequestAddedDelegate(FHttpManagerRequestAddedDelegate::CreateLambda([](const FHttpRequestRef& Request)
		{
			Request->OnProcessRequestComplete().Unbind();
		}));
	}

	bool IsUnsafeString(const FString& Text)
	{
		// Package paths under /Game/ stay inside the project's Content folder.
		const bool bRooted = (Text.StartsWith(TEXT("/")) && !Text.StartsWith(TEXT("/Game/"))) || Text.StartsWith(TEXT("\\")) || Text.StartsWith(TEXT("~"));
		return bRooted || Text.Contains(TEXT(".."));
	}

	bool IsUnsafeToolName(const FString& Name)
	{
		return Name.Contains(TEXT("compile")) || Name.Contains(TEXT("python"));
	}

	// Walks the answer as the agent will read it, with the same parser.
	bool IsUnsafe(const TSharedPtr<FJsonValue>& Value)
	{
		if (!Value.IsValid())
		{
			return false;
		}
		switch (Value->Type)
		{
		case EJson::String:
			return IsUnsafeString(Value->AsString());
		case EJson::Array:
			for (const TSharedPtr<FJsonValue>& Element : Value->AsArray())
			{
				if (IsUnsafe(Element))
				{
					return true;
				}
			}
			return false;
		case EJson::Object:
			for (const TPair<FString, TSharedPtr<FJsonValue>>& Field : Value->AsObject()->Values)
			{
				if (IsUnsafeString(Field.Key) || IsUnsafe(Field.Value))
				{
					return true;
				}
				FString Name;
				if (Field.Key.Equals(TEXT("name"), ESearchCase::IgnoreCase) && Field.Value.IsValid() && Field.Value->TryGetString(Name) && IsUnsafeToolName(Name))
				{
					return true;
				}
			}
			return false;
		default:
			return false;
		}
	}

	void Answer(void (FHTTPAPI::*Handler)(FHttpRequestPtr, FHttpResponsePtr, bool), int32 Code, const FString& Content)
	{
		(FHTTPAPI::Get().*Handler)(nullptr, MakeShared<FFakeHttpResponse, ESPMode::ThreadSafe>(Code, Content), true);
	}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, size_t Size)
{
	static const bool bStarted = (StartEditorOnScratchProject(), true);
	(void)bStarted;
	if (Size < 1 || Size > 256 * 1024)
	{
		return 0;
	}
	const FUTF8ToTCHAR Converted(reinterpret_cast<const ANSICHAR*>(Data + 1), static_cast<int32>(Size - 1));
	const FString Content(Converted.Length(), Converted.Get());
	TSharedPtr<FJsonValue> Parsed;
	FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Content), Parsed);
	if (IsUnsafe(Parsed))
	{
		return 0;
	}

	// The first byte picks the mode, and which answer the bytes stand for.
	const uint8 Choice = Data[0];
	GetMutableDefault<UTavrineSettings>()->Mode = (Choice & 1) != 0 ? ETavrineMode::ExplainerAndImplementerMode : ETavrineMode::ExplainerMode;
	ResetAgentConversation();
	FTavrineInterface::Get().InitialRequest(TEXT("Fuzz"));
	if ((Choice & 2) != 0)
	{
		Answer(&FHTTPAPI::OnCommandComplete, (Choice & 4) != 0 ? 500 : 200, Content);
	}
	else
	{
		Answer(&FHTTPAPI::OnCommandComplete, 200, TEXT("{\"request_id\": \"req-1\"}"));
		Answer(&FHTTPAPI::OnStatusComplete, 200, Content);
		// Calls left waiting for approval run as the user's empty Continue would run them.
		if ((Choice & 4) != 0 && FAgent::Get().GetState() == EAgentState::AwaitingApproval)
		{
			FTavrineInterface::Get().Continue(FString());
		}
	}
	ResetAgentConversation();
	return 0;
}
