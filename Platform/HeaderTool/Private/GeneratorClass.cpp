// The class part of the .gen.cpp: StaticClass, InternalConstructor, the property and function
// registrations, and one invoker per UFUNCTION.

#include "CodeText.h"
#include "Generator.h"

namespace HeaderTool
{
	namespace
	{
		const char* AccessFlag(AccessLevel Access, const char* Public, const char* Protected, const char* Private)
		{
			return Access == AccessLevel::Public ? Public : (Access == AccessLevel::Protected ? Protected : Private);
		}

		// A non-const lvalue reference parameter is one the function writes back through.
		bool IsOutParam(const std::string& Type)
		{
			const bool bReference = Type.ends_with("&") && !Type.ends_with("&&");
			return bReference && !Type.starts_with("const ") && !Type.ends_with("const&");
		}

		std::string FunctionFlags(const FunctionDef& Function)
		{
			std::set<std::string> Flags = Function.Flags;
			Flags.insert("FUNC_Native");
			Flags.insert(AccessFlag(Function.Access, "FUNC_Public", "FUNC_Protected", "FUNC_Private"));
			const auto AddIf = [&Flags](bool bCondition, const char* Flag)
			{
				if (bCondition)
				{
					Flags.insert(Flag);
				}
			};
			AddIf(Function.bStatic, "FUNC_Static");
			AddIf(Function.bConst, "FUNC_Const");
			AddIf(Function.bFinal, "FUNC_Final");
			for (const ParamDef& Param : Function.Params)
			{
				AddIf(IsOutParam(Param.Type), "FUNC_HasOutParms");
			}
			return FlagChain({"FUNC_Native", "FUNC_Public", "FUNC_Protected", "FUNC_Private", "FUNC_BlueprintCallable",
				"FUNC_BlueprintPure", "FUNC_Exec", "FUNC_Static", "FUNC_Const", "FUNC_Final", "FUNC_HasOutParms"},
				Flags, "FUNC_None");
		}

		std::string ClassFlags(const ClassDef& Class)
		{
			std::set<std::string> Flags = Class.Flags;
			Flags.insert("CLASS_Native");
			return FlagChain({"CLASS_Native", "CLASS_Abstract", "CLASS_Transient", "CLASS_Blueprintable", "CLASS_BlueprintType",
				"CLASS_NotBlueprintable", "CLASS_MinimalAPI", "CLASS_Config", "CLASS_EditInlineNew", "CLASS_DefaultToInstanced"},
				Flags, "CLASS_None");
		}

		std::string ParamTypes(const FunctionDef& Function)
		{
			std::string Out;
			for (const ParamDef& Param : Function.Params)
			{
				Out += (Out.empty() ? "" : ", ") + Param.Type;
			}
			return Out;
		}

		void WriteFunctionRegistration(std::string& Out, const ClassDef& Class, const FunctionDef& Function)
		{
			std::string Names;
			for (const ParamDef& Param : Function.Params)
			{
				Names += (Names.empty() ? "" : ", ") + TextLiteral(Param.Name);
			}
			Out += "\tBuilder.AddFunction<" + Function.ReturnType + "(" + ParamTypes(Function) + ")>(" + TextLiteral(Function.Name) + ", &"
				+ Class.Name + "::exec" + Function.Name + ",\n"
				"\t\t" + FunctionFlags(Function) + ", " + MetaList(Function.Meta) + ",\n"
				"\t\t{ " + Names + (Names.empty() ? "}" : " }") + ");\n";
		}

		void WriteInvoker(std::string& Out, const ClassDef& Class, const FunctionDef& Function)
		{
			// A blueprint may still call a deprecated function; its invoker is no new use of it.
			Out += Function.bDeprecated ? "PRAGMA_DISABLE_DEPRECATION_WARNINGS\n" : "";
			Out += "void " + Class.Name + "::exec" + Function.Name + "(UObject* Context, void* Params, void* Result)\n{\n";
			if (!Function.Params.empty())
			{
				Out += "\tauto& Args = *static_cast<::UE::Reflection::TFunctionParams<" + ParamTypes(Function) + ">*>(Params);\n";
			}
			std::string Call = (Function.bStatic ? Class.Name + "::" : "static_cast<" + Class.Name + "*>(Context)->") + Function.Name + "(";
			for (std::size_t Index = 0; Index < Function.Params.size(); ++Index)
			{
				const std::string Arg = "std::get<" + std::to_string(Index) + ">(Args)";
				Call += (Index > 0 ? ", " : "") + (Function.Params[Index].Type.ends_with("&&") ? "std::move(" + Arg + ")" : Arg);
			}
			Call += ")";
			Out += Function.ReturnType == "void" ? "\t" + Call + ";\n" : "\t::UE::Reflection::StoreResult(Result, " + Call + ");\n";
			Out += "}\n";
			Out += Function.bDeprecated ? "PRAGMA_ENABLE_DEPRECATION_WARNINGS\n" : "";
		}
	}

