#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "HAL/FileManager.h"
#include "CoreUObjectLog.h"
#include <mutex>

namespace
{
	struct FMountPoint
	{
		FString RootPath;
		FString ContentPath;
	};

	std::mutex& MountMutex()
	{
		static std::mutex Mutex;
		return Mutex;
	}

	TArray<FMountPoint>& RegisteredMounts()
	{
		static TArray<FMountPoint> Mounts;
		return Mounts;
	}

	// The mounted roots with their folders now: the project and engine folders may be set at any time.
	TArray<FMountPoint> AllMounts()
	{
		TArray<FMountPoint> Mounts;
		Mounts.Add({TEXT("/Game/"), FPaths::ProjectContentDir()});
		Mounts.Add({TEXT("/Engine/"), FPaths::EngineContentDir()});
		std::lock_guard<std::mutex> Guard(MountMutex());
		Mounts.Append(RegisteredMounts());
		return Mounts;
	}

	FString NormalizedFolder(const FString& Folder)
	{
		FString Result = FPaths::ConvertRelativePathToFull(Folder);
		FPaths::NormalizeFilename(Result);
		if (!Result.EndsWith(TEXT("/")))
		{
			Result.AppendChar(TEXT('/'));
		}
		return Result;
	}

	// Characters the engine doesn't allow in package names.
	const TCHAR* const InvalidLongPackageCharacters = TEXT("\\:*?\"<>|' ,.&!~\n\r\t@#");
}

const FString& FPackageName::GetAssetPackageExtension()
{
	static const FString Extension(TEXT(".uasset"));
	return Extension;
}

const FString& FPackageName::GetMapPackageExtension()
{
	static const FString Extension(TEXT(".umap"));
	return Extension;
}

const FString& FPackageName::GetTextAssetPackageExtension()
{
	static const FString Extension(TEXT(".utxt"));
	return Extension;
}

bool FPackageName::IsPackageExtension(const TCHAR* Ext)
{
	if (Ext == nullptr)
	{
		return false;
	}
	const FString Extension = *Ext == TEXT('.') ? FString(Ext) : FString(TEXT(".")) + Ext;
	return Extension.Equals(GetAssetPackageExtension(), ESearchCase::IgnoreCase) || Extension.Equals(GetMapPackageExtension(), ESearchCase::IgnoreCase);
}

bool FPackageName::TryConvertLongPackageNameToFilename(const FString& InLongPackageName, FString& OutFilename, const FString& InExtension)
{
	const FString PackageName = ObjectPathToPackageName(InLongPackageName);
	for (const FMountPoint& Mount : AllMounts())
	{
		if (PackageName.StartsWith(Mount.RootPath, ESearchCase::IgnoreCase))
		{
			OutFilename = Mount.ContentPath + PackageName.Mid(Mount.RootPath.Len()) + InExtension;
			return true;
		}
	}
	return false;
}

FString FPackageName::LongPackageNameToFilename(const FString& InLongPackageName, const FString& InExtension)
{
	FString Filename;
	if (!TryConvertLongPackageNameToFilename(InLongPackageName, Filename, InExtension))
	{
		UE_LOG(LogPackageName, Warning, TEXT("LongPackageNameToFilename: '%s' is not under a mounted root such as /Game/"), *InLongPackageName);
		return InLongPackageName + InExtension;
	}
	return Filename;
}

bool FPackageName::TryConvertFilenameToLongPackageName(const FString& InFilename, FString& OutPackageName, FString* OutFailureReason)
{
	FString Filename = FPaths::ConvertRelativePathToFull(InFilename);
	FPaths::NormalizeFilename(Filename);
	const FString Extension = FPaths::GetExtension(Filename, true);
	if (!Extension.IsEmpty() && IsPackageExtension(*Extension))
	{
		Filename.LeftChopInline(Extension.Len());
	}
	// The longest folder wins, so that a mount inside another mount's folder is found.
	const FMountPoint* Best = nullptr;
	FString BestFolder;
	const TArray<FMountPoint> Mounts = AllMounts();
	for (const FMountPoint& Mount : Mounts)
	{
		const FString Folder = NormalizedFolder(Mount.ContentPath);
		if (Filename.StartsWith(Folder, ESearchCase::CaseSensitive) && Folder.Len() > BestFolder.Len())
		{
			Best = &Mount;
			BestFolder = Folder;
		}
	}
	if (Best == nullptr)
	{
		if (OutFailureReason != nullptr)
		{
			*OutFailureReason = FString::Printf(TEXT("FilenameToLongPackageName failed to convert '%s'. Path does not map to any roots."), *InFilename);
		}
		return false;
	}
	OutPackageName = Best->RootPath + Filename.Mid(BestFolder.Len());
	return true;
}

