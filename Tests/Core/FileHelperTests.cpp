#include "CoreMinimal.h"
#include "CoreTestPrinters.h"
#include "HAL/FileManager.h"
#include "HAL/PlatformFileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"
#include "ScratchDirectory.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace
{
	using EEncoding = FFileHelper::EEncodingOptions;

	// Code points from every band the encodings treat differently: ASCII with line ends and controls,
	// Latin-1, the rest of the BMP around the surrogates, and the planes beyond it.
	char32_t RandomCodePoint(std::mt19937& Random)
	{
		switch (Random() % 4)
		{
		case 0: return 1 + Random() % 0x7F;
		case 1: return 0x80 + Random() % 0x80;
		case 2:
		{
			char32_t CodePoint = 0x100 + Random() % (0x10000 - 0x100);
			// Surrogates are not characters, and a leading U+FEFF would read as a byte order mark.
			return (CodePoint >= 0xD800 && CodePoint <= 0xDFFF) || CodePoint == 0xFEFF ? 0x4E2D : CodePoint;
		}
		default: return 0x10000 + Random() % (0x110000 - 0x10000);
		}
	}

	// Independent of the code under test: the textbook encodings of one code point.
	void AppendUtf16(char32_t CodePoint, FString& Out)
	{
		if (CodePoint < 0x10000)
		{
			Out.AppendChar((TCHAR)CodePoint);
			return;
		}
		Out.AppendChar((TCHAR)(0xD800 + ((CodePoint - 0x10000) >> 10)));
		Out.AppendChar((TCHAR)(0xDC00 + ((CodePoint - 0x10000) & 0x3FF)));
	}

	void AppendUtf8(char32_t CodePoint, std::string& Out)
	{
		if (CodePoint < 0x80)
		{
			Out += (char)CodePoint;
		}
		else if (CodePoint < 0x800)
		{
			Out += (char)(0xC0 | (CodePoint >> 6));
			Out += (char)(0x80 | (CodePoint & 0x3F));
		}
		else if (CodePoint < 0x10000)
		{
			Out += (char)(0xE0 | (CodePoint >> 12));
			Out += (char)(0x80 | ((CodePoint >> 6) & 0x3F));
			Out += (char)(0x80 | (CodePoint & 0x3F));
		}
		else
		{
			Out += (char)(0xF0 | (CodePoint >> 18));
			Out += (char)(0x80 | ((CodePoint >> 12) & 0x3F));
			Out += (char)(0x80 | ((CodePoint >> 6) & 0x3F));
			Out += (char)(0x80 | (CodePoint & 0x3F));
		}
	}

	FString LoadText(const FString& Filename)
	{
		FString Result;
		EXPECT_TRUE(FFileHelper::LoadFileToString(Result, *Filename));
		return Result;
	}
}

TEST(FFileHelperTest, EachEncodingWritesItsBytesAndReadsBack)
{
	FScratchDirectory Scratch;
	const FString NonAscii(TEXT("Grüße € \U0001F600"));

	// AutoDetect: plain ASCII stays one byte a character, with no mark.
	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("int32 X;")), *Scratch.Path(TEXT("ascii.h"))));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("ascii.h")), "int32 X;");

	// AutoDetect: anything past ASCII switches the whole file to UTF-16 LE with its mark.
	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("é")), *Scratch.Path(TEXT("auto.txt"))));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("auto.txt")), std::string("\xFF\xFE\xE9\x00", 4));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(NonAscii, *Scratch.Path(TEXT("auto2.txt"))));
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("auto2.txt"))), NonAscii);

	ASSERT_TRUE(FFileHelper::SaveStringToFile(NonAscii, *Scratch.Path(TEXT("utf8.txt")), EEncoding::ForceUTF8));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("utf8.txt")), "\xEF\xBB\xBFGr\xC3\xBC\xC3\x9F" "e \xE2\x82\xAC \xF0\x9F\x98\x80");
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("utf8.txt"))), NonAscii);

	ASSERT_TRUE(FFileHelper::SaveStringToFile(NonAscii, *Scratch.Path(TEXT("plain.txt")), EEncoding::ForceUTF8WithoutBOM));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("plain.txt")), "Gr\xC3\xBC\xC3\x9F" "e \xE2\x82\xAC \xF0\x9F\x98\x80");
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("plain.txt"))), NonAscii);

	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("A")), *Scratch.Path(TEXT("unicode.txt")), EEncoding::ForceUnicode));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("unicode.txt")), std::string("\xFF\xFE\x41\x00", 4));

	// ANSI keeps Latin-1 characters as bytes and can't hold the rest.
	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("é€")), *Scratch.Path(TEXT("ansi.txt")), EEncoding::ForceAnsi));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("ansi.txt")), "\xE9?");

	// An empty text gives an empty file, with no mark even when UTF-8 is forced.
	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(), *Scratch.Path(TEXT("empty.txt")), EEncoding::ForceUTF8));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("empty.txt")), "");
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("empty.txt"))), FString());
}

