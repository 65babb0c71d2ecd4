// Reading text package files back into objects, and the load functions built on it.
#include "UObject/UObjectGlobals.h"
#include "UObject/Package.h"
#include "UObject/Class.h"
#include "UObject/UnrealType.h"
#include "UObject/StandInPackageFile.h"
#include "Misc/PackageName.h"
#include "Misc/FileHelper.h"
#include "Misc/FeedbackContext.h"
#include "HAL/FileManager.h"
#include "Templates/Casts.h"
#include "PackageTextFormat.h"
#include "PropertyText.h"
#include "CoreUObjectLog.h"
#include <set>

using namespace UE::CoreUObject::Private;

namespace
{
	struct FObjectEntry
	{
		FString ClassPath;
		FString Name;
		EObjectFlags Flags = RF_NoFlags;
		int32 LineNumber = 0;
		int32 Parent = INDEX_NONE;
		TArray<int32> Children;
		TArray<TPair<int32, FString>> PropertyLines;
		TArray<TPair<int32, FString>> CustomLines;
		UObject* Object = nullptr;
	};

	struct FParsedPackage
	{
		FStandInPackageSummary Summary;
		TArray<FObjectEntry> Entries;
		TArray<int32> Roots;
	};

	// Splits the text into lines, the line break of either platform removed.
	TArray<FString> SplitLines(const FString& Text)
	{
		TArray<FString> Lines;
		int32 Start = 0;
		for (int32 Index = 0; Index <= Text.Len(); ++Index)
		{
			if (Index == Text.Len() || Text[Index] == TEXT('\n'))
			{
				FString Line = Text.Mid(Start, Index - Start);
				if (Line.EndsWith(TEXT("\r")))
				{
					Line.LeftChopInline(1);
				}
				Lines.Add(MoveTemp(Line));
				Start = Index + 1;
			}
		}
		return Lines;
	}

	bool Fail(FString& OutError, int32 LineNumber, const FString& Message)
	{
		OutError = LineNumber > 0 ? FString::Printf(TEXT("line %d: %s"), LineNumber, *Message) : Message;
		return false;
	}

	bool ParseHeaderLine(const FString& Line, int32& OutVersion, FString& OutError)
	{
		FString Text = Line;
		// A byte order mark in front is allowed; editors add one.
		if (Text.Len() > 0 && Text[0] == 0xFEFF)
		{
			Text.RightChopInline(1);
		}
		const FString Prefix = FString(PackageText::Magic) + TEXT(" ");
		if (!Text.StartsWith(Prefix, ESearchCase::CaseSensitive))
		{
			return Fail(OutError, 1, FString::Printf(TEXT("not a text package file (it must begin with '%s')"), PackageText::Magic));
		}
		const FString VersionText = Text.Mid(Prefix.Len()).TrimStartAndEnd();
		if (VersionText.IsEmpty() || !VersionText.IsNumeric())
		{
			return Fail(OutError, 1, TEXT("the format version is not a number"));
		}
		OutVersion = FCString::Atoi(*VersionText);
		if (OutVersion < 1 || OutVersion > PackageText::CurrentVersion)
		{
			return Fail(OutError, 1, FString::Printf(TEXT("format version %d is not one this build reads (1 to %d)"), OutVersion, PackageText::CurrentVersion));
		}
		return true;
	}

