#include "AssetRegistryImpl.h"
#include "AssetRegistry/AssetRegistryModule.h"
#include "UObject/Class.h"
#include "UObject/Package.h"
#include "UObject/UObjectHash.h"
#include "UObject/StandInPackageFile.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "HAL/FileManager.h"
#include "Templates/Casts.h"

DEFINE_LOG_CATEGORY_STATIC(LogAssetRegistry, Log, All);

namespace
{
	FString NormalizedFilename(const FString& Filename)
	{
		FString Result = FPaths::ConvertRelativePathToFull(Filename);
		FPaths::NormalizeFilename(Result);
		return Result;
	}

	// "/Game/Maps/" and "/Game/Maps" are the same path.
	FString WithoutTrailingSlash(const FString& Path)
	{
		return Path.Len() > 1 && Path.EndsWith(TEXT("/")) ? Path.LeftChop(1) : Path;
	}

	bool IsPackageFile(const FString& Filename)
	{
		return Filename.EndsWith(FPackageName::GetAssetPackageExtension(), ESearchCase::IgnoreCase) || Filename.EndsWith(FPackageName::GetMapPackageExtension(), ESearchCase::IgnoreCase);
	}
}

IAssetRegistry* IAssetRegistry::Get()
{
	// Made on first use and kept to the end: saved packages and created assets are told to it at any time.
	static FAssetRegistryImpl* Registry = new FAssetRegistryImpl();
	return Registry;
}

FAssetRegistryImpl::FAssetRegistryImpl()
{
	PackageSavedHandle = UPackage::PackageSavedWithContextEvent.AddRaw(this, &FAssetRegistryImpl::OnPackageSaved);
}

FAssetRegistryImpl::~FAssetRegistryImpl()
{
	UPackage::PackageSavedWithContextEvent.Remove(PackageSavedHandle);
}

void FAssetRegistryImpl::EnsureInitialScan() const
{
	if (!bInitialScanDone && !bScanning)
	{
		const_cast<FAssetRegistryImpl*>(this)->SearchAllAssets(true);
	}
}

void FAssetRegistryImpl::SearchAllAssets(bool bSynchronousSearch)
{
	bInitialScanDone = true;
	TArray<FString> Roots;
	FPackageName::QueryRootContentPaths(Roots);
	// Entries of files outside today's content folders (another project's) go first.
	TArray<FString> Folders;
	for (const FString& Root : Roots)
	{
		FString Folder;
		if (FPackageName::TryConvertLongPackageNameToFilename(Root, Folder))
		{
			Folders.Add(NormalizedFilename(Folder));
		}
	}
	TArray<FString> Outside;
	for (const TPair<FString, FEntry>& Pair : Entries)
	{
		if (!Pair.Value.Filename.IsEmpty() && !Folders.ContainsByPredicate([&Pair](const FString& Folder) { return Pair.Value.Filename.StartsWith(Folder, ESearchCase::CaseSensitive); }))
		{
			Outside.Add(Pair.Key);
		}
	}
	for (const FString& Key : Outside)
	{
		const FAssetData Data = Entries.FindChecked(Key).Data;
		RemoveEntry(Key);
		AssetRemovedEvent.Broadcast(Data);
	}
	ScanPathsSynchronous(Roots, true);
	FilesLoadedEvent.Broadcast();
}

