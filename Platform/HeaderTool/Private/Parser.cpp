#include "Parser.h"

#include "DocComment.h"
#include "ParseError.h"
#include "MacroArguments.h"

#include <string_view>

namespace HeaderTool
{
	namespace
	{
		// One entry of a class's base list.
		struct BaseDecl
		{
			AccessLevel Access = AccessLevel::Private;
			std::string Name;
		};

		// Reads ": public A, B" up to the body's '{'. Default is the access of a base written without one.
		std::vector<BaseDecl> ParseBases(TokenCursor& Cursor, AccessLevel Default)
		{
			std::vector<BaseDecl> Bases;
			if (!Cursor.Match(":"))
			{
				return Bases;
			}
			do
			{
				BaseDecl Base{Default, ""};
				for (bool bQualifier = true; bQualifier;)
				{
					bQualifier = true;
					if (Cursor.Match("public"))
					{
						Base.Access = AccessLevel::Public;
					}
					else if (Cursor.Match("protected"))
					{
						Base.Access = AccessLevel::Protected;
					}
					else if (Cursor.Match("private"))
					{
						Base.Access = AccessLevel::Private;
					}
					else
					{
						bQualifier = Cursor.Match("virtual");
					}
				}
				std::vector<const Token*> Words;
				for (int Angle = 0; Angle > 0 || (!Cursor.Peek().Is(",") && !Cursor.Peek().Is("{"));)
				{
					if (Cursor.AtEnd() || Cursor.Peek().Is(";") || Cursor.Peek().Is("}"))
					{
						TokenCursor::Fail(Cursor.Peek(), "expected '{', found " + TokenCursor::Describe(Cursor.Peek()));
					}
					Angle += AngleDelta(Cursor.Peek());
					Words.push_back(&Cursor.Next());
				}
				if (Words.empty())
				{
					TokenCursor::Fail(Cursor.Peek(), "expected a base class name, found " + TokenCursor::Describe(Cursor.Peek()));
				}
				Base.Name = JoinTypeTokens(Words);
				Bases.push_back(std::move(Base));
			} while (Cursor.Match(","));
			return Bases;
		}

	}

	bool IsTypeMacro(const Token& Which)
	{
		return Which.IsIdentifier()
			&& (Which.Is("UCLASS") || Which.Is("USTRUCT") || Which.Is("UENUM") || Which.Is("UINTERFACE") || Which.Text.starts_with("DECLARE_DYNAMIC_"));
	}

	bool IsGeneratedBodyMacro(const Token& Which)
	{
		return Which.Is("GENERATED_BODY") || Which.Is("GENERATED_UCLASS_BODY") || Which.Is("GENERATED_USTRUCT_BODY");
	}

	bool IsReflectionMacro(const Token& Which)
	{
		return IsTypeMacro(Which) || IsGeneratedBodyMacro(Which) || Which.Is("UPROPERTY") || Which.Is("UFUNCTION");
	}

	void FailMisplaced(const Token& Macro)
	{
		if (IsTypeMacro(Macro))
		{
			TokenCursor::Fail(Macro, "reflected types must be declared at global scope");
		}
		TokenCursor::Fail(Macro, Macro.Text + " is only allowed inside a UCLASS or USTRUCT");
	}

	Parser::Parser(const TokenizedFile& InFile, std::string InStem)
		: File(InFile)
		, Cursor(InFile.Tokens)
		, Stem(std::move(InStem))
	{
	}

	FileDef Parser::Parse()
	{
		ParseDeclarations(0);
		if (!Cursor.AtEnd())
		{
			TokenCursor::Fail(Cursor.Peek(), "unexpected " + TokenCursor::Describe(Cursor.Peek()));
		}
		CheckGeneratedInclude();
		return std::move(Result);
	}