	bool ParsePackage(const FString& Text, FParsedPackage& Out, FString& OutError)
	{
		const TArray<FString> Lines = SplitLines(Text);
		if (Lines.Num() == 0 || !ParseHeaderLine(Lines[0], Out.Summary.Version, OutError))
		{
			return Lines.Num() == 0 ? Fail(OutError, 0, TEXT("the file is empty")) : false;
		}
		TArray<int32> Open;
		bool bEnded = false;
		for (int32 Index = 1; Index < Lines.Num(); ++Index)
		{
			const int32 LineNumber = Index + 1;
			const FString Line = Lines[Index].TrimStartAndEnd();
			if (Line.IsEmpty() || Line.StartsWith(TEXT(";")))
			{
				continue;
			}
			if (bEnded)
			{
				return Fail(OutError, LineNumber, TEXT("text after 'End Package'"));
			}
			if (Line.Equals(TEXT("End Package"), ESearchCase::CaseSensitive))
			{
				if (Open.Num() > 0)
				{
					return Fail(OutError, LineNumber, FString::Printf(TEXT("'End Package' while object %s is open"), *Out.Entries[Open.Last()].Name));
				}
				bEnded = true;
				continue;
			}
			if (Line.StartsWith(TEXT("Begin Object"), ESearchCase::CaseSensitive))
			{
				PackageText::FLine Parsed;
				if (!PackageText::ParseLine(Line.Mid(6), Parsed) || !Parsed.Keyword.Equals(TEXT("Object")))
				{
					return Fail(OutError, LineNumber, TEXT("malformed 'Begin Object' line"));
				}
				FObjectEntry Entry;
				Entry.ClassPath = Parsed.Get(TEXT("Class"));
				Entry.Name = Parsed.Get(TEXT("Name"));
				Entry.LineNumber = LineNumber;
				if (Entry.ClassPath.IsEmpty() || Entry.Name.IsEmpty())
				{
					return Fail(OutError, LineNumber, TEXT("'Begin Object' needs Class= and Name="));
				}
				if (const FString* FlagsText = Parsed.Find(TEXT("Flags")); FlagsText != nullptr && !PackageText::ObjectFlagsFromString(*FlagsText, Entry.Flags))
				{
					return Fail(OutError, LineNumber, FString::Printf(TEXT("unknown object flags '%s'"), **FlagsText));
				}
				Entry.Parent = Open.Num() > 0 ? Open.Last() : INDEX_NONE;
				const int32 EntryIndex = Out.Entries.Add(MoveTemp(Entry));
				if (Out.Entries[EntryIndex].Parent != INDEX_NONE)
				{
					Out.Entries[Out.Entries[EntryIndex].Parent].Children.Add(EntryIndex);
				}
				else
				{
					Out.Roots.Add(EntryIndex);
				}
				Open.Add(EntryIndex);
				continue;
			}
			if (Line.Equals(TEXT("End Object"), ESearchCase::CaseSensitive))
			{
				if (Open.Num() == 0)
				{
					return Fail(OutError, LineNumber, TEXT("'End Object' without 'Begin Object'"));
				}
				Open.Pop();
				continue;
			}
			if (Open.Num() > 0)
			{
				FObjectEntry& Current = Out.Entries[Open.Last()];
				if (Line.StartsWith(TEXT("CustomProperties "), ESearchCase::CaseSensitive))
				{
					Current.CustomLines.Add(TPair<int32, FString>(LineNumber, Line.Mid(17)));
					continue;
				}
				const int32 Equals = Line.Find(TEXT("="), ESearchCase::CaseSensitive);
				if (Equals <= 0)
				{
					return Fail(OutError, LineNumber, TEXT("expected Name=Value"));
				}
				Current.PropertyLines.Add(TPair<int32, FString>(LineNumber, Line));
				continue;
			}
			PackageText::FLine Parsed;
			if (!PackageText::ParseLine(Line, Parsed))
			{
				return Fail(OutError, LineNumber, TEXT("malformed line"));
			}
			if (Parsed.Keyword.Equals(TEXT("Package")))
			{
				Out.Summary.PackageName = Parsed.Get(TEXT("Name"));
			}
			else if (Parsed.Keyword.Equals(TEXT("Asset")))
			{
				FStandInPackageAsset Asset;
				Asset.AssetName = FName(*Parsed.Get(TEXT("Name")));
				Asset.ClassPath = Parsed.Get(TEXT("Class"));
				Out.Summary.Assets.Add(MoveTemp(Asset));
			}
			else if (Parsed.Keyword.Equals(TEXT("Tag")))
			{
				if (Out.Summary.Assets.Num() == 0)
				{
					return Fail(OutError, LineNumber, TEXT("'Tag' before any 'Asset'"));
				}
				Out.Summary.Assets.Last().Tags.Add(TPair<FName, FString>(FName(*Parsed.Get(TEXT("Name"))), Parsed.Get(TEXT("Value"))));
			}
			else
			{
				return Fail(OutError, LineNumber, FString::Printf(TEXT("unknown line '%s'"), *Parsed.Keyword));
			}
		}
		if (Open.Num() > 0)
		{
			return Fail(OutError, 0, FString::Printf(TEXT("the file ends inside object %s (truncated?)"), *Out.Entries[Open.Last()].Name));
		}
		if (!bEnded)
		{
			return Fail(OutError, 0, TEXT("the file ends before 'End Package' (truncated?)"));
		}
		return true;
	}

