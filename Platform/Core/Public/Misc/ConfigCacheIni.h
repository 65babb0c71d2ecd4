#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/Map.h"
#include "Containers/StringView.h"
#include "Containers/UnrealString.h"
#include "HAL/CriticalSection.h"
#include "Templates/Tuple.h"
#include "UObject/NameTypes.h"

/** One value of an ini key, as it was written. */
class FConfigValue
{
public:
	FConfigValue()
	{
	}

	FConfigValue(const FString& InValue)
		: SavedValue(InValue)
	{
	}

	FConfigValue(const TCHAR* InValue)
		: SavedValue(InValue)
	{
	}

	const FString& GetValue() const
	{
		return SavedValue;
	}

	const FString& GetSavedValue() const
	{
		return SavedValue;
	}

	bool operator==(const FConfigValue& Other) const
	{
		return SavedValue.Equals(Other.SavedValue);
	}

	bool operator!=(const FConfigValue& Other) const
	{
		return !(*this == Other);
	}

private:
	FString SavedValue;
};

/**
 * The keys of one ini section in file order. A key may hold several values (an array); key names compare
 * without regard to case.
 */
class FConfigSection
{
public:
	typedef TPair<FName, FConfigValue> ElementType;

	/** The first value of the key, or null. */
	const FConfigValue* Find(FName Key) const;
	FConfigValue* Find(FName Key);
	bool Contains(FName Key) const
	{
		return Find(Key) != nullptr;
	}
	/** Appends every value of the key, in file order. */
	void MultiFind(FName Key, TArray<FConfigValue>& OutValues, bool bMaintainOrder = true) const;
	int32 Num(FName Key) const;
	int32 Num() const
	{
		return Pairs.Num();
	}

	/** Adds a value after those the key already has. */
	FConfigValue& Add(FName Key, const FConfigValue& Value);
	/** Adds the value unless the key already has one equal to it. */
	void AddUnique(FName Key, const FConfigValue& Value);
	/** Drops every value of the key; returns how many went. */
	int32 Remove(FName Key);
	/** Drops the key's values equal to Value. */
	int32 RemoveSingle(FName Key, const FConfigValue& Value);
	void Empty()
	{
		Pairs.Empty();
	}

	const ElementType* begin() const
	{
		return Pairs.GetData();
	}
	const ElementType* end() const
	{
		return Pairs.GetData() + Pairs.Num();
	}

private:
	TArray<ElementType> Pairs;
};

/**
 * One ini file in memory: "[Section]" headers, "Key=Value" lines (a later line replaces the key's values),
 * "+Key=Value" (add unless present), ".Key=Value" (add), "-Key=Value" (remove that value), "!Key" (clear),
 * ';' or '#' comment lines. A value in double quotes is unquoted with \" \\ \n \r \t escapes. Section names
 * compare without regard to case.
 */
class FConfigFile
{
public:
	FConfigFile()
		: Dirty(false)
	{
	}

	/** Replaces the contents with those of the file; a file that can't be read leaves it empty. */
	void Read(const FString& Filename);
	/** Adds the file's lines on top of the current contents; false when it can't be read. */
	bool Combine(const FString& Filename);
	void CombineFromBuffer(const FString& Buffer, const FString& FileHint);
	/** Adds the lines of an ini text on top of the current contents. */
	void ProcessInputFileContents(FStringView Contents, const FString& FileHint);

	/** Writes every section; arrays as "+Key=Value" lines (".Key=Value" when values repeat). Clears Dirty on success. */
	bool Write(const FString& Filename, bool bDoRemoteWrite = true, const FString& PrefixText = FString());
	/** The ini text that Write would write. */
	FString ToIniText(const FString& PrefixText = FString()) const;

	const FConfigSection* FindSection(const FString& SectionName) const;
	FConfigSection* FindOrAddConfigSection(const FString& SectionName);
	bool Contains(const FString& SectionName) const
	{
		return Sections.Contains(SectionName);
	}
	int32 Remove(const FString& SectionName);
	int32 Num() const
	{
		return Sections.Num();
	}
	void GetKeys(TArray<FString>& OutSectionNames) const
	{
		Sections.GetKeys(OutSectionNames);
	}
	void Empty()
	{
		Sections.Empty();
	}

	bool GetString(const TCHAR* Section, const TCHAR* Key, FString& Value) const;
	bool GetInt(const TCHAR* Section, const TCHAR* Key, int32& Value) const;
	bool GetInt64(const TCHAR* Section, const TCHAR* Key, int64& Value) const;
	bool GetFloat(const TCHAR* Section, const TCHAR* Key, float& Value) const;
	bool GetDouble(const TCHAR* Section, const TCHAR* Key, double& Value) const;
	/** "True", "Yes", "On" (any case) and non-zero numbers are true. */
	bool GetBool(const TCHAR* Section, const TCHAR* Key, bool& Value) const;
	/** Replaces Value with every value of the key; returns their number. */
	int32 GetArray(const TCHAR* Section, const TCHAR* Key, TArray<FString>& Value) const;

