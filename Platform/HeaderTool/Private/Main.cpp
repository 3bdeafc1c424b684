// PlainHeaderTool --package /Script/<Module> --output <dir> <Header.h>
//
// Reads one header and writes <dir>/<Stem>.generated.h and <dir>/<Stem>.gen.cpp. On any error it
// prints "<header>:<line>: error: <reason>", exits with 1 and leaves the output folder as it was.
// A file whose new text equals what is already there is not touched, so its timestamp stays and
// the build does not recompile what depends on it.

#include "Generator.h"
#include "ParseError.h"
#include "Parser.h"
#include "Tokenizer.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{
	// The command line, checked: a /Script/ package, an output folder and one header.
	struct Arguments
	{
		std::string Package;
		std::string OutputDir;
		std::string HeaderPath;
	};

	std::optional<Arguments> ParseArguments(int ArgCount, char** Args)
	{
		Arguments Result;
		for (int Index = 1; Index < ArgCount; ++Index)
		{
			const std::string Arg = Args[Index];
			if ((Arg == "--package" || Arg == "--output") && Index + 1 < ArgCount)
			{
				(Arg == "--package" ? Result.Package : Result.OutputDir) = Args[++Index];
			}
			else if (Arg.starts_with("--") || !Result.HeaderPath.empty())
			{
				return std::nullopt;
			}
			else
			{
				Result.HeaderPath = Arg;
			}
		}
		const bool bScriptPackage = Result.Package.starts_with("/Script/") && Result.Package.size() > 8;
		if (!bScriptPackage || Result.OutputDir.empty() || Result.HeaderPath.empty())
		{
			return std::nullopt;
		}
		return Result;
	}

	std::optional<std::string> ReadFile(const fs::path& Path)
	{
		std::ifstream Stream(Path, std::ios::binary);
		if (!Stream)
		{
			return std::nullopt;
		}
		std::ostringstream Text;
		Text << Stream.rdbuf();
		return Text.str();
	}

	// A file to replace: where it goes, its new text, and the temporary file it is first written to.
	struct PendingFile
	{
		fs::path Target;
		std::string Text;
		fs::path Temporary;
	};

	// Writes every changed file to a temporary next to it, then renames them all into place, so
	// that a failed write leaves no half-written output behind.
	bool WriteChanged(std::vector<PendingFile>& Files, std::string& Error)
	{
		std::vector<PendingFile*> Changed;
		for (PendingFile& File : Files)
		{
			if (ReadFile(File.Target) != File.Text)
			{
				Changed.push_back(&File);
			}
		}
		bool bWritten = true;
		for (PendingFile* File : Changed)
		{
			File->Temporary = File->Target;
			File->Temporary += ".tmp" + std::to_string(::getpid());
			std::ofstream Stream(File->Temporary, std::ios::binary | std::ios::trunc);
			Stream << File->Text;
			Stream.close();
			if (!Stream)
			{
				Error = File->Target.string() + ": error: cannot write the file";
				bWritten = false;
				break;
			}
		}
		std::error_code Code;
		for (PendingFile* File : Changed)
		{
			if (bWritten)
			{
				fs::rename(File->Temporary, File->Target, Code);
				if (Code)
				{
					Error = File->Target.string() + ": error: cannot replace the file: " + Code.message();
					bWritten = false;
				}
			}
			fs::remove(File->Temporary, Code);
		}
		return bWritten;
	}
}

int main(int ArgCount, char** Args)
{
	// 1. Arguments.
	const std::optional<Arguments> Options = ParseArguments(ArgCount, Args);
	if (!Options)
	{
		std::cerr << "usage: PlainHeaderTool --package /Script/<Module> --output <dir> <Header.h>\n";
		return 1;
	}
	const fs::path Header(Options->HeaderPath);
	const std::optional<std::string> Source = ReadFile(Header);
	if (!Source)
	{
		std::cerr << Options->HeaderPath << ": error: cannot read the file\n";
		return 1;
	}

	// 2. Tokenize, parse, generate: all in memory, so an error leaves nothing behind.
	HeaderTool::GeneratorOptions Generator;
	Generator.Package = Options->Package;
	Generator.ModuleName = Options->Package.substr(8);
	Generator.Stem = Header.stem().string();
	Generator.HeaderPath = fs::absolute(Header).lexically_normal().generic_string();
	HeaderTool::GeneratedCode Code;
	try
	{
		const HeaderTool::TokenizedFile Tokens = HeaderTool::Tokenize(*Source);
		const HeaderTool::FileDef File = HeaderTool::Parser(Tokens, Generator.Stem).Parse();
		Code = HeaderTool::Generate(File, Generator);
	}
	catch (const HeaderTool::ParseError& Error)
	{
		std::cerr << Options->HeaderPath << ":" << Error.Line << ": error: " << Error.what() << "\n";
		return 1;
	}

	// 3. Write what changed.
	const fs::path OutputDir(Options->OutputDir);
	std::error_code DirError;
	fs::create_directories(OutputDir, DirError);
	std::vector<PendingFile> Files{
		{OutputDir / (Generator.Stem + ".generated.h"), std::move(Code.Header), {}},
		{OutputDir / (Generator.Stem + ".gen.cpp"), std::move(Code.Source), {}},
	};
	std::string WriteError;
	if (!WriteChanged(Files, WriteError))
	{
		std::cerr << WriteError << "\n";
		return 1;
	}
	return 0;
}