	// Feeds import messages to the log with the file and line they came from.
	class FImportErrors final : public FOutputDevice
	{
	public:
		FImportErrors(const FString& InFilename)
			: Filename(InFilename)
		{
		}
		void Serialize(const TCHAR* V, ELogVerbosity::Type Verbosity, const FName& Category) override
		{
			UE_LOG(LogLinker, Warning, TEXT("%s(%d): %s"), *Filename, LineNumber, V);
		}

		FString Filename;
		int32 LineNumber = 0;
	};

	// Packages being loaded now: a reference back into one of them finds its objects instead of loading again.
	std::set<FString>& PackagesInProgress()
	{
		static std::set<FString> InProgress;
		return InProgress;
	}

	UClass* ResolveClass(const FString& ClassPath)
	{
		UClass* Class = Cast<UClass>(StaticFindObject(UClass::StaticClass(), nullptr, *ClassPath));
		if (Class == nullptr && !FPackageName::IsScriptPackage(FPackageName::ObjectPathToPackageName(ClassPath)))
		{
			Class = Cast<UClass>(StaticLoadObject(UClass::StaticClass(), nullptr, *ClassPath, nullptr, LOAD_NoWarn | LOAD_Quiet));
		}
		return Class;
	}

	class FPackageLoader
	{
	public:
		FPackageLoader(UPackage* InPackage, FParsedPackage& InParsed, const FString& InFilename)
			: Package(InPackage)
			, Parsed(InParsed)
			, Errors(InFilename)
		{
		}

		void Load()
		{
			for (int32 Root : Parsed.Roots)
			{
				CreateObjects(Root, Package);
			}
			// Types first, so that objects of classes defined in this package can be made and filled.
			for (int32 Index = 0; Index < Parsed.Entries.Num(); ++Index)
			{
				if (UStruct* Struct = Cast<UStruct>(Parsed.Entries[Index].Object))
				{
					ImportProperties(Parsed.Entries[Index]);
					ImportCustomProperties(Parsed.Entries[Index]);
					Structs.Add(Struct);
				}
			}
			for (UStruct* Struct : Structs)
			{
				FinishType(Struct);
			}
			for (int32 Index = 0; Index < Parsed.Entries.Num(); ++Index)
			{
				if (Parsed.Entries[Index].Object == nullptr && (Parsed.Entries[Index].Flags & RF_ClassDefaultObject) != 0)
				{
					CreateClassDefaultObject(Index);
				}
			}
			for (int32 Index = 0; Index < Parsed.Entries.Num(); ++Index)
			{
				FObjectEntry& Entry = Parsed.Entries[Index];
				if (Entry.Object != nullptr && !Entry.Object->IsA(UStruct::StaticClass()))
				{
					ImportProperties(Entry);
					ImportCustomProperties(Entry);
				}
			}
			for (FObjectEntry& Entry : Parsed.Entries)
			{
				if (Entry.Object != nullptr)
				{
					Entry.Object->ClearFlags(RF_NeedLoad | RF_NeedPostLoad);
					Entry.Object->SetFlags(RF_WasLoaded | RF_LoadCompleted);
					Entry.Object->PostLoad();
				}
			}
		}

	private:
		void CreateObjects(int32 EntryIndex, UObject* Outer)
		{
			FObjectEntry& Entry = Parsed.Entries[EntryIndex];
			if ((Entry.Flags & RF_ClassDefaultObject) != 0)
			{
				// Class default objects are made by their class once it is complete.
				return;
			}
			UClass* Class = ResolveClass(Entry.ClassPath);
			if (Class == nullptr)
			{
				Errors.LineNumber = Entry.LineNumber;
				Errors.Log(*FString::Printf(TEXT("unknown class %s: object %s and what it holds are left out"), *Entry.ClassPath, *Entry.Name));
				return;
			}
			const FName Name(*Entry.Name);
			UObject* Object = StaticFindObjectFast(nullptr, Outer, Name);
			if (Object != nullptr && Object->GetClass() != Class)
			{
				Errors.LineNumber = Entry.LineNumber;
				Errors.Log(*FString::Printf(TEXT("%s is a %s here but a %s in the file: it is left out"), *Object->GetPathName(), *Object->GetClass()->GetName(), *Class->GetName()));
				return;
			}
			if (Object == nullptr)
			{
				Object = NewObject<UObject>(Outer, Class, Name, Entry.Flags | RF_NeedLoad);
			}
			if (Object == nullptr)
			{
				Errors.LineNumber = Entry.LineNumber;
				Errors.Log(*FString::Printf(TEXT("can't make %s of class %s"), *Entry.Name, *Class->GetName()));
				return;
			}
			Object->SetFlags(Entry.Flags);
			Entry.Object = Object;
			for (int32 Child : Entry.Children)
			{
				CreateObjects(Child, Object);
			}
		}

