#pragma once

#include "CoreMinimal.h"
#include "ISettingsSection.h"

class ISettingsCategory
{
public:
	virtual ~ISettingsCategory() = default;
	virtual FName GetName() const = 0;
	virtual FText GetDisplayName() const = 0;
	virtual ISettingsSectionPtr GetSection(const FName& SectionName, bool bIgnoreVisibility = false) const = 0;
	/** Fills the list with the sections, in the order of registration; gives how many. */
	virtual int32 GetSections(TArray<ISettingsSectionPtr>& OutSections, bool bIgnoreVisibility = false) const = 0;
};

typedef TSharedPtr<ISettingsCategory> ISettingsCategoryPtr;