TEST(FFileHelperTest, LoadDecodesByByteOrderMarkAndFallsBackToLatin1)
{
	FScratchDirectory Scratch;
	Scratch.WriteBytes(TEXT("be.txt"), std::string("\xFE\xFF\x00\x41\x00\xE9", 6));
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("be.txt"))), FString(TEXT("Aé")));

	// A stray last byte of a UTF-16 file is dropped, not misread.
	Scratch.WriteBytes(TEXT("odd.txt"), std::string("\xFF\xFE\x41\x00\x42", 5));
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("odd.txt"))), FString(TEXT("A")));

	// Without a mark: well-formed UTF-8 is UTF-8...
	Scratch.WriteBytes(TEXT("utf8.txt"), "caf\xC3\xA9");
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("utf8.txt"))), FString(TEXT("café")));
	// ...and anything else is one character a byte, so no byte is lost.
	Scratch.WriteBytes(TEXT("latin1.txt"), "caf\xE9 \xC3");
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("latin1.txt"))), FString(TEXT("café Ã")));
	// Overlong and surrogate encodings are not UTF-8.
	Scratch.WriteBytes(TEXT("overlong.txt"), "\xC0\xAF\xED\xA0\x80");
	EXPECT_EQ(LoadText(Scratch.Path(TEXT("overlong.txt"))).Len(), 5);

	FString Untouched(TEXT("keep"));
	EXPECT_FALSE(FFileHelper::LoadFileToString(Untouched, *Scratch.Path(TEXT("missing.txt"))));
	EXPECT_FALSE(FFileHelper::LoadFileToString(Untouched, *Scratch.Dir()));

	TArray<uint8> Bytes;
	ASSERT_TRUE(FFileHelper::LoadFileToArray(Bytes, *Scratch.Path(TEXT("be.txt"))));
	EXPECT_EQ(Bytes.Num(), 6);
	EXPECT_EQ(Bytes[0], 0xFE);
}