		void CreateClassDefaultObject(int32 EntryIndex)
		{
			FObjectEntry& Entry = Parsed.Entries[EntryIndex];
			UClass* Class = ResolveClass(Entry.ClassPath);
			UObject* Defaults = Class != nullptr ? Class->GetDefaultObject() : nullptr;
			if (Defaults == nullptr || Defaults->GetFName() != FName(*Entry.Name))
			{
				Errors.LineNumber = Entry.LineNumber;
				Errors.Log(*FString::Printf(TEXT("no class default object %s of class %s"), *Entry.Name, *Entry.ClassPath));
				return;
			}
			Entry.Object = Defaults;
			for (int32 Child : Entry.Children)
			{
				CreateObjects(Child, Defaults);
			}
		}

		void ImportProperties(FObjectEntry& Entry)
		{
			UObject* Object = Entry.Object;
			for (const TPair<int32, FString>& Line : Entry.PropertyLines)
			{
				Errors.LineNumber = Line.Key;
				const int32 Equals = Line.Value.Find(TEXT("="), ESearchCase::CaseSensitive);
				FString Key = Line.Value.Left(Equals).TrimEnd();
				const FString ValueText = Line.Value.Mid(Equals + 1).TrimStartAndEnd();
				int32 ArrayIndex = 0;
				const int32 Paren = Key.Find(TEXT("("), ESearchCase::CaseSensitive);
				if (Paren != INDEX_NONE && Key.EndsWith(TEXT(")")))
				{
					ArrayIndex = FCString::Atoi(*Key.Mid(Paren + 1, Key.Len() - Paren - 2));
					Key = Key.Left(Paren);
				}
				FProperty* Property = Object->GetClass()->FindPropertyByName(FName(*Key, FNAME_Find));
				if (Property == nullptr || ArrayIndex < 0 || ArrayIndex >= Property->ArrayDim)
				{
					// A property that the class no longer has is passed over, so that old files still load.
					Errors.Log(*FString::Printf(TEXT("%s has no property %s; the value is left out"), *Object->GetClass()->GetName(), *Line.Value.Left(Equals)));
					continue;
				}
				const TCHAR* End = Property->ImportText_Direct(*ValueText, Property->ContainerPtrToValuePtr<void>(Object, ArrayIndex), Object, PPF_Delimited, &Errors);
				if (End != nullptr && *SkipWhitespace(End) != 0)
				{
					Errors.Log(*FString::Printf(TEXT("text left over after the value of %s: %s"), *Key, SkipWhitespace(End)));
				}
			}
		}

		void ImportCustomProperties(FObjectEntry& Entry)
		{
			for (const TPair<int32, FString>& Line : Entry.CustomLines)
			{
				Errors.LineNumber = Line.Key;
				FFeedbackContext Feedback;
				Entry.Object->ImportCustomProperties(*Line.Value, &Feedback);
				TArray<FString> Messages;
				Feedback.GetWarnings(Messages);
				TArray<FString> ErrorMessages;
				Feedback.GetErrors(ErrorMessages);
				Messages.Append(ErrorMessages);
				for (const FString& Message : Messages)
				{
					Errors.Log(*Message);
				}
			}
		}

