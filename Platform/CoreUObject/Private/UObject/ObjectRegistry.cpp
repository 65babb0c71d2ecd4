#include "ObjectRegistry.h"
#include <algorithm>

namespace UE::CoreUObject::Private
{
	namespace
	{
		void EraseFrom(std::vector<UObjectBase*>& List, const UObjectBase* Object)
		{
			const auto Found = std::find(List.begin(), List.end(), Object);
			if (Found != List.end())
			{
				List.erase(Found);
			}
		}
	}

	FObjectRegistry& FObjectRegistry::Get()
	{
		// Made on first use and never destroyed: objects may be looked up while static data goes away.
		static FObjectRegistry* Registry = new FObjectRegistry();
		return *Registry;
	}

	int32 FObjectRegistry::Add(UObjectBase* Object, FName Name, const UObjectBase* Outer)
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		int32 Index;
		if (!FreeIndices.empty())
		{
			Index = FreeIndices.back();
			FreeIndices.pop_back();
			Objects[Index] = Object;
		}
		else
		{
			Index = static_cast<int32>(Objects.size());
			Objects.push_back(Object);
			SerialNumbers.push_back(1);
		}
		ByName[Name.GetComparisonIndex()].push_back(Object);
		ByOuter[Outer].push_back(Object);
		return Index;
	}

	void FObjectRegistry::Remove(UObjectBase* Object, int32 Index, FName Name, const UObjectBase* Outer)
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		if (Index >= 0 && Index < static_cast<int32>(Objects.size()) && Objects[Index] == Object)
		{
			Objects[Index] = nullptr;
			++SerialNumbers[Index];
			FreeIndices.push_back(Index);
		}
		EraseFrom(ByName[Name.GetComparisonIndex()], Object);
		EraseFrom(ByOuter[Outer], Object);
	}

	void FObjectRegistry::Move(UObjectBase* Object, FName OldName, const UObjectBase* OldOuter, FName NewName, const UObjectBase* NewOuter)
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		if (OldName.GetComparisonIndex() != NewName.GetComparisonIndex())
		{
			EraseFrom(ByName[OldName.GetComparisonIndex()], Object);
			ByName[NewName.GetComparisonIndex()].push_back(Object);
		}
		if (OldOuter != NewOuter)
		{
			EraseFrom(ByOuter[OldOuter], Object);
			ByOuter[NewOuter].push_back(Object);
		}
	}

	bool FObjectRegistry::Contains(const UObjectBase* Object, int32 Index) const
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		return Index >= 0 && Index < static_cast<int32>(Objects.size()) && Objects[Index] == Object;
	}

	int32 FObjectRegistry::GetSerialNumber(int32 Index) const
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		return Index >= 0 && Index < static_cast<int32>(SerialNumbers.size()) ? SerialNumbers[Index] : 0;
	}

	UObjectBase* FObjectRegistry::GetObject(int32 Index, int32 SerialNumber) const
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		if (Index < 0 || Index >= static_cast<int32>(Objects.size()) || SerialNumbers[Index] != SerialNumber)
		{
			return nullptr;
		}
		return Objects[Index];
	}

	std::vector<UObjectBase*> FObjectRegistry::FindByName(FName Name) const
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		const auto Found = ByName.find(Name.GetComparisonIndex());
		return Found != ByName.end() ? Found->second : std::vector<UObjectBase*>();
	}

	std::vector<UObjectBase*> FObjectRegistry::FindByOuter(const UObjectBase* Outer) const
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		const auto Found = ByOuter.find(Outer);
		return Found != ByOuter.end() ? Found->second : std::vector<UObjectBase*>();
	}

	std::vector<UObjectBase*> FObjectRegistry::AllObjects() const
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		std::vector<UObjectBase*> Result;
		Result.reserve(Objects.size());
		for (UObjectBase* Object : Objects)
		{
			if (Object)
			{
				Result.push_back(Object);
			}
		}
		return Result;
	}

	int32 FObjectRegistry::NextNameNumber(FName BaseName)
	{
		std::lock_guard<std::mutex> Guard(Mutex);
		return NameNumbers[BaseName.GetComparisonIndex()]++;
	}
}
