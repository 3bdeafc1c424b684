// Runs the PlainHeaderTool binary over the fixture headers in Fixtures/, one per construct or
// error, and checks the lines of its output that the runtime depends on, or its message word for word.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{
	std::string ReadText(const fs::path& Path)
	{
		std::ifstream Stream(Path, std::ios::binary);
		std::ostringstream Text;
		Text << Stream.rdbuf();
		return Text.str();
	}

	void WriteText(const fs::path& Path, const std::string& Text)
	{
		std::ofstream(Path, std::ios::binary | std::ios::trunc) << Text;
	}

	std::string Fixture(const std::string& Name)
	{
		return std::string(PLAIN_TEST_SOURCE_DIR) + "/Fixtures/" + Name;
	}

	// A fresh folder for one run's output, removed afterwards.
	class FScratch
	{
	public:
		FScratch()
		{
			std::string Pattern = (fs::temp_directory_path() / "HeaderToolTest-XXXXXX").string();
			Root = ::mkdtemp(Pattern.data());
			Out = Root / "out";
		}
		~FScratch() { fs::remove_all(Root); }

		// Runs the tool on Header into Out; returns the exit code and keeps stderr in Errors.
		int Run(const std::string& Header)
		{
			const fs::path ErrorFile = Root / "stderr.txt";
			const std::string Command = std::string("\"") + PLAIN_HEADER_TOOL + "\" --package /Script/Fixtures --output \""
				+ Out.string() + "\" \"" + Header + "\" 2> \"" + ErrorFile.string() + "\"";
			const int Status = std::system(Command.c_str());
			Errors = ReadText(ErrorFile);
			return WIFEXITED(Status) ? WEXITSTATUS(Status) : -1;
		}

		std::string Output(const std::string& Name) const { return ReadText(Out / Name); }

		// The folder itself; stderr of the last run is kept in it, beside Out.
		fs::path Root;
		// Where the tool writes.
		fs::path Out;
		// What the last run printed on stderr.
		std::string Errors;
	};

	// The text of a generated function, from its signature line to its closing brace.
	std::string FunctionText(const std::string& Source, const std::string& Signature)
	{
		const std::size_t Start = Source.find(Signature);
		return Start == std::string::npos ? std::string() : Source.substr(Start, Source.find("\n}\n", Start) - Start);
	}
}

TEST(HeaderToolClass, DeclaresBodyMacroAndRegistersPropertiesAndFunctions)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("ClassMembers.h")), 0) << Scratch.Errors;
	const std::string Header = Scratch.Output("ClassMembers.generated.h");
	const std::string Source = Scratch.Output("ClassMembers.gen.cpp");

	EXPECT_NE(Header.find("#define CURRENT_FILE_ID FID_Fixtures_ClassMembers_h\n"), std::string::npos);
	EXPECT_NE(Header.find("#define FID_Fixtures_ClassMembers_h_11_GENERATED_BODY \\\n"
						  "\tPLAIN_GENERATED_CLASS_BODY(UClassMembers, UObject) \\\n"
						  "\tpublic: \\\n"
						  "\tDECLARE_FUNCTION(execPlay); \\\n"
						  "\tDECLARE_FUNCTION(execGetVolume); \\\n"
						  "\tDECLARE_FUNCTION(execAdd); \\\n"
						  "\tprivate:\n"),
		std::string::npos)
		<< Header;

	const char* Expected[] = {
		R"(ConstructNativeClass<UClassMembers>(TEXT("ClassMembers"), TEXT("/Script/Fixtures"),
		CLASS_Native | CLASS_Blueprintable | CLASS_BlueprintType, &UObject::StaticClass,)",
		"return new UClassMembers(ObjectInitializer);",
		R"(Builder.AddProperty<decltype(UClassMembers::MediaPlayer)>(TEXT("MediaPlayer"), TEXT("TObjectPtr<UMediaPlayer>"), PLAIN_OFFSET_OF(UClassMembers, MediaPlayer),
		CPF_Edit | CPF_NativeAccessSpecifierProtected, { { TEXT("Category"), TEXT("UI") } });)",
		R"(TEXT("TArray<TObjectPtr<UObject>>"), PLAIN_OFFSET_OF(UClassMembers, Tracks),
		CPF_NativeAccessSpecifierProtected, { { TEXT("BindWidget"), TEXT("") }, { TEXT("EditInline"), TEXT("true") } });)",
		R"(CPF_Edit | CPF_EditConst | CPF_DisableEditOnInstance | CPF_Transient | CPF_NativeAccessSpecifierPrivate, { });)",
		R"(Builder.AddFunction<void(const FString&)>(TEXT("Play"), &UClassMembers::execPlay,
		FUNC_Native | FUNC_Public | FUNC_BlueprintCallable, { { TEXT("Category"), TEXT("VidariaMedia") } },
		{ TEXT("InURL") });)",
		R"(Builder.AddFunction<float()>(TEXT("GetVolume"), &UClassMembers::execGetVolume,
		FUNC_Native | FUNC_Public | FUNC_BlueprintCallable | FUNC_BlueprintPure | FUNC_Const, { },
		{ });)",
		R"(Builder.AddFunction<int32(int32, int32&, const TMap<FString, int32>&)>(TEXT("Add"), &UClassMembers::execAdd,
		FUNC_Native | FUNC_Public | FUNC_Static | FUNC_HasOutParms, { },
		{ TEXT("A"), TEXT("B"), TEXT("Extra") });)",
		R"(static ::UE::Reflection::FRegisterCompiledIn Z_Register_UClassMembers([]() -> UObject* { return UClassMembers::StaticClass(); });)",
	};
	for (const char* Line : Expected)
	{
		EXPECT_NE(Source.find(Line), std::string::npos) << "missing:\n" << Line << "\n\nin:\n" << Source;
	}
}

