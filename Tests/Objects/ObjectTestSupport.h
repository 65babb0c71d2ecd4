// What the object tests share: a project folder of their own, and a look at what was logged.
#pragma once

#include "CoreMinimal.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/OutputDeviceRedirector.h"
#include "Misc/Paths.h"
#include "Misc/StandInProject.h"
#include "UObject/UObjectGlobals.h"
#include "UObject/Package.h"
#include "Misc/PackageName.h"

// A fresh project under TempRoot: its Content folder is what "/Game/" names. Restores no project at the end.
class FObjectTestProject
{
public:
	FObjectTestProject(const FString& TempRoot, const TCHAR* Name)
		: Dir(FPaths::Combine(TempRoot, Name) + TEXT("/"))
	{
		IFileManager::Get().DeleteDirectory(*Dir, false, true);
		IFileManager::Get().MakeDirectory(*(Dir + TEXT("Content")), true);
		const FString ProjectFile = Dir + Name + TEXT(".uproject");
		FFileHelper::SaveStringToFile(TEXT("{}"), *ProjectFile);
		FStandInProject::SetProjectFile(ProjectFile);
	}
	~FObjectTestProject()
	{
		FStandInProject::Reset();
	}

	FString ContentFile(const FString& RelativePath) const
	{
		return FPaths::ProjectContentDir() + RelativePath;
	}
	static void WriteFile(const FString& File, const FString& Text)
	{
		IFileManager::Get().MakeDirectory(*FPaths::GetPath(File), true);
		FFileHelper::SaveStringToFile(Text, *File, FFileHelper::EEncodingOptions::ForceUTF8WithoutBOM);
	}
	static FString ReadFile(const FString& File)
	{
		FString Text;
		FFileHelper::LoadFileToString(Text, *File);
		return Text;
	}

	const FString Dir;
};

// Keeps the warnings and errors logged while it lives.
class FLogCapture final : public FOutputDevice
{
public:
	FLogCapture()
	{
		GLog->AddOutputDevice(this);
	}
	~FLogCapture()
	{
		GLog->RemoveOutputDevice(this);
	}
	void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
	{
		if (Verbosity <= ELogVerbosity::Warning)
		{
			Lines.Add(V);
		}
	}
	bool Contains(const TCHAR* Text) const
	{
		return Lines.ContainsByPredicate([Text](const FString& Line) { return Line.Contains(Text); });
	}

	TArray<FString> Lines;
};

// Saves a package to its file under the project's content folder; true on success.
inline bool SaveTestPackage(UPackage* Package, UObject* Asset = nullptr)
{
	FSavePackageArgs Args;
	Args.TopLevelFlags = RF_Standalone;
	return UPackage::Save(Package, Asset, *FPackageName::LongPackageNameToFilename(Package->GetName(), FPackageName::GetAssetPackageExtension()), Args).IsSuccessful();
}
