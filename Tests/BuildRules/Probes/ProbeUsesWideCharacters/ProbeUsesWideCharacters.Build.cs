using UnrealBuildTool;

// Treats engine text as wchar_t text, which only a Windows build would take: must fail to compile.
public class ProbeUsesWideCharacters : ModuleRules
{
	public ProbeUsesWideCharacters(ReadOnlyTargetRules Target) : base(Target)
	{
		PrivateDependencyModuleNames.AddRange(new string[] { "Core" });
	}
}