void FAssetRegistryImpl::ScanPathsSynchronous(const TArray<FString>& InPaths, bool bForceRescan, bool bIgnoreDenyListScanFilters)
{
	if (!bInitialScanDone && !bScanning)
	{
		// A partial scan before the first full one would leave the rest of the content unknown.
		bInitialScanDone = true;
		TArray<FString> Roots;
		FPackageName::QueryRootContentPaths(Roots);
		TArray<FString> AllPaths = Roots;
		AllPaths.Append(InPaths);
		ScanPathsSynchronous(AllPaths, bForceRescan, bIgnoreDenyListScanFilters);
		return;
	}
	bScanning = true;
	for (const FString& Path : InPaths)
	{
		FString Directory;
		if (Path.StartsWith(TEXT("/")) && !FPaths::DirectoryExists(Path))
		{
			if (!FPackageName::TryConvertLongPackageNameToFilename(Path.EndsWith(TEXT("/")) ? Path : Path + TEXT("/"), Directory))
			{
				UE_LOG(LogAssetRegistry, Warning, TEXT("ScanPathsSynchronous: %s is not under a mounted root"), *Path);
				continue;
			}
		}
		else
		{
			Directory = Path;
		}
		Directory = NormalizedFilename(Directory);
		if (!Directory.EndsWith(TEXT("/")))
		{
			Directory.AppendChar(TEXT('/'));
		}
		// Entries of files under the folder that are gone leave the registry.
		TArray<FString> Gone;
		for (const TPair<FString, FEntry>& Pair : Entries)
		{
			if (!Pair.Value.Filename.IsEmpty() && Pair.Value.Filename.StartsWith(Directory, ESearchCase::CaseSensitive) && !IFileManager::Get().FileExists(*Pair.Value.Filename))
			{
				Gone.Add(Pair.Key);
			}
		}
		for (const FString& Key : Gone)
		{
			const FAssetData Removed = Entries.FindChecked(Key).Data;
			RemoveEntry(Key);
			AssetRemovedEvent.Broadcast(Removed);
		}
		if (!FPaths::DirectoryExists(Directory))
		{
			continue;
		}
		// The folder's package path is worked out once; each file's follows from where it sits below.
		FString FolderPackagePath;
		if (!FPackageName::TryConvertFilenameToLongPackageName(Directory, FolderPackagePath))
		{
			continue;
		}
		if (!FolderPackagePath.EndsWith(TEXT("/")))
		{
			FolderPackagePath.AppendChar(TEXT('/'));
		}
		TArray<FString> Files;
		IFileManager::Get().FindFilesRecursive(Files, *Directory, TEXT("*.*"), true, false, true);
		Files.Sort();
		for (const FString& File : Files)
		{
			if (IsPackageFile(File) && File.StartsWith(Directory, ESearchCase::CaseSensitive))
			{
				const FString Relative = File.Mid(Directory.Len());
				ReadPackageFile(File, FolderPackagePath + Relative.Left(Relative.Find(TEXT("."), ESearchCase::CaseSensitive, ESearchDir::FromEnd)));
			}
		}
	}
	bScanning = false;
}

void FAssetRegistryImpl::ScanFilesSynchronous(const TArray<FString>& InFilePaths, bool bForceRescan)
{
	EnsureInitialScan();
	for (const FString& Path : InFilePaths)
	{
		FString Filename = Path;
		if (Path.StartsWith(TEXT("/")) && !IFileManager::Get().FileExists(*Path))
		{
			// A long package name: its file is either kind of package.
			if (!FPackageName::DoesPackageExist(Path, &Filename))
			{
				RemoveEntriesOfFile(FPackageName::LongPackageNameToFilename(Path, FPackageName::GetAssetPackageExtension()), TArray<FName>());
				continue;
			}
		}
		ScanFile(Filename);
	}
}

void FAssetRegistryImpl::ScanFile(const FString& InFilename)
{
	const FString Filename = NormalizedFilename(InFilename);
	FString PackageName;
	if (!FPackageName::TryConvertFilenameToLongPackageName(Filename, PackageName))
	{
		return;
	}
	if (!IFileManager::Get().FileExists(*Filename))
	{
		RemoveEntriesOfFile(Filename, TArray<FName>());
		return;
	}
	ReadPackageFile(Filename, PackageName);
}

