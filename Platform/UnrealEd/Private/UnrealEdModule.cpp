#include "UnrealEdModule.h"
#include "Editor.h"
#include "Modules/ModuleManager.h"
#include "UObject/Package.h"
#include "UObject/UObjectGlobals.h"
#include "CoreGlobals.h"

UEditorEngine* FUnrealEdModule::StartEditorEngine()
{
	if (GEditor == nullptr)
	{
		GEditor = NewObject<UEditorEngine>(GetTransientPackage(), FName(TEXT("EditorEngine")));
		GEditor->AddToRoot();
		GEngine = GEditor;
		GIsEditor = true;
		GEditor->Init();
	}
	return GEditor;
}

void FUnrealEdModule::StopEditorEngine()
{
	if (GEditor != nullptr)
	{
		GEditor->PreExit();
		GEditor->RemoveFromRoot();
		if (GEngine == GEditor)
		{
			GEngine = nullptr;
		}
		GEditor = nullptr;
	}
}

void FUnrealEdModule::StartupModule()
{
	StartEditorEngine();
}

void FUnrealEdModule::ShutdownModule()
{
}

IMPLEMENT_MODULE(FUnrealEdModule, UnrealEd)
