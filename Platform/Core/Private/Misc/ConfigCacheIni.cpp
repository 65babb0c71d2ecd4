#include "Misc/ConfigCacheIni.h"

#include "CoreGlobals.h"
#include "Misc/ScopeLock.h"

namespace
{
	FConfigCacheIni SessionConfigCache;
}

// An address constant, so GConfig is set before any code of the program runs.
FConfigCacheIni* GConfig = &SessionConfigCache;

FConfigCacheIni::FConfigCacheIni()
{
}

FConfigCacheIni::~FConfigCacheIni()
{
	for (auto& Pair : Files)
	{
		delete Pair.Value;
	}
}

FConfigFile* FConfigCacheIni::FindLocked(const FString& Filename, bool bCreate)
{
	if (FConfigFile** Existing = Files.Find(Filename))
	{
		return *Existing;
	}
	if (!bCreate || Filename.IsEmpty())
	{
		return nullptr;
	}
	FConfigFile* File = new FConfigFile();
	File->Read(Filename);
	File->Name = FName(*Filename);
	Files.Add(Filename, File);
	return File;
}

FConfigFile* FConfigCacheIni::Find(const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	return FindLocked(Filename, true);
}

FConfigFile* FConfigCacheIni::FindConfigFile(const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	return FindLocked(Filename, false);
}

FConfigFile& FConfigCacheIni::Add(const FString& Filename, const FConfigFile& File)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile** Existing = Files.Find(Filename))
	{
		**Existing = File;
		return **Existing;
	}
	FConfigFile* Copy = new FConfigFile(File);
	Files.Add(Filename, Copy);
	return *Copy;
}

void FConfigCacheIni::LoadFile(const FString& Filename, const FConfigFile* Fallback, const TCHAR* PlatformString)
{
	FScopeLock ScopeLock(&Lock);
	FConfigFile* File = FindLocked(Filename, true);
	if (File != nullptr)
	{
		File->Read(Filename);
		if (File->Num() == 0 && Fallback != nullptr)
		{
			*File = *Fallback;
		}
	}
}

void FConfigCacheIni::UnloadFile(const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile** Existing = Files.Find(Filename))
	{
		delete *Existing;
		Files.Remove(Filename);
	}
}

bool FConfigCacheIni::ContainsConfigFile(const FConfigFile* ConfigFile) const
{
	for (const auto& Pair : Files)
	{
		if (Pair.Value == ConfigFile)
		{
			return true;
		}
	}
	return false;
}

void FConfigCacheIni::GetConfigFilenames(TArray<FString>& ConfigFilenames)
{
	FScopeLock ScopeLock(&Lock);
	Files.GetKeys(ConfigFilenames);
}

void FConfigCacheIni::Flush(bool bRemoveFromCache, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	TArray<FString> Names;
	Files.GetKeys(Names);
	for (const FString& Name : Names)
	{
		if (!Filename.IsEmpty() && !Name.Equals(Filename))
		{
			continue;
		}
		FConfigFile* File = *Files.Find(Name);
		if (File->Dirty)
		{
			File->Write(Name);
		}
		if (bRemoveFromCache)
		{
			delete File;
			Files.Remove(Name);
		}
	}
}

bool FConfigCacheIni::DoesSectionExist(const TCHAR* Section, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && Section != nullptr && File->Contains(Section);
}

bool FConfigCacheIni::GetSectionNames(const FString& Filename, TArray<FString>& OutSectionNames)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	if (File == nullptr)
	{
		return false;
	}
	File->GetKeys(OutSectionNames);
	return true;
}

bool FConfigCacheIni::GetSection(const TCHAR* Section, TArray<FString>& Result, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	Result.Empty();
	const FConfigFile* File = FindLocked(Filename, true);
	const FConfigSection* Found = (File != nullptr && Section != nullptr) ? File->FindSection(Section) : nullptr;
	if (Found == nullptr)
	{
		return false;
	}
	for (const FConfigSection::ElementType& Pair : *Found)
	{
		Result.Add(Pair.Key.ToString() + TEXT("=") + Pair.Value.GetValue());
	}
	return true;
}

