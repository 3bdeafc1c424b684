#include "Fonts/FontLocator.h"

#include <system_error>
#include <utility>

namespace
{
	// Where Debian/Ubuntu, Arch and Fedora put each file, relative to the font root. The file name
	// of the first entry is also what the fallback search looks for.
	const std::vector<std::string> NotoCjkRegularPaths = {
		"opentype/noto/NotoSansCJK-Regular.ttc",
		"noto-cjk/NotoSansCJK-Regular.ttc",
		"google-noto-cjk/NotoSansCJK-Regular.ttc",
		"google-noto-sans-cjk-fonts/NotoSansCJK-Regular.ttc",
	};
	const std::vector<std::string> NotoCjkBoldPaths = {
		"opentype/noto/NotoSansCJK-Bold.ttc",
		"noto-cjk/NotoSansCJK-Bold.ttc",
		"google-noto-cjk/NotoSansCJK-Bold.ttc",
		"google-noto-sans-cjk-fonts/NotoSansCJK-Bold.ttc",
	};
	const std::vector<std::string> DejaVuRegularPaths = {
		"truetype/dejavu/DejaVuSans.ttf",
		"TTF/DejaVuSans.ttf",
		"dejavu/DejaVuSans.ttf",
		"dejavu-sans-fonts/DejaVuSans.ttf",
	};
	const std::vector<std::string> DejaVuBoldPaths = {
		"truetype/dejavu/DejaVuSans-Bold.ttf",
		"TTF/DejaVuSans-Bold.ttf",
		"dejavu/DejaVuSans-Bold.ttf",
		"dejavu-sans-fonts/DejaVuSans-Bold.ttf",
	};

	// The Simplified Chinese face: comments are mostly Chinese, and the collection's faces differ
	// only in the regional shapes of shared ideographs. Index 2 is its place in Debian's build.
	constexpr const char* NotoCjkFamily = "Noto Sans CJK SC";
	constexpr int32_t NotoCjkScFaceIndex = 2;

	void AppendUnique(std::vector<FFontFile>& Files, const FFontFile& File)
	{
		for (const FFontFile& Existing : Files)
		{
			if (Existing == File)
			{
				return;
			}
		}
		Files.push_back(File);
	}
}

FFontLocator::FFontLocator(std::filesystem::path InFontRoot)
	: FontRoot(std::move(InFontRoot))
{
}

FDefaultFontFiles FFontLocator::FindDefaults() const
{
	FDefaultFontFiles Result;
	const std::string NotoRegular = FindFile(NotoCjkRegularPaths);
	const std::string NotoBold = FindFile(NotoCjkBoldPaths);
	const std::string DejaVuRegular = FindFile(DejaVuRegularPaths);
	const std::string DejaVuBold = FindFile(DejaVuBoldPaths);

	if (!NotoRegular.empty())
	{
		Result.Regular.push_back({NotoRegular, NotoCjkScFaceIndex, NotoCjkFamily});
	}
	if (!DejaVuRegular.empty())
	{
		Result.Regular.push_back({DejaVuRegular, 0, ""});
	}

	if (!NotoBold.empty())
	{
		Result.Bold.push_back({NotoBold, NotoCjkScFaceIndex, NotoCjkFamily});
	}
	if (!DejaVuBold.empty())
	{
		Result.Bold.push_back({DejaVuBold, 0, ""});
	}
	for (const FFontFile& File : Result.Regular)
	{
		AppendUnique(Result.Bold, File);
	}
	return Result;
}

std::string FFontLocator::FindFile(const std::vector<std::string>& KnownPaths) const
{
	std::error_code Error;
	for (const std::string& Relative : KnownPaths)
	{
		const std::filesystem::path Candidate = FontRoot / Relative;
		if (std::filesystem::is_regular_file(Candidate, Error))
		{
			return Candidate.string();
		}
	}

	// Not in any usual place: the file may still be installed somewhere else under the root. An
	// unreadable folder must not end the search, so errors skip that folder and go on.
	const std::filesystem::path WantedName = std::filesystem::path(KnownPaths.front()).filename();
	std::filesystem::recursive_directory_iterator It(FontRoot, std::filesystem::directory_options::skip_permission_denied, Error);
	for (const std::filesystem::recursive_directory_iterator End; !Error && It != End; It.increment(Error))
	{
		if (It->path().filename() == WantedName && It->is_regular_file(Error))
		{
			return It->path().string();
		}
	}
	return {};
}
