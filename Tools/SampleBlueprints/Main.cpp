// make-sample-blueprints PROJECT.uproject: writes the sample Blueprints into the project's Content/Blueprints
// folder, made and compiled by the editor stand-in itself.
#include "CoreMinimal.h"
#include "Misc/StandInProject.h"
#include "SampleBlueprintBuilder.h"

#include <cstdio>

int main(int ArgC, char** ArgV)
{
	if (ArgC != 2)
	{
		std::fprintf(stderr, "usage: make-sample-blueprints PROJECT.uproject\n");
		return 2;
	}
	FStandInProject::SetProjectFile(FString(UTF8_TO_TCHAR(ArgV[1])));

	const FString Folder = FSampleBlueprintBuilder::Folder;
	UBlueprint* Showcase = FSampleBlueprintBuilder::MakeShowcase(Folder / TEXT("BP_Showcase"));
	UBlueprint* Interface = FSampleBlueprintBuilder::MakeInterface(Folder / TEXT("BPI_Interactable"));
	const TArray<UBlueprint*> Blueprints = {
		Showcase,
		Showcase != nullptr ? FSampleBlueprintBuilder::MakeChild(Folder / TEXT("BP_ShowcaseChild"), Showcase) : nullptr,
		Interface,
		Interface != nullptr ? FSampleBlueprintBuilder::MakeInterfaceUser(Folder / TEXT("BP_Door"), Interface) : nullptr,
		FSampleBlueprintBuilder::MakeAnimBlueprint(Folder / TEXT("ABP_Hero")),
	};

	int32 Failures = 0;
	for (UBlueprint* Blueprint : Blueprints)
	{
		if (Blueprint == nullptr || !Blueprint->IsUpToDate() || !FSampleBlueprintBuilder::Save(Blueprint))
		{
			std::fprintf(stderr, "failed: %s\n", Blueprint != nullptr ? TCHAR_TO_UTF8(*Blueprint->GetPathName()) : "(not created)");
			++Failures;
			continue;
		}
		std::printf("saved %s\n", TCHAR_TO_UTF8(*Blueprint->GetPathName()));
	}
	return Failures == 0 ? 0 : 1;
}
