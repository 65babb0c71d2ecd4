#pragma once

#include "CoreMinimal.h"
#include "ISettingsContainer.h"
#include "ISettingsSection.h"
#include "Modules/ModuleInterface.h"

/** The settings pages of the editor, by container, category and section. */
class ISettingsModule : public IModuleInterface
{
public:
	virtual void GetContainerNames(TArray<FName>& OutNames) const = 0;
	virtual ISettingsContainerPtr GetContainer(const FName& ContainerName) = 0;
	/** Registering a section again replaces it. */
	virtual ISettingsSectionPtr RegisterSettings(const FName& ContainerName, const FName& CategoryName, const FName& SectionName, const FText& DisplayName,
		const FText& Description, const TWeakObjectPtr<UObject>& SettingsObject) = 0;
	virtual ISettingsSectionPtr RegisterSettings(const FName& ContainerName, const FName& CategoryName, const FName& SectionName, const FText& DisplayName,
		const FText& Description, const TSharedRef<SWidget>& CustomWidget) = 0;
	virtual void UnregisterSettings(const FName& ContainerName, const FName& CategoryName, const FName& SectionName) = 0;
	virtual void ShowViewer(const FName& ContainerName, const FName& CategoryName, const FName& SectionName) = 0;
};
