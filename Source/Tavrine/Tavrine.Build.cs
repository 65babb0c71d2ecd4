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

		// Found by name at run time for the compile and Python tools; only their interfaces are used here.
		// Live Coding exists in the Windows editor alone (where the engine sets WITH_LIVE_CODING); its result
		// code is a parameter of the compilation manager's public interface there.
		if (Target.Platform == UnrealTargetPlatform.Win64)
		{
			PublicDependencyModuleNames.Add("LiveCoding");
		}
		PrivateDependencyModuleNames.AddRange(new string[] { "HotReload", "PythonScriptPlugin" });

		// Found by name at run time for the file tools' source-control steps.
		PrivateDependencyModuleNames.Add("SourceControl");

		// The settings page is registered when the editor's "Settings" module is there.
		PrivateDependencyModuleNames.Add("Settings");

		// Found by name at run time for the asset lookups of the project tree, the reference search and the Blueprint tools.
		PrivateDependencyModuleNames.Add("AssetRegistry");

		// Found by name at run time to create Blueprint assets.
		PrivateDependencyModuleNames.Add("AssetTools");

		// A property whose value can't be exported as text reads as its kind's fallback instead of ending the tool.
		bEnableExceptions = true;
	}
}
