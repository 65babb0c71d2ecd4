#pragma once

#include "CoreMinimal.h"
#include "UObject/WeakObjectPtrTemplates.h"

class SWidget;
class UObject;

/** One page of settings: an object whose properties the settings editor shows, or a widget. */
class ISettingsSection
{
public:
	virtual ~ISettingsSection() = default;
	virtual FName GetName() const = 0;
	virtual FText GetDisplayName() const = 0;
	virtual FText GetDescription() const = 0;
	virtual TWeakObjectPtr<UObject> GetSettingsObject() const = 0;
	virtual TWeakPtr<SWidget> GetCustomWidget() const = 0;
	virtual bool CanEdit() const = 0;
	virtual bool Save() = 0;
};

typedef TSharedPtr<ISettingsSection> ISettingsSectionPtr;
typedef TSharedRef<ISettingsSection> ISettingsSectionRef;
