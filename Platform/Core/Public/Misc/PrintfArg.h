#pragma once

// The type-safe argument list behind FString::Printf: each argument is captured with its type,
// so a format that does not match its arguments prints something defined instead of reading
// the stack as the C varargs printf would.

#include "HAL/Platform.h"

#include <type_traits>

class FString;

namespace UE::Core::Private
{
	/** One captured Printf argument; built only by MakePrintfArg. */
	struct FPrintfArg
	{
		enum class EKind : uint8
		{
			Signed,
			Unsigned,
			Char,
			Float,
			WideString,
			NarrowString,
			Pointer,
		};

		// What the value is; the formatter converts it to what the directive asks for.
		EKind Kind = EKind::Signed;
		// Width in bytes of an integer, so %u and %x read a negative int32 as 32 bits, as C does.
		uint8 Size = 8;
		// The value, by Kind.
		union
		{
			int64 Signed = 0;
			uint64 Unsigned;
			double Float;
			const TCHAR* Wide;
			const ANSICHAR* Narrow;
			const void* Pointer;
		};
	};

	template <typename T>
	inline constexpr bool TAlwaysFalse = false;

	template <typename T>
	FPrintfArg MakePrintfArg(const T& InValue)
	{
		using ValueType = std::decay_t<T>;
		FPrintfArg Arg;
		if constexpr (std::is_same_v<ValueType, bool>)
		{
			Arg.Signed = InValue ? 1 : 0;
		}
		else if constexpr (std::is_same_v<ValueType, wchar_t>
			|| (std::is_pointer_v<ValueType> && std::is_same_v<std::remove_cv_t<std::remove_pointer_t<ValueType>>, wchar_t>))
		{
			static_assert(TAlwaysFalse<T>, "TCHAR is char16_t, not wchar_t: pass TEXT(\"...\") text, a TCHAR or *MyString");
		}
		else if constexpr (std::is_same_v<ValueType, char> || std::is_same_v<ValueType, char8_t>
			|| std::is_same_v<ValueType, char16_t> || std::is_same_v<ValueType, char32_t>)
		{
			Arg.Kind = FPrintfArg::EKind::Char;
			Arg.Unsigned = static_cast<uint64>(static_cast<std::make_unsigned_t<ValueType>>(InValue));
		}
		else if constexpr (std::is_integral_v<ValueType> || std::is_enum_v<ValueType>)
		{
			using IntType = typename std::conditional_t<std::is_enum_v<ValueType>, std::underlying_type<ValueType>, std::type_identity<ValueType>>::type;
			Arg.Size = static_cast<uint8>(sizeof(IntType));
			if constexpr (std::is_signed_v<IntType>)
			{
				Arg.Signed = static_cast<int64>(InValue);
			}
			else
			{
				Arg.Kind = FPrintfArg::EKind::Unsigned;
				Arg.Unsigned = static_cast<uint64>(InValue);
			}
		}
		else if constexpr (std::is_floating_point_v<ValueType>)
		{
			Arg.Kind = FPrintfArg::EKind::Float;
			Arg.Float = static_cast<double>(InValue);
		}
		else if constexpr (std::is_pointer_v<ValueType> && std::is_same_v<std::remove_cv_t<std::remove_pointer_t<ValueType>>, TCHAR>)
		{
			Arg.Kind = FPrintfArg::EKind::WideString;
			Arg.Wide = static_cast<const TCHAR*>(InValue);
		}
		else if constexpr (std::is_pointer_v<ValueType> && std::is_same_v<std::remove_cv_t<std::remove_pointer_t<ValueType>>, ANSICHAR>)
		{
			Arg.Kind = FPrintfArg::EKind::NarrowString;
			Arg.Narrow = static_cast<const ANSICHAR*>(InValue);
		}
		else if constexpr (std::is_pointer_v<ValueType> && std::is_same_v<std::remove_cv_t<std::remove_pointer_t<ValueType>>, char8_t>)
		{
			Arg.Kind = FPrintfArg::EKind::NarrowString;
			Arg.Narrow = reinterpret_cast<const ANSICHAR*>(static_cast<const char8_t*>(InValue));
		}
		else if constexpr (std::is_pointer_v<ValueType> || std::is_null_pointer_v<ValueType>)
		{
			Arg.Kind = FPrintfArg::EKind::Pointer;
			Arg.Pointer = static_cast<const void*>(InValue);
		}
		else
		{
			static_assert(TAlwaysFalse<T>, "FString::Printf takes numbers, characters, pointers and C strings; pass an FString as *MyString");
		}
		return Arg;
	}

	/** Formats Args (NumArgs of them) by Format's directives and appends the text to Out. */
	CORE_API void AppendPrintf(FString& Out, const TCHAR* Format, const FPrintfArg* Args, int32 NumArgs);
}
