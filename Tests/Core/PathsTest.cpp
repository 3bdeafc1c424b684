// FPaths, IFileManager and FFileHelper, against a scratch folder on disk.

#include "Containers/StringConv.h"
#include "HAL/FileManager.h"
#include "Misc/FileHelper.h"
#include "Misc/Paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

void PrintTo(const FString& String, std::ostream* Stream)
{
	*Stream << '"' << FTCHARToUTF8(*String).Get() << '"';
}

namespace
{
	// A fresh folder per test, removed afterwards.
	class FScratchFolder : public ::testing::Test
	{
	protected:
		void SetUp() override
		{
			std::string Template = (std::filesystem::temp_directory_path() / "PathsTest_XXXXXX").string();
			ASSERT_NE(mkdtemp(Template.data()), nullptr);
			Root = FString(Template.c_str());
		}

		void TearDown() override
		{
			std::error_code Error;
			std::filesystem::permissions(Path("locked"), std::filesystem::perms::owner_all, Error);
			std::filesystem::remove_all(FTCHARToUTF8(*Root).Get(), Error);
		}

		std::string Path(const char* Relative) const { return std::string(FTCHARToUTF8(*Root).Get()) + "/" + Relative; }

		void Touch(const char* Relative, const char* Content = "") const
		{
			std::filesystem::create_directories(std::filesystem::path(Path(Relative)).parent_path());
			std::ofstream(Path(Relative), std::ios::binary) << Content;
		}

		std::string ReadBytes(const char* Relative) const
		{
			std::ifstream Stream(Path(Relative), std::ios::binary);
			return std::string(std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>());
		}

		// Compares a search result, with the scratch root cut off and joined by '|', case-sensitively.
		::testing::AssertionResult Lists(const TArray<FString>& Found, const TCHAR* Expected) const
		{
			const FString Actual = Relative(Found);
			if (Actual.Equals(Expected))
			{
				return ::testing::AssertionSuccess();
			}
			return ::testing::AssertionFailure() << "found \"" << FTCHARToUTF8(*Actual).Get() << '"';
		}

		FString Relative(const TArray<FString>& Found) const
		{
			FString Joined;
			for (const FString& Entry : Found)
			{
				FString Cut = Entry;
				Joined += (Joined.IsEmpty() ? TEXT("") : TEXT("|"));
				Joined += Cut.RemoveFromStart(Root + TEXT("/"), ESearchCase::CaseSensitive) ? Cut : TEXT("<outside>") + Entry;
			}
			return Joined;
		}

		// The scratch folder, absolute, without a trailing '/'.
		FString Root;
	};
}

TEST(Paths, ConvertRelativePathToFullIsAbsoluteWithDotsCollapsed)
{
	const FString Current(std::filesystem::current_path().c_str());
	EXPECT_TRUE(FPaths::ConvertRelativePathToFull(TEXT("a/./b/../c.txt")).Equals(Current / TEXT("a/c.txt")));
	EXPECT_TRUE(FPaths::ConvertRelativePathToFull(TEXT("/x/y/../z/")).Equals(TEXT("/x/z/")));
	EXPECT_TRUE(FPaths::ConvertRelativePathToFull(TEXT("/../../x")).Equals(TEXT("/x")));
	EXPECT_TRUE(FPaths::ConvertRelativePathToFull(TEXT("\\data\\\\clips\\.\\a.mp4")).Equals(TEXT("/data/clips/a.mp4")));
	EXPECT_TRUE(FPaths::ConvertRelativePathToFull(TEXT("/base/dir"), TEXT("../Saved")).Equals(TEXT("/base/Saved")));

	FString Collapsible(TEXT("Content/Movies/../UI/./Main.uasset"));
	EXPECT_TRUE(FPaths::CollapseRelativeDirectories(Collapsible));
	EXPECT_TRUE(Collapsible.Equals(TEXT("Content/UI/Main.uasset")));
	FString AboveStart(TEXT("../Content"));
	EXPECT_FALSE(FPaths::CollapseRelativeDirectories(AboveStart));
	EXPECT_TRUE(AboveStart.Equals(TEXT("../Content")));
	EXPECT_TRUE(FPaths::IsRelative(TEXT("Content/a")));
	EXPECT_FALSE(FPaths::IsRelative(TEXT("/Content/a")));
	EXPECT_FALSE(FPaths::IsRelative(TEXT("C:/Content")));
}

