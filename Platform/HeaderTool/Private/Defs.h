#pragma once

// The plain records the parser fills and the generator reads: what one header declares for
// reflection, with no C++ left in it except type text. Nothing here knows how code is written.

#include "MetaData.h"

#include <set>
#include <string>
#include <vector>

namespace HeaderTool
{
	/** The C++ access level a member was declared under. */
	enum class AccessLevel
	{
		Public,
		Protected,
		Private,
	};

	/** One UPROPERTY. Flags holds the CPF_ names its macro arguments give; access is added on output. */
	struct PropertyDef
	{
		std::string Name;
		std::string Type;
		int Line = 0;
		AccessLevel Access = AccessLevel::Public;
		std::set<std::string> Flags;
		MetaData Meta;
		// Declared under UE_DEPRECATED: generated code that names it must not warn.
		bool bDeprecated = false;
	};

	/** One parameter of a UFUNCTION or of a dynamic delegate. */
	struct ParamDef
	{
		std::string Type;
		std::string Name;
		bool bHasDefault = false;
	};

	/** One UFUNCTION. Flags holds the FUNC_ names its macro arguments give; the rest come from the fields. */
	struct FunctionDef
	{
		std::string Name;
		std::string ReturnType;
		std::vector<ParamDef> Params;
		int Line = 0;
		AccessLevel Access = AccessLevel::Private;
		bool bStatic = false;
		bool bVirtual = false;
		bool bConst = false;
		bool bFinal = false;
		// Declared under UE_DEPRECATED: the generated invoker that calls it must not warn.
		bool bDeprecated = false;
		std::set<std::string> Flags;
		MetaData Meta;
	};

	/** One UCLASS with its reflected members. */
	struct ClassDef
	{
		std::string Name;
		std::string SuperName;
		int Line = 0;
		// Line of GENERATED_BODY(); 0 until it is seen.
		int GeneratedBodyLine = 0;
		// GENERATED_UCLASS_BODY(): the body macro declares the FObjectInitializer constructor when
		// the class does not, and leaves access public.
		bool bLegacyBody = false;
		// The class itself declares UName(const FObjectInitializer&).
		bool bHasObjectInitializerConstructor = false;
		// A pure virtual member makes the class impossible to construct from C++.
		bool bHasPureVirtual = false;
		std::set<std::string> Flags;
		MetaData Meta;
		std::vector<PropertyDef> Properties;
		std::vector<FunctionDef> Functions;
	};

	/** One USTRUCT. SuperName is empty without a base. */
	struct StructDef
	{
		std::string Name;
		std::string SuperName;
		int Line = 0;
		int GeneratedBodyLine = 0;
		MetaData Meta;
		std::vector<PropertyDef> Properties;
	};

	/** One entry of a UENUM, with its UMETA pairs. */
	struct EnumeratorDef
	{
		std::string Name;
		MetaData Meta;
	};

	/** How a UENUM was written: the form decides how its entries are named and qualified. */
	enum class EnumForm
	{
		EnumClass,
		Plain,
		// UENUM() namespace EName { enum Type { ... }; }, the engine's older form.
		Namespaced,
	};

	/** One UENUM. CppType is what StaticEnum<> is instantiated with (EName, or EName::Type). */
	struct EnumDef
	{
		std::string Name;
		std::string CppType;
		EnumForm Form = EnumForm::EnumClass;
		int Line = 0;
		MetaData Meta;
		std::vector<EnumeratorDef> Enumerators;
	};

	/** One DECLARE_DYNAMIC_*DELEGATE*. ReturnType is empty for the ones without _RetVal. */
	struct DelegateDef
	{
		std::string Name;
		bool bMulticast = false;
		std::string ReturnType;
		std::vector<ParamDef> Params;
		int Line = 0;
	};

	/** Everything one header declares for reflection, each kind in the order it appears. */
	struct FileDef
	{
		std::vector<DelegateDef> Delegates;
		std::vector<EnumDef> Enums;
		std::vector<StructDef> Structs;
		std::vector<ClassDef> Classes;
	};
}
