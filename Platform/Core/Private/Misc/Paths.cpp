#include "Misc/Paths.h"

#include "Containers/Array.h"
#include "HAL/FileManager.h"
#include "Misc/Guid.h"
#include "Misc/StandInProject.h"

namespace
{
	bool IsSlashOrBackslash(TCHAR Char)
	{
		return Char == TEXT('/') || Char == TEXT('\\');
	}

	bool IsAsciiAlpha(TCHAR Char)
	{
		return (Char >= TEXT('a') && Char <= TEXT('z')) || (Char >= TEXT('A') && Char <= TEXT('Z'));
	}

	// "X:" alone, the one element that ".." may never remove.
	bool IsDriveElement(const FString& Element)
	{
		return Element.Len() == 2 && Element[1] == TEXT(':') && IsAsciiAlpha(Element[0]);
	}

	int32 FindLastSeparator(const FString& Path)
	{
		return Path.FindLastCharByPredicate(IsSlashOrBackslash);
	}

	// Index of the dot that starts the extension of the last element, or INDEX_NONE.
	int32 FindExtensionDot(const FString& Path)
	{
		int32 DotIndex = INDEX_NONE;
		if (!Path.FindLastChar(TEXT('.'), DotIndex))
		{
			return INDEX_NONE;
		}
		const int32 SeparatorIndex = FindLastSeparator(Path);
		return (SeparatorIndex != INDEX_NONE && SeparatorIndex > DotIndex) ? INDEX_NONE : DotIndex;
	}

	// The elements of an absolute, normalised path without empty ones.
	void SplitElements(const FString& Path, TArray<FString>& OutElements)
	{
		Path.ParseIntoArray(OutElements, TEXT("/"), true);
	}
}

FString FPaths::LaunchDir()
{
	return FStandInProject::GetWorkingDir();
}

FString FPaths::RootDir()
{
	FString Engine = EngineDir();
	Engine.LeftChopInline(1);
	const FString Parent = GetPath(Engine);
	return Parent.IsEmpty() ? FString(TEXT("/")) : Parent + TEXT("/");
}

FString FPaths::EngineDir()
{
	return FStandInProject::GetEngineDir();
}

FString FPaths::EngineContentDir()
{
	return EngineDir() + TEXT("Content/");
}

FString FPaths::EngineConfigDir()
{
	return EngineDir() + TEXT("Config/");
}

FString FPaths::EngineIntermediateDir()
{
	return EngineDir() + TEXT("Intermediate/");
}

FString FPaths::EngineSavedDir()
{
	return EngineDir() + TEXT("Saved/");
}

FString FPaths::EnginePluginsDir()
{
	return EngineDir() + TEXT("Plugins/");
}

FString FPaths::EngineSourceDir()
{
	return EngineDir() + TEXT("Source/");
}

FString FPaths::ProjectDir()
{
	return FStandInProject::GetProjectDir();
}

FString FPaths::ProjectUserDir()
{
	return ProjectDir();
}

FString FPaths::ProjectContentDir()
{
	return ProjectDir() + TEXT("Content/");
}

FString FPaths::ProjectConfigDir()
{
	return ProjectDir() + TEXT("Config/");
}

FString FPaths::ProjectSavedDir()
{
	return ProjectDir() + TEXT("Saved/");
}

FString FPaths::ProjectIntermediateDir()
{
	return ProjectDir() + TEXT("Intermediate/");
}

FString FPaths::ProjectPluginsDir()
{
	return ProjectDir() + TEXT("Plugins/");
}

FString FPaths::ProjectLogDir()
{
	return ProjectSavedDir() + TEXT("Logs/");
}

FString FPaths::GameSourceDir()
{
	return ProjectDir() + TEXT("Source/");
}

FString FPaths::GeneratedConfigDir()
{
	return ProjectSavedDir() + TEXT("Config/");
}

FString FPaths::SourceConfigDir()
{
	return ProjectConfigDir();
}

const FString& FPaths::GetProjectFilePath()
{
	// The engine hands out a reference; each thread keeps its own copy so the setter can't pull it away.
	thread_local FString ProjectFilePath;
	ProjectFilePath = FStandInProject::GetProjectFile();
	return ProjectFilePath;
}

