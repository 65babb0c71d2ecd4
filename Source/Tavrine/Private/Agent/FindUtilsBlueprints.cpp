#include "Agent/FindUtils.h"

#include "AssetRegistry/AssetRegistryModule.h"
#include "AssetRegistry/IAssetRegistry.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "EdGraph/EdGraph.h"
#include "EdGraph/EdGraphNode.h"
#include "EdGraph/EdGraphPin.h"
#include "Engine/Blueprint.h"
#include "Misc/PackageName.h"
#include "Misc/Paths.h"
#include "Modules/ModuleManager.h"
#include "Templates/Casts.h"

namespace
{
	/** The Blueprint's .uasset file: its package under the project's Content folder. */
	FString GetBlueprintFilePath(UBlueprint* Blueprint)
	{
		if (Blueprint == nullptr)
		{
			return TEXT("Invalid Blueprint");
		}
		FString RelativePath = FPackageName::GetLongPackagePath(Blueprint->GetPathName()) + TEXT("/") + Blueprint->GetName() + TEXT(".uasset");
		RelativePath.ReplaceInline(TEXT("/Game/"), TEXT(""), ESearchCase::IgnoreCase);
		return FPaths::ConvertRelativePathToFull(FPaths::ProjectContentDir() + RelativePath);
	}

	/** Collects the matches of one Blueprint, each as an object of four members (three for the Blueprint itself). */
	struct FBlueprintMatches
	{
		const FString& ReferenceString;
		const FString& BlueprintName;
		const FString& Path;
		TArray<TSharedPtr<FJsonValue>>& OutReferences;

		void Test(const TCHAR* Type, const FString& Name) const
		{
			if (!Name.Contains(ReferenceString, ESearchCase::IgnoreCase))
			{
				return;
			}
			const TSharedRef<FJsonObject> Reference = MakeShared<FJsonObject>();
			Reference->SetStringField(TEXT("Type"), Type);
			Reference->SetStringField(TEXT("Name"), Name);
			Reference->SetStringField(TEXT("Blueprint"), BlueprintName);
			Reference->SetStringField(TEXT("Path"), Path);
			OutReferences.Add(MakeShared<FJsonValueObject>(Reference));
		}

		void TestNodes(const UEdGraph& Graph) const
		{
			for (const UEdGraphNode* Node : Graph.Nodes)
			{
				if (Node == nullptr)
				{
					continue;
				}
				Test(TEXT("Node Title"), Node->GetNodeTitle(ENodeTitleType::FullTitle).ToString());
				Test(TEXT("Node Comment"), Node->NodeComment);
				for (const UEdGraphPin* Pin : Node->Pins)
				{
					if (Pin != nullptr)
					{
						Test(TEXT("Pin"), Pin->PinName.ToString());
					}
				}
			}
		}
	};
}

void FTavrineFindUtils::FindInAllBlueprintFiles(const FString& ReferenceString, TSharedPtr<FJsonObject>& Result)
{
	// Exactly the Blueprint class: assets of its subclasses (Animation Blueprints and the like) are left out.
	FARFilter Filter;
	Filter.ClassPaths.Add(UBlueprint::StaticClass()->GetClassPathName());
	Filter.bRecursiveClasses = false;

	IAssetRegistry& AssetRegistry = FModuleManager::LoadModuleChecked<FAssetRegistryModule>(TEXT("AssetRegistry")).Get();
	TArray<FAssetData> Assets;
	AssetRegistry.GetAssets(Filter, Assets, true);

	TArray<TSharedPtr<FJsonValue>> References;
	for (const FAssetData& Asset : Assets)
	{
		if (UBlueprint* Blueprint = Cast<UBlueprint>(Asset.GetAsset()))
		{
			FindInBlueprint(Blueprint, ReferenceString, References);
		}
	}
	Result->SetArrayField(TEXT("blueprint_references"), References);
}

void FTavrineFindUtils::FindInBlueprint(UBlueprint* Blueprint, const FString& ReferenceString, TArray<TSharedPtr<FJsonValue>>& OutReferences)
{
	if (Blueprint == nullptr)
	{
		return;
	}
	const FString Path = GetBlueprintFilePath(Blueprint);
	const FString BlueprintName = Blueprint->GetName();

	if (BlueprintName.Contains(ReferenceString, ESearchCase::IgnoreCase))
	{
		const TSharedRef<FJsonObject> Reference = MakeShared<FJsonObject>();
		Reference->SetStringField(TEXT("Type"), TEXT("Blueprint File"));
		Reference->SetStringField(TEXT("Blueprint"), BlueprintName);
		Reference->SetStringField(TEXT("Path"), Path);
		OutReferences.Add(MakeShared<FJsonValueObject>(Reference));
	}

	const FBlueprintMatches Matches{ ReferenceString, BlueprintName, Path, OutReferences };
	for (const FBPVariableDescription& Variable : Blueprint->NewVariables)
	{
		Matches.Test(TEXT("Variable"), Variable.VarName.ToString());
	}
	for (const UEdGraph* Graph : Blueprint->FunctionGraphs)
	{
		if (Graph != nullptr)
		{
			Matches.Test(TEXT("Function"), Graph->GetName());
			Matches.TestNodes(*Graph);
		}
	}
	// Event graphs are searched for their nodes only.
	for (const UEdGraph* Graph : Blueprint->UbergraphPages)
	{
		if (Graph != nullptr)
		{
			Matches.TestNodes(*Graph);
		}
	}
}