TEST(Paths, SplitsFileNamesIntoTheirParts)
{
	EXPECT_TRUE(FPaths::GetCleanFilename(TEXT("/Game/Movies/Intro.final.mp4")).Equals(TEXT("Intro.final.mp4")));
	EXPECT_TRUE(FPaths::GetCleanFilename(TEXT("C:\\clips\\a.mp4")).Equals(TEXT("a.mp4")));
	EXPECT_TRUE(FPaths::GetCleanFilename(TEXT("dir/")).IsEmpty());
	EXPECT_TRUE(FPaths::GetBaseFilename(TEXT("/Game/Movies/Intro.final.mp4")).Equals(TEXT("Intro.final")));
	EXPECT_TRUE(FPaths::GetBaseFilename(TEXT("/Game/Movies/Intro.mp4"), false).Equals(TEXT("/Game/Movies/Intro")));
	EXPECT_TRUE(FPaths::GetBaseFilename(TEXT("v1.2/README"), false).Equals(TEXT("v1.2/README")));
	EXPECT_TRUE(FPaths::GetExtension(TEXT("a/b.MP4")).Equals(TEXT("MP4")));
	EXPECT_TRUE(FPaths::GetExtension(TEXT("a/b.mp4"), true).Equals(TEXT(".mp4")));
	EXPECT_TRUE(FPaths::GetExtension(TEXT("v1.2/README")).IsEmpty());
	EXPECT_TRUE(FPaths::GetPath(TEXT("a/b/c.txt")).Equals(TEXT("a/b")));
	EXPECT_TRUE(FPaths::GetPath(TEXT("c.txt")).IsEmpty());
	EXPECT_TRUE(FPaths::GetPathLeaf(TEXT("a/b/")).Equals(TEXT("b")));
	EXPECT_TRUE(FPaths::ChangeExtension(TEXT("a/b.json"), TEXT("sav")).Equals(TEXT("a/b.sav")));
	EXPECT_TRUE(FPaths::ChangeExtension(TEXT("a/b"), TEXT("sav")).Equals(TEXT("a/b")));
	EXPECT_TRUE(FPaths::SetExtension(TEXT("a/b"), TEXT(".sav")).Equals(TEXT("a/b.sav")));
	EXPECT_TRUE(FPaths::Combine(TEXT("a"), FString(), FString(TEXT("b/")), TEXT("/c.txt")).Equals(TEXT("a/b/c.txt")));

	FString Directory(TEXT("C:\\Project\\Saved\\"));
	FPaths::NormalizeDirectoryName(Directory);
	EXPECT_TRUE(Directory.Equals(TEXT("C:/Project/Saved")));
	FString Root(TEXT("/"));
	FPaths::NormalizeDirectoryName(Root);
	EXPECT_TRUE(Root.Equals(TEXT("/")));
}

TEST_F(FScratchFolder, ProjectDirPrefersTheOverrideThenTheEnvironment)
{
	FPaths::SetProjectDir(Root);
	EXPECT_TRUE(FPaths::ProjectDir().Equals(Root + TEXT("/")));
	EXPECT_TRUE(FPaths::ProjectContentDir().Equals(Root + TEXT("/Content/")));
	EXPECT_TRUE(FPaths::ProjectSavedDir().Equals(Root + TEXT("/Saved/")));
	FPaths::SetProjectDir(FString());

	ASSERT_EQ(setenv("PLAINVIDARIA_PROJECT_DIR", FTCHARToUTF8(*(Root / TEXT("FromEnv"))).Get(), 1), 0);
	EXPECT_TRUE(FPaths::ProjectDir().Equals(Root + TEXT("/FromEnv/")));
	unsetenv("PLAINVIDARIA_PROJECT_DIR");
	EXPECT_TRUE(FPaths::ProjectDir().EndsWith(TEXT("/")));
	EXPECT_FALSE(FPaths::IsRelative(FPaths::ProjectDir()));
}

