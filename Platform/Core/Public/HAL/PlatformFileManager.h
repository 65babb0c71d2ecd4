#pragma once

#include "CoreTypes.h"

class IPlatformFile;

/** Owns the file layer that everything else reads and writes through. */
class FPlatformFileManager
{
public:
	static FPlatformFileManager& Get();

	/** The top of the layer chain; the physical file system unless something was put in front of it. */
	IPlatformFile& GetPlatformFile();

	/** Puts another layer on top (for example a test double); it must outlive its use. */
	void SetPlatformFile(IPlatformFile& NewTopmostPlatformFile);

	/** The layer with this name, or null. */
	IPlatformFile* FindPlatformFile(const TCHAR* Name);

private:
	FPlatformFileManager();

	IPlatformFile* TopmostPlatformFile;
};
