// Stepping over the C++ that is not reflected. None of this understands the code: it balances
// brackets and finds where a declaration ends, and it never steps over a reflection macro, so a
// misread declaration cannot swallow the UCLASS or UPROPERTY that follows it.

#include "Parser.h"

#include <string_view>

namespace HeaderTool
{
	namespace
	{
		// What may stand between a function's parameter list and "= 0".
		bool EndsSignature(std::string_view Previous)
		{
			return Previous == ")" || Previous == "const" || Previous == "override" || Previous == "final"
				|| Previous == "noexcept" || Previous == "volatile" || Previous == "&" || Previous == "&&";
		}
	}

	bool Parser::SkipDeclaration()
	{
		// A parameter list was seen outside an initializer, so a '{' opens a function body.
		bool bFunction = false;
		// After '=': braces and parentheses belong to the value.
		bool bInitializer = false;
		bool bPure = false;
		std::string_view Previous;
		for (bool bFirst = true;; bFirst = false)
		{
			const Token& Current = Cursor.Peek();
			const bool bCloser = Current.Is("}") || Current.Is(")") || Current.Is("]");
			if (Current.Kind == TokenKind::End || bCloser || (!bFirst && IsReflectionMacro(Current)))
			{
				if (bFirst && Current.Kind != TokenKind::End)
				{
					TokenCursor::Fail(Current, "unexpected " + TokenCursor::Describe(Current));
				}
				return bPure;
			}
			if (Current.Is(";"))
			{
				Cursor.Next();
				return bPure;
			}
			if (Current.Is("{"))
			{
				CheckNothingReflectedIn(Cursor.SkipBalanced());
				if (Cursor.Match(";") || bFirst || (bFunction && !bInitializer))
				{
					return bPure;
				}
				Previous = "}";
				continue;
			}
			if (Current.Is("(") || Current.Is("["))
			{
				bFunction = bFunction || (Current.Is("(") && !bInitializer);
				Previous = Current.Is("(") ? ")" : "]";
				CheckNothingReflectedIn(Cursor.SkipBalanced());
				continue;
			}
			if (Current.Is(":") && Previous == ")" && !bInitializer)
			{
				Cursor.Next();
				SkipInitializerList();
				continue;
			}
			if (Current.Is("operator"))
			{
				// The operator's own symbol, "()" included, is part of its name.
				Cursor.Next();
				if (Cursor.Peek().Is("(") && Cursor.Peek(1).Is(")"))
				{
					Cursor.Next();
				}
				while (!Cursor.AtEnd() && !Cursor.Peek().Is("(") && !Cursor.Peek().Is(";"))
				{
					Cursor.Next();
				}
				Previous = "operator";
				continue;
			}
			if (Current.Is("="))
			{
				bPure = bPure || (EndsSignature(Previous) && Cursor.Peek(1).Is("0") && Cursor.Peek(2).Is(";"));
				bInitializer = true;
			}
			Previous = Current.Text;
			Cursor.Next();
		}
	}

	void Parser::SkipMacroCall()
	{
		Cursor.Next();
		CheckNothingReflectedIn(Cursor.SkipBalanced());
		// A function defined without a return type (a macro-made signature) brings its body along.
		if (Cursor.Peek().Is("{"))
		{
			CheckNothingReflectedIn(Cursor.SkipBalanced());
		}
		Cursor.Match(";");
	}

	void Parser::SkipInitializerList()
	{
		for (;;)
		{
			for (int Angle = 0; Angle > 0 || (!Cursor.Peek().Is("(") && !Cursor.Peek().Is("{"));)
			{
				const Token& Current = Cursor.Peek();
				if (Current.Kind == TokenKind::End || Current.Is(";") || Current.Is("}") || IsReflectionMacro(Current))
				{
					return;
				}
				Angle += AngleDelta(Current);
				Cursor.Next();
			}
			CheckNothingReflectedIn(Cursor.SkipBalanced());
			if (!Cursor.Match(","))
			{
				return;
			}
		}
	}

	void Parser::SkipDefaultArgument()
	{
		// '<' only opens template arguments right after a name; a comparison would not close it.
		int Angle = 0;
		const Token* Previous = nullptr;
		for (;;)
		{
			const Token& Current = Cursor.Peek();
			if (Current.Kind == TokenKind::End || Current.Is(")") || Current.Is(";") || Current.Is("}") || (Angle <= 0 && Current.Is(",")))
			{
				return;
			}
			if (Current.Is("(") || Current.Is("[") || Current.Is("{"))
			{
				Cursor.SkipBalanced();
				Previous = nullptr;
				continue;
			}
			if (Current.Is("<") && Previous && Previous->IsIdentifier())
			{
				++Angle;
			}
			else if (Angle > 0 && (Current.Is(">") || Current.Is(">>")))
			{
				Angle += AngleDelta(Current);
			}
			Previous = &Cursor.Next();
		}
	}

	void Parser::SkipUntilTopLevel(std::initializer_list<const char*> Stops)
	{
		for (;;)
		{
			const Token& Current = Cursor.Peek();
			for (const char* Stop : Stops)
			{
				if (Current.Is(Stop))
				{
					return;
				}
			}
			if (Current.Kind == TokenKind::End || Current.Is(")") || Current.Is("]") || Current.Is("}"))
			{
				return;
			}
			if (Current.Is("(") || Current.Is("[") || Current.Is("{"))
			{
				CheckNothingReflectedIn(Cursor.SkipBalanced());
			}
			else
			{
				Cursor.Next();
			}
		}
	}

	void Parser::CheckNothingReflectedIn(const std::vector<const Token*>& Skipped) const
	{
		for (const Token* Current : Skipped)
		{
			if (IsReflectionMacro(*Current))
			{
				FailMisplaced(*Current);
			}
		}
	}
}
