#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "TavrineSettings.generated.h"

//~ Comments that begin with "//~" stay out of the reflection data, whose descriptions the settings page shows.

//~ How far the assistant may go on its own.
UENUM(BlueprintType)
enum class ETavrineMode : uint8
{
	//~ Tool calls wait for the user's approval.
	ExplainerMode UMETA(DisplayName = "Explainer Mode"),
	//~ Tool calls run as soon as they arrive.
	ExplainerAndImplementerMode UMETA(DisplayName = "Explainer And Implementer Mode")
};

/** Enum defining filtering options for Blueprint content usage */
UENUM(BlueprintType)
enum class ETavrineBlueprintContentFilter : uint8
{
	UseAllContent UMETA(DisplayName = "Use All Content"),
	UseOnlyBlueprintVisibleContent UMETA(DisplayName = "Use Only Blueprint Visible Content"),
	UseOnlyBlueprintClassContent UMETA(DisplayName = "Use Only Blueprint Class Content")
};

//~ How long the daily prompt logs are kept; applied when the editor starts.
UENUM(BlueprintType)
enum class ETavrineLogDeletionPolicy : uint8
{
	DeleteAllOnStart UMETA(DisplayName = "Always Delete All Logs"),
	KeepLast30Days UMETA(DisplayName = "Keep Last 30 Days"),
	KeepAll UMETA(DisplayName = "Keep All Logs")
};

/** Asset group categories for filtering in file tree */
UENUM(BlueprintType)
enum class EAssetGroupCategory : uint8
{
	CoreEngine UMETA(DisplayName = "Core Engine Assets"),
	Rendering UMETA(DisplayName = "Rendering Assets"),
	Textures UMETA(DisplayName = "Texture Assets"),
	Mesh UMETA(DisplayName = "Mesh Assets"),
	Animation UMETA(DisplayName = "Animation Assets"),
	Physics UMETA(DisplayName = "Physics Assets"),
	Blueprint UMETA(DisplayName = "Blueprint Assets"),
	Sound UMETA(DisplayName = "Sound Assets"),
	Media UMETA(DisplayName = "Media Assets"),
	FX UMETA(DisplayName = "FX Assets"),
	Data UMETA(DisplayName = "Data Assets"),
	AI UMETA(DisplayName = "AI Assets"),
	Gameplay UMETA(DisplayName = "Gameplay Assets"),
	UI UMETA(DisplayName = "User Interface Assets"),
	Landscape UMETA(DisplayName = "Landscape and Foliage Assets"),
	Cinematics UMETA(DisplayName = "Cinematics and Sequencer Assets"),
	Paper2D UMETA(DisplayName = "Paper 2D Assets"),
	Networking UMETA(DisplayName = "Networking Assets"),
	Development UMETA(DisplayName = "Development & Tools Assets"),
	VR_AR UMETA(DisplayName = "VR/AR Assets"),
	PhysicsSimulation UMETA(DisplayName = "Physics Simulation Assets"),
	Miscellaneous UMETA(DisplayName = "Miscellaneous Assets"),
	Custom UMETA(DisplayName = "Custom Assets")
};

//~ Per-user settings of the assistant, reached through GetDefault<UTavrineSettings>(). Stored in the
//~ per-user editor settings so that one developer's key and filters never land in the project.
UCLASS(config = EditorPerUserSettings)
class TAVRINE_API UTavrineSettings : public UObject
{
	GENERATED_BODY()

public:
	UTavrineSettings();

	UPROPERTY(config, EditAnywhere, Category = "Tavrine|Authentication", meta = (DisplayName = "API Key", ToolTip = "Authentication key required to access Tavrine AI services"))
	FString ApiKey;

	UPROPERTY(config, EditAnywhere, Category = "Tavrine|Interface", meta = (DisplayName = "Display File Changes In Chat", ToolTip = "Enables or disables the display of file modifications, creations, and deletions in the chat interface"))
	bool bDisplayFileChangesInChat = true;

	//~ A button in disguise: ticking it restores the list, and it clears itself at once.
	UPROPERTY(EditAnywhere, Category = "Tavrine|Filtering|File|Extensions", meta = (ToolTip = "Reset Supported File Extensions"))
	bool bResetSupportedFileExtensions = false;

	UPROPERTY(config, EditAnywhere, Category = "Tavrine|Filtering|File|Extensions", meta = (DisplayName = "Supported File Extensions", ToolTip = "Additional file extensions beyond UE4's default types (py, cs, json, cpp, h, uasset, umap, ini, uproject, csv)"))
	TArray<FString> SupportedFileExtensions;

	UPROPERTY(EditAnywhere, Category = "Tavrine|Filtering|File|Directories", meta = (ToolTip = "Reset Excluded Directories"))
	bool bResetExcludedDirectories = false;

	UPROPERTY(config, EditAnywhere, Category = "Tavrine|Filtering|File|Directories", meta = (DisplayName = "Excluded Directories", ToolTip = "Directories to exclude from the file tree"))
	TArray<FString> ExcludedDirectories;

	UPROPERTY(config, EditAnywhere, Category = "Tavrine|Logs", meta = (DisplayName = "Log Retention Policy", ToolTip = "Defines how long log files should be kept before automatic deletion"))
	ETavrineLogDeletionPolicy LogRetentionPolicy = ETavrineLogDeletionPolicy::KeepLast30Days;

	// The three members below are deliberately not properties: neither the settings page nor a config
	// file may change them, so they always hold their defaults.
	ETavrineMode Mode = ETavrineMode::ExplainerMode;
	ETavrineBlueprintContentFilter BlueprintContentFilter = ETavrineBlueprintContentFilter::UseOnlyBlueprintVisibleContent;
	/** After the user scrolls the chat, new messages leave the scroll position alone for this long. */
	float AutoScrollResumeSeconds = 10.0f;

#if WITH_EDITOR
	virtual void PostEditChangeProperty(FPropertyChangedEvent& PropertyChangedEvent) override;
#endif

	void ResetSupportedFileExtensions();
	void ResetExcludedDirectories();
	/** Asset groups take no part in filtering yet; kept so that the tree's call has a home. */
	void ResetAssetGroups();

	/** The asset classes the project tree keeps for .uasset files; empty, so every file is kept. */
	TSet<FName> GetEnabledAssetClassPatterns() const;
};
