// docs/engine-usage.md read back against the plug-in's classes. A designer builds the widget
// blueprints from that page alone, so its tables of bound widgets, animations and edit-time
// properties must say exactly what the classes bind, look up and expose: every row names a real
// member with its real type, and every member has its row.
//
// The bindings and properties come from the reflection. Animations are found by name at run time,
// so their names come from the calls of GetNameWidgetAnimation in the modules' sources (plus any
// BindWidgetAnim member).

#include "Blueprint/UserWidget.h"
#include "Modules/ModuleManager.h"
#include "UObject/Class.h"
#include "UObject/UObjectArray.h"
#include "UObject/UnrealType.h"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace
{
	namespace fs = std::filesystem;

	enum ETable : int
	{
		BoundWidgets,
		Animations,
		EditProperties,
		NumTables
	};
	/** How the page and the failure messages name each table. */
	const std::array<std::string, NumTables> TableTitles = {"Bound widget", "Animation", "Edit-time property"};

	/** Name to type, by table (an animation has no type). */
	using FRows = std::map<std::string, std::string>;
	using FClassContract = std::array<FRows, NumTables>;
	/** By the class's C++ name, "UUI_VidariaSystem". */
	using FContract = std::map<std::string, FClassContract>;

	/** The modules whose widget classes the page describes. */
	const std::array<std::string, 2> PluginModules = {"PlainVidaria", "PlainMarquel"};

	fs::path RepositoryRoot()
	{
		return fs::path(PLAIN_TEST_SOURCE_DIR).parent_path().parent_path();
	}

	std::string ToStd(const FString& Text)
	{
		return std::string(TCHAR_TO_UTF8(*Text));
	}

	std::string Trim(const std::string& Text)
	{
		const size_t First = Text.find_first_not_of(" \t");
		return First == std::string::npos ? std::string() : Text.substr(First, Text.find_last_not_of(" \t") - First + 1);
	}

	/** The text between the first pair of backticks, or empty. */
	std::string Backticked(const std::string& Cell)
	{
		const size_t Open = Cell.find('`');
		const size_t Close = Open == std::string::npos ? std::string::npos : Cell.find('`', Open + 1);
		return Close == std::string::npos ? std::string() : Cell.substr(Open + 1, Close - Open - 1);
	}

	/** The cells of a table row; "\|" stays inside its cell. */
	std::vector<std::string> SplitRow(const std::string& Line)
	{
		std::vector<std::string> Cells;
		std::string Cell;
		for (size_t Index = 1; Index < Line.size(); ++Index)
		{
			if (Line[Index] == '\\' && Index + 1 < Line.size() && Line[Index + 1] == '|')
			{
				Cell += "\\|";
				++Index;
			}
			else if (Line[Index] == '|')
			{
				Cells.push_back(Trim(Cell));
				Cell.clear();
			}
			else
			{
				Cell += Line[Index];
			}
		}
		return Cells;
	}

	/**
	 * The page's tables: a "### `UClassName`" heading opens a class's section, a table whose first
	 * header cell is one of TableTitles lists its rows, with the name (and the type) in backticks.
	 * Anything the reading cannot place goes to Errors.
	 */
	FContract ReadPage(const fs::path& Page, std::vector<std::string>& Errors)
	{
		FContract Contract;
		std::ifstream File(Page);
		if (!File)
		{
			Errors.push_back("cannot read " + Page.string());
			return Contract;
		}
		std::string ClassName;
		int Table = -1;
		std::string Line;
		for (int LineNumber = 1; std::getline(File, Line); ++LineNumber)
		{
			const std::string Where = "docs/engine-usage.md:" + std::to_string(LineNumber) + ": ";
			if (Line.rfind("#", 0) == 0)
			{
				ClassName = Line.rfind("### `", 0) == 0 ? Backticked(Line) : std::string();
				if (!ClassName.empty())
				{
					Contract[ClassName];
				}
				Table = -1;
				continue;
			}
			if (Line.rfind("|", 0) != 0)
			{
				Table = -1;
				continue;
			}
			const std::vector<std::string> Cells = SplitRow(Line);
			if (Cells.empty() || Cells[0].rfind("---", 0) == 0)
			{
				continue;
			}
			if (Cells[0].rfind("`", 0) != 0)
			{
				// A header row: one of ours, or a table the contract leaves alone.
				Table = -1;
				for (int Kind = 0; Kind < NumTables; ++Kind)
				{
					Table = Cells[0] == TableTitles[Kind] ? Kind : Table;
				}
				if (Table >= 0 && ClassName.empty())
				{
					Errors.push_back(Where + "a \"" + Cells[0] + "\" table outside a class's section");
				}
				continue;
			}
			if (Table < 0 || ClassName.empty())
			{
				continue;
			}
			const std::string Name = Backticked(Cells[0]);
			const std::string Type = Table == Animations || Cells.size() < 2 ? std::string() : Backticked(Cells[1]);
			if (Table != Animations && Type.empty())
			{
				Errors.push_back(Where + "row `" + Name + "` of " + ClassName + " has no type in backticks");
			}
			if (!Contract[ClassName][Table].emplace(Name, Type).second)
			{
				Errors.push_back(Where + "row `" + Name + "` of " + ClassName + " comes twice");
			}
		}
		return Contract;
	}

	/** The class of a member function defined on this line ("void UUI_X::F(", "UUI_X::UUI_X("), or "". A definition starts at column 0. */
	std::string DefinedClass(const std::string& Line)
	{
		if (Line.empty() || std::isspace(static_cast<unsigned char>(Line[0])) || Line[0] == '#' || Line[0] == '/')
		{
			return {};
		}
		const size_t Paren = Line.find('(');
		const size_t Scope = Line.find("::");
		if (Paren == std::string::npos || Scope == std::string::npos || Scope > Paren || Line.find(';') < Paren)
		{
			return {};
		}
		size_t Start = Scope;
		while (Start > 0 && (std::isalnum(static_cast<unsigned char>(Line[Start - 1])) || Line[Start - 1] == '_'))
		{
			--Start;
		}
		const std::string Name = Line.substr(Start, Scope - Start);
		return Name.size() > 1 && Name[0] == 'U' ? Name : std::string();
	}

	/** Reads NAME from a line that starts `GetNameWidgetAnimation(TEXT("NAME"))`; false for any other argument. */
	bool ReadLookupName(const std::string& FromCall, std::string& OutName)
	{
		size_t At = std::string("GetNameWidgetAnimation(").size();
		const auto SkipSpaces = [&FromCall, &At]()
		{
			while (At < FromCall.size() && std::isspace(static_cast<unsigned char>(FromCall[At])))
			{
				++At;
			}
		};
		SkipSpaces();
		if (FromCall.compare(At, 6, "TEXT(\"") != 0)
		{
			return false;
		}
		At += 6;
		const size_t End = FromCall.find('"', At);
		if (End == std::string::npos || FromCall.compare(End, 2, "\")") != 0)
		{
			return false;
		}
		OutName = FromCall.substr(At, End - At);
		At = End + 2;
		SkipSpaces();
		return At < FromCall.size() && FromCall[At] == ')';
	}

	/**
	 * The animation names each class passes to GetNameWidgetAnimation in the modules' sources. A
	 * call belongs to the class whose member function is being defined around it; a call whose
	 * name is no TEXT literal cannot be read, and goes to Errors so it is not missed silently.
	 */
	std::map<std::string, std::set<std::string>> ReadAnimationLookups(std::vector<std::string>& Errors)
	{
		std::map<std::string, std::set<std::string>> Names;
		for (const std::string& Module : PluginModules)
		{
			const fs::path Private = RepositoryRoot() / "Source" / Module / "Private";
			for (const fs::directory_entry& Entry : fs::recursive_directory_iterator(Private))
			{
				if (Entry.path().extension() != ".cpp")
				{
					continue;
				}
				std::ifstream File(Entry.path());
				std::string ClassName;
				std::string Line;
				for (int LineNumber = 1; std::getline(File, Line); ++LineNumber)
				{
					if (const std::string Defined = DefinedClass(Line); !Defined.empty())
					{
						ClassName = Defined;
					}
					const size_t Call = Line.find("GetNameWidgetAnimation(");
					// The definition of GetNameWidgetAnimation itself is no lookup.
					if (Call == std::string::npos || (Call >= 2 && Line.compare(Call - 2, 2, "::") == 0))
					{
						continue;
					}
					const std::string Where = fs::relative(Entry.path(), RepositoryRoot()).string() + ":" + std::to_string(LineNumber) + ": ";
					const std::string FromCall = Line.substr(Call);
					std::string AnimationName;
					if (!ReadLookupName(FromCall, AnimationName) || ClassName.empty())
					{
						Errors.push_back(Where + "an animation lookup this test cannot read (a TEXT literal inside a member function)");
						continue;
					}
					Names[ClassName].insert(AnimationName);
				}
			}
		}
		return Names;
	}

	std::string CppName(const UClass* Class)
	{
		return Class ? "U" + ToStd(Class->GetName()) : std::string("an unknown class");
	}

	/** True for a type declared in one of PluginModules (the engine's own members are no part of the contract). */
	bool IsInPlugin(const UStruct* Type)
	{
		const std::string Path = Type ? ToStd(Type->GetPathName()) : std::string();
		for (const std::string& Module : PluginModules)
		{
			if (Path.rfind("/Script/" + Module + ".", 0) == 0)
			{
				return true;
			}
		}
		return false;
	}

	/** The plug-in's native widget classes as their reflection and sources describe them; only those that bind a widget or an animation. */
	FContract ReadClasses(std::vector<std::string>& Errors)
	{
		// Loaded by name, as the engine loads a plug-in: nothing else in this test calls into them.
		for (const std::string& Module : PluginModules)
		{
			if (!FModuleManager::Get().LoadModule(FName(UTF8_TO_TCHAR(Module.c_str()))))
			{
				Errors.push_back("the module " + Module + " does not load");
			}
		}
		ProcessNewlyLoadedUObjects();
		std::map<std::string, std::set<std::string>> Lookups = ReadAnimationLookups(Errors);
		FContract Contract;
		FUObjectArray& Objects = FUObjectArray::Get();
		for (int32 Index = 0; Index < Objects.Num(); ++Index)
		{
			const UClass* Class = Cast<UClass>(Objects.GetObject(Index));
			if (!Class || !Class->HasAnyClassFlags(CLASS_Native) || !Class->IsChildOf(UUserWidget::StaticClass()) || !IsInPlugin(Class))
			{
				continue;
			}
			const std::string ClassName = CppName(Class);
			FClassContract Members;
			for (const FProperty* Property : Class->GetAllProperties())
			{
				if (!IsInPlugin(Property->GetOwnerStruct()))
				{
					continue;
				}
				const std::string Name = ToStd(Property->GetName());
				if (Property->HasMetaData(TEXT("BindWidget")) || Property->HasMetaData(TEXT("BindWidgetOptional")))
				{
					Members[BoundWidgets][Name] = CppName(Property->GetPropertyClass());
				}
				if (Property->HasMetaData(TEXT("BindWidgetAnim")) || Property->HasMetaData(TEXT("BindWidgetAnimOptional")))
				{
					Members[Animations][Name] = "";
				}
				if (Property->HasAnyPropertyFlags(CPF_Edit) && !Property->HasAnyPropertyFlags(CPF_EditConst))
				{
					Members[EditProperties][Name] = ToStd(Property->GetCPPType());
				}
			}
			// A lookup made by a base class serves every class derived from it.
			for (const UClass* Owner = Class; Owner; Owner = Owner->GetSuperClass())
			{
				for (const std::string& Name : Lookups[CppName(Owner)])
				{
					Members[Animations][Name] = "";
				}
			}
			if (!Members[BoundWidgets].empty() || !Members[Animations].empty())
			{
				Contract[ClassName] = Members;
			}
		}
		return Contract;
	}

	/** The page and the classes, read once for all the tests below. */
	struct FBothSides
	{
		std::vector<std::string> Errors;
		FContract Page;
		FContract Classes;

		static const FBothSides& Get()
		{
			static const FBothSides Sides = []
			{
				FBothSides Read;
				Read.Page = ReadPage(RepositoryRoot() / "docs" / "engine-usage.md", Read.Errors);
				Read.Classes = ReadClasses(Read.Errors);
				return Read;
			}();
			return Sides;
		}
	};

	/** Fails once for each row missing, extra or of the wrong type in one table of every class. */
	void ExpectTablesMatch(ETable Table)
	{
		const FBothSides& Sides = FBothSides::Get();
		const std::string& Title = TableTitles[Table];
		for (const auto& [ClassName, Members] : Sides.Classes)
		{
			const auto Section = Sides.Page.find(ClassName);
			if (Section == Sides.Page.end())
			{
				continue;
			}
			const FRows& Rows = Section->second[Table];
			for (const auto& [Name, Type] : Members[Table])
			{
				const auto Row = Rows.find(Name);
				if (Row == Rows.end())
				{
					ADD_FAILURE() << ClassName << ": \"" << Title << "\" has no row for `" << Name << "`" << (Type.empty() ? "" : " (" + Type + ")");
				}
				else if (Row->second != Type)
				{
					ADD_FAILURE() << ClassName << ": \"" << Title << "\" row `" << Name << "` says " << Row->second << ", the class has " << Type;
				}
			}
			for (const auto& [Name, Type] : Rows)
			{
				if (!Members[Table].count(Name))
				{
					ADD_FAILURE() << ClassName << ": \"" << Title << "\" row `" << Name << "` names nothing the class has";
				}
			}
		}
	}
} // namespace