	void WriteProperties(std::string& Out, const std::string& Owner, const std::vector<PropertyDef>& Properties)
	{
		for (const PropertyDef& Property : Properties)
		{
			std::set<std::string> Flags = Property.Flags;
			Flags.insert(AccessFlag(Property.Access, "CPF_NativeAccessSpecifierPublic", "CPF_NativeAccessSpecifierProtected",
				"CPF_NativeAccessSpecifierPrivate"));
			const std::string FlagText = FlagChain({"CPF_Edit", "CPF_EditConst", "CPF_DisableEditOnInstance", "CPF_DisableEditOnTemplate",
				"CPF_BlueprintVisible", "CPF_BlueprintReadOnly", "CPF_BlueprintAssignable", "CPF_BlueprintCallable", "CPF_Transient",
				"CPF_SaveGame", "CPF_Config", "CPF_InstancedReference", "CPF_ExportObject", "CPF_AdvancedDisplay",
				"CPF_NativeAccessSpecifierPublic", "CPF_NativeAccessSpecifierProtected", "CPF_NativeAccessSpecifierPrivate"},
				Flags, "CPF_None");
			// Naming a deprecated member is the engine's own business here, not a use to warn about.
			Out += Property.bDeprecated ? "PRAGMA_DISABLE_DEPRECATION_WARNINGS\n" : "";
			Out += "\tBuilder.AddProperty<decltype(" + Owner + "::" + Property.Name + ")>(" + TextLiteral(Property.Name) + ", "
				+ TextLiteral(Property.Type) + ", PLAIN_OFFSET_OF(" + Owner + ", " + Property.Name + "),\n"
				"\t\t" + FlagText + ", " + MetaList(Property.Meta) + ");\n";
			Out += Property.bDeprecated ? "PRAGMA_ENABLE_DEPRECATION_WARNINGS\n" : "";
		}
	}

	void WriteClass(std::string& Out, const ClassDef& Class, const GeneratorOptions& Options)
	{
		const std::string& Name = Class.Name;
		Out += "UClass* " + Name + "::StaticClass()\n"
			"{\n"
			"\tstatic UClass* Class = ::UE::Reflection::ConstructNativeClass<" + Name + ">(" + TextLiteral(StripPrefix(Name)) + ", "
			+ TextLiteral(Options.Package) + ",\n"
			"\t\t" + ClassFlags(Class) + ", &" + Class.SuperName + "::StaticClass,\n"
			"\t\t" + MetaList(Class.Meta) + ");\n"
			"\treturn Class;\n"
			"}\n"
			"UObject* " + Name + "::InternalConstructor(const FObjectInitializer& ObjectInitializer)\n"
			"{\n";
		if (Class.bHasPureVirtual)
		{
			Out += "\t// Pure virtual functions: only a subclass can be constructed.\n"
				"\treturn nullptr;\n";
		}
		else if (Class.bHasObjectInitializerConstructor || Class.bLegacyBody)
		{
			Out += "\treturn new " + Name + "(ObjectInitializer);\n";
		}
		else
		{
			Out += "\treturn new " + Name + "();\n";
		}
		Out += "}\n"
			"void " + Name + "::StaticRegisterNatives(::UE::Reflection::FClassBuilder& Builder)\n"
			"{\n";
		WriteProperties(Out, Name, Class.Properties);
		for (const FunctionDef& Function : Class.Functions)
		{
			WriteFunctionRegistration(Out, Class, Function);
		}
		Out += "}\n";
		for (const FunctionDef& Function : Class.Functions)
		{
			WriteInvoker(Out, Class, Function);
		}
		Out += "static ::UE::Reflection::FRegisterCompiledIn Z_Register_" + Name + "([]() -> UObject* { return " + Name + "::StaticClass(); });\n\n";
	}
}
