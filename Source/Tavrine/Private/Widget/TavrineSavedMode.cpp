#include "Widget/TavrineSavedMode.h"

#include "Misc/ConfigCacheIni.h"
#include "TavrineSettings.h"

namespace
{
	const TCHAR* const Section = TEXT("Tavrine.Chat");
	const TCHAR* const Key = TEXT("Mode");
}

void FTavrineSavedMode::Load()
{
	UTavrineSettings* Settings = GetMutableDefault<UTavrineSettings>();
	if (!GConfig || !Settings)
	{
		return;
	}
	int32 Saved = 0;
	if (GConfig->GetInt(Section, Key, Saved, Settings->GetClass()->GetConfigName())
		&& (Saved == static_cast<int32>(ETavrineMode::ExplainerMode) || Saved == static_cast<int32>(ETavrineMode::ExplainerAndImplementerMode)))
	{
		Settings->Mode = static_cast<ETavrineMode>(Saved);
	}
}

void FTavrineSavedMode::Save()
{
	const UTavrineSettings* Settings = GetDefault<UTavrineSettings>();
	if (!GConfig || !Settings)
	{
		return;
	}
	const FString Filename = Settings->GetClass()->GetConfigName();
	GConfig->SetInt(Section, Key, static_cast<int32>(Settings->Mode), Filename);
	GConfig->Flush(false, Filename);
}