TEST(WidgetContract, ThePageHasOneReadableSectionForEachWidgetClassThatBindsByName)
{
	const FBothSides& Sides = FBothSides::Get();
	for (const std::string& Error : Sides.Errors)
	{
		ADD_FAILURE() << Error;
	}
	// The eight classes known today: a class that stops being found is a broken reading, not a smaller contract.
	EXPECT_GE(Sides.Classes.size(), 8u);
	for (const auto& [ClassName, Members] : Sides.Classes)
	{
		EXPECT_TRUE(Sides.Page.count(ClassName)) << "docs/engine-usage.md has no \"### `" << ClassName << "`\" section";
	}
	for (const auto& [ClassName, Rows] : Sides.Page)
	{
		EXPECT_TRUE(Sides.Classes.count(ClassName)) << "docs/engine-usage.md has a section for " << ClassName
													<< ", which is no widget class of the plug-in that binds by name";
	}
}

TEST(WidgetContract, BoundWidgetRowsAreTheReflectedBindingsWithTheirTypes)
{
	ExpectTablesMatch(BoundWidgets);
}

TEST(WidgetContract, AnimationRowsAreTheNamesTheClassesLookUp)
{
	ExpectTablesMatch(Animations);
}

TEST(WidgetContract, EditTimePropertyRowsAreTheEditablePropertiesWithTheirTypes)
{
	ExpectTablesMatch(EditProperties);
}
