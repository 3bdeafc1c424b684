using UnrealBuildTool;

// Calls a USynthComponent function through the media sound component and names AudioMixer, where
// USynthComponent lives: builds.
public class ProbeCallsSynthComponent : ModuleRules
{
	public ProbeCallsSynthComponent(ReadOnlyTargetRules Target) : base(Target)
	{
		PrivateDependencyModuleNames.AddRange(new string[] { "Core", "CoreUObject", "Engine", "MediaAssets", "AudioMixer" });
	}
}