		// A type made from its definition: it takes over from its super type and gets its layout; a function
		// joins its class.
		void FinishType(UStruct* Struct)
		{
			if (!Finished.insert(Struct).second)
			{
				return;
			}
			if (UStruct* Super = Struct->GetSuperStruct(); Super != nullptr && Structs.Contains(Super))
			{
				FinishType(Super);
			}
			if (UClass* Class = Cast<UClass>(Struct))
			{
				if (UClass* SuperClass = Class->GetSuperClass())
				{
					Class->ClassFlags |= SuperClass->ClassFlags & CLASS_Inherit;
					Class->ClassCastFlags |= SuperClass->ClassCastFlags;
					if (Class->ClassWithin == nullptr)
					{
						Class->ClassWithin = SuperClass->ClassWithin;
					}
					if (Class->ClassConfigName.IsNone())
					{
						Class->ClassConfigName = SuperClass->ClassConfigName;
					}
				}
				Class->ClassFlags &= ~CLASS_Native;
			}
			Struct->StaticLink(true);
			if (UFunction* Function = Cast<UFunction>(Struct))
			{
				if (UClass* Owner = Function->GetOuterUClass())
				{
					Owner->AddFunctionToFunctionMap(Function, Function->GetFName());
					UField** Tail = &Owner->Children;
					while (*Tail != nullptr && *Tail != Function)
					{
						Tail = &(*Tail)->Next;
					}
					*Tail = Function;
				}
			}
		}

		UPackage* Package;
		FParsedPackage& Parsed;
		FImportErrors Errors;
		TArray<UStruct*> Structs;
		std::set<UStruct*> Finished;
	};

	void LogLoadFailure(const FString& PackageName, const FString& Filename, const FString& Reason)
	{
		UE_LOG(LogLinker, Warning, TEXT("Can't load package %s from %s: %s"), *PackageName, *Filename, *Reason);
	}
}

bool FStandInPackageFile::ReadSummary(const FString& Filename, FStandInPackageSummary& OutSummary, FString* OutError)
{
	FString Text;
	FString Error;
	FParsedPackage Parsed;
	if (!FFileHelper::LoadFileToString(Text, *Filename))
	{
		Error = TEXT("can't read the file");
	}
	else
	{
		// Only the lines before the first object matter, but a file must be whole to count.
		const int32 FirstObject = Text.Find(TEXT("\nBegin Object"), ESearchCase::CaseSensitive);
		FString Head = FirstObject != INDEX_NONE ? Text.Left(FirstObject + 1) : Text;
		const FString Tail = Text.TrimEnd();
		if (!Tail.EndsWith(TEXT("End Package")))
		{
			Error = TEXT("the file ends before 'End Package' (truncated?)");
		}
		else
		{
			if (FirstObject != INDEX_NONE)
			{
				Head += TEXT("End Package\n");
			}
			if (ParsePackage(Head, Parsed, Error))
			{
				OutSummary = MoveTemp(Parsed.Summary);
				return true;
			}
		}
	}
	if (OutError != nullptr)
	{
		*OutError = Error;
	}
	return false;
}

UPackage* LoadPackage(UPackage* InOuter, const TCHAR* InLongPackageName, uint32 LoadFlags, FArchive* InReaderOverride, const FLinkerInstancingContext* InstancingContext)
{
	if (InLongPackageName == nullptr || *InLongPackageName == 0)
	{
		return nullptr;
	}
	FString PackageName(InLongPackageName);
	FString Filename;
	if (!PackageName.StartsWith(TEXT("/")) || IFileManager::Get().FileExists(*PackageName))
	{
		// A file name: the package is found from where the file sits.
		Filename = PackageName;
		if (!FPackageName::TryConvertFilenameToLongPackageName(Filename, PackageName))
		{
			UE_LOG(LogLinker, Warning, TEXT("LoadPackage: %s is not inside a mounted content folder"), InLongPackageName);
			return nullptr;
		}
	}
	PackageName = FPackageName::ObjectPathToPackageName(PackageName);
	UPackage* Package = FindPackage(nullptr, *PackageName);
	if (Package != nullptr && (Package->IsFullyLoaded() || PackagesInProgress().count(PackageName) != 0))
	{
		return Package;
	}
	if (Filename.IsEmpty() && !FPackageName::DoesPackageExist(PackageName, &Filename))
	{
		if (!(LoadFlags & (LOAD_NoWarn | LOAD_Quiet)))
		{
			UE_LOG(LogLinker, Warning, TEXT("LoadPackage: there is no file for package %s"), *PackageName);
		}
		return nullptr;
	}
	FString Text;
	if (!FFileHelper::LoadFileToString(Text, *Filename))
	{
		LogLoadFailure(PackageName, Filename, TEXT("the file can't be read"));
		return nullptr;
	}
	FParsedPackage Parsed;
	FString Error;
	if (!ParsePackage(Text, Parsed, Error))
	{
		LogLoadFailure(PackageName, Filename, Error);
		return nullptr;
	}
	if (!Parsed.Summary.PackageName.IsEmpty() && !Parsed.Summary.PackageName.Equals(PackageName, ESearchCase::IgnoreCase))
	{
		UE_LOG(LogLinker, Warning, TEXT("%s was saved as package %s; references inside it may not resolve"), *Filename, *Parsed.Summary.PackageName);
	}
	if (Package == nullptr)
	{
		Package = CreatePackage(*PackageName);
		if (Package == nullptr)
		{
			return nullptr;
		}
	}
	PackagesInProgress().insert(PackageName);
	FPackageLoader(Package, Parsed, Filename).Load();
	PackagesInProgress().erase(PackageName);
	Package->SetLoadedPath(FName(*Filename));
	Package->MarkAsFullyLoaded();
	Package->SetDirtyFlag(false);
	return Package;
}

