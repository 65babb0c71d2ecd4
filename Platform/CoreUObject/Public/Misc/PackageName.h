// FPackageName: between long package names ("/Game/Maps/Main"), object paths and files on disk.
// "/Game/" is the project's Content folder and "/Engine/" the engine's; more roots can be mounted.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class COREUOBJECT_API FPackageName
{
public:
	// ".uasset" and ".umap", with the dot.
	static const FString& GetAssetPackageExtension();
	static const FString& GetMapPackageExtension();
	static const FString& GetTextAssetPackageExtension();
	static bool IsPackageExtension(const TCHAR* Ext);

	// The file of a package on disk; the extension is appended as given. Fails for names outside every mount point.
	static bool TryConvertLongPackageNameToFilename(const FString& InLongPackageName, FString& OutFilename, const FString& InExtension = FString());
	// As the Try form; a name outside every mount point gives the name itself with the extension, and a log line.
	static FString LongPackageNameToFilename(const FString& InLongPackageName, const FString& InExtension = FString());
	// The long package name of a file under a mount point's folder; the extension is dropped.
	static bool TryConvertFilenameToLongPackageName(const FString& InFilename, FString& OutPackageName, FString* OutFailureReason = nullptr);
	static FString FilenameToLongPackageName(const FString& InFilename);
	static bool TryConvertToMountedPath(const FString& InFilePathOrPackageName, FString* OutLocalPathNoExtension, FString* OutPackageName, FString* OutObjectName, FString* OutSubObjectName, FString* OutExtension);

	// "/Game/Maps/Main" -> "/Game/Maps".
	static FString GetLongPackagePath(const FString& InLongPackageName);
	// "/Game/Maps/Main" -> "Main".
	static FString GetShortName(const FString& LongName);
	static FString GetShortName(const FName& LongName);
	static FString GetShortName(const TCHAR* LongName)
	{
		return GetShortName(FString(LongName));
	}
	static FName GetShortFName(const FString& LongName);
	static FName GetShortFName(const FName& LongName);
	// The mount point a name begins with, such as "/Game/", or none.
	static FName GetPackageMountPoint(const FString& InPackagePath, bool InWithoutSlashes = true);

	// Rooted at a mount point, no empty parts, no characters the engine forbids.
	static bool IsValidLongPackageName(const FString& InLongPackageName, bool bIncludeReadOnlyRoots = false, FText* OutReason = nullptr);
	static bool IsValidObjectPath(const FString& InObjectPath, FText* OutReason = nullptr);
	static bool IsShortPackageName(const FString& PossiblyLongName);
	static bool IsShortPackageName(const FName PossiblyLongName);
	static bool IsShortPackageName(const TCHAR* PossiblyLongName)
	{
		return IsShortPackageName(FString(PossiblyLongName));
	}
	static bool IsScriptPackage(const FString& InPackageName);
	static bool IsValidPath(const FString& InPath);

	// True when the package's file exists; OutFilename gets it (.uasset or .umap).
	static bool DoesPackageExist(const FString& LongPackageName, FString* OutFilename = nullptr, bool InAllowTextFormats = true);

	// "/Game/Maps/Main.Main:Sub" -> "/Game/Maps/Main".
	static FString ObjectPathToPackageName(const FString& InObjectPath);
	// "/Game/Maps/Main.Main:Sub" -> "Main:Sub".
	static FString ObjectPathToPathWithinPackage(const FString& InObjectPath);
	// "/Game/Maps/Main.Main:Sub" -> "Sub"; "/Game/Maps/Main.Main" -> "Main".
	static FString ObjectPathToObjectName(const FString& InObjectPath);
	// "/Script/Engine.Actor'/Game/A.A'" -> "/Game/A.A"; text without quotes comes back as it is.
	static FString ExportTextPathToObjectPath(const FString& InExportTextPath);
	static FString ObjectPathCombine(const FString& LongPackageName, const FString& ObjectName);

	// Maps a root such as "/MyPlugin/" to a folder on disk.
	static void RegisterMountPoint(const FString& RootPath, const FString& ContentPath);
	static void UnRegisterMountPoint(const FString& RootPath, const FString& ContentPath);
	static bool MountPointExists(const FString& RootPath);
	// The mounted roots and their folders, "/Game/" and "/Engine/" first.
	static void QueryRootContentPaths(TArray<FString>& OutRootContentPaths, bool bIncludeReadOnlyRoots = false, bool bWithoutLeadingSlashes = false, bool bWithoutTrailingSlashes = false);
};