void FAssetRegistryImpl::ReadPackageFile(const FString& Filename, const FString& PackageName)
{
	FStandInPackageSummary Summary;
	FString Error;
	if (!FStandInPackageFile::ReadSummary(Filename, Summary, &Error))
	{
		UE_LOG(LogAssetRegistry, Warning, TEXT("Skipped %s: %s"), *Filename, *Error);
		RemoveEntriesOfFile(Filename, TArray<FName>());
		return;
	}
	const FName PackageFName(*PackageName);
	const FName PackagePath(*FPackageName::GetLongPackagePath(PackageName));
	TArray<FName> Kept;
	for (const FStandInPackageAsset& Asset : Summary.Assets)
	{
		FAssetDataTagMap Tags;
		for (const TPair<FName, FString>& Tag : Asset.Tags)
		{
			Tags.Add(Tag.Key, Tag.Value);
		}
		AddOrUpdate(FAssetData(PackageFName, PackagePath, Asset.AssetName, FTopLevelAssetPath(Asset.ClassPath), MoveTemp(Tags)), Filename);
		Kept.Add(Asset.AssetName);
	}
	RemoveEntriesOfFile(Filename, Kept);
}

void FAssetRegistryImpl::AddOrUpdate(const FAssetData& Data, const FString& Filename)
{
	if (!Data.IsValid())
	{
		return;
	}
	const FString Key = Data.GetObjectPathString();
	if (FEntry* Existing = Entries.Find(Key))
	{
		const bool bChanged = Existing->Data.AssetClassPath != Data.AssetClassPath || !(Existing->Data.TagsAndValues == Data.TagsAndValues);
		Existing->Data = Data;
		if (!Filename.IsEmpty())
		{
			SetEntryFile(*Existing, Key, Filename);
		}
		if (bChanged)
		{
			AssetUpdatedEvent.Broadcast(Data);
		}
		return;
	}
	AddEntry(Key, FEntry{Data, Filename});
	AssetAddedEvent.Broadcast(Data);
}

void FAssetRegistryImpl::RemoveEntriesOfFile(const FString& Filename, const TArray<FName>& KeepAssets)
{
	const TArray<FString>* Keys = KeysByFile.Find(Filename.StartsWith(TEXT("/")) ? Filename : NormalizedFilename(Filename));
	if (Keys == nullptr)
	{
		return;
	}
	TArray<FString> Removed;
	for (const FString& Key : *Keys)
	{
		if (!KeepAssets.Contains(Entries.FindChecked(Key).Data.AssetName))
		{
			Removed.Add(Key);
		}
	}
	for (const FString& Key : Removed)
	{
		const FAssetData Data = Entries.FindChecked(Key).Data;
		RemoveEntry(Key);
		AssetRemovedEvent.Broadcast(Data);
	}
}

void FAssetRegistryImpl::AddEntry(const FString& Key, FEntry&& Entry)
{
	if (!Entry.Filename.IsEmpty())
	{
		KeysByFile.FindOrAdd(Entry.Filename).AddUnique(Key);
	}
	Entries.Add(Key, MoveTemp(Entry));
}

void FAssetRegistryImpl::RemoveEntry(const FString& Key)
{
	if (const FEntry* Entry = Entries.Find(Key); Entry != nullptr && !Entry->Filename.IsEmpty())
	{
		if (TArray<FString>* Keys = KeysByFile.Find(Entry->Filename))
		{
			Keys->Remove(Key);
			if (Keys->Num() == 0)
			{
				KeysByFile.Remove(Entry->Filename);
			}
		}
	}
	Entries.Remove(Key);
}

void FAssetRegistryImpl::SetEntryFile(FEntry& Entry, const FString& Key, const FString& Filename)
{
	if (Entry.Filename.Equals(Filename, ESearchCase::CaseSensitive))
	{
		return;
	}
	if (TArray<FString>* Keys = KeysByFile.Find(Entry.Filename))
	{
		Keys->Remove(Key);
	}
	Entry.Filename = Filename;
	KeysByFile.FindOrAdd(Filename).AddUnique(Key);
}