UObject* StaticLoadObject(UClass* Class, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename, uint32 LoadFlags, UPackageMap* Sandbox, bool bAllowObjectReconciliation, const FLinkerInstancingContext* InstancingContext)
{
	if (Name == nullptr || *Name == 0)
	{
		return nullptr;
	}
	UClass* ObjectClass = Class != nullptr ? Class : UObject::StaticClass();
	const FString ObjectPath = FPackageName::ExportTextPathToObjectPath(FString(Name).TrimStartAndEnd());
	UObject* Result = nullptr;
	if (InOuter != nullptr)
	{
		Result = StaticFindObject(ObjectClass, InOuter, *ObjectPath);
		UPackage* OuterPackage = InOuter->GetOutermost();
		if (Result == nullptr && OuterPackage != nullptr && !OuterPackage->IsFullyLoaded())
		{
			LoadPackage(nullptr, *OuterPackage->GetName(), LoadFlags);
			Result = StaticFindObject(ObjectClass, InOuter, *ObjectPath);
		}
	}
	else if (!ObjectPath.Contains(TEXT(".")))
	{
		// A package name alone stands for the package's main asset, named as the package.
		return StaticLoadObject(ObjectClass, nullptr, *FPackageName::ObjectPathCombine(ObjectPath, FPackageName::GetShortName(ObjectPath)), Filename, LoadFlags, Sandbox, bAllowObjectReconciliation, InstancingContext);
	}
	else
	{
		Result = StaticFindObject(ObjectClass, nullptr, *ObjectPath);
		const FString PackageName = FPackageName::ObjectPathToPackageName(ObjectPath);
		if (Result == nullptr && !FPackageName::IsScriptPackage(PackageName))
		{
			if (LoadPackage(nullptr, Filename != nullptr && *Filename ? Filename : *PackageName, LoadFlags) != nullptr)
			{
				Result = StaticFindObject(ObjectClass, nullptr, *ObjectPath);
			}
		}
	}
	if (Result == nullptr && !(LoadFlags & (LOAD_NoWarn | LOAD_Quiet)))
	{
		UE_LOG(LogUObjectGlobals, Warning, TEXT("Failed to find object '%s %s'"), *ObjectClass->GetName(), *ObjectPath);
	}
	return Result;
}

UClass* StaticLoadClass(UClass* BaseClass, UObject* InOuter, const TCHAR* Name, const TCHAR* Filename, uint32 LoadFlags, UPackageMap* Sandbox)
{
	UClass* Class = Cast<UClass>(StaticLoadObject(UClass::StaticClass(), InOuter, Name, Filename, LoadFlags, Sandbox));
	if (Class != nullptr && BaseClass != nullptr && !Class->IsChildOf(BaseClass))
	{
		if (!(LoadFlags & (LOAD_NoWarn | LOAD_Quiet)))
		{
			UE_LOG(LogUObjectGlobals, Warning, TEXT("LoadClass: %s is not a child class of %s"), *Class->GetPathName(), *BaseClass->GetPathName());
		}
		return nullptr;
	}
	return Class;
}
