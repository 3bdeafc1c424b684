using UnrealBuildTool;

// Reaches for a header the stand-in keeps for its own tests: must fail to compile.
public class ProbeUsesLogCapture : ModuleRules
{
	public ProbeUsesLogCapture(ReadOnlyTargetRules Target) : base(Target)
	{
		PrivateDependencyModuleNames.AddRange(new string[] { "Core" });
	}
}
