#pragma once

#include "CoreMinimal.h"
#include "ISettingsCategory.h"

/** "Project" (the project settings) or "Editor" (the editor preferences), with their categories. */
class ISettingsContainer
{
public:
	virtual ~ISettingsContainer() = default;
	virtual FName GetName() const = 0;
	virtual ISettingsCategoryPtr GetCategory(const FName& CategoryName) const = 0;
	virtual int32 GetCategories(TArray<ISettingsCategoryPtr>& OutCategories) const = 0;
};

typedef TSharedPtr<ISettingsContainer> ISettingsContainerPtr;
