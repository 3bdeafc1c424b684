#include "MacroArguments.h"

#include "ParseError.h"
#include "StringLiteral.h"
#include "TokenCursor.h"

#include <initializer_list>
#include <string_view>

namespace HeaderTool
{
	namespace
	{
		// What one macro argument means. A metadata value of "$" stands for the macro argument's own value.
		struct Rule
		{
			std::string_view Name;
			bool bTakesValue;
			std::initializer_list<const char*> Flags;
			std::initializer_list<std::pair<const char*, const char*>> Meta;
		};

		bool EqualsIgnoringCase(std::string_view A, std::string_view B)
		{
			if (A.size() != B.size())
			{
				return false;
			}
			for (std::size_t Index = 0; Index < A.size(); ++Index)
			{
				const auto Lower = [](char C) { return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C; };
				if (Lower(A[Index]) != Lower(B[Index]))
				{
					return false;
				}
			}
			return true;
		}

		MacroArgument ParseItem(TokenCursor& Cursor)
		{
			MacroArgument Item;
			const Token& Name = Cursor.ExpectIdentifier("a macro argument name");
			Item.Name = Name.Text;
			Item.Line = Name.Line;
			if (!Cursor.Match("="))
			{
				return Item;
			}
			Item.bHasValue = true;
			if (Cursor.Peek().Is("("))
			{
				Item.bIsList = true;
				Item.List = ParseMacroArguments(Cursor);
				for (const MacroArgument& Nested : Item.List)
				{
					Item.Value += (Item.Value.empty() ? "" : " ") + Nested.Name;
				}
				return Item;
			}
			std::vector<const Token*> Words;
			bool bAllStrings = true;
			while (!Cursor.Peek().Is(",") && !Cursor.Peek().Is(")"))
			{
				if (Cursor.AtEnd() || Cursor.Peek().Is("(") || Cursor.Peek().Is(";"))
				{
					TokenCursor::Fail(Cursor.Peek(), "unexpected " + TokenCursor::Describe(Cursor.Peek()) + " in the value of '" + Item.Name + "'");
				}
				bAllStrings = bAllStrings && Cursor.Peek().Kind == TokenKind::String;
				Words.push_back(&Cursor.Next());
			}
			if (Words.empty())
			{
				TokenCursor::Fail(Cursor.Peek(), "expected a value for '" + Item.Name + "'");
			}
			if (bAllStrings)
			{
				for (const Token* Literal : Words)
				{
					Item.Value += DecodeStringLiteral(Literal->Text);
				}
			}
			else
			{
				Item.Value = JoinTypeTokens(Words);
			}
			return Item;
		}

		void ApplyMeta(const MacroArgument& Meta, const char* MacroName, MetaData& Out)
		{
			if (!Meta.bIsList)
			{
				throw ParseError(Meta.Line, std::string(MacroName) + " metadata must be a list: meta=(Key, Key=\"Value\")");
			}
			for (const MacroArgument& Item : Meta.List)
			{
				Out.Set(Item.Name, Item.Value);
			}
		}

		// Applies MacroArguments by Rules; meta=(...) is known to every macro.
		void Apply(const std::vector<MacroArgument>& MacroArguments, const char* MacroName, std::initializer_list<Rule> Rules,
			std::set<std::string>& Flags, MetaData& Meta)
		{
			for (const MacroArgument& Item : MacroArguments)
			{
				if (EqualsIgnoringCase(Item.Name, "meta"))
				{
					ApplyMeta(Item, MacroName, Meta);
					continue;
				}
				const Rule* Found = nullptr;
				for (const Rule& Candidate : Rules)
				{
					Found = EqualsIgnoringCase(Item.Name, Candidate.Name) ? &Candidate : Found;
				}
				const std::string Quoted = std::string(MacroName) + " macro argument '" + Item.Name + "'";
				if (!Found)
				{
					throw ParseError(Item.Line, "unknown " + Quoted);
				}
				if (Found->bTakesValue != Item.bHasValue)
				{
					throw ParseError(Item.Line, Quoted + (Item.bHasValue ? " takes no value" : " needs a value"));
				}
				for (const char* Flag : Found->Flags)
				{
					Flags.insert(Flag);
				}
				for (const std::pair<const char*, const char*>& Pair : Found->Meta)
				{
					Meta.Set(Pair.first, std::string_view(Pair.second) == "$" ? Item.Value : Pair.second);
				}
			}
		}
	}

