// DECLARE_DYNAMIC_*DELEGATE* macros: the macro's name says how many arguments follow.

#include "Parser.h"

#include <array>
#include <string_view>

namespace HeaderTool
{
	namespace
	{
		// Splits a macro's arguments at the commas that are outside brackets and template arguments.
		std::vector<std::vector<const Token*>> SplitArguments(const std::vector<const Token*>& Inside)
		{
			std::vector<std::vector<const Token*>> Arguments;
			if (Inside.empty())
			{
				return Arguments;
			}
			Arguments.emplace_back();
			int Depth = 0;
			for (const Token* Current : Inside)
			{
				if (Depth == 0 && Current->Is(","))
				{
					Arguments.emplace_back();
					continue;
				}
				const bool bOpen = Current->Is("(") || Current->Is("[") || Current->Is("{");
				const bool bClose = Current->Is(")") || Current->Is("]") || Current->Is("}");
				Depth += (bOpen ? 1 : 0) - (bClose ? 1 : 0) + AngleDelta(*Current);
				Arguments.back().push_back(Current);
			}
			return Arguments;
		}

		// The number of parameters a delegate macro's suffix names: "" 0, "_OneParam" 1, "_TwoParams" 2...
		int CountFromSuffix(std::string_view Suffix)
		{
			static constexpr std::array<std::string_view, 9> Words = {"One", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight", "Nine"};
			if (Suffix.empty())
			{
				return 0;
			}
			for (std::size_t Index = 0; Index < Words.size(); ++Index)
			{
				const std::string Expected = "_" + std::string(Words[Index]) + (Index == 0 ? "Param" : "Params");
				if (Suffix == Expected)
				{
					return static_cast<int>(Index) + 1;
				}
			}
			return -1;
		}

		std::string SingleIdentifier(const std::vector<const Token*>& Argument, const Token& Macro, const char* What)
		{
			if (Argument.size() != 1 || !Argument[0]->IsIdentifier())
			{
				TokenCursor::Fail(Argument.empty() ? Macro : *Argument[0], std::string("expected ") + What + ", found '" + JoinTypeTokens(Argument) + "'");
			}
			return Argument[0]->Text;
		}
	}

	void Parser::ParseDelegate()
	{
		const Token& Macro = Cursor.Next();
		DelegateDef Delegate;
		Delegate.Line = Macro.Line;
		std::string_view Suffix = Macro.Text;
		constexpr std::string_view Multicast = "DECLARE_DYNAMIC_MULTICAST_DELEGATE";
		constexpr std::string_view Single = "DECLARE_DYNAMIC_DELEGATE";
		Delegate.bMulticast = Suffix.starts_with(Multicast);
		if (!Delegate.bMulticast && !Suffix.starts_with(Single))
		{
			TokenCursor::Fail(Macro, "unknown delegate macro '" + Macro.Text + "'");
		}
		Suffix.remove_prefix(Delegate.bMulticast ? Multicast.size() : Single.size());
		const bool bRetVal = !Delegate.bMulticast && Suffix.starts_with("_RetVal");
		Suffix.remove_prefix(bRetVal ? 7 : 0);
		const int Count = CountFromSuffix(Suffix);
		if (Count < 0)
		{
			TokenCursor::Fail(Macro, "unknown delegate macro '" + Macro.Text + "'");
		}
		const std::size_t Expected = (bRetVal ? 2 : 1) + 2 * static_cast<std::size_t>(Count);
		const std::vector<std::vector<const Token*>> Arguments = SplitArguments(Cursor.SkipBalanced());
		if (Arguments.size() != Expected)
		{
			TokenCursor::Fail(Macro, Macro.Text + " expects " + std::to_string(Expected) + " arguments, got " + std::to_string(Arguments.size()));
		}
		std::size_t Next = 0;
		if (bRetVal)
		{
			if (Arguments[0].empty())
			{
				TokenCursor::Fail(Macro, "expected a return type, found ''");
			}
			Delegate.ReturnType = JoinTypeTokens(Arguments[Next++]);
		}
		Delegate.Name = SingleIdentifier(Arguments[Next++], Macro, "a delegate name");
		if (Delegate.Name.size() < 2 || Delegate.Name[0] != 'F')
		{
			TokenCursor::Fail(Macro, "delegate type '" + Delegate.Name + "' must start with 'F'");
		}
		for (int Index = 0; Index < Count; ++Index)
		{
			ParamDef Param;
			if (Arguments[Next].empty())
			{
				TokenCursor::Fail(Macro, "expected a parameter type, found ''");
			}
			Param.Type = JoinTypeTokens(Arguments[Next++]);
			Param.Name = SingleIdentifier(Arguments[Next++], Macro, "a parameter name");
			Delegate.Params.push_back(std::move(Param));
		}
		Cursor.Match(";");
		Result.Delegates.push_back(std::move(Delegate));
	}
}
