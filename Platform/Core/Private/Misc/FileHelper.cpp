#include "Misc/FileHelper.h"

#include "GenericPlatform/GenericPlatformFile.h"
#include "HAL/PlatformFileManager.h"
#include "Misc/Paths.h"
#include "Misc/UnicodeTranscoding.h"
#include "Templates/UniquePtr.h"

#include <string>

namespace
{
	constexpr uint8 Utf8Bom[3] = {0xEF, 0xBB, 0xBF};
	constexpr uint8 Utf16LeBom[2] = {0xFF, 0xFE};

	FString ToFString(const std::u16string& Text)
	{
		return FString::ConstructFromPtrSize(Text.data(), (int32)Text.size());
	}

	bool ReadWholeFile(IPlatformFile& PlatformFile, const TCHAR* Filename, TArray<uint8>& OutBytes)
	{
		if (Filename == nullptr)
		{
			return false;
		}
		TUniquePtr<IFileHandle> Handle(PlatformFile.OpenRead(Filename));
		if (!Handle)
		{
			return false;
		}
		const int64 Size = Handle->Size();
		// Text and byte arrays are indexed by int32, as in the engine.
		if (Size < 0 || Size > (int64)MAX_int32)
		{
			return false;
		}
		OutBytes.SetNumUninitialized((int32)Size);
		return Size == 0 || Handle->Read(OutBytes.GetData(), Size);
	}

	bool WriteWholeFile(const uint8* Bytes, int64 Count, const TCHAR* Filename, IFileManager* FileManager, uint32 WriteFlags)
	{
		if (Filename == nullptr || FileManager == nullptr)
		{
			return false;
		}
		IPlatformFile& PlatformFile = FPlatformFileManager::Get().GetPlatformFile();
		if ((WriteFlags & FILEWRITE_NoReplaceExisting) != 0 && PlatformFile.FileExists(Filename))
		{
			return false;
		}
		if ((WriteFlags & FILEWRITE_EvenIfReadOnly) != 0)
		{
			PlatformFile.SetReadOnly(Filename, false);
		}
		// The engine's file writer makes the folders that are missing.
		const FString Directory = FPaths::GetPath(FString(Filename));
		if (!Directory.IsEmpty() && !PlatformFile.DirectoryExists(*Directory))
		{
			PlatformFile.CreateDirectoryTree(*Directory);
		}
		TUniquePtr<IFileHandle> Handle(PlatformFile.OpenWrite(Filename, (WriteFlags & FILEWRITE_Append) != 0, (WriteFlags & FILEWRITE_AllowRead) != 0));
		if (!Handle)
		{
			return false;
		}
		return Count == 0 || Handle->Write(Bytes, Count);
	}

	void AppendUtf16Le(const TCHAR* Chars, int32 Count, std::string& Out)
	{
		Out.reserve(Out.size() + (size_t)Count * 2);
		for (int32 Index = 0; Index < Count; ++Index)
		{
			Out.push_back((char)(Chars[Index] & 0xFF));
			Out.push_back((char)(Chars[Index] >> 8));
		}
	}

	// Splits at "\r\n", "\n" and a lone "\r"; a final line end opens no further line.
	void SplitLines(const FString& Text, TArray<FString>& OutLines)
	{
		const TCHAR* Chars = *Text;
		const int32 Length = Text.Len();
		int32 LineStart = 0;
		int32 Index = 0;
		while (Index < Length)
		{
			const TCHAR Char = Chars[Index];
			if (Char == TEXT('\n') || Char == TEXT('\r'))
			{
				OutLines.Add(FString::ConstructFromPtrSize(Chars + LineStart, Index - LineStart));
				Index += (Char == TEXT('\r') && Index + 1 < Length && Chars[Index + 1] == TEXT('\n')) ? 2 : 1;
				LineStart = Index;
			}
			else
			{
				++Index;
			}
		}
		if (LineStart < Length)
		{
			OutLines.Add(FString::ConstructFromPtrSize(Chars + LineStart, Length - LineStart));
		}
	}
}

void FFileHelper::BufferToString(FString& Result, const uint8* Buffer, int32 Size)
{
	Result.Empty();
	if (Buffer == nullptr || Size <= 0)
	{
		return;
	}
	const bool bUtf16Le = Size >= 2 && Buffer[0] == 0xFF && Buffer[1] == 0xFE;
	const bool bUtf16Be = Size >= 2 && Buffer[0] == 0xFE && Buffer[1] == 0xFF;
	if (bUtf16Le || bUtf16Be)
	{
		// A stray last byte can't make a character and is dropped.
		const int32 CharCount = (Size - 2) / 2;
		Result.Reserve(CharCount);
		for (int32 Index = 0; Index < CharCount; ++Index)
		{
			const uint8 First = Buffer[2 + Index * 2];
			const uint8 Second = Buffer[3 + Index * 2];
			const TCHAR Char = bUtf16Le ? (TCHAR)(First | (Second << 8)) : (TCHAR)((First << 8) | Second);
			Result.AppendChar(Char);
		}
		return;
	}

	const bool bUtf8Bom = Size >= 3 && Buffer[0] == Utf8Bom[0] && Buffer[1] == Utf8Bom[1] && Buffer[2] == Utf8Bom[2];
	const uint8* Text = bUtf8Bom ? Buffer + 3 : Buffer;
	const int32 TextSize = bUtf8Bom ? Size - 3 : Size;
	std::u16string Decoded;
	if (bUtf8Bom || UE::Core::Private::IsValidUtf8(Text, TextSize))
	{
		// Malformed bytes after a UTF-8 mark still decode, each as U+FFFD.
		UE::Core::Private::AppendUtf8AsUtf16(Text, TextSize, Decoded);
	}
	else
	{
		Decoded.reserve((size_t)TextSize);
		for (int32 Index = 0; Index < TextSize; ++Index)
		{
			Decoded.push_back((char16_t)Text[Index]);
		}
	}
	Result = ToFString(Decoded);
}