void FAssetRegistryImpl::OnPackageSaved(const FString& Filename, UPackage* Package, FObjectPostSaveContext Context)
{
	if (Context.SaveSucceeded() && IsPackageFile(Filename))
	{
		EnsureInitialScan();
		ScanFile(Filename);
	}
}

bool FAssetRegistryImpl::Matches(const FEntry& Entry, const FARFilter& Filter, const TSet<FTopLevelAssetPath>& ClassPaths) const
{
	const FAssetData& Data = Entry.Data;
	if (Filter.bIncludeOnlyOnDiskAssets && Entry.Filename.IsEmpty())
	{
		return false;
	}
	if (Filter.PackageNames.Num() > 0 && !Filter.PackageNames.Contains(Data.PackageName))
	{
		return false;
	}
	if (Filter.PackagePaths.Num() > 0)
	{
		const FString AssetPath = Data.PackagePath.ToString();
		bool bInPath = false;
		for (const FName& PathName : Filter.PackagePaths)
		{
			const FString Path = WithoutTrailingSlash(PathName.ToString());
			bInPath = bInPath || AssetPath.Equals(Path, ESearchCase::IgnoreCase) || (Filter.bRecursivePaths && AssetPath.StartsWith(Path + TEXT("/"), ESearchCase::IgnoreCase));
		}
		if (!bInPath)
		{
			return false;
		}
	}
	if (Filter.SoftObjectPaths.Num() > 0 && !Filter.SoftObjectPaths.Contains(Data.GetSoftObjectPath()))
	{
		return false;
	}
	if ((Filter.ClassPaths.Num() > 0 || Filter.RecursiveClassPathsExclusionSet.Num() > 0) && !ClassPaths.Contains(Data.AssetClassPath))
	{
		return false;
	}
	if ((Data.PackageFlags & Filter.WithoutPackageFlags) != 0 || (Data.PackageFlags & Filter.WithPackageFlags) != Filter.WithPackageFlags)
	{
		return false;
	}
	return true;
}

bool FAssetRegistryImpl::GetAssets(const FARFilter& Filter, TArray<FAssetData>& OutAssetData, bool bSkipARFilteredAssets) const
{
	EnsureInitialScan();
	TSet<FTopLevelAssetPath> ClassPaths;
	for (const FTopLevelAssetPath& ClassPath : Filter.ClassPaths)
	{
		ClassPaths.Add(ClassPath);
	}
	if (Filter.bRecursiveClasses)
	{
		TSet<FTopLevelAssetPath> Derived;
		GetDerivedClassNames(Filter.ClassPaths, Filter.RecursiveClassPathsExclusionSet, Derived);
		ClassPaths = MoveTemp(Derived);
	}
	for (const TPair<FString, FEntry>& Pair : Entries)
	{
		if (Matches(Pair.Value, Filter, ClassPaths))
		{
			OutAssetData.Add(Pair.Value.Data);
		}
	}
	return true;
}

bool FAssetRegistryImpl::GetAssetsByClass(FTopLevelAssetPath ClassPathName, TArray<FAssetData>& OutAssetData, bool bSearchSubClasses) const
{
	FARFilter Filter;
	Filter.ClassPaths.Add(ClassPathName);
	Filter.bRecursiveClasses = bSearchSubClasses;
	return GetAssets(Filter, OutAssetData);
}

bool FAssetRegistryImpl::GetAssetsByPackageName(FName PackageName, TArray<FAssetData>& OutAssetData, bool bIncludeOnlyOnDiskAssets, bool bSkipARFilteredAssets) const
{
	FARFilter Filter;
	Filter.PackageNames.Add(PackageName);
	Filter.bIncludeOnlyOnDiskAssets = bIncludeOnlyOnDiskAssets;
	return GetAssets(Filter, OutAssetData, bSkipARFilteredAssets);
}

