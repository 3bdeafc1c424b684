// The bodies of UCLASS and USTRUCT: access tracking, GENERATED_BODY, UPROPERTY and UFUNCTION.

#include "DocComment.h"
#include "Parser.h"
#include "MacroArguments.h"

namespace HeaderTool
{
	namespace
	{
		// Words that may precede a member function's return type without being part of it.
		bool IsFunctionQualifier(const Token& Which)
		{
			return Which.Is("inline") || Which.Is("FORCEINLINE") || Which.Is("FORCENOINLINE") || Which.Is("constexpr")
				|| Which.Is("explicit") || (Which.IsIdentifier() && Which.Text.size() > 4 && Which.Text.ends_with("_API"));
		}

		bool IsAccessLabel(const Token& Which, AccessLevel& Access)
		{
			if (Which.Is("public") || Which.Is("protected") || Which.Is("private"))
			{
				Access = Which.Is("public") ? AccessLevel::Public : (Which.Is("protected") ? AccessLevel::Protected : AccessLevel::Private);
				return true;
			}
			return false;
		}
	}

	void Parser::ParseBody(TypeBody& Body)
	{
		Cursor.Expect("{");
		// Set by a UE_DEPRECATED(...) in front of the member declared next.
		bool bDeprecatedNext = false;
		while (!Cursor.Match("}"))
		{
			const bool bDeprecated = bDeprecatedNext;
			bDeprecatedNext = false;
			const Token& Current = Cursor.Peek();
			AccessLevel Access = Body.Access;
			bool bTakesObjectInitializer = false;
			if (Current.Kind == TokenKind::End)
			{
				TokenCursor::Fail(Current, "unexpected end of file in the body of '" + Body.Name + "'");
			}
			else if (Current.Is(";"))
			{
				Cursor.Next();
			}
			else if (Cursor.Peek(1).Is(":") && IsAccessLabel(Current, Access))
			{
				Body.Access = Access;
				Cursor.Next();
				Cursor.Next();
			}
			else if (SkipDeprecationMacro())
			{
				bDeprecatedNext = true;
			}
			else if (Current.Is("UPROPERTY"))
			{
				ParseProperty(Body, bDeprecated);
			}
			else if (Current.Is("UFUNCTION"))
			{
				ParseFunction(Body, bDeprecated);
			}
			else if (IsGeneratedBodyMacro(Current))
			{
				ParseGeneratedBody(Body);
			}
			else if (Current.Text.starts_with("DECLARE_DYNAMIC_"))
			{
				ParseDelegate();
			}
			else if (IsReflectionMacro(Current))
			{
				FailMisplaced(Current);
			}
			else if (IsConstructorStart(Body, bTakesObjectInitializer))
			{
				Body.bHasObjectInitializerConstructor = Body.bHasObjectInitializerConstructor || bTakesObjectInitializer;
				SkipDeclaration();
			}
			else if (Current.IsIdentifier() && Cursor.Peek(1).Is("("))
			{
				SkipMacroCall();
			}
			else
			{
				Body.bHasPureVirtual = SkipDeclaration() || Body.bHasPureVirtual;
			}
		}
	}

	void Parser::ParseGeneratedBody(TypeBody& Body)
	{
		const Token& Macro = Cursor.Next();
		if (Body.GeneratedBodyLine != 0)
		{
			TokenCursor::Fail(Macro, "'" + Body.Name + "' has more than one GENERATED_BODY()");
		}
		Body.GeneratedBodyLine = Macro.Line;
		Body.bLegacyBody = Body.bClass && Macro.Is("GENERATED_UCLASS_BODY");
		Cursor.SkipBalanced();
		Cursor.Match(";");
		// The class body macro ends in "private:", the legacy one and the struct one in "public:".
		Body.Access = (!Body.bClass || Body.bLegacyBody) ? AccessLevel::Public : AccessLevel::Private;
	}

