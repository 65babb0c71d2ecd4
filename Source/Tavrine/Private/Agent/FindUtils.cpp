#include "Agent/FindUtils.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "FileTextSearch.h"
#include "HAL/FileManager.h"
#include "Misc/Paths.h"
#include "Serialization/JsonSerializer.h"
#include "Serialization/JsonWriter.h"

FString FTavrineFindUtils::FindInAllFiles(const FString& ReferenceString)
{
	TSharedPtr<FJsonObject> Result = MakeShared<FJsonObject>();
	Result->SetStringField(TEXT("reference_string"), ReferenceString);
	FindInAllCppFiles(ReferenceString, Result);
	FindInAllBlueprintFiles(ReferenceString, Result);

	FString Text;
	const TSharedRef<TJsonWriter<>> Writer = TJsonWriterFactory<>::Create(&Text);
	FJsonSerializer::Serialize(Result.ToSharedRef(), Writer);
	return Text;
}

void FTavrineFindUtils::FindInAllCppFiles(const FString& ReferenceString, TSharedPtr<FJsonObject>& Result)
{
	auto FullDirectory = [](const TCHAR* Name)
	{
		FString Directory = FPaths::Combine(FPaths::ProjectDir(), Name);
		FPaths::NormalizeDirectoryName(Directory);
		return FPaths::ConvertRelativePathToFull(Directory);
	};
	const FString SourceDirectory = FullDirectory(TEXT("Source"));
	const FString PluginsDirectory = FullDirectory(TEXT("Plugins"));

	// Sources before plugins, and in each the .cpp files before the headers.
	TArray<FString> Files;
	TArray<FString> Found;
	const FString* const Directories[] = { &SourceDirectory, &PluginsDirectory };
	const TCHAR* const Patterns[] = { TEXT("*.cpp"), TEXT("*.h") };
	for (const FString* Directory : Directories)
	{
		for (const TCHAR* Pattern : Patterns)
		{
			IFileManager::Get().FindFilesRecursive(Found, **Directory, Pattern, true, false, true);
			Files.Append(Found);
		}
	}

	TArray<TSharedPtr<FJsonValue>> References;
	FFileTextSearch Search(ReferenceString);
	for (const FString& File : Files)
	{
		const bool bPathMatches = File.Contains(ReferenceString, ESearchCase::IgnoreCase);
		bool bContains = false;
		if (!Search.Search(File, bPathMatches, bContains) || !bContains)
		{
			continue;
		}
		const TSharedRef<FJsonObject> Reference = MakeShared<FJsonObject>();
		Reference->SetStringField(TEXT("Type"), TEXT("cpp or h File"));
		Reference->SetStringField(TEXT("Name"), FPaths::GetCleanFilename(File));
		Reference->SetStringField(TEXT("Path"), File);
		References.Add(MakeShared<FJsonValueObject>(Reference));
	}
	Result->SetArrayField(TEXT("cpp_references"), References);
}
