#include "Misc/ConfigCacheIni.h"

#include "Misc/CString.h"
#include "Misc/FileHelper.h"

namespace
{
	bool IsWhitespace(TCHAR Char)
	{
		return Char == TEXT(' ') || Char == TEXT('\t');
	}

	FStringView TrimView(FStringView View)
	{
		int32 Start = 0;
		int32 End = View.Len();
		while (Start < End && IsWhitespace(View[Start]))
		{
			++Start;
		}
		while (End > Start && IsWhitespace(View[End - 1]))
		{
			--End;
		}
		return View.Mid(Start, End - Start);
	}

	// A value in double quotes loses them and its escapes; anything else is taken as it stands.
	FString UnquoteValue(FStringView Value)
	{
		if (Value.Len() < 2 || Value[0] != TEXT('"') || Value[Value.Len() - 1] != TEXT('"'))
		{
			return FString(Value);
		}
		FString Result;
		Result.Reserve(Value.Len());
		const int32 End = Value.Len() - 1;
		for (int32 Index = 1; Index < End; ++Index)
		{
			TCHAR Char = Value[Index];
			if (Char == TEXT('\\') && Index + 1 < End)
			{
				++Index;
				switch (Value[Index])
				{
				case TEXT('n'): Char = TEXT('\n'); break;
				case TEXT('r'): Char = TEXT('\r'); break;
				case TEXT('t'): Char = TEXT('\t'); break;
				default: Char = Value[Index]; break;
				}
			}
			Result.AppendChar(Char);
		}
		return Result;
	}

	// Quotes a value that would not read back as it is: outer white space, quotes, line ends, a final backslash.
	FString QuoteValueIfNeeded(const FString& Value)
	{
		bool bNeedsQuotes = !Value.IsEmpty() && (IsWhitespace(Value[0]) || IsWhitespace(Value[Value.Len() - 1]) || Value[Value.Len() - 1] == TEXT('\\') || Value[0] == TEXT('"'));
		for (int32 Index = 0; Index < Value.Len() && !bNeedsQuotes; ++Index)
		{
			bNeedsQuotes = Value[Index] == TEXT('\n') || Value[Index] == TEXT('\r');
		}
		if (!bNeedsQuotes)
		{
			return Value;
		}
		FString Result;
		Result.Reserve(Value.Len() + 8);
		Result.AppendChar(TEXT('"'));
		for (int32 Index = 0; Index < Value.Len(); ++Index)
		{
			switch (Value[Index])
			{
			case TEXT('"'): Result += TEXT("\\\""); break;
			case TEXT('\\'): Result += TEXT("\\\\"); break;
			case TEXT('\n'): Result += TEXT("\\n"); break;
			case TEXT('\r'): Result += TEXT("\\r"); break;
			case TEXT('\t'): Result += TEXT("\\t"); break;
			default: Result.AppendChar(Value[Index]); break;
			}
		}
		Result.AppendChar(TEXT('"'));
		return Result;
	}

	bool HasRepeatedValues(const TArray<FConfigValue>& Values)
	{
		for (int32 First = 0; First < Values.Num(); ++First)
		{
			for (int32 Second = First + 1; Second < Values.Num(); ++Second)
			{
				if (Values[First] == Values[Second])
				{
					return true;
				}
			}
		}
		return false;
	}

	FString ToText(float Value)
	{
		return FString::SanitizeFloat(Value);
	}
}

const FConfigValue* FConfigSection::Find(FName Key) const
{
	for (const ElementType& Pair : Pairs)
	{
		if (Pair.Key == Key)
		{
			return &Pair.Value;
		}
	}
	return nullptr;
}

FConfigValue* FConfigSection::Find(FName Key)
{
	return const_cast<FConfigValue*>(static_cast<const FConfigSection*>(this)->Find(Key));
}

void FConfigSection::MultiFind(FName Key, TArray<FConfigValue>& OutValues, bool bMaintainOrder) const
{
	for (const ElementType& Pair : Pairs)
	{
		if (Pair.Key == Key)
		{
			OutValues.Add(Pair.Value);
		}
	}
}

int32 FConfigSection::Num(FName Key) const
{
	int32 Count = 0;
	for (const ElementType& Pair : Pairs)
	{
		Count += Pair.Key == Key ? 1 : 0;
	}
	return Count;
}