bool FFileHelper::LoadFileToArray(TArray<uint8>& Result, const TCHAR* Filename, uint32 Flags)
{
	TArray<uint8> Bytes;
	if (!ReadWholeFile(FPlatformFileManager::Get().GetPlatformFile(), Filename, Bytes))
	{
		return false;
	}
	Result = MoveTemp(Bytes);
	return true;
}

bool FFileHelper::LoadFileToString(FString& Result, const TCHAR* Filename, EHashOptions VerifyFlags, uint32 ReadFlags)
{
	return LoadFileToString(Result, &FPlatformFileManager::Get().GetPlatformFile(), Filename, VerifyFlags, ReadFlags);
}

bool FFileHelper::LoadFileToString(FString& Result, IPlatformFile* PlatformFile, const TCHAR* Filename, EHashOptions VerifyFlags, uint32 ReadFlags)
{
	TArray<uint8> Bytes;
	if (!ReadWholeFile(PlatformFile != nullptr ? *PlatformFile : FPlatformFileManager::Get().GetPlatformFile(), Filename, Bytes))
	{
		return false;
	}
	BufferToString(Result, Bytes.GetData(), Bytes.Num());
	return true;
}

bool FFileHelper::LoadFileToStringArray(TArray<FString>& Result, const TCHAR* Filename)
{
	Result.Empty();
	FString Text;
	if (!LoadFileToString(Text, Filename))
	{
		return false;
	}
	SplitLines(Text, Result);
	return true;
}

bool FFileHelper::SaveArrayToFile(const TArray<uint8>& Array, const TCHAR* Filename, IFileManager* FileManager, uint32 WriteFlags)
{
	return WriteWholeFile(Array.GetData(), Array.Num(), Filename, FileManager, WriteFlags);
}

bool FFileHelper::SaveStringToFile(FStringView String, const TCHAR* Filename, EEncodingOptions EncodingOptions, IFileManager* FileManager, uint32 WriteFlags)
{
	const TCHAR* Chars = String.GetData();
	const int32 Count = String.Len();
	std::string Bytes;

	// An empty text makes an empty file, without a byte order mark.
	if (Count > 0)
	{
		bool bPureAnsi = true;
		for (int32 Index = 0; Index < Count && bPureAnsi; ++Index)
		{
			bPureAnsi = Chars[Index] < 0x80;
		}
		switch (EncodingOptions)
		{
		case EEncodingOptions::ForceUTF8:
			Bytes.append(reinterpret_cast<const char*>(Utf8Bom), sizeof(Utf8Bom));
			UE::Core::Private::AppendUtf16AsUtf8(Chars, Count, Bytes);
			break;
		case EEncodingOptions::ForceUTF8WithoutBOM:
			UE::Core::Private::AppendUtf16AsUtf8(Chars, Count, Bytes);
			break;
		case EEncodingOptions::ForceUnicode:
			Bytes.append(reinterpret_cast<const char*>(Utf16LeBom), sizeof(Utf16LeBom));
			AppendUtf16Le(Chars, Count, Bytes);
			break;
		case EEncodingOptions::AutoDetect:
			if (!bPureAnsi)
			{
				Bytes.append(reinterpret_cast<const char*>(Utf16LeBom), sizeof(Utf16LeBom));
				AppendUtf16Le(Chars, Count, Bytes);
				break;
			}
			[[fallthrough]];
		case EEncodingOptions::ForceAnsi:
		default:
			// One byte a character, as the editor's Latin code page has them; others can't be written.
			Bytes.reserve((size_t)Count);
			for (int32 Index = 0; Index < Count; ++Index)
			{
				Bytes.push_back(Chars[Index] <= 0xFF ? (char)Chars[Index] : '?');
			}
			break;
		}
	}
	return WriteWholeFile(reinterpret_cast<const uint8*>(Bytes.data()), (int64)Bytes.size(), Filename, FileManager, WriteFlags);
}

bool FFileHelper::SaveStringArrayToFile(const TArray<FString>& Lines, const TCHAR* Filename, EEncodingOptions EncodingOptions, IFileManager* FileManager, uint32 WriteFlags)
{
	int32 Length = 0;
	for (const FString& Line : Lines)
	{
		Length += Line.Len() + 2;
	}
	FString Combined;
	Combined.Reserve(Length);
	for (const FString& Line : Lines)
	{
		Combined += Line;
		Combined += LINE_TERMINATOR;
	}
	return SaveStringToFile(Combined, Filename, EncodingOptions, FileManager, WriteFlags);
}
