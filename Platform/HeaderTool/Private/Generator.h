#pragma once

#include "Defs.h"

#include <string>

namespace HeaderTool
{
	/** Where the generated code belongs: the package, the header's stem, the header's absolute path. */
	struct GeneratorOptions
	{
		// "/Script/<Module>".
		std::string Package;
		// The module name from Package, which goes into the file id.
		std::string ModuleName;
		std::string Stem;
		// What the .gen.cpp includes, so that private headers need no include path.
		std::string HeaderPath;
	};

	/** The text of <Stem>.generated.h and <Stem>.gen.cpp. */
	struct GeneratedCode
	{
		std::string Header;
		std::string Source;
	};

	/**
	 * Writes the code for a parsed header. The generated header defines, for each GENERATED_BODY()
	 * line, the macro it expands to; the source defines what those declare and registers every
	 * type at load time. Pure text: nothing here can fail.
	 */
	GeneratedCode Generate(const FileDef& File, const GeneratorOptions& Options);

	/** FID_<Module>_<Stem>_h, the prefix of every GENERATED_BODY macro of the header. */
	std::string FileId(const GeneratorOptions& Options);

	// The class parts of the source (GeneratorClass.cpp).
	void WriteClass(std::string& Out, const ClassDef& Class, const GeneratorOptions& Options);
	void WriteProperties(std::string& Out, const std::string& Owner, const std::vector<PropertyDef>& Properties);
}