FConfigValue& FConfigSection::Add(FName Key, const FConfigValue& Value)
{
	// A key's values stay together, so a new one goes after the key's last value.
	int32 InsertIndex = Pairs.Num();
	for (int32 Index = Pairs.Num() - 1; Index >= 0; --Index)
	{
		if (Pairs[Index].Key == Key)
		{
			InsertIndex = Index + 1;
			break;
		}
	}
	Pairs.Insert(ElementType(Key, Value), InsertIndex);
	return Pairs[InsertIndex].Value;
}

void FConfigSection::AddUnique(FName Key, const FConfigValue& Value)
{
	for (const ElementType& Pair : Pairs)
	{
		if (Pair.Key == Key && Pair.Value == Value)
		{
			return;
		}
	}
	Add(Key, Value);
}

int32 FConfigSection::Remove(FName Key)
{
	return Pairs.RemoveAll([Key](const ElementType& Pair)
	{
		return Pair.Key == Key;
	});
}

int32 FConfigSection::RemoveSingle(FName Key, const FConfigValue& Value)
{
	return Pairs.RemoveAll([Key, &Value](const ElementType& Pair)
	{
		return Pair.Key == Key && Pair.Value == Value;
	});
}

void FConfigFile::Read(const FString& Filename)
{
	Empty();
	Combine(Filename);
	Dirty = false;
}

bool FConfigFile::Combine(const FString& Filename)
{
	FString Text;
	if (!FFileHelper::LoadFileToString(Text, *Filename))
	{
		return false;
	}
	ProcessInputFileContents(Text, Filename);
	return true;
}

void FConfigFile::CombineFromBuffer(const FString& Buffer, const FString& FileHint)
{
	ProcessInputFileContents(Buffer, FileHint);
}

void FConfigFile::ProcessInputFileContents(FStringView Contents, const FString& FileHint)
{
	FConfigSection* CurrentSection = nullptr;
	int32 LineStart = 0;
	while (LineStart <= Contents.Len())
	{
		int32 LineEnd = LineStart;
		while (LineEnd < Contents.Len() && Contents[LineEnd] != TEXT('\n') && Contents[LineEnd] != TEXT('\r'))
		{
			++LineEnd;
		}
		const FStringView Line = TrimView(Contents.Mid(LineStart, LineEnd - LineStart));
		LineStart = LineEnd + 1;
		if (LineEnd == Contents.Len())
		{
			LineStart = Contents.Len() + 1;
		}

		if (Line.IsEmpty() || Line[0] == TEXT(';') || Line[0] == TEXT('#'))
		{
			continue;
		}
		if (Line[0] == TEXT('['))
		{
			if (Line[Line.Len() - 1] == TEXT(']'))
			{
				CurrentSection = FindOrAddConfigSection(FString(TrimView(Line.Mid(1, Line.Len() - 2))));
			}
			continue;
		}
		// Lines before the first section, and lines without '=' (other than "!Key"), mean nothing.
		if (CurrentSection == nullptr)
		{
			continue;
		}

		TCHAR Command = 0;
		FStringView Rest = Line;
		if (Rest[0] == TEXT('+') || Rest[0] == TEXT('-') || Rest[0] == TEXT('.') || Rest[0] == TEXT('!'))
		{
			Command = Rest[0];
			Rest = Rest.Mid(1);
		}
		int32 EqualsIndex = INDEX_NONE;
		for (int32 Index = 0; Index < Rest.Len(); ++Index)
		{
			if (Rest[Index] == TEXT('='))
			{
				EqualsIndex = Index;
				break;
			}
		}
		if (EqualsIndex == INDEX_NONE && Command != TEXT('!'))
		{
			continue;
		}
		const FStringView KeyText = TrimView(EqualsIndex == INDEX_NONE ? Rest : Rest.Left(EqualsIndex));
		if (KeyText.IsEmpty())
		{
			continue;
		}
		const FName Key(KeyText);
		const FString Value = EqualsIndex == INDEX_NONE ? FString() : UnquoteValue(TrimView(Rest.Mid(EqualsIndex + 1)));

		switch (Command)
		{
		case TEXT('+'):
			CurrentSection->AddUnique(Key, Value);
			break;
		case TEXT('.'):
			CurrentSection->Add(Key, Value);
			break;
		case TEXT('-'):
			CurrentSection->RemoveSingle(Key, Value);
			break;
		case TEXT('!'):
			CurrentSection->Remove(Key);
			break;
		default:
			CurrentSection->Remove(Key);
			CurrentSection->Add(Key, Value);
			break;
		}
	}
}

