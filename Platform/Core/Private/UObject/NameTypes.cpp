#include "UObject/NameTypes.h"

#include "Containers/StringConv.h"
#include "Misc/Char.h"
#include <deque>
#include <mutex>
#include <string>
#include <unordered_map>

namespace
{
	// The global name table: the first spelling of a name is kept, lookups fold case.
	class FNameTable
	{
	public:
		static FNameTable& Get()
		{
			static FNameTable Table;
			return Table;
		}

		uint32 FindOrAdd(const TCHAR* Name, int32 Length, EFindName FindType)
		{
			if (Length <= 0)
			{
				return 0;
			}
			std::u16string Key(Name, Length);
			for (char16_t& Char : Key)
			{
				Char = FChar::ToLower(Char);
			}
			std::lock_guard<std::mutex> Lock(Mutex);
			const auto Found = Indices.find(Key);
			if (Found != Indices.end())
			{
				return Found->second;
			}
			if (FindType == FNAME_Find)
			{
				return 0;
			}
			const uint32 Index = static_cast<uint32>(Spellings.size());
			Spellings.emplace_back(Length, Name);
			Indices.emplace(std::move(Key), Index);
			return Index;
		}

		const FString& GetSpelling(uint32 Index)
		{
			std::lock_guard<std::mutex> Lock(Mutex);
			return Spellings[Index];
		}

	private:
		FNameTable()
		{
			Spellings.emplace_back(TEXT("None"));
			Indices.emplace(u"none", 0);
		}

		std::mutex Mutex;
		// A deque keeps references to earlier spellings stable as the table grows.
		std::deque<FString> Spellings;
		std::unordered_map<std::u16string, uint32> Indices;
	};
}

FName::FName(const ANSICHAR* Name, EFindName FindType)
{
	const FANSIToTCHAR Converted(Name ? Name : "");
	Index = FindOrAdd(Converted.Get(), Converted.Length(), FindType);
}

uint32 FName::FindOrAdd(const TCHAR* Name, int32 Length, EFindName FindType)
{
	return Name ? FNameTable::Get().FindOrAdd(Name, Length, FindType) : 0;
}

FString FName::ToString() const
{
	return FNameTable::Get().GetSpelling(Index);
}

bool FName::IsEqual(const FName& Other, ENameCase CompareMethod, bool bCompareNumber) const
{
	if (CompareMethod == ENameCase::IgnoreCase)
	{
		return Index == Other.Index;
	}
	return Index == Other.Index && ToString().Equals(Other.ToString(), ESearchCase::CaseSensitive);
}

int32 FName::Compare(const FName& Other) const
{
	return Index == Other.Index ? 0 : ToString().Compare(Other.ToString(), ESearchCase::IgnoreCase);
}

bool FName::operator==(const TCHAR* Other) const
{
	return ToString() == (Other ? Other : TEXT(""));
}
