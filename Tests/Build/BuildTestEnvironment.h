#pragma once

// One copy of the sample project per test program, built once and shared by its tests: they break its code,
// compile, read what came back and put the code back. The plugin is loaded against it and against a local
// backend, as in the editor.

#include "CoreMinimal.h"
#include "LocalBackend.h"
#include "Misc/OutputDevice.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace BuildTests
{
	std::filesystem::path GetProjectDir();
	FLocalBackend& GetBackend();

	std::string ReadText(const std::filesystem::path& Path);
	void WriteText(const std::filesystem::path& Path, const std::string& Text);
	/** Replaces the first Old in the project's file by New; fails the test when Old isn't there. */
	void EditProjectFile(const std::string& RelativePath, const std::string& Old, const std::string& New);
	/** Puts the sample's sources and editor config back where a test changed them. */
	void RestoreProject();
	/** Appends ini lines to the project's Config/DefaultEditor.ini until RestoreProject. */
	void AddEditorConfig(const std::string& IniLines);

	/** Turns the engine loop on real time until Done or the time is up; gives Done. */
	bool PumpUntil(const std::function<bool()>& Done, double TimeoutSeconds = 120.0);

	inline FString ToFString(const std::string& Utf8)
	{
		return FString(UTF8_TO_TCHAR(Utf8.c_str()));
	}

	inline std::string ToUtf8(const FString& Text)
	{
		return std::string(TCHAR_TO_UTF8(*Text));
	}

	/** Keeps every line the global log sees while it lives, with its category. */
	class FLogCapture : public FOutputDevice
	{
	public:
		FLogCapture();
		virtual ~FLogCapture() override;
		virtual void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override;

		struct FLine
		{
			std::string Category;
			ELogVerbosity::Type Verbosity;
			std::string Text;
		};
		std::vector<FLine> Lines;

		bool Has(const std::string& Category, const std::string& TextPart) const;
	};
}