	bool Parser::IsConstructorStart(const TypeBody& Body, bool& bTakesObjectInitializer) const
	{
		std::size_t Offset = 0;
		while (IsFunctionQualifier(Cursor.Peek(Offset)))
		{
			++Offset;
		}
		if (!Cursor.Peek(Offset).Is(Body.Name) || !Cursor.Peek(Offset + 1).Is("("))
		{
			return false;
		}
		// Only the first parameter decides: UName(const FObjectInitializer& ObjectInitializer = ...).
		int Depth = 0;
		for (std::size_t Ahead = Offset + 2; Cursor.Peek(Ahead).Kind != TokenKind::End; ++Ahead)
		{
			const Token& Current = Cursor.Peek(Ahead);
			if (Depth == 0 && (Current.Is(",") || Current.Is(")")))
			{
				break;
			}
			Depth += (Current.Is("(") || Current.Is("[") || Current.Is("{")) ? 1 : 0;
			Depth -= (Current.Is(")") || Current.Is("]") || Current.Is("}")) ? 1 : 0;
			bTakesObjectInitializer = bTakesObjectInitializer || Current.Is("FObjectInitializer");
		}
		return true;
	}

	bool Parser::SkipDeprecationMacro()
	{
		if (!Cursor.Peek().Is("UE_DEPRECATED") || !Cursor.Peek(1).Is("("))
		{
			return false;
		}
		Cursor.Next();
		Cursor.SkipBalanced();
		return true;
	}

	void Parser::ParseProperty(TypeBody& Body, bool bDeprecated)
	{
		const std::size_t MacroIndex = Cursor.Position();
		Cursor.Next();
		PropertyDef Property;
		Property.Access = Body.Access;
		ApplyPropertyMacroArguments(ParseMacroArguments(Cursor), Property);
		// The engine writes UE_DEPRECATED either in front of UPROPERTY or between it and the type.
		Property.bDeprecated = SkipDeprecationMacro() || bDeprecated;
		Cursor.Match("mutable");
		std::vector<const Token*> Words;
		for (int Angle = 0;;)
		{
			const Token& Current = Cursor.Peek();
			if (Current.Kind == TokenKind::End)
			{
				TokenCursor::Fail(Current, "unexpected end of file in a UPROPERTY declaration");
			}
			if (Current.Is("static"))
			{
				TokenCursor::Fail(Current, "static properties are not supported");
			}
			if (Angle <= 0)
			{
				if (Current.Is(";") || Current.Is("=") || Current.Is("{"))
				{
					break;
				}
				if (Current.Is(":"))
				{
					TokenCursor::Fail(Current, "bitfield properties are not supported");
				}
				if (Current.Is("["))
				{
					TokenCursor::Fail(Current, "fixed-size array properties are not supported");
				}
				if (Current.Is(","))
				{
					TokenCursor::Fail(Current, "a UPROPERTY declares exactly one variable");
				}
				if (Current.Is("(") || Current.Is(")") || Current.Is("}"))
				{
					TokenCursor::Fail(Current, "unexpected " + TokenCursor::Describe(Current) + " in a UPROPERTY declaration");
				}
			}
			Angle += AngleDelta(Current);
			Words.push_back(&Cursor.Next());
		}
		if (Words.size() < 2 || !Words.back()->IsIdentifier() || IsTypeKeyword(Words.back()->Text))
		{
			TokenCursor::Fail(Cursor.Peek(), "expected a type and a name after UPROPERTY, found " + TokenCursor::Describe(Cursor.Peek()));
		}
		Property.Name = Words.back()->Text;
		Property.Line = Words.back()->Line;
		Words.pop_back();
		Property.Type = JoinTypeTokens(Words);
		if (Cursor.Match("="))
		{
			SkipUntilTopLevel({";"});
		}
		else if (Cursor.Peek().Is("{"))
		{
			Cursor.SkipBalanced();
		}
		Cursor.Expect(";");
		AttachDocComment(File, MacroIndex, Property.Meta);
		Body.Properties.push_back(std::move(Property));
	}