bool FConfigCacheIni::GetString(const TCHAR* Section, const TCHAR* Key, FString& Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && File->GetString(Section, Key, Value);
}

FString FConfigCacheIni::GetStr(const TCHAR* Section, const TCHAR* Key, const FString& Filename)
{
	FString Result;
	GetString(Section, Key, Result, Filename);
	return Result;
}

bool FConfigCacheIni::GetInt(const TCHAR* Section, const TCHAR* Key, int32& Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && File->GetInt(Section, Key, Value);
}

bool FConfigCacheIni::GetInt64(const TCHAR* Section, const TCHAR* Key, int64& Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && File->GetInt64(Section, Key, Value);
}

bool FConfigCacheIni::GetFloat(const TCHAR* Section, const TCHAR* Key, float& Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && File->GetFloat(Section, Key, Value);
}

bool FConfigCacheIni::GetDouble(const TCHAR* Section, const TCHAR* Key, double& Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && File->GetDouble(Section, Key, Value);
}

bool FConfigCacheIni::GetBool(const TCHAR* Section, const TCHAR* Key, bool& Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && File->GetBool(Section, Key, Value);
}

int32 FConfigCacheIni::GetArray(const TCHAR* Section, const TCHAR* Key, TArray<FString>& OutArray, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	const FConfigFile* File = FindLocked(Filename, true);
	if (File == nullptr)
	{
		OutArray.Empty();
		return 0;
	}
	return File->GetArray(Section, Key, OutArray);
}

void FConfigCacheIni::SetString(const TCHAR* Section, const TCHAR* Key, const TCHAR* Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile* File = FindLocked(Filename, true))
	{
		File->SetString(Section, Key, Value);
	}
}

void FConfigCacheIni::SetInt(const TCHAR* Section, const TCHAR* Key, int32 Value, const FString& Filename)
{
	SetString(Section, Key, *FString::FromInt(Value), Filename);
}

void FConfigCacheIni::SetInt64(const TCHAR* Section, const TCHAR* Key, int64 Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile* File = FindLocked(Filename, true))
	{
		File->SetInt64(Section, Key, Value);
	}
}

void FConfigCacheIni::SetFloat(const TCHAR* Section, const TCHAR* Key, float Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile* File = FindLocked(Filename, true))
	{
		File->SetFloat(Section, Key, Value);
	}
}

void FConfigCacheIni::SetDouble(const TCHAR* Section, const TCHAR* Key, double Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile* File = FindLocked(Filename, true))
	{
		File->SetDouble(Section, Key, Value);
	}
}

void FConfigCacheIni::SetBool(const TCHAR* Section, const TCHAR* Key, bool Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile* File = FindLocked(Filename, true))
	{
		File->SetBool(Section, Key, Value);
	}
}

void FConfigCacheIni::SetArray(const TCHAR* Section, const TCHAR* Key, const TArray<FString>& Value, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	if (FConfigFile* File = FindLocked(Filename, true))
	{
		File->SetArray(Section, Key, Value);
	}
}

bool FConfigCacheIni::RemoveKey(const TCHAR* Section, const TCHAR* Key, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	FConfigFile* File = FindLocked(Filename, true);
	return File != nullptr && Key != nullptr && File->RemoveKeyFromSection(Section, FName(Key));
}

void FConfigCacheIni::EmptySection(const TCHAR* Section, const FString& Filename)
{
	FScopeLock ScopeLock(&Lock);
	FConfigFile* File = FindLocked(Filename, true);
	if (File != nullptr && Section != nullptr && File->Contains(Section))
	{
		File->FindOrAddConfigSection(Section)->Empty();
		File->Dirty = true;
	}
}