FString FPackageName::FilenameToLongPackageName(const FString& InFilename)
{
	FString PackageName;
	FString FailureReason;
	if (!TryConvertFilenameToLongPackageName(InFilename, PackageName, &FailureReason))
	{
		UE_LOG(LogPackageName, Warning, TEXT("%s"), *FailureReason);
	}
	return PackageName;
}

bool FPackageName::TryConvertToMountedPath(const FString& InFilePathOrPackageName, FString* OutLocalPathNoExtension, FString* OutPackageName, FString* OutObjectName, FString* OutSubObjectName, FString* OutExtension)
{
	FString PackageName;
	FString ObjectPart;
	FString Extension;
	if (InFilePathOrPackageName.StartsWith(TEXT("/")) && !FPaths::FileExists(InFilePathOrPackageName))
	{
		const FString ObjectPath = ExportTextPathToObjectPath(InFilePathOrPackageName);
		PackageName = ObjectPathToPackageName(ObjectPath);
		ObjectPart = ObjectPath.Mid(PackageName.Len());
	}
	else if (!TryConvertFilenameToLongPackageName(InFilePathOrPackageName, PackageName))
	{
		return false;
	}
	else
	{
		Extension = FPaths::GetExtension(InFilePathOrPackageName, true);
	}
	FString LocalPath;
	if (!TryConvertLongPackageNameToFilename(PackageName, LocalPath))
	{
		return false;
	}
	if (OutLocalPathNoExtension != nullptr)
	{
		*OutLocalPathNoExtension = LocalPath;
	}
	if (OutPackageName != nullptr)
	{
		*OutPackageName = PackageName;
	}
	FString ObjectName;
	FString SubObjectName;
	if (ObjectPart.StartsWith(TEXT(".")))
	{
		ObjectName = ObjectPart.Mid(1);
		const int32 Colon = ObjectName.Find(TEXT(":"), ESearchCase::CaseSensitive);
		if (Colon != INDEX_NONE)
		{
			SubObjectName = ObjectName.Mid(Colon + 1);
			ObjectName = ObjectName.Left(Colon);
		}
	}
	if (OutObjectName != nullptr)
	{
		*OutObjectName = ObjectName;
	}
	if (OutSubObjectName != nullptr)
	{
		*OutSubObjectName = SubObjectName;
	}
	if (OutExtension != nullptr)
	{
		*OutExtension = Extension;
	}
	return true;
}

