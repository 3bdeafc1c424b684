#pragma once

// A throwaway project folder for the Engine tests: FPaths points at it while the fixture lives,
// so Content/ assets and Saved/ slots land somewhere the test owns and removes.

#include "Containers/StringConv.h"
#include "Logging/LogCapture.h"
#include "Misc/Paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

class FScratchProject : public ::testing::Test
{
protected:
	void SetUp() override
	{
		std::string Template = (std::filesystem::temp_directory_path() / "EngineTest_XXXXXX").string();
		ASSERT_NE(mkdtemp(Template.data()), nullptr);
		Root = Template;
		FPaths::SetProjectDir(FString(Root.c_str()));
		UE::Log::ClearCapturedLines();
	}

	void TearDown() override
	{
		FPaths::SetProjectDir(FString());
		std::error_code Error;
		std::filesystem::remove_all(Root, Error);
	}

	/** Absolute path of a file under the scratch project. */
	std::string Path(const std::string& Relative) const { return Root + "/" + Relative; }

	/** Writes Content (bytes as given) to a file under the project, making its folders. */
	void Write(const std::string& Relative, const std::string& Content) const
	{
		std::filesystem::create_directories(std::filesystem::path(Path(Relative)).parent_path());
		std::ofstream(Path(Relative), std::ios::binary) << Content;
	}

	std::string Read(const std::string& Relative) const
	{
		std::ifstream Stream(Path(Relative), std::ios::binary);
		return std::string(std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>());
	}

	/** The warnings logged in Category since the test began whose text contains Needle ("" for all). */
	static int32 CountWarnings(const TCHAR* Category, const TCHAR* Needle)
	{
		int32 Count = 0;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			if (Line.Category == Category && Line.Verbosity == ELogVerbosity::Warning && (!*Needle || Line.Message.Contains(Needle)))
			{
				++Count;
			}
		}
		return Count;
	}

	/** Every warning logged since the test began. */
	static int32 CountAllWarnings()
	{
		int32 Count = 0;
		for (const UE::Log::FCapturedLine& Line : UE::Log::GetCapturedLines())
		{
			Count += Line.Verbosity == ELogVerbosity::Warning ? 1 : 0;
		}
		return Count;
	}

	// The scratch project folder.
	std::string Root;
};
