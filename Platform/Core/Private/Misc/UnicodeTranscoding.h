// Conversions between the engine's UTF-16 text and the byte forms found on disk and in POSIX calls.
#pragma once

#include "CoreTypes.h"

#include <string>

namespace UE::Core::Private
{
	/** True when the bytes are well-formed UTF-8 (no overlongs, no surrogates, nothing past U+10FFFF). */
	bool IsValidUtf8(const uint8* Bytes, int64 Count);

	/** Appends the UTF-16 form of well-formed UTF-8 bytes. */
	void AppendUtf8AsUtf16(const uint8* Bytes, int64 Count, std::u16string& Out);

	/** Appends UTF-16 units as UTF-8; a lone surrogate becomes U+FFFD so that the output is always valid. */
	void AppendUtf16AsUtf8(const TCHAR* Chars, int64 Count, std::string& Out);

	/** A path or name in the file system's encoding (UTF-8). */
	std::string ToFileSystemString(const TCHAR* Chars);

	/** A name read from the file system; bytes that are not UTF-8 are taken one char each (Latin-1). */
	std::u16string FromFileSystemString(const char* Bytes, int64 Count);
}
