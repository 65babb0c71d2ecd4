#include "Agent/FileUtils.h"

#include "GenericPlatform/GenericPlatformFile.h"
#include "HAL/FileManager.h"
#include "HAL/PlatformFileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"

namespace
{
	// New files and line-based rewrites let the platform choose (one byte a character when possible);
	// whole-content rewrites are always UTF-8 with a byte order mark.
	constexpr FFileHelper::EEncodingOptions LineRewriteEncoding = FFileHelper::EEncodingOptions::AutoDetect;
	constexpr FFileHelper::EEncodingOptions ContentRewriteEncoding = FFileHelper::EEncodingOptions::ForceUTF8;

	FString ToFullPath(const FString& FilePath)
	{
		return FPaths::ConvertRelativePathToFull(FPaths::ProjectDir(), FilePath);
	}

	IPlatformFile& PlatformFile()
	{
		return FPlatformFileManager::Get().GetPlatformFile();
	}

	// The loads that the operations share. Each gives an empty text on success, else the failure text,
	// which names ShownPath: the operations differ in whether the model sees its own path or the full one.
	FString LoadText(const FString& FullPath, const FString& ShownPath, FString& OutText)
	{
		if (!PlatformFile().FileExists(*FullPath))
		{
			return FString::Printf(TEXT("Error: File does not exist: %s"), *ShownPath);
		}
		if (!FFileHelper::LoadFileToString(OutText, *FullPath))
		{
			return FString::Printf(TEXT("Error: Failed to read file: %s"), *ShownPath);
		}
		return FString();
	}

	FString LoadLines(const FString& FullPath, const FString& ShownPath, TArray<FString>& OutLines)
	{
		if (!PlatformFile().FileExists(*FullPath))
		{
			return FString::Printf(TEXT("Error: File does not exist: %s"), *ShownPath);
		}
		if (!FFileHelper::LoadFileToStringArray(OutLines, *FullPath))
		{
			return FString::Printf(TEXT("Error: Failed to read file: %s"), *ShownPath);
		}
		return FString();
	}

	/**
	 * The form used only to test whether the model's text is in the file: every CR LF made LF, then every
	 * tab made four spaces. One pass into one buffer, since the file's copy may be tens of megabytes.
	 */
	FString NormaliseForPresenceTest(const FString& Text)
	{
		const int32 Length = Text.Len();
		if (Length == 0)
		{
			return FString();
		}
		const TCHAR* Source = *Text;
		int32 TabCount = 0;
		for (int32 Index = 0; Index < Length; ++Index)
		{
			TabCount += Source[Index] == TEXT('\t') ? 1 : 0;
		}

		FString Normalised;
		TArray<TCHAR>& Chars = Normalised.GetCharArray();
		Chars.SetNumUninitialized(Length + 3 * TabCount + 1);
		TCHAR* Out = Chars.GetData();
		for (int32 Index = 0; Index < Length; ++Index)
		{
			const TCHAR Char = Source[Index];
			if (Char == TEXT('\r') && Index + 1 < Length && Source[Index + 1] == TEXT('\n'))
			{
				continue;
			}
			if (Char == TEXT('\t'))
			{
				for (int32 Space = 0; Space < 4; ++Space)
				{
					*Out++ = TEXT(' ');
				}
				continue;
			}
			*Out++ = Char;
		}
		*Out++ = TEXT('\0');
		Chars.SetNum(static_cast<int32>(Out - Chars.GetData()), EAllowShrinking::No);
		return Normalised;
	}

	FString AdaptLineEnds(const FString& Text, bool bFileUsesCrLf)
	{
		return bFileUsesCrLf
			? Text.Replace(TEXT("\n"), TEXT("\r\n"), ESearchCase::CaseSensitive)
			: Text.Replace(TEXT("\r\n"), TEXT("\n"), ESearchCase::CaseSensitive);
	}

	FString AdaptIndentation(const FString& Text, bool bFileUsesTabs)
	{
		return bFileUsesTabs
			? Text.Replace(TEXT("    "), TEXT("\t"), ESearchCase::CaseSensitive)
			: Text.Replace(TEXT("\t"), TEXT("    "), ESearchCase::CaseSensitive);
	}

