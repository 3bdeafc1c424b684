using UnrealBuildTool;

// The same call without naming AudioMixer: must fail to build, as it fails to link in the engine.
public class ProbeWithoutAudioMixer : ModuleRules
{
	public ProbeWithoutAudioMixer(ReadOnlyTargetRules Target) : base(Target)
	{
		PrivateDependencyModuleNames.AddRange(new string[] { "Core", "CoreUObject", "Engine", "MediaAssets" });
	}
}
