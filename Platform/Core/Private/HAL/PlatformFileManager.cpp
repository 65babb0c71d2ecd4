#include "HAL/PlatformFileManager.h"

#include "GenericPlatform/GenericPlatformFile.h"
#include "Misc/CString.h"

FPlatformFileManager::FPlatformFileManager()
	: TopmostPlatformFile(&IPlatformFile::GetPlatformPhysical())
{
}

FPlatformFileManager& FPlatformFileManager::Get()
{
	static FPlatformFileManager Singleton;
	return Singleton;
}

IPlatformFile& FPlatformFileManager::GetPlatformFile()
{
	return *TopmostPlatformFile;
}

void FPlatformFileManager::SetPlatformFile(IPlatformFile& NewTopmostPlatformFile)
{
	TopmostPlatformFile = &NewTopmostPlatformFile;
}

IPlatformFile* FPlatformFileManager::FindPlatformFile(const TCHAR* Name)
{
	if (Name == nullptr)
	{
		return nullptr;
	}
	if (FCString::Strcmp(TopmostPlatformFile->GetName(), Name) == 0)
	{
		return TopmostPlatformFile;
	}
	IPlatformFile& Physical = IPlatformFile::GetPlatformPhysical();
	return FCString::Strcmp(Physical.GetName(), Name) == 0 ? &Physical : nullptr;
}