	/**
	 * Replaces OldString in Content: as sent when it is there exactly, otherwise in the first adapted
	 * form (line ends and indentation, line ends, indentation) that matches the file's own habits.
	 * NewString goes in as sent. Returns the number of replacements.
	 */
	int32 ReplaceForgiving(FString& Content, const FString& OldString, const FString& NewString)
	{
		if (Content.Contains(OldString, ESearchCase::CaseSensitive))
		{
			return Content.ReplaceInline(*OldString, *NewString, ESearchCase::CaseSensitive);
		}

		const bool bFileUsesCrLf = Content.Contains(TEXT("\r\n"), ESearchCase::CaseSensitive);
		const bool bFileUsesTabs = Content.Contains(TEXT("\t"), ESearchCase::CaseSensitive);
		const FString AdaptedForms[] = {
			AdaptIndentation(AdaptLineEnds(OldString, bFileUsesCrLf), bFileUsesTabs),
			AdaptLineEnds(OldString, bFileUsesCrLf),
			AdaptIndentation(OldString, bFileUsesTabs)};
		for (const FString& Form : AdaptedForms)
		{
			const int32 Replacements = Content.ReplaceInline(*Form, *NewString, ESearchCase::CaseSensitive);
			if (Replacements > 0)
			{
				return Replacements;
			}
		}
		return 0;
	}
}

FString FFileUtils::CreateNewFileWithContent(const FString& FilePath, const FString& Content)
{
	const FString FullPath = ToFullPath(FilePath);
	const FString Directory = FPaths::GetPath(FullPath);
	if (!FPaths::DirectoryExists(Directory) && !PlatformFile().CreateDirectoryTree(*Directory))
	{
		return FString::Printf(TEXT("Error: Failed to create directory: %s"), *Directory);
	}

	// No existence test: creating over an existing file overwrites it.
	if (!FFileHelper::SaveStringToFile(Content, *FullPath, LineRewriteEncoding, &IFileManager::Get(), 0))
	{
		return FString::Printf(TEXT("Error: Failed to create file: %s"), *FilePath);
	}
	AddNewFileToSourceControl(FullPath);
	return FString::Printf(TEXT("File created successfully: %s"), *FilePath);
}

FString FFileUtils::ReadFile(const FString& FilePath)
{
	const FString FullPath = ToFullPath(FilePath);
	FString Content;
	const FString LoadFailure = LoadText(FullPath, FullPath, Content);
	if (!LoadFailure.IsEmpty())
	{
		return LoadFailure;
	}
	return Content;
}

FString FFileUtils::ReadFileLineRange(const FString& FilePath, int32 StartLine, int32 EndLine)
{
	const FString FullPath = ToFullPath(FilePath);
	TArray<FString> Lines;
	const FString LoadFailure = LoadLines(FullPath, FullPath, Lines);
	if (!LoadFailure.IsEmpty())
	{
		return LoadFailure;
	}

	// Both ends 1-based and clamped, so that no end given, however far out, overflows on the way.
	// Only exactly -1 means "to the end"; another negative end stays and makes the range invalid.
	const int32 LineCount = Lines.Num();
	const int32 FirstLine = FMath::Max(StartLine, 1);
	const int32 LastLine = EndLine == -1 ? LineCount : FMath::Min(EndLine, LineCount);
	if (FirstLine > LastLine || FirstLine > LineCount)
	{
		return FString::Printf(TEXT("Error: Invalid line range for file: %s (StartLine: %d, EndLine: %d, Total Lines: %d)"), *FilePath, FirstLine, LastLine, LineCount);
	}

	FString Result;
	for (int32 Index = FirstLine - 1; Index < LastLine; ++Index)
	{
		if (Index >= FirstLine)
		{
			Result += TEXT("\n");
		}
		Result += Lines[Index];
	}
	return Result;
}

