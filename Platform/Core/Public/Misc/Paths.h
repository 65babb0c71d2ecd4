#pragma once

#include "CoreTypes.h"
#include "Containers/StringView.h"
#include "Containers/UnrealString.h"

/**
 * Path helpers and the well-known folders. Paths use forward slashes; folder getters end with '/'.
 *
 * The engine gives the folders relative to its binaries (e.g. "../../../MyGame/"); this one gives them
 * absolute and normalised. The project's folders come from FStandInProject (Misc/StandInProject.h).
 */
class FPaths
{
public:
	static FString LaunchDir();
	static FString RootDir();
	static FString EngineDir();
	static FString EngineContentDir();
	static FString EngineConfigDir();
	static FString EngineIntermediateDir();
	static FString EngineSavedDir();
	static FString EnginePluginsDir();
	static FString EngineSourceDir();

	static FString ProjectDir();
	static FString ProjectUserDir();
	static FString ProjectContentDir();
	static FString ProjectConfigDir();
	static FString ProjectSavedDir();
	static FString ProjectIntermediateDir();
	static FString ProjectPluginsDir();
	static FString ProjectLogDir();
	static FString GameSourceDir();
	static FString GeneratedConfigDir();
	static FString SourceConfigDir();

	/** The full path of the .uproject file, or empty when no project is set. */
	static const FString& GetProjectFilePath();
	static void SetProjectFilePath(const FString& NewGameProjectFilePath);
	static bool IsProjectFilePathSet();

	/** Everything after the last slash (or backslash); the whole path when there is none. */
	static FString GetCleanFilename(const FString& InPath);
	/** The clean filename without its extension; with bRemovePath false the directory part stays. */
	static FString GetBaseFilename(const FString& InPath, bool bRemovePath = true);
	/** Everything before the last slash; empty when there is none. */
	static FString GetPath(const FString& InPath);
	/** The last element, also when the path ends with a slash ("a/b/" gives "b"). */
	static FString GetPathLeaf(const FString& InPath);
	/** The text after the last dot of the clean filename, with the dot when asked; empty without a dot. */
	static FString GetExtension(const FString& InPath, bool bIncludeDot = false);
	/** Replaces an existing extension; a path without one is returned as it is. */
	static FString ChangeExtension(const FString& InPath, const FString& InNewExtension);
	/** Replaces the extension, or adds it when there is none. */
	static FString SetExtension(const FString& InPath, const FString& InNewExtension);

	static bool FileExists(const FString& InPath);
	static bool DirectoryExists(const FString& InPath);

	/** True for "X:", "X:/" and "X:\" style drives and for the root "/". */
	static bool IsDrive(const FString& InPath);
	static bool IsRelative(const FString& InPath);

	/** Backslashes become slashes. */
	static void NormalizeFilename(FString& InPath);
	/** As NormalizeFilename, then drops one trailing slash unless it follows another slash or a colon. */
	static void NormalizeDirectoryName(FString& InPath);
	/** Removes "." elements and folds "x/.." pairs; false (with what could be folded done) when ".." climbs past the start. */
	static bool CollapseRelativeDirectories(FString& InPath);
	static void RemoveDuplicateSlashes(FString& InPath);

	/** A relative path is taken from the process's working directory (the engine takes its binaries' folder). */
	static FString ConvertRelativePathToFull(const FString& InPath);
	/** An absolute InPath stays; a relative one is joined to BasePath. Either way normalised and collapsed. */
	static FString ConvertRelativePathToFull(const FString& BasePath, const FString& InPath);

	/**
	 * Rewrites InPath relative to the folder of InRelativeTo (its text up to the last slash, so a folder needs
	 * its trailing slash). False when the two have no common root.
	 */
	static bool MakePathRelativeTo(FString& InPath, const TCHAR* InRelativeTo);
	/** Absolute, normalised and collapsed (the engine makes it relative to its binaries where it can). */
	static void MakeStandardFilename(FString& InPath);
	/** Compares the full forms; case matters, as on the file systems of this platform. */
	static bool IsSamePath(const FString& PathA, const FString& PathB);
	/** True when InPath is InDirectory or below it. */
	static bool IsUnderDirectory(const FString& InPath, const FString& InDirectory);

	static void Split(const FString& InPath, FString& PathPart, FString& FilenamePart, FString& ExtensionPart);

	/** A name in Path that no file has yet: Prefix, a new GUID, then Extension (with its dot). */
	static FString CreateTempFilename(const TCHAR* Path, const TCHAR* Prefix = TEXT(""), const TCHAR* Extension = TEXT(".tmp"));

	/** Joins the parts with one slash between each; empty parts are skipped. */
	template<typename... PathTypes>
	static FString Combine(PathTypes&&... InPaths)
	{
		const FStringView Parts[] = {ToView(InPaths)...};
		return CombineInternal(Parts, (int32)sizeof...(PathTypes));
	}

protected:
	static FString CombineInternal(const FStringView* Paths, int32 NumPaths);

private:
	static FStringView ToView(const FString& Path)
	{
		return FStringView(*Path, Path.Len());
	}
	static FStringView ToView(const TCHAR* Path)
	{
		return Path != nullptr ? FStringView(Path) : FStringView();
	}
	static FStringView ToView(FStringView Path)
	{
		return Path;
	}
};