	std::vector<MacroArgument> ParseMacroArguments(TokenCursor& Cursor)
	{
		std::vector<MacroArgument> Items;
		Cursor.Expect("(");
		while (!Cursor.Match(")"))
		{
			Items.push_back(ParseItem(Cursor));
			if (!Cursor.Match(","))
			{
				Cursor.Expect(")");
				break;
			}
		}
		return Items;
	}

	void ApplyClassMacroArguments(const std::vector<MacroArgument>& MacroArguments, ClassDef& Class)
	{
		Apply(MacroArguments, "UCLASS",
			{
				{"Abstract", false, {"CLASS_Abstract"}, {}},
				{"Blueprintable", false, {"CLASS_Blueprintable"}, {{"IsBlueprintBase", "true"}, {"BlueprintType", "true"}}},
				{"NotBlueprintable", false, {"CLASS_NotBlueprintable"}, {{"IsBlueprintBase", "false"}}},
				{"BlueprintType", false, {"CLASS_BlueprintType"}, {{"BlueprintType", "true"}}},
				{"MinimalAPI", false, {"CLASS_MinimalAPI"}, {}},
				{"Transient", false, {"CLASS_Transient"}, {}},
				{"EditInlineNew", false, {"CLASS_EditInlineNew"}, {}},
				{"DefaultToInstanced", false, {"CLASS_DefaultToInstanced"}, {}},
				{"Config", true, {"CLASS_Config"}, {}},
				{"ClassGroup", true, {}, {{"ClassGroupNames", "$"}}},
			},
			Class.Flags, Class.Meta);
	}

	void ApplyPropertyMacroArguments(const std::vector<MacroArgument>& MacroArguments, PropertyDef& Property)
	{
		Apply(MacroArguments, "UPROPERTY",
			{
				{"EditAnywhere", false, {"CPF_Edit"}, {}},
				{"EditDefaultsOnly", false, {"CPF_Edit", "CPF_DisableEditOnInstance"}, {}},
				{"EditInstanceOnly", false, {"CPF_Edit", "CPF_DisableEditOnTemplate"}, {}},
				{"VisibleAnywhere", false, {"CPF_Edit", "CPF_EditConst"}, {}},
				{"VisibleDefaultsOnly", false, {"CPF_Edit", "CPF_EditConst", "CPF_DisableEditOnInstance"}, {}},
				{"VisibleInstanceOnly", false, {"CPF_Edit", "CPF_EditConst", "CPF_DisableEditOnTemplate"}, {}},
				{"BlueprintReadOnly", false, {"CPF_BlueprintVisible", "CPF_BlueprintReadOnly"}, {}},
				{"BlueprintReadWrite", false, {"CPF_BlueprintVisible"}, {}},
				{"BlueprintAssignable", false, {"CPF_BlueprintAssignable"}, {}},
				{"BlueprintCallable", false, {"CPF_BlueprintCallable"}, {}},
				{"Transient", false, {"CPF_Transient"}, {}},
				{"SaveGame", false, {"CPF_SaveGame"}, {}},
				{"Config", false, {"CPF_Config"}, {}},
				{"Instanced", false, {"CPF_InstancedReference", "CPF_ExportObject"}, {}},
				{"AdvancedDisplay", false, {"CPF_AdvancedDisplay"}, {}},
				{"Category", true, {}, {{"Category", "$"}}},
			},
			Property.Flags, Property.Meta);
	}

	void ApplyFunctionMacroArguments(const std::vector<MacroArgument>& MacroArguments, FunctionDef& Function)
	{
		Apply(MacroArguments, "UFUNCTION",
			{
				{"BlueprintCallable", false, {"FUNC_BlueprintCallable"}, {}},
				{"BlueprintPure", false, {"FUNC_BlueprintCallable", "FUNC_BlueprintPure"}, {}},
				{"Exec", false, {"FUNC_Exec"}, {}},
				{"Category", true, {}, {{"Category", "$"}}},
			},
			Function.Flags, Function.Meta);
	}

	void ApplyTypeMacroArguments(const std::vector<MacroArgument>& MacroArguments, const char* MacroName, MetaData& Meta)
	{
		std::set<std::string> Unused;
		Apply(MacroArguments, MacroName, {{"BlueprintType", false, {}, {{"BlueprintType", "true"}}}}, Unused, Meta);
	}

	void ApplyEnumeratorMeta(const std::vector<MacroArgument>& MacroArguments, MetaData& Meta)
	{
		for (const MacroArgument& Item : MacroArguments)
		{
			Meta.Set(Item.Name, Item.Value);
		}
	}
}
