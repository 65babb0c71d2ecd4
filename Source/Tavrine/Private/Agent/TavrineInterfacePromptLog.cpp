// The daily prompt log in the plugin's folder, and the retention policy applied to it at start.
#include "Agent/TavrineInterface.h"

#include "HAL/FileManager.h"
#include "HAL/PlatformFileManager.h"
#include "Misc/DateTime.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "TavrineSettings.h"

namespace
{
	IPlatformFile& PlatformFile()
	{
		return FPlatformFileManager::Get().GetPlatformFile();
	}
}

void FTavrineInterface::StartPromptLog()
{
	LogDirectory = FPaths::Combine(FPaths::ProjectPluginsDir(), TEXT("tavrine-unreal"), TEXT("Logs"));
	EnsureLogDirectoryExists();

	const UTavrineSettings* Settings = GetDefault<UTavrineSettings>();
	if (Settings == nullptr)
	{
		return;
	}
	switch (Settings->LogRetentionPolicy)
	{
	case ETavrineLogDeletionPolicy::DeleteAllOnStart:
		DeleteAllLogs();
		break;
	case ETavrineLogDeletionPolicy::KeepLast30Days:
		DeleteOldLogs(30);
		break;
	case ETavrineLogDeletionPolicy::KeepAll:
		break;
	}
}

FString FTavrineInterface::GetPromptLogFilePath() const
{
	// Before the facade has started there is no log folder, and a bare file name would land in the
	// editor's working folder.
	if (LogDirectory.IsEmpty())
	{
		return FString();
	}
	const FString Date = FDateTime::Now().ToString(TEXT("%Y-%m-%d"));
	return FPaths::Combine(LogDirectory, FString::Printf(TEXT("TavrinePrompts_%s.log"), *Date));
}

void FTavrineInterface::TavrineInterfaceLogString(const FString& Text, const FString& FilePath, bool bWithTimestamp)
{
	if (FilePath.IsEmpty())
	{
		return;
	}
	EnsureLogDirectoryExists();
	const FString Line = bWithTimestamp
		? FString::Printf(TEXT("\n[%s] %s\n\n"), *FDateTime::Now().ToString(TEXT("%H:%M:%S")), *Text)
		: FString::Printf(TEXT("%s\n"), *Text);
	FFileHelper::SaveStringToFile(Line, *FilePath, FFileHelper::EEncodingOptions::ForceUTF8, &IFileManager::Get(), FILEWRITE_Append);
}

void FTavrineInterface::EnsureLogDirectoryExists()
{
	// The whole tree: outside an installed plugin, the plugin's own folder may not be there either.
	if (!LogDirectory.IsEmpty() && !PlatformFile().DirectoryExists(*LogDirectory))
	{
		PlatformFile().CreateDirectoryTree(*LogDirectory);
	}
}

TArray<FString> FTavrineInterface::GetAllLogFiles() const
{
	TArray<FString> Files;
	if (!LogDirectory.IsEmpty() && PlatformFile().DirectoryExists(*LogDirectory))
	{
		PlatformFile().FindFiles(Files, *LogDirectory, TEXT(".log"));
	}
	return Files;
}

bool FTavrineInterface::IsLogFileOlderThanDays(const FString& FilePath, int32 Days) const
{
	// File times are UTC, so the age is taken against UTC: the local offset would age every file by hours.
	const FTimespan Age = FDateTime::UtcNow() - PlatformFile().GetTimeStamp(*FilePath);
	const double AgeInDays = static_cast<double>(Age.GetTicks()) / static_cast<double>(ETimespan::TicksPerDay);
	return AgeInDays > static_cast<double>(Days);
}

void FTavrineInterface::DeleteOldLogs(int32 Days)
{
	for (const FString& File : GetAllLogFiles())
	{
		if (IsLogFileOlderThanDays(File, Days))
		{
			PlatformFile().DeleteFile(*File);
		}
	}
}

void FTavrineInterface::DeleteAllLogs()
{
	for (const FString& File : GetAllLogFiles())
	{
		PlatformFile().DeleteFile(*File);
	}
}