void FPaths::SetProjectFilePath(const FString& NewGameProjectFilePath)
{
	FStandInProject::SetProjectFile(NewGameProjectFilePath);
}

bool FPaths::IsProjectFilePathSet()
{
	return !FStandInProject::GetProjectFile().IsEmpty();
}

FString FPaths::GetCleanFilename(const FString& InPath)
{
	const int32 SeparatorIndex = FindLastSeparator(InPath);
	return SeparatorIndex == INDEX_NONE ? InPath : InPath.RightChop(SeparatorIndex + 1);
}

FString FPaths::GetBaseFilename(const FString& InPath, bool bRemovePath)
{
	FString Result = bRemovePath ? GetCleanFilename(InPath) : InPath;
	const int32 DotIndex = FindExtensionDot(Result);
	if (DotIndex != INDEX_NONE)
	{
		Result.LeftInline(DotIndex);
	}
	return Result;
}

FString FPaths::GetPath(const FString& InPath)
{
	const int32 SeparatorIndex = FindLastSeparator(InPath);
	return SeparatorIndex == INDEX_NONE ? FString() : InPath.Left(SeparatorIndex);
}

FString FPaths::GetPathLeaf(const FString& InPath)
{
	if (!InPath.IsEmpty() && IsSlashOrBackslash(InPath[InPath.Len() - 1]))
	{
		return GetCleanFilename(InPath.LeftChop(1));
	}
	return GetCleanFilename(InPath);
}

FString FPaths::GetExtension(const FString& InPath, bool bIncludeDot)
{
	const FString Filename = GetCleanFilename(InPath);
	int32 DotIndex = INDEX_NONE;
	if (!Filename.FindLastChar(TEXT('.'), DotIndex))
	{
		return FString();
	}
	return Filename.Mid(DotIndex + (bIncludeDot ? 0 : 1));
}

FString FPaths::ChangeExtension(const FString& InPath, const FString& InNewExtension)
{
	const int32 DotIndex = FindExtensionDot(InPath);
	if (DotIndex == INDEX_NONE)
	{
		return InPath;
	}
	FString Result = InPath.Left(DotIndex);
	if (!InNewExtension.IsEmpty() && InNewExtension[0] != TEXT('.'))
	{
		Result.AppendChar(TEXT('.'));
	}
	Result += InNewExtension;
	return Result;
}

FString FPaths::SetExtension(const FString& InPath, const FString& InNewExtension)
{
	const int32 DotIndex = FindExtensionDot(InPath);
	FString Result = DotIndex == INDEX_NONE ? InPath : InPath.Left(DotIndex);
	if (!InNewExtension.IsEmpty() && InNewExtension[0] != TEXT('.'))
	{
		Result.AppendChar(TEXT('.'));
	}
	Result += InNewExtension;
	return Result;
}

bool FPaths::FileExists(const FString& InPath)
{
	return IFileManager::Get().FileExists(*InPath);
}

bool FPaths::DirectoryExists(const FString& InPath)
{
	return IFileManager::Get().DirectoryExists(*InPath);
}

bool FPaths::IsDrive(const FString& InPath)
{
	if (InPath == TEXT("/"))
	{
		return true;
	}
	if (InPath.Len() < 2 || InPath.Len() > 3 || InPath[1] != TEXT(':') || !IsAsciiAlpha(InPath[0]))
	{
		return false;
	}
	return InPath.Len() == 2 || IsSlashOrBackslash(InPath[2]);
}

bool FPaths::IsRelative(const FString& InPath)
{
	if (InPath.IsEmpty())
	{
		return true;
	}
	if (IsSlashOrBackslash(InPath[0]))
	{
		return false;
	}
	return !(InPath.Len() >= 2 && InPath[1] == TEXT(':') && IsAsciiAlpha(InPath[0]));
}

void FPaths::NormalizeFilename(FString& InPath)
{
	InPath.ReplaceCharInline(TEXT('\\'), TEXT('/'), ESearchCase::CaseSensitive);
}

void FPaths::NormalizeDirectoryName(FString& InPath)
{
	NormalizeFilename(InPath);
	const int32 Length = InPath.Len();
	if (Length > 0 && InPath[Length - 1] == TEXT('/'))
	{
		const bool bKeep = Length > 1 && (InPath[Length - 2] == TEXT('/') || InPath[Length - 2] == TEXT(':'));
		if (!bKeep)
		{
			InPath.LeftChopInline(1);
		}
	}
}