FString FConfigFile::ToIniText(const FString& PrefixText) const
{
	FString Text = PrefixText;
	bool bFirstSection = true;
	for (const auto& SectionPair : Sections)
	{
		if (!bFirstSection || !Text.IsEmpty())
		{
			Text += LINE_TERMINATOR;
		}
		bFirstSection = false;
		Text += TEXT("[");
		Text += SectionPair.Key;
		Text += TEXT("]");
		Text += LINE_TERMINATOR;

		// Each key once, in the order of its first value; its values follow as one block.
		TArray<FName> WrittenKeys;
		for (const FConfigSection::ElementType& Pair : SectionPair.Value)
		{
			if (WrittenKeys.Contains(Pair.Key))
			{
				continue;
			}
			WrittenKeys.Add(Pair.Key);
			TArray<FConfigValue> Values;
			SectionPair.Value.MultiFind(Pair.Key, Values);
			const FString KeyText = Pair.Key.ToString();
			const TCHAR* Prefix = Values.Num() == 1 ? TEXT("") : (HasRepeatedValues(Values) ? TEXT(".") : TEXT("+"));
			for (const FConfigValue& Value : Values)
			{
				Text += Prefix;
				Text += KeyText;
				Text += TEXT("=");
				Text += QuoteValueIfNeeded(Value.GetSavedValue());
				Text += LINE_TERMINATOR;
			}
		}
	}
	return Text;
}

bool FConfigFile::Write(const FString& Filename, bool bDoRemoteWrite, const FString& PrefixText)
{
	if (!FFileHelper::SaveStringToFile(ToIniText(PrefixText), *Filename))
	{
		return false;
	}
	Dirty = false;
	return true;
}

const FConfigSection* FConfigFile::FindSection(const FString& SectionName) const
{
	return Sections.Find(SectionName);
}

FConfigSection* FConfigFile::FindOrAddConfigSection(const FString& SectionName)
{
	return &Sections.FindOrAdd(SectionName);
}

int32 FConfigFile::Remove(const FString& SectionName)
{
	const int32 Removed = Sections.Remove(SectionName);
	Dirty |= Removed > 0;
	return Removed;
}

bool FConfigFile::GetString(const TCHAR* Section, const TCHAR* Key, FString& Value) const
{
	const FConfigSection* Found = Section != nullptr ? FindSection(Section) : nullptr;
	const FConfigValue* Entry = (Found != nullptr && Key != nullptr) ? Found->Find(FName(Key, FNAME_Find)) : nullptr;
	if (Entry == nullptr)
	{
		return false;
	}
	Value = Entry->GetValue();
	return true;
}

bool FConfigFile::GetInt(const TCHAR* Section, const TCHAR* Key, int32& Value) const
{
	FString Text;
	if (!GetString(Section, Key, Text))
	{
		return false;
	}
	Value = FCString::Atoi(*Text);
	return true;
}

bool FConfigFile::GetInt64(const TCHAR* Section, const TCHAR* Key, int64& Value) const
{
	FString Text;
	if (!GetString(Section, Key, Text))
	{
		return false;
	}
	Value = FCString::Atoi64(*Text);
	return true;
}

bool FConfigFile::GetFloat(const TCHAR* Section, const TCHAR* Key, float& Value) const
{
	FString Text;
	if (!GetString(Section, Key, Text))
	{
		return false;
	}
	Value = FCString::Atof(*Text);
	return true;
}

bool FConfigFile::GetDouble(const TCHAR* Section, const TCHAR* Key, double& Value) const
{
	FString Text;
	if (!GetString(Section, Key, Text))
	{
		return false;
	}
	Value = FCString::Atod(*Text);
	return true;
}

bool FConfigFile::GetBool(const TCHAR* Section, const TCHAR* Key, bool& Value) const
{
	FString Text;
	if (!GetString(Section, Key, Text))
	{
		return false;
	}
	Value = FCString::ToBool(*Text);
	return true;
}

