#pragma once

#include "Defs.h"
#include "TokenCursor.h"
#include "Tokenizer.h"

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

namespace HeaderTool
{
	/**
	 * Reads the reflected declarations of one tokenized header into a FileDef and steps over all
	 * other C++ without understanding it. One Parser reads one file once; every error throws
	 * ParseError with the line it is about, so a header either parses whole or not at all.
	 */
	class Parser
	{
	public:
		/** Stem is the header's file name without ".h"; it names the generated header it must include. */
		Parser(const TokenizedFile& InFile, std::string InStem);

		FileDef Parse();

	private:
		// What the body of a UCLASS or USTRUCT yields while it is being read.
		struct TypeBody
		{
			std::string Name;
			const char* MacroName = "UCLASS";
			bool bClass = true;
			AccessLevel Access = AccessLevel::Private;
			int GeneratedBodyLine = 0;
			bool bLegacyBody = false;
			bool bHasObjectInitializerConstructor = false;
			bool bHasPureVirtual = false;
			std::vector<PropertyDef> Properties;
			std::vector<FunctionDef> Functions;
		};

		// File scope (Parser.cpp).
		void ParseDeclarations(int NamespaceDepth);
		void ParseNamespace(int NamespaceDepth);
		void ParseClass();
		void ParseStruct();
		void ParseEnum();
		void ParseEnumerators(EnumDef& Enum);
		void ParseDelegate();
		void CheckGeneratedInclude() const;
		void NoteReflected(const Token& Macro);
		void SkipApiMacros();

		// Bodies and their members (ParserMembers.cpp).
		void ParseBody(TypeBody& Body);
		void ParseGeneratedBody(TypeBody& Body);
		void ParseProperty(TypeBody& Body, bool bDeprecated);
		void ParseFunction(TypeBody& Body, bool bDeprecated);
		bool SkipDeprecationMacro();
		void ParseParameters(FunctionDef& Function);
		bool IsConstructorStart(const TypeBody& Body, bool& bTakesObjectInitializer) const;

		// What is stepped over (ParserSkip.cpp).
		bool SkipDeclaration();
		void SkipMacroCall();
		void SkipInitializerList();
		void SkipDefaultArgument();
		void SkipUntilTopLevel(std::initializer_list<const char*> Stops);
		void CheckNothingReflectedIn(const std::vector<const Token*>& Skipped) const;

		// The header being read.
		const TokenizedFile& File;
		// Read position in File.Tokens.
		TokenCursor Cursor;
		// The header's name without ".h".
		std::string Stem;
		// Line of the first reflected declaration; 0 while none has been seen.
		int FirstReflectedLine = 0;
		// What has been read so far.
		FileDef Result;
	};

	/** UCLASS, USTRUCT, UENUM, UINTERFACE and DECLARE_DYNAMIC_*: what must sit at global scope. */
	bool IsTypeMacro(const Token& Which);

	/** GENERATED_BODY and its older spellings. */
	bool IsGeneratedBodyMacro(const Token& Which);

	/** Any macro the parser acts on; skipping over plain C++ always stops in front of one. */
	bool IsReflectionMacro(const Token& Which);

	/** Reports a reflection macro found where it cannot be: in a namespace, a plain class, a function. */
	[[noreturn]] void FailMisplaced(const Token& Macro);
}