TEST(HeaderToolClass, InvokersUnpackArgumentsAndStoreResults)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("ClassMembers.h")), 0) << Scratch.Errors;
	const std::string Source = Scratch.Output("ClassMembers.gen.cpp");

	// A const function with a result and no parameters: stores the result, never touches Params.
	const std::string GetVolume = FunctionText(Source, "void UClassMembers::execGetVolume(UObject* Context, void* Params, void* Result)");
	EXPECT_NE(GetVolume.find("\t::UE::Reflection::StoreResult(Result, static_cast<UClassMembers*>(Context)->GetVolume());"), std::string::npos) << GetVolume;
	EXPECT_EQ(GetVolume.find("Params)"), std::string::npos) << GetVolume;

	EXPECT_NE(FunctionText(Source, "void UClassMembers::execPlay(").find(
				  "\tauto& Args = *static_cast<::UE::Reflection::TFunctionParams<const FString&>*>(Params);\n"
				  "\tstatic_cast<UClassMembers*>(Context)->Play(std::get<0>(Args));"),
		std::string::npos);

	// A static function is called on the class; Context is ignored.
	EXPECT_NE(FunctionText(Source, "void UClassMembers::execAdd(").find(
				  "\t::UE::Reflection::StoreResult(Result, UClassMembers::Add(std::get<0>(Args), std::get<1>(Args), std::get<2>(Args)));"),
		std::string::npos);
}

TEST(HeaderToolClass, WrapsWhatNamesADeprecatedMemberInTheDeprecationPragmas)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("DeprecatedMembers.h")), 0) << Scratch.Errors;
	const std::string Source = Scratch.Output("DeprecatedMembers.gen.cpp");

	EXPECT_NE(Source.find("#include \"Misc/CoreMiscDefines.h\"\n"), std::string::npos) << Source;
	// UE_DEPRECATED in front of UPROPERTY (with the doc comment between) and between UPROPERTY and the type.
	for (const char* Name : {"Opacity", "Tint"})
	{
		const std::string Registration = std::string("PRAGMA_DISABLE_DEPRECATION_WARNINGS\n\tBuilder.AddProperty<decltype(UDeprecatedMembers::") + Name + ")>";
		EXPECT_NE(Source.find(Registration), std::string::npos) << Name << " in:\n" << Source;
	}
	EXPECT_NE(Source.find("TEXT(\"Read through GetOpacity.\")"), std::string::npos) << "the doc comment still documents it";
	EXPECT_NE(Source.find("{ TEXT(\"Category\"), TEXT(\"Rendering\") } });\nPRAGMA_ENABLE_DEPRECATION_WARNINGS\n"), std::string::npos);
	EXPECT_EQ(Source.find("PRAGMA_DISABLE_DEPRECATION_WARNINGS\n\tBuilder.AddProperty<decltype(UDeprecatedMembers::Scale)>"), std::string::npos);

	EXPECT_NE(Source.find("PRAGMA_DISABLE_DEPRECATION_WARNINGS\nvoid UDeprecatedMembers::execFade("), std::string::npos) << Source;
	EXPECT_EQ(Source.find("PRAGMA_DISABLE_DEPRECATION_WARNINGS\nvoid UDeprecatedMembers::execGetOpacity("), std::string::npos)
		<< "a deprecated plain member leaves the next reflected one alone";

	// A file without deprecated members needs no pragmas.
	ASSERT_EQ(Scratch.Run(Fixture("Structs.h")), 0) << Scratch.Errors;
	EXPECT_EQ(Scratch.Output("Structs.gen.cpp").find("CoreMiscDefines"), std::string::npos);
}