bool FPaths::CollapseRelativeDirectories(FString& InPath)
{
	if (InPath.IsEmpty())
	{
		return true;
	}
	int32 RootLength = 0;
	while (RootLength < InPath.Len() && InPath[RootLength] == TEXT('/'))
	{
		++RootLength;
	}
	const FString Root = InPath.Left(RootLength);

	// Keep empty elements: they stand for doubled and trailing slashes, which stay as they were.
	TArray<FString> Elements;
	int32 ElementStart = RootLength;
	for (int32 Index = RootLength; Index <= InPath.Len(); ++Index)
	{
		if (Index == InPath.Len() || InPath[Index] == TEXT('/'))
		{
			Elements.Add(InPath.Mid(ElementStart, Index - ElementStart));
			ElementStart = Index + 1;
		}
	}

	TArray<FString> Kept;
	bool bCollapsed = true;
	for (int32 Index = 0; Index < Elements.Num(); ++Index)
	{
		const FString& Element = Elements[Index];
		const bool bLast = Index == Elements.Num() - 1;
		if (Element == TEXT("."))
		{
			if (bLast && Kept.Num() > 0)
			{
				Kept.Add(FString());
			}
			continue;
		}
		if (Element.Equals(TEXT("..")))
		{
			const bool bCanFold = Kept.Num() > 0 && !Kept.Last().Equals(TEXT("..")) && !IsDriveElement(Kept.Last());
			if (bCanFold)
			{
				Kept.Pop();
				continue;
			}
			// Climbing past the start: the rest stays as it is.
			bCollapsed = false;
			for (int32 Rest = Index; Rest < Elements.Num(); ++Rest)
			{
				Kept.Add(Elements[Rest]);
			}
			break;
		}
		Kept.Add(Element);
	}

	InPath = Root + FString::Join(Kept, TEXT("/"));
	return bCollapsed;
}

void FPaths::RemoveDuplicateSlashes(FString& InPath)
{
	while (InPath.Contains(TEXT("//"), ESearchCase::CaseSensitive))
	{
		InPath.ReplaceInline(TEXT("//"), TEXT("/"), ESearchCase::CaseSensitive);
	}
}

FString FPaths::ConvertRelativePathToFull(const FString& InPath)
{
	return ConvertRelativePathToFull(FStandInProject::GetWorkingDir(), InPath);
}

FString FPaths::ConvertRelativePathToFull(const FString& BasePath, const FString& InPath)
{
	FString FullPath;
	if (IsRelative(InPath))
	{
		FullPath = BasePath;
		if (InPath.IsEmpty())
		{
			// Joining nothing still marks the base as a folder.
			if (!FullPath.IsEmpty() && !IsSlashOrBackslash(FullPath[FullPath.Len() - 1]))
			{
				FullPath.AppendChar(TEXT('/'));
			}
		}
		else
		{
			FullPath.PathAppend(*InPath, InPath.Len());
		}
	}
	else
	{
		FullPath = InPath;
	}
	NormalizeFilename(FullPath);
	CollapseRelativeDirectories(FullPath);
	if (FullPath.IsEmpty())
	{
		FullPath = TEXT("/");
	}
	return FullPath;
}