TEST(FFileHelperTest, LineArraysSplitAtEveryLineEndAndWriteThePlatformOne)
{
	FScratchDirectory Scratch;
	Scratch.WriteBytes(TEXT("mixed.txt"), "one\r\ntwo\rthree\n\nfive");
	TArray<FString> Lines;
	Lines.Add(TEXT("stale"));
	ASSERT_TRUE(FFileHelper::LoadFileToStringArray(Lines, *Scratch.Path(TEXT("mixed.txt"))));
	ASSERT_EQ(Lines.Num(), 5);
	EXPECT_EQ(Lines[0], FString(TEXT("one")));
	EXPECT_EQ(Lines[1], FString(TEXT("two")));
	EXPECT_EQ(Lines[2], FString(TEXT("three")));
	EXPECT_EQ(Lines[3], FString());
	EXPECT_EQ(Lines[4], FString(TEXT("five")));

	// A final line end opens no extra line; a file of line ends is all empty lines.
	Scratch.WriteBytes(TEXT("final.txt"), "a\r\nb\r\n");
	ASSERT_TRUE(FFileHelper::LoadFileToStringArray(Lines, *Scratch.Path(TEXT("final.txt"))));
	EXPECT_EQ(Lines.Num(), 2);
	Scratch.WriteBytes(TEXT("blank.txt"), "\n\r\n\r");
	ASSERT_TRUE(FFileHelper::LoadFileToStringArray(Lines, *Scratch.Path(TEXT("blank.txt"))));
	EXPECT_EQ(Lines.Num(), 3);
	Scratch.WriteBytes(TEXT("empty.txt"), "");
	ASSERT_TRUE(FFileHelper::LoadFileToStringArray(Lines, *Scratch.Path(TEXT("empty.txt"))));
	EXPECT_EQ(Lines.Num(), 0);
	EXPECT_FALSE(FFileHelper::LoadFileToStringArray(Lines, *Scratch.Path(TEXT("missing.txt"))));

	// Each element is followed by the platform's line end; one holding line ends is written as it stands.
	TArray<FString> ToWrite;
	ToWrite.Add(TEXT("first"));
	ToWrite.Add(TEXT("two\r\nparts"));
	ToWrite.Add(FString());
	ASSERT_TRUE(FFileHelper::SaveStringArrayToFile(ToWrite, *Scratch.Path(TEXT("out.txt"))));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("out.txt")), std::string("first") + LINE_TERMINATOR_ANSI + "two\r\nparts" + LINE_TERMINATOR_ANSI + LINE_TERMINATOR_ANSI);

	// The encoding is chosen for the whole text.
	ToWrite.Add(TEXT("ü"));
	ASSERT_TRUE(FFileHelper::SaveStringArrayToFile(ToWrite, *Scratch.Path(TEXT("wide.txt"))));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("wide.txt")).substr(0, 4), std::string("\xFF\xFE" "f\x00", 4));
	ASSERT_TRUE(FFileHelper::LoadFileToStringArray(Lines, *Scratch.Path(TEXT("wide.txt"))));
	ASSERT_EQ(Lines.Num(), 5);
	EXPECT_EQ(Lines[4], FString(TEXT("ü")));
}

TEST(FFileHelperTest, AppendAddsToTheEndWithAMarkAtEachSave)
{
	FScratchDirectory Scratch;
	const FString Log = Scratch.Path(TEXT("Logs/prompts.log"));
	// The writer makes missing folders, as the engine's does.
	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("one\n")), *Log, EEncoding::ForceUTF8, &IFileManager::Get(), FILEWRITE_Append));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("twö\n")), *Log, EEncoding::ForceUTF8, &IFileManager::Get(), FILEWRITE_Append));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("Logs/prompts.log")), "\xEF\xBB\xBFone\n\xEF\xBB\xBFtw\xC3\xB6\n");
	// Only the leading mark is taken off on load; the inner one stays as U+FEFF.
	EXPECT_EQ(LoadText(Log), FString(TEXT("one\n\xFEFFtwö\n")));

	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("fresh")), *Log));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("Logs/prompts.log")), "fresh");
}

TEST(FFileHelperTest, WritesFailCleanlyWhereTheFileCannotBeWritten)
{
	FScratchDirectory Scratch;
	const FString ReadOnly = Scratch.Path(TEXT("locked.txt"));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("old")), *ReadOnly));
	ASSERT_TRUE(FPlatformFileManager::Get().GetPlatformFile().SetReadOnly(*ReadOnly, true));

	EXPECT_FALSE(FFileHelper::SaveStringToFile(FString(TEXT("new")), *ReadOnly));
	EXPECT_FALSE(FFileHelper::SaveStringToFile(FString(TEXT("new")), *ReadOnly, EEncoding::AutoDetect, &IFileManager::Get(), FILEWRITE_Append));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("locked.txt")), "old");
	EXPECT_TRUE(FFileHelper::SaveStringToFile(FString(TEXT("new")), *ReadOnly, EEncoding::AutoDetect, &IFileManager::Get(), FILEWRITE_EvenIfReadOnly));
	EXPECT_EQ(Scratch.ReadBytes(TEXT("locked.txt")), "new");

	EXPECT_FALSE(FFileHelper::SaveStringToFile(FString(TEXT("x")), *Scratch.Path(TEXT("locked.txt")), EEncoding::AutoDetect, &IFileManager::Get(), FILEWRITE_NoReplaceExisting));
	EXPECT_FALSE(FFileHelper::SaveStringToFile(FString(TEXT("x")), *Scratch.Dir()));
	EXPECT_FALSE(FFileHelper::SaveStringToFile(FString(TEXT("x")), *Scratch.Path(TEXT("y.txt")), EEncoding::AutoDetect, nullptr));
	EXPECT_FALSE(FFileHelper::SaveStringToFile(FString(TEXT("x")), nullptr));
	// A file in the way of a folder can't be written through.
	EXPECT_FALSE(FFileHelper::SaveStringToFile(FString(TEXT("x")), *Scratch.Path(TEXT("locked.txt/inner.txt"))));
}