TEST_F(FScratchFolder, FindFilesRecursiveListsInAFixedOrder)
{
	Touch("b.txt");
	Touch("a.mp4");
	Touch("noext");
	Touch("sub2/z.txt");
	Touch("sub1/y.TXT");
	Touch("sub1/deep/x.txt");
	std::filesystem::create_directory_symlink(Path(""), Path("sub1/loop"));

	TArray<FString> Found;
	IFileManager::Get().FindFilesRecursive(Found, *Root, TEXT("*.*"), true, false);
	EXPECT_TRUE(Lists(Found, TEXT("a.mp4|b.txt|noext|sub1/y.TXT|sub1/deep/x.txt|sub2/z.txt")));

	IFileManager::Get().FindFilesRecursive(Found, *(Root + TEXT("/")), TEXT("*.txt"), true, false);
	EXPECT_TRUE(Lists(Found, TEXT("b.txt|sub1/y.TXT|sub1/deep/x.txt|sub2/z.txt")));

	IFileManager::Get().FindFilesRecursive(Found, *Root, TEXT("*"), false, true);
	EXPECT_TRUE(Lists(Found, TEXT("sub1|sub1/deep|sub2")));
	IFileManager::Get().FindFilesRecursive(Found, *Root, TEXT("deep"), true, true, false);
	EXPECT_TRUE(Lists(Found, TEXT("sub1|sub1/deep|sub2|sub1/deep")));

	TArray<FString> Names;
	IFileManager::Get().FindFiles(Names, *Root, TEXT(".TXT"));
	ASSERT_EQ(Names.Num(), 1);
	EXPECT_TRUE(Names[0].Equals(TEXT("b.txt"))) << "names only, no folder";
	IFileManager::Get().FindFiles(Names, *Root, nullptr);
	EXPECT_EQ(Names.Num(), 4) << "appends: b.txt, then a.mp4, b.txt, noext";
	EXPECT_TRUE(Names[1].Equals(TEXT("a.mp4")));
	Names.Reset();
	IFileManager::Get().FindFiles(Names, *(Root / TEXT("sub*")), false, true);
	EXPECT_EQ(Names.Num(), 2);

	IFileManager::Get().FindFilesRecursive(Found, *(Root / TEXT("missing")), TEXT("*.*"), true, true);
	EXPECT_EQ(Found.Num(), 0);
}

TEST_F(FScratchFolder, FindFilesRecursiveSkipsAnUnreadableFolderAndCopesWithManyFiles)
{
	Touch("locked/secret.txt");
	Touch("open/visible.txt");
	if (geteuid() != 0)
	{
		// Root reads through any permission, so the check only means something for other users.
		ASSERT_EQ(chmod(Path("locked").c_str(), 0), 0);
		TArray<FString> Found;
		IFileManager::Get().FindFilesRecursive(Found, *Root, TEXT("*.txt"), true, false);
		EXPECT_TRUE(Lists(Found, TEXT("open/visible.txt")));
	}

	ASSERT_TRUE(std::filesystem::create_directory(Path("many")));
	for (int32 Index = 0; Index < 20000; ++Index)
	{
		const int Descriptor = open((Path("many/") + std::to_string(100000 + Index) + ".dat").c_str(), O_CREAT | O_WRONLY, 0644);
		ASSERT_GE(Descriptor, 0);
		close(Descriptor);
	}
	TArray<FString> Many;
	IFileManager::Get().FindFilesRecursive(Many, *(Root / TEXT("many")), TEXT("*.dat"), true, false);
	ASSERT_EQ(Many.Num(), 20000);
	EXPECT_TRUE(Many[0].EndsWith(TEXT("/100000.dat")));
	EXPECT_TRUE(Many[19999].EndsWith(TEXT("/119999.dat")));
}