bool FPaths::MakePathRelativeTo(FString& InPath, const TCHAR* InRelativeTo)
{
	const FString Target = ConvertRelativePathToFull(InPath);
	const FString Source = ConvertRelativePathToFull(FString(InRelativeTo != nullptr ? InRelativeTo : TEXT("")));

	TArray<FString> TargetElements;
	TArray<FString> SourceElements;
	SplitElements(Target, TargetElements);
	SplitElements(GetPath(Source), SourceElements);

	const bool bTargetOnDrive = TargetElements.Num() > 0 && IsDriveElement(TargetElements[0]);
	const bool bSourceOnDrive = SourceElements.Num() > 0 && IsDriveElement(SourceElements[0]);
	if (bTargetOnDrive != bSourceOnDrive || (bTargetOnDrive && !TargetElements[0].Equals(SourceElements[0], ESearchCase::IgnoreCase)))
	{
		return false;
	}

	// Folder names match as FString compares them, without case.
	int32 Common = 0;
	while (Common < TargetElements.Num() && Common < SourceElements.Num() && TargetElements[Common] == SourceElements[Common])
	{
		++Common;
	}

	FString Result;
	for (int32 Index = Common; Index < SourceElements.Num(); ++Index)
	{
		Result += TEXT("../");
	}
	for (int32 Index = Common; Index < TargetElements.Num(); ++Index)
	{
		Result += TargetElements[Index];
		if (Index + 1 < TargetElements.Num())
		{
			Result.AppendChar(TEXT('/'));
		}
	}
	// The result names a folder with a final slash only when the target did.
	const bool bTargetIsFolder = Target.EndsWith(TEXT("/"), ESearchCase::CaseSensitive);
	if (bTargetIsFolder && !Result.IsEmpty() && !Result.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
	{
		Result.AppendChar(TEXT('/'));
	}
	else if (!bTargetIsFolder && Result.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
	{
		Result.LeftChopInline(1);
	}
	InPath = Result;
	return true;
}

void FPaths::MakeStandardFilename(FString& InPath)
{
	if (InPath.IsEmpty())
	{
		return;
	}
	InPath = ConvertRelativePathToFull(InPath);
}

bool FPaths::IsSamePath(const FString& PathA, const FString& PathB)
{
	FString FullA = ConvertRelativePathToFull(PathA);
	FString FullB = ConvertRelativePathToFull(PathB);
	// A folder with and without its final slash is the same folder.
	if (FullA.Len() > 1 && FullA.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
	{
		FullA.LeftChopInline(1);
	}
	if (FullB.Len() > 1 && FullB.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
	{
		FullB.LeftChopInline(1);
	}
	return FullA.Equals(FullB, ESearchCase::CaseSensitive);
}

bool FPaths::IsUnderDirectory(const FString& InPath, const FString& InDirectory)
{
	const FString Path = ConvertRelativePathToFull(InPath);
	FString Directory = ConvertRelativePathToFull(InDirectory);
	if (Directory.Len() > 1 && Directory.EndsWith(TEXT("/"), ESearchCase::CaseSensitive))
	{
		Directory.LeftChopInline(1);
	}
	if (Directory == TEXT("/"))
	{
		return Path.StartsWith(TEXT("/"), ESearchCase::CaseSensitive);
	}
	if (!Path.StartsWith(Directory, ESearchCase::CaseSensitive))
	{
		return false;
	}
	return Path.Len() == Directory.Len() || Path[Directory.Len()] == TEXT('/');
}

void FPaths::Split(const FString& InPath, FString& PathPart, FString& FilenamePart, FString& ExtensionPart)
{
	PathPart = GetPath(InPath);
	FilenamePart = GetBaseFilename(InPath);
	ExtensionPart = GetExtension(InPath);
}

FString FPaths::CreateTempFilename(const TCHAR* Path, const TCHAR* Prefix, const TCHAR* Extension)
{
	const FString Directory(Path != nullptr ? Path : TEXT(""));
	FString Candidate;
	do
	{
		FString Name(Prefix != nullptr ? Prefix : TEXT(""));
		Name += FGuid::NewGuid().ToString();
		Name += Extension != nullptr ? Extension : TEXT("");
		Candidate = Combine(Directory, Name);
	}
	while (IFileManager::Get().FileSize(*Candidate) >= 0);
	return Candidate;
}

FString FPaths::CombineInternal(const FStringView* Paths, int32 NumPaths)
{
	FString Result;
	if (NumPaths <= 0)
	{
		return Result;
	}
	int32 TotalLength = NumPaths;
	for (int32 Index = 0; Index < NumPaths; ++Index)
	{
		TotalLength += Paths[Index].Len();
	}
	Result.Reserve(TotalLength);
	Result.Append(Paths[0].GetData(), Paths[0].Len());
	for (int32 Index = 1; Index < NumPaths; ++Index)
	{
		// The path operator of FString, so that Combine and "/" always agree.
		Result.PathAppend(Paths[Index].GetData(), Paths[Index].Len());
	}
	return Result;
}