FString FPackageName::GetLongPackagePath(const FString& InLongPackageName)
{
	const int32 Slash = InLongPackageName.Find(TEXT("/"), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
	return Slash != INDEX_NONE ? InLongPackageName.Left(Slash) : InLongPackageName;
}

FString FPackageName::GetShortName(const FString& LongName)
{
	const int32 Slash = LongName.Find(TEXT("/"), ESearchCase::CaseSensitive, ESearchDir::FromEnd);
	return Slash != INDEX_NONE ? LongName.Mid(Slash + 1) : LongName;
}

FString FPackageName::GetShortName(const FName& LongName)
{
	return GetShortName(LongName.ToString());
}

FName FPackageName::GetShortFName(const FString& LongName)
{
	return FName(*GetShortName(LongName));
}

FName FPackageName::GetShortFName(const FName& LongName)
{
	return GetShortFName(LongName.ToString());
}

FName FPackageName::GetPackageMountPoint(const FString& InPackagePath, bool InWithoutSlashes)
{
	for (const FMountPoint& Mount : AllMounts())
	{
		if (InPackagePath.StartsWith(Mount.RootPath, ESearchCase::IgnoreCase))
		{
			return FName(*(InWithoutSlashes ? Mount.RootPath.Mid(1, Mount.RootPath.Len() - 2) : Mount.RootPath));
		}
	}
	return NAME_None;
}

bool FPackageName::IsValidLongPackageName(const FString& InLongPackageName, bool bIncludeReadOnlyRoots, FText* OutReason)
{
	auto Fail = [OutReason](const FString& Reason)
	{
		if (OutReason != nullptr)
		{
			*OutReason = FText::FromString(Reason);
		}
		return false;
	};
	if (InLongPackageName.IsEmpty())
	{
		return Fail(TEXT("Input is empty"));
	}
	if (!InLongPackageName.StartsWith(TEXT("/")))
	{
		return Fail(FString::Printf(TEXT("Path should start with a '/': %s"), *InLongPackageName));
	}
	if (InLongPackageName.EndsWith(TEXT("/")) || InLongPackageName.Contains(TEXT("//")))
	{
		return Fail(FString::Printf(TEXT("Path contains an empty part: %s"), *InLongPackageName));
	}
	for (const TCHAR* Invalid = InvalidLongPackageCharacters; *Invalid; ++Invalid)
	{
		if (InLongPackageName.Contains(FString(1, Invalid)))
		{
			return Fail(FString::Printf(TEXT("Path may not contain the following characters: %s"), InvalidLongPackageCharacters));
		}
	}
	bool bKnownRoot = !GetPackageMountPoint(InLongPackageName).IsNone() || InLongPackageName.StartsWith(TEXT("/Temp/")) || InLongPackageName.StartsWith(TEXT("/Memory/"));
	if (bIncludeReadOnlyRoots && IsScriptPackage(InLongPackageName))
	{
		bKnownRoot = true;
	}
	return bKnownRoot ? true : Fail(FString::Printf(TEXT("Path does not start with a valid root. Path must begin with: /Game/ or /Engine/: %s"), *InLongPackageName));
}

bool FPackageName::IsValidObjectPath(const FString& InObjectPath, FText* OutReason)
{
	const FString PackageName = ObjectPathToPackageName(InObjectPath);
	if (!IsValidLongPackageName(PackageName, true, OutReason))
	{
		return false;
	}
	const FString Rest = InObjectPath.Mid(PackageName.Len());
	if (!Rest.StartsWith(TEXT(".")) || Rest.Len() < 2)
	{
		if (OutReason != nullptr)
		{
			*OutReason = FText::FromString(TEXT("Object path should be of the form /Package/Path.Object"));
		}
		return false;
	}
	return true;
}

bool FPackageName::IsShortPackageName(const FString& PossiblyLongName)
{
	return !PossiblyLongName.Contains(TEXT("/"));
}

bool FPackageName::IsShortPackageName(const FName PossiblyLongName)
{
	return IsShortPackageName(PossiblyLongName.ToString());
}

bool FPackageName::IsScriptPackage(const FString& InPackageName)
{
	return InPackageName.StartsWith(TEXT("/Script/"));
}

bool FPackageName::IsValidPath(const FString& InPath)
{
	return !GetPackageMountPoint(InPath.EndsWith(TEXT("/")) ? InPath : InPath + TEXT("/")).IsNone();
}

bool FPackageName::DoesPackageExist(const FString& LongPackageName, FString* OutFilename, bool InAllowTextFormats)
{
	FString Base;
	if (!TryConvertLongPackageNameToFilename(LongPackageName, Base))
	{
		return false;
	}
	for (const FString* Extension : {&GetAssetPackageExtension(), &GetMapPackageExtension()})
	{
		const FString Candidate = Base + *Extension;
		if (IFileManager::Get().FileExists(*Candidate))
		{
			if (OutFilename != nullptr)
			{
				*OutFilename = Candidate;
			}
			return true;
		}
	}
	return false;
}

FString FPackageName::ObjectPathToPackageName(const FString& InObjectPath)
{
	const FString ObjectPath = ExportTextPathToObjectPath(InObjectPath);
	const int32 Dot = ObjectPath.Find(TEXT("."), ESearchCase::CaseSensitive);
	return Dot != INDEX_NONE ? ObjectPath.Left(Dot) : ObjectPath;
}

FString FPackageName::ObjectPathToPathWithinPackage(const FString& InObjectPath)
{
	const FString ObjectPath = ExportTextPathToObjectPath(InObjectPath);
	const int32 Dot = ObjectPath.Find(TEXT("."), ESearchCase::CaseSensitive);
	return Dot != INDEX_NONE ? ObjectPath.Mid(Dot + 1) : FString();
}

FString FPackageName::ObjectPathToObjectName(const FString& InObjectPath)
{
	const FString ObjectPath = ExportTextPathToObjectPath(InObjectPath);
	int32 Last = INDEX_NONE;
	for (int32 Index = ObjectPath.Len() - 1; Index >= 0; --Index)
	{
		if (ObjectPath[Index] == TEXT('.') || ObjectPath[Index] == TEXT(':'))
		{
			Last = Index;
			break;
		}
	}
	return Last != INDEX_NONE ? ObjectPath.Mid(Last + 1) : ObjectPath;
}

FString FPackageName::ExportTextPathToObjectPath(const FString& InExportTextPath)
{
	const int32 FirstQuote = InExportTextPath.Find(TEXT("'"), ESearchCase::CaseSensitive);
	if (FirstQuote == INDEX_NONE || !InExportTextPath.EndsWith(TEXT("'")) || InExportTextPath.Len() < FirstQuote + 2)
	{
		return InExportTextPath;
	}
	FString Inner = InExportTextPath.Mid(FirstQuote + 1, InExportTextPath.Len() - FirstQuote - 2);
	if (Inner.Len() >= 2 && Inner.StartsWith(TEXT("\"")) && Inner.EndsWith(TEXT("\"")))
	{
		Inner = Inner.Mid(1, Inner.Len() - 2);
	}
	return Inner;
}

FString FPackageName::ObjectPathCombine(const FString& LongPackageName, const FString& ObjectName)
{
	return LongPackageName + TEXT(".") + ObjectName;
}

void FPackageName::RegisterMountPoint(const FString& RootPath, const FString& ContentPath)
{
	std::lock_guard<std::mutex> Guard(MountMutex());
	TArray<FMountPoint>& Mounts = RegisteredMounts();
	Mounts.RemoveAll([&RootPath](const FMountPoint& Mount) { return Mount.RootPath.Equals(RootPath, ESearchCase::IgnoreCase); });
	Mounts.Add({RootPath.EndsWith(TEXT("/")) ? RootPath : RootPath + TEXT("/"), NormalizedFolder(ContentPath)});
}

void FPackageName::UnRegisterMountPoint(const FString& RootPath, const FString& ContentPath)
{
	std::lock_guard<std::mutex> Guard(MountMutex());
	RegisteredMounts().RemoveAll([&RootPath](const FMountPoint& Mount) { return Mount.RootPath.Equals(RootPath, ESearchCase::IgnoreCase); });
}

bool FPackageName::MountPointExists(const FString& RootPath)
{
	const FString Root = RootPath.EndsWith(TEXT("/")) ? RootPath : RootPath + TEXT("/");
	for (const FMountPoint& Mount : AllMounts())
	{
		if (Mount.RootPath.Equals(Root, ESearchCase::IgnoreCase))
		{
			return true;
		}
	}
	return false;
}

void FPackageName::QueryRootContentPaths(TArray<FString>& OutRootContentPaths, bool bIncludeReadOnlyRoots, bool bWithoutLeadingSlashes, bool bWithoutTrailingSlashes)
{
	OutRootContentPaths.Empty();
	for (const FMountPoint& Mount : AllMounts())
	{
		FString Root = Mount.RootPath;
		if (bWithoutLeadingSlashes)
		{
			Root.RightChopInline(1);
		}
		if (bWithoutTrailingSlashes)
		{
			Root.LeftChopInline(1);
		}
		OutRootContentPaths.Add(Root);
	}
	if (bIncludeReadOnlyRoots)
	{
		OutRootContentPaths.Add(bWithoutLeadingSlashes ? (bWithoutTrailingSlashes ? TEXT("Script") : TEXT("Script/")) : (bWithoutTrailingSlashes ? TEXT("/Script") : TEXT("/Script/")));
	}
}