	void Parser::ParseFunction(TypeBody& Body, bool bDeprecated)
	{
		const std::size_t MacroIndex = Cursor.Position();
		const Token& Macro = Cursor.Next();
		if (!Body.bClass)
		{
			TokenCursor::Fail(Macro, "UFUNCTION is not allowed in a USTRUCT");
		}
		FunctionDef Function;
		Function.Access = Body.Access;
		ApplyFunctionMacroArguments(ParseMacroArguments(Cursor), Function);
		Function.bDeprecated = SkipDeprecationMacro() || bDeprecated;
		for (;; Cursor.Next())
		{
			if (Cursor.Peek().Is("virtual"))
			{
				Function.bVirtual = true;
			}
			else if (Cursor.Peek().Is("static"))
			{
				Function.bStatic = true;
			}
			else if (!IsFunctionQualifier(Cursor.Peek()))
			{
				break;
			}
		}
		std::vector<const Token*> ReturnWords;
		for (int Angle = 0; Angle > 0 || !(Cursor.Peek().IsIdentifier() && Cursor.Peek(1).Is("("));)
		{
			const Token& Current = Cursor.Peek();
			if (Current.Kind == TokenKind::End || Current.Is(";") || Current.Is("{") || Current.Is("}") || (Angle <= 0 && Current.Is("(")))
			{
				TokenCursor::Fail(Current, "expected a member function declaration after UFUNCTION, found " + TokenCursor::Describe(Current));
			}
			Angle += AngleDelta(Current);
			ReturnWords.push_back(&Cursor.Next());
		}
		const Token& Name = Cursor.Next();
		if (ReturnWords.empty())
		{
			TokenCursor::Fail(Name, "UFUNCTION '" + Name.Text + "' needs a return type");
		}
		for (const FunctionDef& Other : Body.Functions)
		{
			if (Other.Name == Name.Text)
			{
				TokenCursor::Fail(Name, "UFUNCTION '" + Name.Text + "' is declared twice; reflected functions cannot be overloaded");
			}
		}
		Function.Name = Name.Text;
		Function.Line = Name.Line;
		Function.ReturnType = JoinTypeTokens(ReturnWords);
		ParseParameters(Function);
		for (bool bQualifier = true; bQualifier;)
		{
			bQualifier = true;
			if (Cursor.Match("const"))
			{
				Function.bConst = true;
			}
			else if (Cursor.Match("final"))
			{
				Function.bFinal = true;
			}
			else if (Cursor.Match("noexcept"))
			{
				if (Cursor.Peek().Is("("))
				{
					Cursor.SkipBalanced();
				}
			}
			else if (Cursor.Match("="))
			{
				Cursor.Expect("0");
				Body.bHasPureVirtual = true;
			}
			else
			{
				bQualifier = Cursor.Match("override");
			}
		}
		if (Cursor.Peek().Is("{"))
		{
			Cursor.SkipBalanced();
			Cursor.Match(";");
		}
		else if (!Cursor.Match(";"))
		{
			TokenCursor::Fail(Cursor.Peek(), "expected ';' or a body after the declaration of '" + Function.Name + "', found " + TokenCursor::Describe(Cursor.Peek()));
		}
		AttachDocComment(File, MacroIndex, Function.Meta);
		Body.Functions.push_back(std::move(Function));
	}

	void Parser::ParseParameters(FunctionDef& Function)
	{
		Cursor.Expect("(");
		if (Cursor.Peek().Is("void") && Cursor.Peek(1).Is(")"))
		{
			Cursor.Next();
		}
		if (Cursor.Match(")"))
		{
			return;
		}
		for (int Number = 1;; ++Number)
		{
			std::vector<const Token*> Words;
			for (int Angle = 0;;)
			{
				const Token& Current = Cursor.Peek();
				if (Current.Is("UPARAM"))
				{
					Cursor.Next();
					Cursor.SkipBalanced();
					continue;
				}
				if (Angle <= 0 && (Current.Is(",") || Current.Is(")") || Current.Is("=")))
				{
					break;
				}
				const bool bBracket = Current.Is("(") || Current.Is("[") || Current.Is("...");
				if (Current.Kind == TokenKind::End || Current.Is(";") || Current.Is("{") || Current.Is("}") || (Angle <= 0 && bBracket))
				{
					TokenCursor::Fail(Current, "unexpected " + TokenCursor::Describe(Current) + " in the parameters of '" + Function.Name + "'");
				}
				Angle += AngleDelta(Current);
				Words.push_back(&Cursor.Next());
			}
			if (Words.size() < 2 || !Words.back()->IsIdentifier() || IsTypeKeyword(Words.back()->Text))
			{
				TokenCursor::Fail(Words.empty() ? Cursor.Peek() : *Words.back(),
					"parameter " + std::to_string(Number) + " of '" + Function.Name + "' needs a name");
			}
			ParamDef Param;
			Param.Name = Words.back()->Text;
			Words.pop_back();
			Param.Type = JoinTypeTokens(Words);
			if (Cursor.Match("="))
			{
				Param.bHasDefault = true;
				SkipDefaultArgument();
			}
			Function.Params.push_back(std::move(Param));
			if (!Cursor.Match(","))
			{
				Cursor.Expect(")");
				return;
			}
		}
	}
}