TEST(HeaderToolDocComments, BecomeCommentAndToolTipOnlyWhenDirectlyAbove)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("DocComments.h")), 0) << Scratch.Errors;
	const std::string Source = Scratch.Output("DocComments.gen.cpp");

	const char* Expected[] = {
		R"({ { TEXT("Comment"), TEXT("/**\n * A widget that shows\n * the lesson video.\n */") }, { TEXT("ToolTip"), TEXT("A widget that shows\nthe lesson video.") } });)",
		R"({ { TEXT("Comment"), TEXT("//初始化视频资源\n") }, { TEXT("ToolTip"), TEXT("初始化视频资源") } },)",
		R"(TwoLines),
		CPF_NativeAccessSpecifierPublic, { { TEXT("Comment"), TEXT("// First line\n// second line with \"quotes\" and \\ backslash\n") }, { TEXT("ToolTip"), TEXT("First line\nsecond line with \"quotes\" and \\ backslash") } });)",
		"Undocumented),\n\t\tCPF_NativeAccessSpecifierPublic, { });",
		"AfterTrailing),\n\t\tCPF_NativeAccessSpecifierPublic, { });",
		R"(ExplicitToolTip),
		CPF_NativeAccessSpecifierPublic, { { TEXT("ToolTip"), TEXT("Given") }, { TEXT("Comment"), TEXT("/** Written above */") } });)",
	};
	for (const char* Line : Expected)
	{
		EXPECT_NE(Source.find(Line), std::string::npos) << "missing:\n" << Line << "\n\nin:\n" << Source;
	}
}

TEST(HeaderToolEnum, NamesEntriesByFormWithTheirMetadata)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("Enums.h")), 0) << Scratch.Errors;
	const std::string Source = Scratch.Output("Enums.gen.cpp");

	const char* Expected[] = {
		R"(template<> UEnum* StaticEnum<EPlayState>()
{
	static UEnum* Enum = ::UE::Reflection::ConstructEnum(TEXT("EPlayState"), TEXT("/Script/Fixtures"), {
		{ TEXT("EPlayState::Stopped"), static_cast<int64>(EPlayState::Stopped), { } },
		{ TEXT("EPlayState::Playing"), static_cast<int64>(EPlayState::Playing), { { TEXT("DisplayName"), TEXT("Now playing") } } },
		{ TEXT("EPlayState::Paused"), static_cast<int64>(EPlayState::Paused), { { TEXT("DisplayName"), TEXT("暂停") }, { TEXT("Hidden"), TEXT("") } } },
	}, { { TEXT("BlueprintType"), TEXT("true") } });)",
		R"(Z_Register_EPlayState([]() -> UObject* { return StaticEnum<EPlayState>(); });)",
		R"({ TEXT("KindB"), static_cast<int64>(KindB), { } },
	}, { });)",
		"template<> UEnum* StaticEnum<ESelectInfo::Type>()",
		R"({ TEXT("ESelectInfo::Direct"), static_cast<int64>(ESelectInfo::Direct), { } },)",
	};
	for (const char* Line : Expected)
	{
		EXPECT_NE(Source.find(Line), std::string::npos) << "missing:\n" << Line << "\n\nin:\n" << Source;
	}
}