FString FFileUtils::UpdateFile(const FString& FilePath, const FString& OldString, const FString& NewString, FString& OutOriginalContent, FString& OutUpdatedContent)
{
	const FString FullPath = ToFullPath(FilePath);
	// The text as loaded stays the caller's on every later failure.
	const FString LoadFailure = LoadText(FullPath, FilePath, OutOriginalContent);
	if (!LoadFailure.IsEmpty())
	{
		return LoadFailure;
	}

	// The model often sends LF where the file has CR LF, or spaces where it has tabs: the presence test
	// forgives both, while the replacement below keeps every unmatched byte of the file as it was.
	if (!NormaliseForPresenceTest(OutOriginalContent).Contains(NormaliseForPresenceTest(OldString), ESearchCase::CaseSensitive))
	{
		return FString::Printf(TEXT("Error: String not found in file: %s"), *FilePath);
	}

	CheckoutFileFromSourceControl(FullPath);

	OutUpdatedContent = OutOriginalContent;
	const int32 Replacements = ReplaceForgiving(OutUpdatedContent, OldString, NewString);
	if (Replacements == 0)
	{
		return FString::Printf(TEXT("Error: No replacements made in file: %s"), *FilePath);
	}

	if (!PlatformFile().DeleteFile(*FullPath))
	{
		return FString::Printf(TEXT("Error: Failed to delete existing file: %s"), *FilePath);
	}
	if (!FFileHelper::SaveStringToFile(OutUpdatedContent, *FullPath, ContentRewriteEncoding, &IFileManager::Get(), 0))
	{
		return FString::Printf(TEXT("Error: Failed to write new content to file: %s"), *FilePath);
	}
	return FString::Printf(TEXT("Successfully updated file: %s with %d replacements"), *FilePath, Replacements);
}

FString FFileUtils::ReplaceFile(const FString& FilePath, const FString& NewContent)
{
	const FString FullPath = ToFullPath(FilePath);
	if (!PlatformFile().FileExists(*FullPath))
	{
		return FString::Printf(TEXT("Error: File does not exist: %s"), *FullPath);
	}

	CheckoutFileFromSourceControl(FullPath);

	if (!PlatformFile().DeleteFile(*FullPath))
	{
		return FString::Printf(TEXT("Error: Failed to delete existing file: %s"), *FullPath);
	}
	if (!FFileHelper::SaveStringToFile(NewContent, *FullPath, ContentRewriteEncoding, &IFileManager::Get(), 0))
	{
		return FString::Printf(TEXT("Error: Failed to write new content to file: %s"), *FullPath);
	}
	return FString::Printf(TEXT("Successfully replaced file: %s"), *FilePath);
}

void FFileUtils::ReplaceLineInFile(const FString& FilePath, int32 LineNumber, const FString& NewLine)
{
	const FString FullPath = ToFullPath(FilePath);
	const int32 Index = LineNumber - 1;
	TArray<FString> Lines;
	if (!PlatformFile().FileExists(*FullPath) || !FFileHelper::LoadFileToStringArray(Lines, *FullPath) || !Lines.IsValidIndex(Index))
	{
		return;
	}
	Lines[Index] = NewLine;

	CheckoutFileFromSourceControl(FullPath);
	if (!PlatformFile().DeleteFile(*FullPath))
	{
		return;
	}
	FFileHelper::SaveStringArrayToFile(Lines, *FullPath, LineRewriteEncoding, &IFileManager::Get(), 0);
}

FString FFileUtils::InsertIntoFile(const FString& FilePath, int32 InsertLine, const FString& Text)
{
	const FString FullPath = ToFullPath(FilePath);
	TArray<FString> Lines;
	const FString LoadFailure = LoadLines(FullPath, FilePath, Lines);
	if (!LoadFailure.IsEmpty())
	{
		return LoadFailure;
	}

	// InsertLine counts the lines that stay above the new text.
	const int32 Index = FMath::Clamp(InsertLine, 0, Lines.Num());
	Lines.Insert(Text, Index);

	CheckoutFileFromSourceControl(FullPath);

	if (!PlatformFile().DeleteFile(*FullPath))
	{
		return FString::Printf(TEXT("Error: Failed to delete existing file: %s"), *FilePath);
	}
	if (!FFileHelper::SaveStringArrayToFile(Lines, *FullPath, LineRewriteEncoding, &IFileManager::Get(), 0))
	{
		return FString::Printf(TEXT("Error: Failed to write modified content to file: %s"), *FilePath);
	}
	return FString::Printf(TEXT("Successfully inserted text at line %d in file: %s"), Index, *FilePath);
}

FString FFileUtils::DeleteFile(const FString& FilePath)
{
	const FString FullPath = ToFullPath(FilePath);

	// Asked before anything is known of the file, so source control hears of it even when it is gone.
	RemoveFileFromSourceControl(FullPath, false);

	if (!PlatformFile().FileExists(*FullPath))
	{
		return FString::Printf(TEXT("Error: File does not exist at path: %s"), *FilePath);
	}
	if (!PlatformFile().DeleteFile(*FullPath))
	{
		return FString::Printf(TEXT("Error: Failed to delete file: %s"), *FilePath);
	}
	return FString::Printf(TEXT("Successfully deleted file: %s"), *FilePath);
}
