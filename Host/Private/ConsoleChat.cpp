#include "ConsoleChat.h"

#include "Agent/TavrineInterface.h"
#include "UnifiedDiff.h"

#include <cstdio>
#include <string>
#include <utility>

namespace
{
	std::string ToUtf8(const FString& Text)
	{
		return std::string(TCHAR_TO_UTF8(*Text));
	}

	// The nearest 256-colour terminal code of a chat colour.
	std::string ColorCode(const FLinearColor& Color)
	{
		auto Level = [](float Channel) { return FMath::Clamp(FMath::RoundToInt(Channel * 5.0f), 0, 5); };
		return "\033[38;5;" + std::to_string(16 + 36 * Level(Color.R) + 6 * Level(Color.G) + Level(Color.B)) + "m";
	}
}

FConsoleChat::FConsoleChat(bool bInColor, FConsoleLogDevice& InLog)
	: bColor(bInColor)
	, Log(InLog)
{
	FTavrineInterface& Interface = FTavrineInterface::Get();
	StatusHandle = Interface.OnAddStatusMessageDelegate.AddRaw(this, &FConsoleChat::PrintStatus);
	DiffHandle = Interface.OnAddDiffMessageDelegate.AddRaw(this, &FConsoleChat::PrintDiff);
}

FConsoleChat::~FConsoleChat()
{
	FTavrineInterface& Interface = FTavrineInterface::Get();
	Interface.OnAddStatusMessageDelegate.Remove(StatusHandle);
	Interface.OnAddDiffMessageDelegate.Remove(DiffHandle);
}

void FConsoleChat::PrintStatus(const FString& Text, const FLinearColor& Color, const FName& FontName, float FontSize)
{
	const bool bPassingNotice = Text.EndsWith(TEXT("..."));
	std::string Line = ToUtf8(Text);
	if (bColor)
	{
		// A message colour with no alpha is the plugin's plain status style.
		const std::string Style = bPassingNotice ? "\033[2m" : (Color.A > 0.0f ? ColorCode(Color) : "\033[3m");
		Line = Style + Line + "\033[0m";
	}
	std::printf("%s\n", Line.c_str());
	if (Text.Contains(TEXT("Request Failed")))
	{
		const std::string Reason = Log.TakeTransportFailure();
		if (!Reason.empty())
		{
			std::printf(bColor ? "\033[2m%s\033[0m\n" : "%s\n", Reason.c_str());
		}
	}
	std::fflush(stdout);
	// The prompt log keeps what the chat shows, but for passing notices.
	if (!bPassingNotice)
	{
		FTavrineInterface& Interface = FTavrineInterface::Get();
		Interface.TavrineInterfaceLogString(Text, Interface.GetPromptLogFilePath(), true);
	}
}

void FConsoleChat::PrintDiff(const FString& Path, const FString& OldText, const FString& NewText)
{
	const std::string Diff = MakeUnifiedDiff(ToUtf8(Path), ToUtf8(OldText), ToUtf8(NewText));
	if (Diff.empty())
	{
		std::printf("(no line changed in %s)\n", ToUtf8(Path).c_str());
	}
	else if (!bColor)
	{
		std::fputs(Diff.c_str(), stdout);
	}
	else
	{
		size_t Start = 0;
		while (Start < Diff.size())
		{
			const size_t End = Diff.find('\n', Start);
			const std::string Line = Diff.substr(Start, End - Start);
			const char* Style = Line.rfind("@@", 0) == 0 ? "\033[36m" : (Line[0] == '+' ? "\033[32m" : (Line[0] == '-' ? "\033[31m" : ""));
			std::printf("%s%s\033[0m\n", Style, Line.c_str());
			Start = End + 1;
		}
	}
	std::fflush(stdout);
	// A file change reaches the prompt log as its path and its new text.
	FTavrineInterface& Interface = FTavrineInterface::Get();
	const FString LogFile = Interface.GetPromptLogFilePath();
	Interface.TavrineInterfaceLogString(Path, LogFile, true);
	Interface.TavrineInterfaceLogString(NewText, LogFile, true);
}

void FConsoleLogDevice::Serialize(const TCHAR* Text, ELogVerbosity::Type Verbosity, const FName& Category)
{
	const ELogVerbosity::Type Level = static_cast<ELogVerbosity::Type>(Verbosity & ELogVerbosity::VerbosityMask);
	static const FName LogHttpName(TEXT("LogHttp"));
	if (Category == LogHttpName && Level == ELogVerbosity::Warning)
	{
		std::lock_guard<std::mutex> Lock(Mutex);
		TransportFailure = "LogHttp: " + ToUtf8(Text);
		if (!bVerbose)
		{
			return;
		}
	}
	if (!bVerbose && Level > ELogVerbosity::Warning)
	{
		return;
	}
	std::fprintf(stderr, "%s: %s: %s\n", ToUtf8(Category.ToString()).c_str(), TCHAR_TO_UTF8(ToString(Level)), TCHAR_TO_UTF8(Text));
}

std::string FConsoleLogDevice::TakeTransportFailure()
{
	std::lock_guard<std::mutex> Lock(Mutex);
	return std::exchange(TransportFailure, std::string());
}