TEST(HeaderToolStruct, RegistersBaseAndPropertiesWithPublicDefault)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("Structs.h")), 0) << Scratch.Errors;
	const std::string Header = Scratch.Output("Structs.generated.h");
	const std::string Source = Scratch.Output("Structs.gen.cpp");

	EXPECT_NE(Header.find("#define FID_Fixtures_Structs_h_8_GENERATED_BODY \\\n\tPLAIN_GENERATED_STRUCT_BODY(FCommentData)\n"), std::string::npos) << Header;
	EXPECT_NE(Header.find("#define FID_Fixtures_Structs_h_20_GENERATED_BODY \\\n\tPLAIN_GENERATED_STRUCT_BODY(FTimedCommentData)\n"), std::string::npos);
	const char* Expected[] = {
		R"(ConstructNativeStruct<FCommentData>(TEXT("CommentData"), TEXT("/Script/Fixtures"),
		nullptr, { { TEXT("BlueprintType"), TEXT("true") } });)",
		R"(Builder.AddProperty<decltype(FCommentData::Text)>(TEXT("Text"), TEXT("FString"), PLAIN_OFFSET_OF(FCommentData, Text),
		CPF_Edit | CPF_BlueprintVisible | CPF_NativeAccessSpecifierPublic, { { TEXT("Category"), TEXT("BulletChat") } });)",
		"CPF_SaveGame | CPF_NativeAccessSpecifierPublic, { });",
		R"(ConstructNativeStruct<FTimedCommentData>(TEXT("TimedCommentData"), TEXT("/Script/Fixtures"),
		&FCommentData::StaticStruct, { });)",
		"Lane),\n\t\tCPF_BlueprintVisible | CPF_BlueprintReadOnly | CPF_NativeAccessSpecifierPrivate, { });",
	};
	for (const char* Line : Expected)
	{
		EXPECT_NE(Source.find(Line), std::string::npos) << "missing:\n" << Line << "\n\nin:\n" << Source;
	}
}

TEST(HeaderToolDelegate, RegistersSignatureWithParamNamesAndTypes)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("Delegates.h")), 0) << Scratch.Errors;
	const std::string Source = Scratch.Output("Delegates.gen.cpp");

	const char* Expected[] = {
		R"(static ::UE::Reflection::FRegisterCompiledIn Z_Register_OnMediaEvent__DelegateSignature([]() -> UObject* {
	return ::UE::Reflection::ConstructDelegateSignature(TEXT("OnMediaEvent__DelegateSignature"), TEXT("/Script/Fixtures"),
		FUNC_Delegate | FUNC_MulticastDelegate,
		{ });
});)",
		R"(TEXT("OnVolumeChanged__DelegateSignature"), TEXT("/Script/Fixtures"),
		FUNC_Delegate | FUNC_MulticastDelegate,
		{ { TEXT("Value"), TEXT("float") } });)",
		R"(TEXT("OnAccept__DelegateSignature"), TEXT("/Script/Fixtures"),
		FUNC_Delegate,
		{ { TEXT("Options"), TEXT("const TMap<FString, int32>&") }, { TEXT("Sender"), TEXT("UObject*") }, { TEXT("ReturnValue"), TEXT("bool") } });)",
	};
	for (const char* Line : Expected)
	{
		EXPECT_NE(Source.find(Line), std::string::npos) << "missing:\n" << Line << "\n\nin:\n" << Source;
	}
}

TEST(HeaderToolSkipping, ReadsOnlyReflectedDeclarationsThroughOtherCode)
{
	FScratch Scratch;
	ASSERT_EQ(Scratch.Run(Fixture("SkippedCode.h")), 0) << Scratch.Errors;
	const std::string Header = Scratch.Output("SkippedCode.generated.h");
	const std::string Source = Scratch.Output("SkippedCode.gen.cpp");

	EXPECT_NE(Header.find("FID_Fixtures_SkippedCode_h_46_GENERATED_BODY \\\n\tPLAIN_GENERATED_CLASS_BODY(USkipped, UObject) \\\n\tpublic: \\\n"
						  "\tDECLARE_FUNCTION(execAfterNoise); \\\n\tprivate:\n"),
		std::string::npos)
		<< Header;
	// The older body macro declares the constructor and leaves access public.
	EXPECT_NE(Header.find("FID_Fixtures_SkippedCode_h_72_GENERATED_BODY \\\n\tPLAIN_GENERATED_CLASS_BODY(ULegacyBody, UObject) \\\n\tpublic: \\\n"
						  "\tULegacyBody(const FObjectInitializer& ObjectInitializer);\n"),
		std::string::npos)
		<< Header;

	const char* Expected[] = {
		"CLASS_Native | CLASS_Abstract, &UObject::StaticClass,",
		"PrivateByDefault),\n\t\tCPF_NativeAccessSpecifierPrivate, { });",
		R"(TEXT("TSubclassOf<UObject>"), PLAIN_OFFSET_OF(USkipped, NodeClass),
		CPF_NativeAccessSpecifierProtected, { });)",
		R"(Builder.AddFunction<void(const TArray<int32>&, int32)>(TEXT("AfterNoise"), &USkipped::execAfterNoise,)",
		"PublicAfterLegacyBody),\n\t\tCPF_NativeAccessSpecifierPublic, { });",
		"\treturn new ULegacyBody(ObjectInitializer);",
	};
	for (const char* Line : Expected)
	{
		EXPECT_NE(Source.find(Line), std::string::npos) << "missing:\n" << Line << "\n\nin:\n" << Source;
	}
	// A class with a pure virtual function cannot be made from C++.
	EXPECT_NE(FunctionText(Source, "UObject* USkipped::InternalConstructor(").find("return nullptr;"), std::string::npos);
	for (const char* Skipped : {"FPlain", "TPair", "FOpaque", "FNative", "LogSkipped", "ENested", "Find"})
	{
		EXPECT_EQ(Source.find(Skipped), std::string::npos) << Skipped;
	}
}