TEST_F(FScratchFolder, FilesSaveAtomicallyAndLoadAsUtf8)
{
	const FString File = Root / TEXT("Saved/Slots/slot.json");
	ASSERT_TRUE(FFileHelper::SaveStringToFile(TEXT("héllo 中文"), *File));
	EXPECT_EQ(ReadBytes("Saved/Slots/slot.json"), "h\xC3\xA9llo \xE4\xB8\xAD\xE6\x96\x87");
	FString Loaded;
	ASSERT_TRUE(FFileHelper::LoadFileToString(Loaded, *File));
	EXPECT_TRUE(Loaded.Equals(TEXT("héllo 中文")));
	EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Path("Saved/Slots")), std::filesystem::directory_iterator()), 1)
		<< "no temporary file left behind";
	EXPECT_EQ(IFileManager::Get().FileSize(*File), 13);

	Touch("bom.txt", "\xEF\xBB\xBFok");
	ASSERT_TRUE(FFileHelper::LoadFileToString(Loaded, *(Root / TEXT("bom.txt"))));
	EXPECT_TRUE(Loaded.Equals(TEXT("ok")));
	ASSERT_TRUE(FFileHelper::SaveStringToFile(TEXT("€😀"), *(Root / TEXT("wide.txt")), FFileHelper::EEncodingOptions::ForceUnicode));
	ASSERT_TRUE(FFileHelper::LoadFileToString(Loaded, *(Root / TEXT("wide.txt"))));
	EXPECT_TRUE(Loaded.Equals(TEXT("€😀")));
	Touch("broken.txt", "a\xFF" "b");
	ASSERT_TRUE(FFileHelper::LoadFileToString(Loaded, *(Root / TEXT("broken.txt"))));
	EXPECT_TRUE(Loaded.Equals(TEXT("a\uFFFDb")));

	Loaded = TEXT("stale");
	EXPECT_FALSE(FFileHelper::LoadFileToString(Loaded, *(Root / TEXT("missing.txt"))));
	EXPECT_TRUE(Loaded.IsEmpty());
	EXPECT_FALSE(FFileHelper::LoadFileToString(Loaded, *Root)) << "a folder is not a file";
	TArray<uint8> Bytes;
	ASSERT_TRUE(FFileHelper::LoadFileToArray(Bytes, *(Root / TEXT("bom.txt"))));
	EXPECT_EQ(Bytes.Num(), 5);
	EXPECT_FALSE(FFileHelper::SaveStringToFile(TEXT("x"), *File, FFileHelper::EEncodingOptions::AutoDetect, &IFileManager::Get(),
		FILEWRITE_NoReplaceExisting));

	IFileManager& Files = IFileManager::Get();
	const FString Moved = Root / TEXT("Other/moved.json");
	EXPECT_TRUE(Files.Move(*Moved, *File));
	EXPECT_FALSE(Files.FileExists(*File));
	EXPECT_TRUE(FPaths::FileExists(Moved));
	EXPECT_FALSE(Files.Move(*Moved, *(Root / TEXT("bom.txt")), false)) << "Replace=false keeps the existing file";
	EXPECT_TRUE(Files.Delete(*Moved));
	EXPECT_TRUE(Files.Delete(*Moved)) << "already gone is fine";
	EXPECT_FALSE(Files.Delete(*Moved, true));
	EXPECT_FALSE(Files.Delete(*Root)) << "Delete never removes a folder";
	EXPECT_EQ(Files.FileSize(*Moved), -1);

	EXPECT_FALSE(Files.MakeDirectory(*(Root / TEXT("x/y/z"))));
	EXPECT_TRUE(Files.MakeDirectory(*(Root / TEXT("x/y/z")), true));
	EXPECT_TRUE(FPaths::DirectoryExists(Root / TEXT("x/y/z")));
	EXPECT_FALSE(Files.DeleteDirectory(*(Root / TEXT("x"))));
	EXPECT_TRUE(Files.DeleteDirectory(*(Root / TEXT("x")), true, true));
	EXPECT_FALSE(Files.DirectoryExists(*(Root / TEXT("x"))));
}