	void Parser::ParseDeclarations(int NamespaceDepth)
	{
		while (!Cursor.AtEnd() && !Cursor.Peek().Is("}"))
		{
			const Token& Current = Cursor.Peek();
			if (IsTypeMacro(Current) && NamespaceDepth == 0)
			{
				NoteReflected(Current);
				if (Current.Is("UCLASS"))
				{
					ParseClass();
				}
				else if (Current.Is("USTRUCT"))
				{
					ParseStruct();
				}
				else if (Current.Is("UENUM"))
				{
					ParseEnum();
				}
				else if (Current.Is("UINTERFACE"))
				{
					TokenCursor::Fail(Current, "UINTERFACE is not supported");
				}
				else
				{
					ParseDelegate();
				}
			}
			else if (IsReflectionMacro(Current))
			{
				FailMisplaced(Current);
			}
			else if (Current.Is("namespace") || (Current.Is("inline") && Cursor.Peek(1).Is("namespace")))
			{
				ParseNamespace(NamespaceDepth);
			}
			else if (Current.Is("extern") && Cursor.Peek(1).Kind == TokenKind::String && Cursor.Peek(2).Is("{"))
			{
				Cursor.Next();
				Cursor.Next();
				Cursor.Next();
				ParseDeclarations(NamespaceDepth);
				Cursor.Expect("}");
			}
			else if (Current.Is(";"))
			{
				Cursor.Next();
			}
			else if (Current.IsIdentifier() && Cursor.Peek(1).Is("("))
			{
				SkipMacroCall();
			}
			else
			{
				SkipDeclaration();
			}
		}
	}

	void Parser::ParseNamespace(int NamespaceDepth)
	{
		Cursor.Match("inline");
		Cursor.Expect("namespace");
		while (Cursor.Peek().IsIdentifier() || Cursor.Peek().Is("::"))
		{
			Cursor.Next();
		}
		if (Cursor.Match("="))
		{
			SkipUntilTopLevel({";"});
			Cursor.Expect(";");
			return;
		}
		Cursor.Expect("{");
		ParseDeclarations(NamespaceDepth + 1);
		Cursor.Expect("}");
	}

	void Parser::NoteReflected(const Token& Macro)
	{
		FirstReflectedLine = FirstReflectedLine == 0 ? Macro.Line : FirstReflectedLine;
	}

	void Parser::SkipApiMacros()
	{
		while (Cursor.Peek().IsIdentifier() && Cursor.Peek().Text.size() > 4 && Cursor.Peek().Text.ends_with("_API"))
		{
			Cursor.Next();
		}
	}

	void Parser::ParseClass()
	{
		const std::size_t MacroIndex = Cursor.Position();
		Cursor.Next();
		ClassDef Class;
		ApplyClassMacroArguments(ParseMacroArguments(Cursor), Class);
		Cursor.Expect("class");
		SkipApiMacros();
		const Token& Name = Cursor.ExpectIdentifier("a class name");
		if (Name.Text.size() < 2 || (Name.Text[0] != 'U' && Name.Text[0] != 'A'))
		{
			TokenCursor::Fail(Name, "UCLASS name '" + Name.Text + "' must start with 'U' or 'A'");
		}
		Cursor.Match("final");
		const std::vector<BaseDecl> Bases = ParseBases(Cursor, AccessLevel::Private);
		if (Bases.size() != 1 || Bases[0].Access != AccessLevel::Public)
		{
			TokenCursor::Fail(Name, "UCLASS '" + Name.Text + "' must have exactly one public base class");
		}
		TypeBody Body;
		Body.Name = Name.Text;
		ParseBody(Body);
		Cursor.Expect(";");
		if (Body.GeneratedBodyLine == 0)
		{
			TokenCursor::Fail(Name, "UCLASS '" + Name.Text + "' has no GENERATED_BODY()");
		}
		Class.Name = Name.Text;
		Class.SuperName = Bases[0].Name;
		Class.Line = Name.Line;
		Class.GeneratedBodyLine = Body.GeneratedBodyLine;
		Class.bLegacyBody = Body.bLegacyBody;
		Class.bHasObjectInitializerConstructor = Body.bHasObjectInitializerConstructor;
		Class.bHasPureVirtual = Body.bHasPureVirtual;
		Class.Properties = std::move(Body.Properties);
		Class.Functions = std::move(Body.Functions);
		AttachDocComment(File, MacroIndex, Class.Meta);
		Result.Classes.push_back(std::move(Class));
	}

