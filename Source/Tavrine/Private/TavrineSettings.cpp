#include "TavrineSettings.h"

#include "UObject/UnrealType.h"

UTavrineSettings::UTavrineSettings()
{
	ResetAssetGroups();
	ResetSupportedFileExtensions();
	ResetExcludedDirectories();
}

#if WITH_EDITOR
void UTavrineSettings::PostEditChangeProperty(FPropertyChangedEvent& PropertyChangedEvent)
{
	Super::PostEditChangeProperty(PropertyChangedEvent);

	const FName PropertyName = PropertyChangedEvent.Property != nullptr ? PropertyChangedEvent.Property->GetFName() : NAME_None;

	// Only ticking a reset box acts; clearing it by hand does nothing. The reset boxes are not config,
	// so the save stores the restored list and leaves the box unticked.
	if (PropertyName == GET_MEMBER_NAME_CHECKED(UTavrineSettings, bResetSupportedFileExtensions) && bResetSupportedFileExtensions)
	{
		ResetSupportedFileExtensions();
		bResetSupportedFileExtensions = false;
		SaveConfig();
	}
	else if (PropertyName == GET_MEMBER_NAME_CHECKED(UTavrineSettings, bResetExcludedDirectories) && bResetExcludedDirectories)
	{
		ResetExcludedDirectories();
		bResetExcludedDirectories = false;
		SaveConfig();
	}
}
#endif

void UTavrineSettings::ResetSupportedFileExtensions()
{
	SupportedFileExtensions = {
		TEXT("py"), TEXT("cs"), TEXT("json"), TEXT("cpp"), TEXT("h"),
		TEXT("uasset"), TEXT("umap"), TEXT("ini"), TEXT("uproject"), TEXT("csv")};
}

void UTavrineSettings::ResetExcludedDirectories()
{
	ExcludedDirectories = {
		TEXT("__ExternalObjects__"), TEXT("__ExternalActors__"), TEXT("Binaries"), TEXT("Intermediate"), TEXT("Saved"),
		TEXT("Build"), TEXT("DerivedDataCache"), TEXT("Engine"), TEXT("Shared"), TEXT(".git")};
}

void UTavrineSettings::ResetAssetGroups()
{
}

TSet<FName> UTavrineSettings::GetEnabledAssetClassPatterns() const
{
	return TSet<FName>();
}