TEST(HeaderToolOutput, LeavesUnchangedFilesUntouchedAndKeepsThemOnError)
{
	FScratch Scratch;
	const fs::path Header = Scratch.Root / "Structs.h";
	fs::copy_file(Fixture("Structs.h"), Header);
	ASSERT_EQ(Scratch.Run(Header.string()), 0) << Scratch.Errors;
	const fs::path GeneratedHeader = Scratch.Out / "Structs.generated.h";
	const fs::path GeneratedSource = Scratch.Out / "Structs.gen.cpp";
	const std::string Source = ReadText(GeneratedSource);

	// Same input again: neither file is rewritten, so the build sees nothing new.
	const fs::file_time_type Old = fs::last_write_time(GeneratedHeader) - std::chrono::hours(1);
	fs::last_write_time(GeneratedHeader, Old);
	fs::last_write_time(GeneratedSource, Old);
	ASSERT_EQ(Scratch.Run(Header.string()), 0);
	EXPECT_EQ(fs::last_write_time(GeneratedHeader), Old);
	EXPECT_EQ(fs::last_write_time(GeneratedSource), Old);

	// A stale file is replaced; its unchanged sibling is still left alone.
	WriteText(GeneratedSource, "stale");
	ASSERT_EQ(Scratch.Run(Header.string()), 0);
	EXPECT_EQ(ReadText(GeneratedSource), Source);
	EXPECT_EQ(fs::last_write_time(GeneratedHeader), Old);

	// A header that no longer parses leaves the last good output as it was, with no temporaries.
	WriteText(Header, ReadText(Header) + "UPROPERTY()\nint32 Stray;\n");
	EXPECT_EQ(Scratch.Run(Header.string()), 1);
	EXPECT_EQ(ReadText(GeneratedSource), Source);
	EXPECT_EQ(std::distance(fs::directory_iterator(Scratch.Out), fs::directory_iterator()), 2);
}

TEST(HeaderToolErrors, ReportFileLineAndReasonAndWriteNothing)
{
	struct FCase
	{
		const char* File;
		int Line;
		const char* Reason;
	};
	const FCase Cases[] = {
		{"BadBitfield.h", 8, "bitfield properties are not supported"},
		{"BadFixedArray.h", 8, "fixed-size array properties are not supported"},
		{"BadStaticProperty.h", 8, "static properties are not supported"},
		{"BadUnnamedParameter.h", 9, "parameter 2 of 'Play' needs a name"},
		{"BadNoGeneratedBody.h", 4, "UCLASS 'UBadNoGeneratedBody' has no GENERATED_BODY()"},
		{"BadUnknownMacroArgument.h", 8, "unknown UPROPERTY macro argument 'Foo'"},
		{"BadDelegateArguments.h", 3, "DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams expects 5 arguments, got 3"},
		{"BadNamespace.h", 5, "reflected types must be declared at global scope"},
		{"BadMissingInclude.h", 3, "'BadMissingInclude.generated.h' must be included by a header with reflected types"},
		{"BadIncludeOrder.h", 2, "'CoreMinimal.h' is included after 'BadIncludeOrder.generated.h', which must be the last #include"},
		{"BadBaseClass.h", 4, "UCLASS 'UBadBaseClass' must have exactly one public base class"},
		{"BadUnterminatedComment.h", 3, "unterminated comment"},
		{"BadMissingValue.h", 7, "UPROPERTY macro argument 'Category' needs a value"},
		{"BadPlainClassProperty.h", 6, "UPROPERTY is only allowed inside a UCLASS or USTRUCT"},
	};
	for (const FCase& Case : Cases)
	{
		FScratch Scratch;
		const std::string Path = Fixture(Case.File);
		EXPECT_EQ(Scratch.Run(Path), 1) << Case.File;
		EXPECT_EQ(Scratch.Errors, Path + ":" + std::to_string(Case.Line) + ": error: " + Case.Reason + "\n");
		EXPECT_FALSE(fs::exists(Scratch.Out) && !fs::is_empty(Scratch.Out)) << Case.File;
	}
}
