#include "UObject/NameTypes.h"

#include "Containers/StringConv.h"
#include "Misc/Char.h"
#include <deque>
#include <mutex>
#include <string>
#include <unordered_map>

namespace
{
	// The global name table: names compare with case folded (one comparison index for all spellings), and each
	// spelling keeps a display index of its own, so that a name reads back as it was written.
	class FNameTable
	{
	public:
		static FNameTable& Get()
		{
			static FNameTable Table;
			return Table;
		}

		void FindOrAdd(const TCHAR* Name, int32 Length, EFindName FindType, uint32& OutIndex, uint32& OutDisplayIndex)
		{
			OutIndex = 0;
			OutDisplayIndex = 0;
			if (Length <= 0)
			{
				return;
			}
			std::u16string Exact(Name, Length);
			std::u16string Key = Exact;
			for (char16_t& Char : Key)
			{
				Char = FChar::ToLower(Char);
			}
			std::lock_guard<std::mutex> Lock(Mutex);
			const auto Found = Indices.find(Key);
			if (Found == Indices.end() && FindType == FNAME_Find)
			{
				return;
			}
			const auto FoundSpelling = Displays.find(Exact);
			if (FoundSpelling != Displays.end())
			{
				OutIndex = Found->second;
				OutDisplayIndex = FoundSpelling->second;
				return;
			}
			const uint32 DisplayIndex = static_cast<uint32>(Spellings.size());
			Spellings.emplace_back(Length, Name);
			Displays.emplace(std::move(Exact), DisplayIndex);
			if (Found == Indices.end())
			{
				Indices.emplace(std::move(Key), DisplayIndex);
				OutIndex = DisplayIndex;
			}
			else
			{
				OutIndex = Found->second;
			}
			OutDisplayIndex = DisplayIndex;
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
			Displays.emplace(u"None", 0);
		}

		std::mutex Mutex;
		// A deque keeps references to earlier spellings stable as the table grows.
		std::deque<FString> Spellings;
		std::unordered_map<std::u16string, uint32> Indices;
		std::unordered_map<std::u16string, uint32> Displays;
	};
}

FName::FName(const ANSICHAR* Name, EFindName FindType)
{
	const FANSIToTCHAR Converted(Name ? Name : "");
	Init(Converted.Get(), Converted.Length(), FindType);
}

void FName::Init(const TCHAR* Name, int32 Length, EFindName FindType)
{
	Index = 0;
	DisplayIndex = 0;
	if (Name != nullptr)
	{
		FNameTable::Get().FindOrAdd(Name, Length, FindType, Index, DisplayIndex);
	}
}

FString FName::ToString() const
{
	return FNameTable::Get().GetSpelling(DisplayIndex);
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