bool FAssetRegistryImpl::GetAssetsByPath(FName PackagePath, TArray<FAssetData>& OutAssetData, bool bRecursive, bool bIncludeOnlyOnDiskAssets) const
{
	FARFilter Filter;
	Filter.PackagePaths.Add(PackagePath);
	Filter.bRecursivePaths = bRecursive;
	Filter.bIncludeOnlyOnDiskAssets = bIncludeOnlyOnDiskAssets;
	return GetAssets(Filter, OutAssetData);
}

FAssetData FAssetRegistryImpl::GetAssetByObjectPath(const FSoftObjectPath& ObjectPath, bool bIncludeOnlyOnDiskAssets, bool bSkipARFilteredAssets) const
{
	EnsureInitialScan();
	const FEntry* Entry = Entries.Find(ObjectPath.ToString());
	if (Entry == nullptr || (bIncludeOnlyOnDiskAssets && Entry->Filename.IsEmpty()))
	{
		return FAssetData();
	}
	return Entry->Data;
}

bool FAssetRegistryImpl::GetAllAssets(TArray<FAssetData>& OutAssetData, bool bIncludeOnlyOnDiskAssets) const
{
	FARFilter Filter;
	Filter.bIncludeOnlyOnDiskAssets = bIncludeOnlyOnDiskAssets;
	return GetAssets(Filter, OutAssetData);
}

bool FAssetRegistryImpl::HasAssets(const FName PackagePath, const bool bRecursive) const
{
	TArray<FAssetData> Found;
	GetAssetsByPath(PackagePath, Found, bRecursive);
	return Found.Num() > 0;
}

void FAssetRegistryImpl::GetDerivedClassNames(const TArray<FTopLevelAssetPath>& ClassNames, const TSet<FTopLevelAssetPath>& ExcludedClassNames, TSet<FTopLevelAssetPath>& OutDerivedClassNames) const
{
	// The parent of every class known: loaded classes, and Blueprint classes that only their assets' tags name.
	TMap<FTopLevelAssetPath, FTopLevelAssetPath> ParentOf;
	TArray<UObject*> Classes;
	GetObjectsOfClass(UClass::StaticClass(), Classes, true, RF_NoFlags);
	for (UObject* Object : Classes)
	{
		const UClass* Class = static_cast<UClass*>(Object);
		if (Class->GetSuperClass() != nullptr && !Class->IsGarbage())
		{
			ParentOf.Add(Class->GetClassPathName(), Class->GetSuperClass()->GetClassPathName());
		}
	}
	for (const TPair<FString, FEntry>& Pair : Entries)
	{
		const FAssetTagValueRef Generated = Pair.Value.Data.TagsAndValues.FindTag(FName(TEXT("GeneratedClass")));
		const FAssetTagValueRef Parent = Pair.Value.Data.TagsAndValues.FindTag(FName(TEXT("ParentClass")));
		if (Generated.IsSet() && Parent.IsSet())
		{
			const FTopLevelAssetPath GeneratedPath(FPackageName::ExportTextPathToObjectPath(Generated.GetValue()));
			if (GeneratedPath.IsValid() && !ParentOf.Contains(GeneratedPath))
			{
				ParentOf.Add(GeneratedPath, FTopLevelAssetPath(FPackageName::ExportTextPathToObjectPath(Parent.GetValue())));
			}
		}
	}
	for (const FTopLevelAssetPath& Root : ClassNames)
	{
		if (!ExcludedClassNames.Contains(Root))
		{
			OutDerivedClassNames.Add(Root);
		}
	}
	for (const TPair<FTopLevelAssetPath, FTopLevelAssetPath>& Pair : ParentOf)
	{
		// A class counts when one of the given classes is among its ancestors and no excluded one comes first.
		int32 Depth = 0;
		for (FTopLevelAssetPath Current = Pair.Key; Current.IsValid() && Depth < 256; ++Depth)
		{
			if (ExcludedClassNames.Contains(Current))
			{
				break;
			}
			if (ClassNames.Contains(Current))
			{
				OutDerivedClassNames.Add(Pair.Key);
				break;
			}
			const FTopLevelAssetPath* Parent = ParentOf.Find(Current);
			if (Parent == nullptr)
			{
				break;
			}
			Current = *Parent;
		}
	}
}