int32 FConfigFile::GetArray(const TCHAR* Section, const TCHAR* Key, TArray<FString>& Value) const
{
	Value.Empty();
	const FConfigSection* Found = Section != nullptr ? FindSection(Section) : nullptr;
	if (Found != nullptr && Key != nullptr)
	{
		TArray<FConfigValue> Values;
		Found->MultiFind(FName(Key, FNAME_Find), Values);
		for (const FConfigValue& Entry : Values)
		{
			Value.Add(Entry.GetValue());
		}
	}
	return Value.Num();
}

void FConfigFile::SetString(const TCHAR* Section, const TCHAR* Key, const TCHAR* Value)
{
	if (Section == nullptr || Key == nullptr)
	{
		return;
	}
	FConfigSection* Found = FindOrAddConfigSection(Section);
	const FName KeyName(Key);
	const FString NewValue(Value != nullptr ? Value : TEXT(""));
	const FConfigValue* Existing = Found->Find(KeyName);
	if (Existing != nullptr && Found->Num(KeyName) == 1 && Existing->GetSavedValue().Equals(NewValue))
	{
		return;
	}
	Found->Remove(KeyName);
	Found->Add(KeyName, NewValue);
	Dirty = true;
}

void FConfigFile::SetFloat(const TCHAR* Section, const TCHAR* Key, float Value)
{
	SetString(Section, Key, *ToText(Value));
}

void FConfigFile::SetDouble(const TCHAR* Section, const TCHAR* Key, double Value)
{
	SetString(Section, Key, *FString::SanitizeFloat(Value));
}

void FConfigFile::SetBool(const TCHAR* Section, const TCHAR* Key, bool Value)
{
	SetString(Section, Key, Value ? TEXT("True") : TEXT("False"));
}

void FConfigFile::SetInt64(const TCHAR* Section, const TCHAR* Key, const int64 Value)
{
	SetString(Section, Key, *FString::Printf(TEXT("%lld"), Value));
}

void FConfigFile::SetArray(const TCHAR* Section, const TCHAR* Key, const TArray<FString>& Value)
{
	if (Section == nullptr || Key == nullptr)
	{
		return;
	}
	FConfigSection* Found = FindOrAddConfigSection(Section);
	const FName KeyName(Key);
	TArray<FConfigValue> Existing;
	Found->MultiFind(KeyName, Existing);
	bool bSame = Existing.Num() == Value.Num();
	for (int32 Index = 0; bSame && Index < Value.Num(); ++Index)
	{
		bSame = Existing[Index].GetSavedValue().Equals(Value[Index]);
	}
	if (bSame)
	{
		return;
	}
	Found->Remove(KeyName);
	for (const FString& Entry : Value)
	{
		Found->Add(KeyName, Entry);
	}
	Dirty = true;
}

bool FConfigFile::AddToSection(const TCHAR* Section, FName Key, const FString& Value)
{
	if (Section == nullptr)
	{
		return false;
	}
	FindOrAddConfigSection(Section)->Add(Key, Value);
	Dirty = true;
	return true;
}

bool FConfigFile::AddUniqueToSection(const TCHAR* Section, FName Key, const FString& Value)
{
	if (Section == nullptr)
	{
		return false;
	}
	FConfigSection* Found = FindOrAddConfigSection(Section);
	const int32 Before = Found->Num(Key);
	Found->AddUnique(Key, Value);
	const bool bAdded = Found->Num(Key) != Before;
	Dirty |= bAdded;
	return bAdded;
}

bool FConfigFile::RemoveKeyFromSection(const TCHAR* Section, FName Key)
{
	FConfigSection* Found = Section != nullptr ? Sections.Find(Section) : nullptr;
	const bool bRemoved = Found != nullptr && Found->Remove(Key) > 0;
	Dirty |= bRemoved;
	return bRemoved;
}

bool FConfigFile::RemoveFromSection(const TCHAR* Section, FName Key, const FString& Value)
{
	FConfigSection* Found = Section != nullptr ? Sections.Find(Section) : nullptr;
	const bool bRemoved = Found != nullptr && Found->RemoveSingle(Key, Value) > 0;
	Dirty |= bRemoved;
	return bRemoved;
}
