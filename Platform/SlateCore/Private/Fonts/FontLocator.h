#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/** One face of a font file: a .ttf holds face 0 only, a .ttc collection holds several. */
struct FFontFile
{
	/** Absolute path of the font file. */
	std::string Path;
	/** Face to use when Family is empty or not found in the file. */
	int32_t FaceIndex = 0;
	/** Family name to pick from a collection (e.g. "Noto Sans CJK SC"), since face order differs between builds. */
	std::string Family;

	friend bool operator==(const FFontFile&, const FFontFile&) = default;
};

/** The faces the default fonts are made of, in fallback order: the first face that has a character draws it. */
struct FDefaultFontFiles
{
	/** Faces of the default regular font; empty when no known font is installed. */
	std::vector<FFontFile> Regular;
	/** Faces of the default bold font: bold faces first, then the regular ones for what they lack. */
	std::vector<FFontFile> Bold;
};

/**
 * Finds the default fonts on disk. The default is Noto Sans CJK SC, which covers Latin and CJK,
 * backed by DejaVu Sans, which alone still gives Latin text when the CJK package is missing.
 * Looks first where Linux distributions install these files under the font root, then searches
 * the root by file name. Touches only the file system: nothing is opened with FreeType here.
 */
class FFontLocator
{
public:
	explicit FFontLocator(std::filesystem::path InFontRoot = "/usr/share/fonts");

	/** Looks the default fonts up on disk; each call searches again. */
	FDefaultFontFiles FindDefaults() const;

private:
	/** Path of the first candidate that exists under the root, else a file of that name anywhere under it, else "". */
	std::string FindFile(const std::vector<std::string>& KnownPaths) const;

	/** Folder searched, normally the system's font folder; tests point it elsewhere. */
	std::filesystem::path FontRoot;
};