	bool GetValue(const TCHAR* Section, const TCHAR* Key, FString& Value) const
	{
		return GetString(Section, Key, Value);
	}
	bool GetValue(const TCHAR* Section, const TCHAR* Key, int32& Value) const
	{
		return GetInt(Section, Key, Value);
	}
	bool GetValue(const TCHAR* Section, const TCHAR* Key, int64& Value) const
	{
		return GetInt64(Section, Key, Value);
	}
	bool GetValue(const TCHAR* Section, const TCHAR* Key, float& Value) const
	{
		return GetFloat(Section, Key, Value);
	}
	bool GetValue(const TCHAR* Section, const TCHAR* Key, double& Value) const
	{
		return GetDouble(Section, Key, Value);
	}
	bool GetValue(const TCHAR* Section, const TCHAR* Key, bool& Value) const
	{
		return GetBool(Section, Key, Value);
	}
	int32 GetValue(const TCHAR* Section, const TCHAR* Key, TArray<FString>& Value) const
	{
		return GetArray(Section, Key, Value);
	}

	/** Sets the key to this one value (dropping others); marks the file dirty when that changes it. */
	void SetString(const TCHAR* Section, const TCHAR* Key, const TCHAR* Value);
	void SetFloat(const TCHAR* Section, const TCHAR* Key, float Value);
	void SetDouble(const TCHAR* Section, const TCHAR* Key, double Value);
	void SetBool(const TCHAR* Section, const TCHAR* Key, bool Value);
	void SetInt64(const TCHAR* Section, const TCHAR* Key, const int64 Value);
	void SetArray(const TCHAR* Section, const TCHAR* Key, const TArray<FString>& Value);

	bool AddToSection(const TCHAR* Section, FName Key, const FString& Value);
	bool AddUniqueToSection(const TCHAR* Section, FName Key, const FString& Value);
	bool RemoveKeyFromSection(const TCHAR* Section, FName Key);
	bool RemoveFromSection(const TCHAR* Section, FName Key, const FString& Value);

	/** Changed since it was read or last written. */
	bool Dirty;
	FName Name;

private:
	TMap<FString, FConfigSection> Sections;
};

/**
 * The config files of the session by file name. A file is read from disk the first time it is asked for
 * (or starts empty when there is none); Flush writes the changed ones back.
 */
class FConfigCacheIni
{
public:
	FConfigCacheIni();
	FConfigCacheIni(const FConfigCacheIni&) = delete;
	FConfigCacheIni& operator=(const FConfigCacheIni&) = delete;
	~FConfigCacheIni();

	/** The file, read from disk or made empty on first use. */
	FConfigFile* Find(const FString& Filename);
	/** The file if it is in the cache, else null. */
	FConfigFile* FindConfigFile(const FString& Filename);
	FConfigFile& Add(const FString& Filename, const FConfigFile& File);
	/** (Re)reads the file from disk into the cache. */
	void LoadFile(const FString& Filename, const FConfigFile* Fallback = nullptr, const TCHAR* PlatformString = nullptr);
	void UnloadFile(const FString& Filename);
	bool ContainsConfigFile(const FConfigFile* ConfigFile) const;
	void GetConfigFilenames(TArray<FString>& ConfigFilenames);

	/** Writes the dirty files (all, or only Filename), then forgets them when asked to. */
	void Flush(bool bRemoveFromCache, const FString& Filename = FString());

	bool DoesSectionExist(const TCHAR* Section, const FString& Filename);
	bool GetSectionNames(const FString& Filename, TArray<FString>& OutSectionNames);
	/** The section's lines as "Key=Value". */
	bool GetSection(const TCHAR* Section, TArray<FString>& Result, const FString& Filename);

	bool GetString(const TCHAR* Section, const TCHAR* Key, FString& Value, const FString& Filename);
	FString GetStr(const TCHAR* Section, const TCHAR* Key, const FString& Filename);
	bool GetInt(const TCHAR* Section, const TCHAR* Key, int32& Value, const FString& Filename);
	bool GetInt64(const TCHAR* Section, const TCHAR* Key, int64& Value, const FString& Filename);
	bool GetFloat(const TCHAR* Section, const TCHAR* Key, float& Value, const FString& Filename);
	bool GetDouble(const TCHAR* Section, const TCHAR* Key, double& Value, const FString& Filename);
	bool GetBool(const TCHAR* Section, const TCHAR* Key, bool& Value, const FString& Filename);
	int32 GetArray(const TCHAR* Section, const TCHAR* Key, TArray<FString>& OutArray, const FString& Filename);

	void SetString(const TCHAR* Section, const TCHAR* Key, const TCHAR* Value, const FString& Filename);
	void SetInt(const TCHAR* Section, const TCHAR* Key, int32 Value, const FString& Filename);
	void SetInt64(const TCHAR* Section, const TCHAR* Key, int64 Value, const FString& Filename);
	void SetFloat(const TCHAR* Section, const TCHAR* Key, float Value, const FString& Filename);
	void SetDouble(const TCHAR* Section, const TCHAR* Key, double Value, const FString& Filename);
	void SetBool(const TCHAR* Section, const TCHAR* Key, bool Value, const FString& Filename);
	void SetArray(const TCHAR* Section, const TCHAR* Key, const TArray<FString>& Value, const FString& Filename);

	bool RemoveKey(const TCHAR* Section, const TCHAR* Key, const FString& Filename);
	void EmptySection(const TCHAR* Section, const FString& Filename);

private:
	FConfigFile* FindLocked(const FString& Filename, bool bCreate);

	FCriticalSection Lock;
	// Held by pointer so that the files stay where they are while the map grows.
	TMap<FString, FConfigFile*> Files;
};

/** The session's config cache, set while the program starts. */
extern CORE_API FConfigCacheIni* GConfig;
