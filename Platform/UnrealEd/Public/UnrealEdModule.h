// The UnrealEd module. Loading it starts the editor engine (GEditor) when no editor is running yet.
#pragma once

#include "CoreMinimal.h"
#include "Modules/ModuleInterface.h"

class UEditorEngine;

class FUnrealEdModule : public IModuleInterface
{
public:
	virtual void StartupModule() override;
	virtual void ShutdownModule() override;

	// Stand-in only: the engine loop of the editor makes GEditor; the host program and tests call this
	// instead. Gives the running editor engine, starting one when there is none.
	static UNREALED_API UEditorEngine* StartEditorEngine();
	static UNREALED_API void StopEditorEngine();
};
