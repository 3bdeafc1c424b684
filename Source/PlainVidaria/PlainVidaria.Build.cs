using UnrealBuildTool;

// The lesson player and its bullet chat. The dependency names match the stand-in's CMake targets
// in Platform/, so this list and Source/PlainVidaria/CMakeLists.txt read alike.
public class PlainVidaria : ModuleRules
{
	public PlainVidaria(ReadOnlyTargetRules Target) : base(Target)
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
			"AudioMixer",
			"Json",
			"PlainMarquel",
		});
	}
}
