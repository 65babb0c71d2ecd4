using UnrealBuildTool;

public class Tavrine : ModuleRules
{
	public Tavrine(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = ModuleRules.PCHUsageMode.UseExplicitOrSharedPCHs;

		// Types that appear in the public headers: settings object, JSON documents, Blueprint assets.
		PublicDependencyModuleNames.AddRange(
			new string[]
			{
				"Core",
				"CoreUObject",
				"Engine",
				"Json"
			}
		);

		PrivateDependencyModuleNames.AddRange(
			new string[]
			{
				"HTTP",
				"UnrealEd",
				"BlueprintGraph",
				"AIModule",
				"Slate",
				"SlateCore",
				"InputCore",
				"ToolMenus",
				"Projects"
			}
		);
	}
}