TEST(FFileHelperTest, RandomTextSurvivesEveryUnicodeEncoding)
{
	FScratchDirectory Scratch;
	std::mt19937 Random(1234);
	for (int32 Round = 0; Round < 200; ++Round)
	{
		// A new file each time: rewriting one file in place makes the file system flush, which is slow.
		int32 FileNumber = 0;
		FString Text;
		std::string Utf8;
		const int32 Length = Round == 0 ? 1 : (int32)(Random() % 300);
		for (int32 Index = 0; Index < Length; ++Index)
		{
			const char32_t CodePoint = RandomCodePoint(Random);
			AppendUtf16(CodePoint, Text);
			AppendUtf8(CodePoint, Utf8);
		}
		FString Filename;
		for (EEncoding Encoding : {EEncoding::AutoDetect, EEncoding::ForceUnicode, EEncoding::ForceUTF8, EEncoding::ForceUTF8WithoutBOM})
		{
			Filename = Scratch.Path(*FString::Printf(TEXT("random-%d-%d.txt"), Round, FileNumber++));
			ASSERT_TRUE(FFileHelper::SaveStringToFile(Text, *Filename, Encoding));
			FString Loaded;
			ASSERT_TRUE(FFileHelper::LoadFileToString(Loaded, *Filename));
			ASSERT_TRUE(Loaded.Equals(Text)) << "round " << Round << ", encoding " << (int32)Encoding;
		}
		// The bytes of plain UTF-8 are exactly the textbook ones.
		EXPECT_EQ(Scratch.ReadBytes(*FPaths::GetCleanFilename(Filename)), Utf8);

		// Any byte broken in the middle of a sequence turns the whole file into one character a byte.
		if (Utf8.size() > 1)
		{
			std::string Broken = Utf8;
			const size_t Position = Random() % Broken.size();
			Broken[Position] = (char)0xFF;
			FString Decoded;
			FFileHelper::BufferToString(Decoded, reinterpret_cast<const uint8*>(Broken.data()), (int32)Broken.size());
			ASSERT_EQ(Decoded.Len(), (int32)Broken.size());
			for (size_t Index = 0; Index < Broken.size(); ++Index)
			{
				ASSERT_EQ((uint32)Decoded[(int32)Index], (uint32)(uint8)Broken[Index]);
			}
		}
	}
}

TEST(FFileHelperTest, ArbitraryBytesAlwaysDecode)
{
	std::mt19937 Random(99);
	for (int32 Round = 0; Round < 2000; ++Round)
	{
		std::vector<uint8> Bytes(Random() % 64);
		for (uint8& Byte : Bytes)
		{
			// Bias towards the bytes that start or continue sequences and form byte order marks.
			const uint8 Interesting[] = {0xEF, 0xBB, 0xBF, 0xFF, 0xFE, 0xC3, 0x80, 0xE2, 0xF0, 0xED, 0x00, 'a'};
			Byte = (Random() % 2) ? Interesting[Random() % sizeof(Interesting)] : (uint8)Random();
		}
		FString Decoded;
		FFileHelper::BufferToString(Decoded, Bytes.data(), (int32)Bytes.size());
		// Never more characters than bytes; without a mark nothing is dropped.
		ASSERT_LE(Decoded.Len(), (int32)Bytes.size());
		const bool bMarked = Bytes.size() >= 2 && ((Bytes[0] == 0xFF && Bytes[1] == 0xFE) || (Bytes[0] == 0xFE && Bytes[1] == 0xFF) || (Bytes.size() >= 3 && Bytes[0] == 0xEF && Bytes[1] == 0xBB && Bytes[2] == 0xBF));
		if (!bMarked && !Bytes.empty())
		{
			ASSERT_GT(Decoded.Len(), 0);
		}
	}
}
