// The pieces of the text package file format shared by saving, loading and the asset registry's scan.
// The format itself is described in Platform/CoreUObject/TextPackageFormat.md.
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

namespace UE::CoreUObject::Private
{
	namespace PackageText
	{
		inline const TCHAR* const Magic = TEXT("TavrinePackage");
		constexpr int32 CurrentVersion = 1;

		// The words of a line: its first word, then Key=Value pairs where a value is bare or double-quoted.
		struct FLine
		{
			FString Keyword;
			TArray<TPair<FString, FString>> Values;

			const FString* Find(const TCHAR* Key) const;
			FString Get(const TCHAR* Key) const
			{
				const FString* Found = Find(Key);
				return Found != nullptr ? *Found : FString();
			}
		};

		// False for text that isn't a keyword followed by Key=Value pairs.
		bool ParseLine(const FString& Text, FLine& OutLine);
		// The value as a line holds it: bare when it has no spaces, quotes or control characters, else quoted.
		FString FormatValue(const FString& Value);

		FString ObjectFlagsToString(EObjectFlags Flags);
		// False when a name isn't an object flag.
		bool ObjectFlagsFromString(const FString& Text, EObjectFlags& OutFlags);
		// The flags a package file keeps.
		inline const EObjectFlags SavedFlags = RF_Public | RF_Standalone | RF_Transactional | RF_ClassDefaultObject | RF_ArchetypeObject | RF_DefaultSubObject | RF_TextExportTransient | RF_InheritableComponentTemplate | RF_DuplicateTransient | RF_NonPIEDuplicateTransient;
	}
}
