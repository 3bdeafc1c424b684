using UnrealBuildTool;

// A host for the lesson player written against the engine's API only: copy the folder into your
// project's Source/ (or a plug-in's) as a module of its own.
public class MinimalLessonHost : ModuleRules
{
	public MinimalLessonHost(ReadOnlyTargetRules Target) : base(Target)
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
			"PlainVidaria",
			// UI_VidariaSystem.h includes the sibling module's headers.
			"PlainMarquel",
		});
	}
}