void FAssetRegistryImpl::GetSubPaths(const FString& InBasePath, TArray<FString>& OutPathList, bool bInRecurse) const
{
	EnsureInitialScan();
	const FString Base = WithoutTrailingSlash(InBasePath);
	TSet<FString> Paths;
	for (const TPair<FString, FEntry>& Pair : Entries)
	{
		FString Path = Pair.Value.Data.PackagePath.ToString();
		while (Path.StartsWith(Base + TEXT("/"), ESearchCase::IgnoreCase))
		{
			const FString Parent = FPackageName::GetLongPackagePath(Path);
			if (bInRecurse || Parent.Equals(Base, ESearchCase::IgnoreCase))
			{
				Paths.Add(Path);
			}
			Path = Parent;
		}
	}
	for (const FString& Path : Paths)
	{
		OutPathList.Add(Path);
	}
}

void FAssetRegistryImpl::AssetCreated(UObject* NewAsset)
{
	if (NewAsset == nullptr || !NewAsset->IsAsset())
	{
		return;
	}
	EnsureInitialScan();
	FString Filename;
	FPackageName::DoesPackageExist(NewAsset->GetOutermost()->GetName(), &Filename);
	AddOrUpdate(FAssetData(NewAsset), Filename.IsEmpty() ? Filename : NormalizedFilename(Filename));
}

void FAssetRegistryImpl::AssetDeleted(UObject* DeletedAsset)
{
	if (DeletedAsset == nullptr)
	{
		return;
	}
	EnsureInitialScan();
	const FString Key = DeletedAsset->GetPathName();
	if (const FEntry* Entry = Entries.Find(Key))
	{
		const FAssetData Data = Entry->Data;
		RemoveEntry(Key);
		AssetRemovedEvent.Broadcast(Data);
	}
}

void FAssetRegistryImpl::AssetRenamed(const UObject* RenamedAsset, const FString& OldObjectPath)
{
	if (RenamedAsset == nullptr)
	{
		return;
	}
	EnsureInitialScan();
	FString Filename;
	if (const FEntry* Old = Entries.Find(OldObjectPath))
	{
		Filename = Old->Filename;
		RemoveEntry(OldObjectPath);
	}
	const FAssetData Data(RenamedAsset);
	if (Data.IsValid())
	{
		AddEntry(Data.GetObjectPathString(), FEntry{Data, Filename});
		AssetRenamedEvent.Broadcast(Data, OldObjectPath);
	}
}

void FAssetRegistryImpl::AssetSaved(const UObject& SavedAsset)
{
	AssetCreated(const_cast<UObject*>(&SavedAsset));
}

// The module

void FAssetRegistryModule::StartupModule()
{
	IAssetRegistry::Get();
}

void FAssetRegistryModule::ShutdownModule()
{
}

void FAssetRegistryModule::AssetCreated(UObject* NewAsset)
{
	IAssetRegistry::Get()->AssetCreated(NewAsset);
}

void FAssetRegistryModule::AssetDeleted(UObject* DeletedAsset)
{
	IAssetRegistry::Get()->AssetDeleted(DeletedAsset);
}

void FAssetRegistryModule::AssetRenamed(const UObject* RenamedAsset, const FString& OldObjectPath)
{
	IAssetRegistry::Get()->AssetRenamed(RenamedAsset, OldObjectPath);
}

void FAssetRegistryModule::AssetSaved(const UObject& SavedAsset)
{
	IAssetRegistry::Get()->AssetSaved(SavedAsset);
}

IMPLEMENT_MODULE(FAssetRegistryModule, AssetRegistry)
