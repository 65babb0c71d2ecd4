#pragma once

// The file tools work in the end-to-end fixture's project, next to its local backend; each test
// starts from an empty history and records the diff messages that the chat would show.

#include "EndToEndFixture.h"

#include "Agent/FileHistory.h"
#include "Misc/Paths.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

struct FDiffLine
{
	std::string Path;
	std::string OldText;
	std::string NewText;

	bool operator==(const FDiffLine&) const = default;
};

inline void PrintTo(const FDiffLine& Diff, std::ostream* Out)
{
	*Out << "{" << Diff.Path << ", \"" << Diff.OldText << "\", \"" << Diff.NewText << "\"}";
}

/** The tree with members sorted, so that a test doesn't depend on the platform's listing order. */
inline std::string Canonical(const TSharedPtr<FJsonObject>& Tree)
{
	std::vector<std::string> Members;
	for (const auto& Pair : Tree->Values)
	{
		const TSharedPtr<FJsonObject>* Child = nullptr;
		const std::string Value = Pair.Value->TryGetObject(Child) ? Canonical(*Child) : FStringToUtf8(Pair.Value->AsString());
		Members.push_back(FStringToUtf8(Pair.Key) + ":" + Value);
	}
	std::sort(Members.begin(), Members.end());
	std::string Text = "{";
	for (const std::string& Member : Members)
	{
		Text += (Text.size() > 1 ? "," : "") + Member;
	}
	return Text + "}";
}

inline std::string Canonical(const std::string& JsonText)
{
	TSharedPtr<FJsonObject> Tree;
	if (!FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Utf8ToFString(JsonText)), Tree))
	{
		return "<not an object: " + JsonText + ">";
	}
	return Canonical(Tree);
}

class FileToolsTest : public EndToEndTest
{
protected:
	void SetUp() override
	{
		EndToEndTest::SetUp();
		FFileHistory::Get().ClearAllHistory();
		FAgent::Get().SetUndoConversationId(TEXT("conv-files"));
		DiffHandle = Facade().OnAddDiffMessageDelegate.AddLambda([this](const FString& Path, const FString& OldText, const FString& NewText)
		{
			Diffs.push_back({ FStringToUtf8(Path), FStringToUtf8(OldText), FStringToUtf8(NewText) });
		});
	}

	void TearDown() override
	{
		Facade().OnAddDiffMessageDelegate.Remove(DiffHandle);
		EndToEndTest::TearDown();
	}

	static std::filesystem::path Project()
	{
		return std::filesystem::path(FStringToUtf8(FPaths::ProjectDir()));
	}

	static std::string Full(const std::string& Relative)
	{
		return FStringToUtf8(FPaths::ProjectDir()) + Relative;
	}

	static void WriteText(const std::string& Relative, const std::string& Text)
	{
		const std::filesystem::path Path = Project() / Relative;
		std::filesystem::create_directories(Path.parent_path());
		std::ofstream(Path, std::ios::binary) << Text;
	}

	/** The file's bytes, or "<missing>". */
	static std::string ReadText(const std::string& Relative)
	{
		std::ifstream In(Project() / Relative, std::ios::binary);
		if (!In)
		{
			return "<missing>";
		}
		std::ostringstream Text;
		Text << In.rdbuf();
		return Text.str();
	}

	/** The tool's text, as RunTool gives it for an input written as JSON. */
	static std::string Run(const char* Tool, const char* InputJson)
	{
		TSharedPtr<FJsonObject> Input;
		FJsonSerializer::Deserialize(TJsonReaderFactory<>::Create(Utf8ToFString(InputJson)), Input);
		EXPECT_TRUE(Input.IsValid()) << InputJson;
		FString Out;
		FAgent::Get().RunTool(Out, Utf8ToFString(Tool), TEXT("toolu_test"), Input);
		return FStringToUtf8(Out);
	}

	/** Kind of the undo entry kept for the file in the agent's undo conversation, None when there is none. */
	static EFileActionType UndoKind(const std::string& Path)
	{
		const TMap<FString, FFileHistoryEntry>* Files = FFileHistory::Get().GetFileHistories().Find(FAgent::Get().GetUndoConversationId());
		const FFileHistoryEntry* Entry = Files ? Files->Find(FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), Utf8ToFString(Path))) : nullptr;
		return Entry ? Entry->ActionType : EFileActionType::None;
	}

	std::vector<FDiffLine> Diffs;

private:
	FDelegateHandle DiffHandle;
};
