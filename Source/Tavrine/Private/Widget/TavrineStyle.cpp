#include "Widget/TavrineStyle.h"

#include "Agent/TavrineInterface.h"
#include "Brushes/SlateImageBrush.h"
#include "Framework/Application/SlateApplication.h"
#include "Interfaces/IPluginManager.h"
#include "Misc/Paths.h"
#include "Rendering/SlateRenderer.h"
#include "Styling/SlateStyle.h"
#include "Styling/SlateStyleRegistry.h"

TSharedPtr<FSlateStyleSet> FTavrineStyle::StyleInstance;

namespace
{
	const FName StyleSetName(TEXT("TavrineStyle"));
	const TCHAR* const IconFile = TEXT("PlaceholderButtonIcon");
	const FVector2D Icon16x16(16.0f, 16.0f);
	const FVector2D Icon40x40(40.0f, 40.0f);
}

void FTavrineStyle::Initialize()
{
	const TSharedPtr<IPlugin> Plugin = IPluginManager::Get().FindPlugin(TEXT("Tavrine"));
	if (!Plugin.IsValid())
	{
		return;
	}
	if (!StyleInstance.IsValid())
	{
		StyleInstance = Create(FPaths::Combine(Plugin->GetBaseDir(), TEXT("Resources")));
		FSlateStyleRegistry::RegisterSlateStyle(*StyleInstance);
	}
	ReloadTextures();
	FTavrineInterface::Get().Initialize();
}

void FTavrineStyle::Shutdown()
{
	FTavrineInterface::Get().Shutdown();
	if (StyleInstance.IsValid())
	{
		FSlateStyleRegistry::UnRegisterSlateStyle(*StyleInstance);
		ensure(StyleInstance.IsUnique());
		StyleInstance.Reset();
	}
}

TSharedRef<FSlateStyleSet> FTavrineStyle::Create(const FString& ContentRoot)
{
	TSharedRef<FSlateStyleSet> Style = MakeShareable(new FSlateStyleSet(StyleSetName));
	Style->SetContentRoot(ContentRoot);
	const FString IconPath = Style->RootToContentDir(IconFile, TEXT(".svg"));
	Style->Set(TEXT("Tavrine.Icon"), new FSlateVectorImageBrush(IconPath, Icon16x16));
	Style->Set(TEXT("Tavrine.Icon.Large"), new FSlateVectorImageBrush(IconPath, Icon40x40));
	return Style;
}

void FTavrineStyle::ReloadTextures()
{
	if (FSlateApplication::IsInitialized())
	{
		FSlateApplication::Get().GetRenderer()->ReloadTextureResources();
	}
}

const ISlateStyle& FTavrineStyle::Get()
{
	return *StyleInstance;
}

FName FTavrineStyle::GetStyleSetName()
{
	return StyleSetName;
}
