using UnrealBuildTool;

// The comment overlay, send bar and settings that the lesson player drives.
public class PlainMarquel : ModuleRules
{
	public PlainMarquel(ReadOnlyTargetRules Target) : base(Target)
	{
		PCHUsage = PCHUsageMode.UseExplicitOrSharedPCHs;

		PublicDependencyModuleNames.AddRange(new string[]
		{
			"Core",
			"CoreUObject",
			"Engine",
			"UMG",
			"SlateCore",
			"MediaAssets",
		});
	}
}
