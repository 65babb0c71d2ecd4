#include "HostProject.h"

#include "CoreMinimal.h"
#include "Misc/ConfigCacheIni.h"
#include "Misc/FileHelper.h"

#include <filesystem>
#include <system_error>

namespace Fs = std::filesystem;

std::string ResolveProjectFile(const std::string& ProjectPath, std::string& Error)
{
	std::error_code Code;
	Fs::path Path = Fs::absolute(ProjectPath, Code);
	if (Code || !Fs::exists(Path, Code))
	{
		Error = "project '" + ProjectPath + "' does not exist";
		return {};
	}
	Fs::path ProjectFile;
	if (Fs::is_regular_file(Path, Code))
	{
		if (Path.extension() != ".uproject")
		{
			Error = "'" + ProjectPath + "' is not a .uproject file";
			return {};
		}
		ProjectFile = Path;
	}
	else
	{
		for (const Fs::directory_entry& Entry : Fs::directory_iterator(Path, Code))
		{
			if (Entry.is_regular_file() && Entry.path().extension() == ".uproject")
			{
				if (!ProjectFile.empty())
				{
					Error = "'" + ProjectPath + "' holds more than one .uproject file; name one";
					return {};
				}
				ProjectFile = Entry.path();
			}
		}
		if (ProjectFile.empty())
		{
			Error = "'" + ProjectPath + "' has no .uproject file";
			return {};
		}
	}
	const Fs::path ProjectDir = ProjectFile.parent_path();
	for (const char* Folder : {"Config", "Source", "Content"})
	{
		if (!Fs::is_directory(ProjectDir / Folder, Code))
		{
			Error = "project folder '" + ProjectDir.string() + "' has no " + Folder + "/ folder";
			return {};
		}
	}
	return Fs::weakly_canonical(ProjectFile, Code).string();
}

std::string CheckPluginIni(const std::string& ProjectDir)
{
	const Fs::path IniPath = Fs::path(ProjectDir) / "Config" / "DefaultPlugin.ini";
	std::error_code Code;
	if (!Fs::exists(IniPath, Code))
	{
		return {};
	}
	FString Text;
	if (!FFileHelper::LoadFileToString(Text, *FString(IniPath.string().c_str())))
	{
		return IniPath.string() + " can't be read";
	}
	FConfigFile Ini;
	Ini.ProcessInputFileContents(Text, FString(IniPath.string().c_str()));
	FString Stage;
	if (!Ini.GetString(TEXT("Tavrine"), TEXT("Stage"), Stage) || Stage.IsEmpty())
	{
		return IniPath.string() + " has no Stage in its [Tavrine] section";
	}
	const TCHAR* UrlKey = Stage == TEXT("Dev") ? TEXT("DevApiUrl") : Stage == TEXT("Sandbox") ? TEXT("SandboxApiUrl") : Stage == TEXT("Sandbox2") ? TEXT("Sandbox2ApiUrl") : nullptr;
	if (!UrlKey)
	{
		return IniPath.string() + ": unknown Stage '" + TCHAR_TO_UTF8(*Stage) + "' (Dev, Sandbox or Sandbox2)";
	}
	FString Url;
	if (!Ini.GetString(TEXT("Tavrine"), UrlKey, Url) || Url.IsEmpty())
	{
		return IniPath.string() + ": the stage " + TCHAR_TO_UTF8(*Stage) + " has no " + TCHAR_TO_UTF8(UrlKey);
	}
	return {};
}
