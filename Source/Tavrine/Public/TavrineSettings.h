#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "TavrineSettings.generated.h"

/** How far the assistant may go on its own. */
UENUM(BlueprintType)
enum class ETavrineMode : uint8
{
	/** Tool calls wait for the user's approval. */
	ExplainerMode UMETA(DisplayName = "Explainer Mode"),
	/** Tool calls run as soon as they arrive. */
	ExplainerAndImplementerMode UMETA(DisplayName = "Explainer And Implementer Mode")
};

/** Per-user settings of the assistant, reached through GetDefault<UTavrineSettings>(). */
UCLASS(config = EditorPerUserSettings)
class TAVRINE_API UTavrineSettings : public UObject
{
	GENERATED_BODY()

public:
	UPROPERTY(config, EditAnywhere, Category = "Tavrine|Authentication", meta = (DisplayName = "API Key", ToolTip = "Authentication key required to access Tavrine AI services"))
	FString ApiKey;

	/** Deliberately not a property: neither the settings page nor a config file may change it. */
	ETavrineMode Mode = ETavrineMode::ExplainerMode;
};
