#include "UObject/NameTypes.h"
#include "Misc/Char.h"

namespace
{
	// Short words that stay lower case inside a display name: "ResetToDefault" reads "Reset to Default".
	const TCHAR* const LowerCaseWords[] = {
		TEXT("in"), TEXT("as"), TEXT("to"), TEXT("or"), TEXT("at"), TEXT("on"), TEXT("if"), TEXT("be"),
		TEXT("by"), TEXT("the"), TEXT("for"), TEXT("and"), TEXT("with"), TEXT("when"), TEXT("from"),
	};

	// The word that starts at Start: a first letter and the lower-case letters after it.
	FString WordAt(const FString& Name, int32 Start)
	{
		int32 End = Start + 1;
		while (End < Name.Len() && FChar::IsLower(Name[End]))
		{
			++End;
		}
		return Name.Mid(Start, End - Start);
	}

	bool IsLowerCaseWord(const FString& Word)
	{
		for (const TCHAR* Candidate : LowerCaseWords)
		{
			if (Word.Equals(Candidate, ESearchCase::IgnoreCase))
			{
				return true;
			}
		}
		return false;
	}
}

FString FName::NameToDisplayString(const FString& InDisplayName, const bool bIsBool)
{
	const FString& Name = InDisplayName;
	int32 Start = 0;
	if (bIsBool && Name.Len() > 1 && Name[0] == TEXT('b') && FChar::IsUpper(Name[1]))
	{
		Start = 1;
	}

	FString Result;
	// Capitals and digits that follow one another belong together ("Scale3D", "HTTP").
	bool bInUpperRun = false;
	bool bAfterSpace = false;
	bool bAfterOpenParen = false;
	bool bInNumber = false;
	bool bAfterMinus = false;
	for (int32 Index = Start; Index < Name.Len(); ++Index)
	{
		TCHAR Char = Name[Index];
		const bool bUpper = FChar::IsUpper(Char);
		const bool bDigit = FChar::IsDigit(Char);

		const bool bStartsPart = bUpper || (bDigit && !bAfterMinus);
		if (bStartsPart && !bInUpperRun && !bAfterOpenParen && !bInNumber)
		{
			if (!bAfterSpace && !Result.IsEmpty())
			{
				Result.AppendChar(TEXT(' '));
				bAfterSpace = true;
			}
			bInUpperRun = true;
		}
		if (FChar::IsLower(Char))
		{
			bInUpperRun = false;
		}
		if (Char == TEXT('_'))
		{
			Char = TEXT(' ');
			bInUpperRun = true;
		}

		if (Result.IsEmpty())
		{
			Char = FChar::ToUpper(Char);
		}
		else if (!bDigit && (bAfterSpace || bAfterOpenParen))
		{
			Char = IsLowerCaseWord(WordAt(Name, Index)) ? FChar::ToLower(Char) : FChar::ToUpper(Char);
		}

		bAfterSpace = Char == TEXT(' ');
		bAfterOpenParen = Char == TEXT('(');
		bAfterMinus = Char == TEXT('-');
		bInNumber = bDigit || (bInNumber && (Char == TEXT('.') || bAfterMinus));
		Result.AppendChar(Char);
	}
	return Result;
}
