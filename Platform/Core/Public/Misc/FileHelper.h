#pragma once

#include "CoreTypes.h"
#include "Containers/Array.h"
#include "Containers/StringView.h"
#include "Containers/UnrealString.h"
#include "HAL/FileManager.h"
#include "Misc/EnumClassFlags.h"

class IPlatformFile;

/** Whole-file reads and writes of text and bytes, with the engine's text encodings. */
struct FFileHelper
{
	enum class EHashOptions
	{
		None = 0,
		EnableVerify = 1 << 0,
		ErrorMissingHash = 1 << 1
	};

	/**
	 * How text is written. AutoDetect: one byte a character when every character is below 0x80, otherwise
	 * UTF-16 little-endian after a byte order mark. ForceAnsi: one byte a character ('?' for the others).
	 * ForceUnicode: always UTF-16 with its mark. ForceUTF8: UTF-8 after its mark. ForceUTF8WithoutBOM: UTF-8 alone.
	 * A byte order mark is written at every save, also when appending.
	 */
	enum class EEncodingOptions
	{
		AutoDetect,
		ForceAnsi,
		ForceUnicode,
		ForceUTF8,
		ForceUTF8WithoutBOM
	};

	/**
	 * Decodes text by its byte order mark: UTF-16 (little- or big-endian) or UTF-8, mark removed. Without a
	 * mark the bytes are UTF-8 when they are well-formed UTF-8, else one character a byte (Latin-1).
	 */
	static void BufferToString(FString& Result, const uint8* Buffer, int32 Size);

	static bool LoadFileToArray(TArray<uint8>& Result, const TCHAR* Filename, uint32 Flags = 0);
	/** The whole file as text; false when it can't be read. */
	static bool LoadFileToString(FString& Result, const TCHAR* Filename, EHashOptions VerifyFlags = EHashOptions::None, uint32 ReadFlags = 0);
	static bool LoadFileToString(FString& Result, IPlatformFile* PlatformFile, const TCHAR* Filename, EHashOptions VerifyFlags = EHashOptions::None, uint32 ReadFlags = 0);
	/** One string a line, without line ends; a line ends at "\n", "\r\n" or a lone "\r". Replaces Result. */
	static bool LoadFileToStringArray(TArray<FString>& Result, const TCHAR* Filename);

	/** Writes the bytes; WriteFlags take FILEWRITE_Append. */
	static bool SaveArrayToFile(const TArray<uint8>& Array, const TCHAR* Filename, IFileManager* FileManager = &IFileManager::Get(), uint32 WriteFlags = 0);
	static bool SaveStringToFile(FStringView String, const TCHAR* Filename, EEncodingOptions EncodingOptions = EEncodingOptions::AutoDetect, IFileManager* FileManager = &IFileManager::Get(), uint32 WriteFlags = 0);
	/** Each line followed by LINE_TERMINATOR, the whole written as one text with one encoding. */
	static bool SaveStringArrayToFile(const TArray<FString>& Lines, const TCHAR* Filename, EEncodingOptions EncodingOptions = EEncodingOptions::AutoDetect, IFileManager* FileManager = &IFileManager::Get(), uint32 WriteFlags = 0);
};

ENUM_CLASS_FLAGS(FFileHelper::EHashOptions);