	void Parser::ParseStruct()
	{
		const std::size_t MacroIndex = Cursor.Position();
		Cursor.Next();
		StructDef Struct;
		ApplyTypeMacroArguments(ParseMacroArguments(Cursor), "USTRUCT", Struct.Meta);
		Cursor.Expect("struct");
		SkipApiMacros();
		const Token& Name = Cursor.ExpectIdentifier("a struct name");
		if (Name.Text.size() < 2 || Name.Text[0] != 'F')
		{
			TokenCursor::Fail(Name, "USTRUCT name '" + Name.Text + "' must start with 'F'");
		}
		Cursor.Match("final");
		const std::vector<BaseDecl> Bases = ParseBases(Cursor, AccessLevel::Public);
		if (Bases.size() > 1)
		{
			TokenCursor::Fail(Name, "USTRUCT '" + Name.Text + "' may have at most one base struct");
		}
		TypeBody Body;
		Body.Name = Name.Text;
		Body.MacroName = "USTRUCT";
		Body.bClass = false;
		Body.Access = AccessLevel::Public;
		ParseBody(Body);
		Cursor.Expect(";");
		if (Body.GeneratedBodyLine == 0)
		{
			TokenCursor::Fail(Name, "USTRUCT '" + Name.Text + "' has no GENERATED_BODY()");
		}
		Struct.Name = Name.Text;
		Struct.SuperName = Bases.empty() ? std::string() : Bases[0].Name;
		Struct.Line = Name.Line;
		Struct.GeneratedBodyLine = Body.GeneratedBodyLine;
		Struct.Properties = std::move(Body.Properties);
		AttachDocComment(File, MacroIndex, Struct.Meta);
		Result.Structs.push_back(std::move(Struct));
	}

	void Parser::ParseEnum()
	{
		const std::size_t MacroIndex = Cursor.Position();
		Cursor.Next();
		EnumDef Enum;
		ApplyTypeMacroArguments(ParseMacroArguments(Cursor), "UENUM", Enum.Meta);
		const bool bNamespaced = Cursor.Match("namespace");
		if (bNamespaced)
		{
			const Token& Name = Cursor.ExpectIdentifier("an enum namespace name");
			Cursor.Expect("{");
			Cursor.Expect("enum");
			const Token& Inner = Cursor.ExpectIdentifier("an enum name");
			Enum.Name = Name.Text;
			Enum.CppType = Name.Text + "::" + Inner.Text;
			Enum.Form = EnumForm::Namespaced;
			Enum.Line = Name.Line;
		}
		else
		{
			Cursor.Expect("enum");
			const bool bScoped = Cursor.Match("class") || Cursor.Match("struct");
			const Token& Name = Cursor.ExpectIdentifier("an enum name");
			Enum.Name = Name.Text;
			Enum.CppType = Name.Text;
			Enum.Form = bScoped ? EnumForm::EnumClass : EnumForm::Plain;
			Enum.Line = Name.Line;
		}
		if (Cursor.Match(":"))
		{
			SkipUntilTopLevel({"{", ";"});
		}
		ParseEnumerators(Enum);
		Cursor.Expect(";");
		if (bNamespaced)
		{
			Cursor.Expect("}");
		}
		AttachDocComment(File, MacroIndex, Enum.Meta);
		Result.Enums.push_back(std::move(Enum));
	}

	void Parser::ParseEnumerators(EnumDef& Enum)
	{
		Cursor.Expect("{");
		while (!Cursor.Match("}"))
		{
			EnumeratorDef Entry;
			Entry.Name = Cursor.ExpectIdentifier("an enumerator name").Text;
			if (Cursor.Match("="))
			{
				SkipUntilTopLevel({",", "}", "UMETA"});
			}
			if (Cursor.Match("UMETA"))
			{
				ApplyEnumeratorMeta(ParseMacroArguments(Cursor), Entry.Meta);
			}
			Enum.Enumerators.push_back(std::move(Entry));
			if (!Cursor.Match(","))
			{
				Cursor.Expect("}");
				break;
			}
		}
	}

	void Parser::CheckGeneratedInclude() const
	{
		if (FirstReflectedLine == 0)
		{
			return;
		}
		const std::string Expected = Stem + ".generated.h";
		const IncludeDirective* Generated = nullptr;
		for (const IncludeDirective& Include : File.Includes)
		{
			const std::size_t Slash = Include.Path.find_last_of('/');
			if (Generated)
			{
				throw ParseError(Include.Line, "'" + Include.Path + "' is included after '" + Expected + "', which must be the last #include");
			}
			if ((Slash == std::string::npos ? Include.Path : Include.Path.substr(Slash + 1)) == Expected)
			{
				Generated = &Include;
			}
		}
		if (!Generated)
		{
			throw ParseError(FirstReflectedLine, "'" + Expected + "' must be included by a header with reflected types");
		}
	}
}
