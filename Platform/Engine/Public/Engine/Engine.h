// UEngine: the engine object, created once at start (GEngine).
#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/Object.h"
#include "Containers/Ticker.h"
#include "Engine.generated.h"

/**
 * Abstract base class of all Engine classes, responsible for management of systems critical to editor or game systems.
 */
UCLASS(abstract, transient)
class ENGINE_API UEngine : public UObject
{
	GENERATED_BODY()

public:
	UEngine(const FObjectInitializer& ObjectInitializer = FObjectInitializer::Get());

	// Starts the engine's systems; the engine loop calls it once after creating the engine.
	virtual void Init();
	// Ends them, before the engine object goes.
	virtual void PreExit();

	/** Console commands to run at the next tick. */
	UPROPERTY(Transient)
	TArray<FString> DeferredCommands;

	/** Runs the deferred commands; the engine does it once a tick. Stand-in: running a command logs it. */
	void TickDeferredCommands();

	/** Whether the engine was started. */
	bool IsInitialized() const
	{
		return bIsInitialized;
	}

protected:
	bool bIsInitialized = false;

private:
	FTSTicker::FDelegateHandle DeferredCommandsTickHandle;
};

// The engine of this process; in the editor the editor engine.
extern ENGINE_API UEngine* GEngine;
