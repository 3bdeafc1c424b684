#pragma once

// The reflection macros and flags. For the compiler the U-macros expand to nothing: PlainHeaderTool
// reads them from the header and writes <Header>.generated.h and <Header>.gen.cpp. GENERATED_BODY()
// expands to the macro that the generated header defines for that line of that file.

#include "CoreTypes.h"

class UObject;
class UClass;
class UScriptStruct;
class UEnum;
class UFunction;
class FObjectInitializer;

namespace UE::Reflection
{
	class FStructBuilder;
	class FClassBuilder;
}

#define UCLASS(...)
#define USTRUCT(...)
#define UENUM(...)
#define UINTERFACE(...)
#define UPROPERTY(...)
#define UFUNCTION(...)
#define UPARAM(...)
#define UMETA(...)
#define UDELEGATE(...)

#define PLAIN_BODY_MACRO_COMBINE_INNER(A, B, C, D) A##B##C##D
#define PLAIN_BODY_MACRO_COMBINE(A, B, C, D) PLAIN_BODY_MACRO_COMBINE_INNER(A, B, C, D)
#define GENERATED_BODY(...) PLAIN_BODY_MACRO_COMBINE(CURRENT_FILE_ID, _, __LINE__, _GENERATED_BODY)
#define GENERATED_UCLASS_BODY(...) GENERATED_BODY()
#define GENERATED_USTRUCT_BODY(...) GENERATED_BODY()

// What GENERATED_BODY() declares in a reflected class; the .gen.cpp defines each of these.
// Ends in private:, as the engine's does, so members that follow without an access keyword are private.
#define PLAIN_GENERATED_CLASS_BODY(TClass, TSuperClass) \
public: \
	using Super = TSuperClass; \
	using ThisClass = TClass; \
	static UClass* StaticClass(); \
	static UObject* InternalConstructor(const FObjectInitializer& ObjectInitializer); \
	static void StaticRegisterNatives(::UE::Reflection::FClassBuilder& Builder); \
private:

// What GENERATED_BODY() declares in a reflected struct. Leaves the access public, as a struct's is.
#define PLAIN_GENERATED_STRUCT_BODY(TStruct) \
public: \
	static UScriptStruct* StaticStruct(); \
	static void StaticRegisterNatives(::UE::Reflection::FStructBuilder& Builder);

// The signature every reflected function's invoker has: the object, a std::tuple of the decayed
// parameter types, and where to store the result (null to drop it).
using FNativeFuncPtr = void (*)(UObject* Context, void* Params, void* Result);

// Declares the invoker of one UFUNCTION inside its class (emitted by the header tool).
#define DECLARE_FUNCTION(Name) static void Name(UObject* Context, void* Params, void* Result)

enum EClassFlags : uint32
{
	CLASS_None = 0,
	CLASS_Abstract = 1u << 0,
	CLASS_Native = 1u << 1,
	CLASS_Transient = 1u << 2,
	CLASS_Blueprintable = 1u << 3,
	CLASS_BlueprintType = 1u << 4,
	CLASS_NotBlueprintable = 1u << 5,
	CLASS_MinimalAPI = 1u << 6,
	CLASS_Config = 1u << 7,
	CLASS_Intrinsic = 1u << 8,
	CLASS_CompiledFromBlueprint = 1u << 9,
	CLASS_EditInlineNew = 1u << 10,
	CLASS_DefaultToInstanced = 1u << 11,
};
inline constexpr EClassFlags operator|(EClassFlags A, EClassFlags B) { return EClassFlags(uint32(A) | uint32(B)); }

enum EPropertyFlags : uint64
{
	CPF_None = 0,
	CPF_Edit = 1ull << 0,
	CPF_EditConst = 1ull << 1,
	CPF_DisableEditOnInstance = 1ull << 2,
	CPF_DisableEditOnTemplate = 1ull << 3,
	CPF_BlueprintVisible = 1ull << 4,
	CPF_BlueprintReadOnly = 1ull << 5,
	CPF_BlueprintAssignable = 1ull << 6,
	CPF_BlueprintCallable = 1ull << 7,
	CPF_Transient = 1ull << 8,
	CPF_SaveGame = 1ull << 9,
	CPF_Config = 1ull << 10,
	CPF_InstancedReference = 1ull << 11,
	CPF_ExportObject = 1ull << 12,
	CPF_NativeAccessSpecifierPublic = 1ull << 13,
	CPF_NativeAccessSpecifierProtected = 1ull << 14,
	CPF_NativeAccessSpecifierPrivate = 1ull << 15,
	CPF_Parm = 1ull << 16,
	CPF_ReturnParm = 1ull << 17,
	CPF_AdvancedDisplay = 1ull << 18,
};
inline constexpr EPropertyFlags operator|(EPropertyFlags A, EPropertyFlags B) { return EPropertyFlags(uint64(A) | uint64(B)); }

enum EFunctionFlags : uint32
{
	FUNC_None = 0,
	FUNC_Final = 1u << 0,
	FUNC_BlueprintCallable = 1u << 1,
	FUNC_BlueprintPure = 1u << 2,
	FUNC_BlueprintEvent = 1u << 3,
	FUNC_Native = 1u << 4,
	FUNC_Static = 1u << 5,
	FUNC_Public = 1u << 6,
	FUNC_Protected = 1u << 7,
	FUNC_Private = 1u << 8,
	FUNC_Const = 1u << 9,
	FUNC_Delegate = 1u << 10,
	FUNC_MulticastDelegate = 1u << 11,
	FUNC_HasOutParms = 1u << 12,
	FUNC_Exec = 1u << 13,
};
inline constexpr EFunctionFlags operator|(EFunctionFlags A, EFunctionFlags B) { return EFunctionFlags(uint32(A) | uint32(B)); }

// Object flags, a subset of the engine's.
enum EObjectFlags : uint32
{
	RF_NoFlags = 0,
	RF_Public = 1u << 0,
	RF_Standalone = 1u << 1,
	RF_Transient = 1u << 2,
	RF_ClassDefaultObject = 1u << 3,
	RF_ArchetypeObject = 1u << 4,
	RF_MarkAsRootSet = 1u << 5,
	RF_BeginDestroyed = 1u << 6,
	RF_FinishDestroyed = 1u << 7,
	RF_WasLoaded = 1u << 8,
};
inline constexpr EObjectFlags operator|(EObjectFlags A, EObjectFlags B) { return EObjectFlags(uint32(A) | uint32(B)); }
inline constexpr EObjectFlags operator&(EObjectFlags A, EObjectFlags B) { return EObjectFlags(uint32(A) & uint32(B)); }
inline constexpr EObjectFlags operator~(EObjectFlags A) { return EObjectFlags(~uint32(A)); }

// Member offsets in the generated .cpp files. Reflected classes are not standard-layout, which
// the compilers support for classes without virtual bases; the .gen.cpp silences the warning.
#define PLAIN_OFFSET_OF(Type, Member) offsetof(Type, Member)
