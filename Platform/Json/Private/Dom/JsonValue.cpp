#include "Dom/JsonValue.h"

#include "Dom/JsonObject.h"
#include "JsonGlobals.h"

#include <cfloat>
#include <cmath>
#include <limits>

namespace
{
	// What AsArray hands out for a value that is not an array; never written to.
	const TArray<TSharedPtr<FJsonValue>>& EmptyArray()
	{
		static const TArray<TSharedPtr<FJsonValue>> Empty;
		return Empty;
	}

	// What AsObject hands out for a value that is not an object: valid and empty, as the engine's,
	// so code that only checks IsValid() goes on reading nothing from it.
	const TSharedPtr<FJsonObject>& EmptyObject()
	{
		static const TSharedPtr<FJsonObject> Empty = MakeShared<FJsonObject>();
		return Empty;
	}

	// Rounds half away from zero, then refuses what the integer type cannot hold (NaN included).
	// The upper bound is max + 1 as a double (a power of two, so exact) and is exclusive.
	template<class IntType>
	bool RoundToWhole(double Number, IntType& OutNumber)
	{
		const double Rounded = std::round(Number);
		const double Lowest = static_cast<double>(std::numeric_limits<IntType>::min());
		const double UpperExclusive = static_cast<double>(std::numeric_limits<IntType>::max()) + 1.0;
		if (!(Rounded >= Lowest && Rounded < UpperExclusive))
		{
			return false;
		}
		OutNumber = static_cast<IntType>(Rounded);
		return true;
	}
}

double FJsonValue::AsNumber() const
{
	double Number = 0.0;
	if (!TryGetNumber(Number))
	{
		LogMisuse(TEXT("Number"));
		return 0.0;
	}
	return Number;
}

FString FJsonValue::AsString() const
{
	FString String;
	if (!TryGetString(String))
	{
		LogMisuse(TEXT("String"));
		return FString();
	}
	return String;
}

bool FJsonValue::AsBool() const
{
	bool bValue = false;
	if (!TryGetBool(bValue))
	{
		LogMisuse(TEXT("Boolean"));
		return false;
	}
	return bValue;
}

const TArray<TSharedPtr<FJsonValue>>& FJsonValue::AsArray() const
{
	const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
	if (!TryGetArray(Array))
	{
		LogMisuse(TEXT("Array"));
		return EmptyArray();
	}
	return *Array;
}

const TSharedPtr<FJsonObject>& FJsonValue::AsObject() const
{
	const TSharedPtr<FJsonObject>* Object = nullptr;
	if (!TryGetObject(Object))
	{
		LogMisuse(TEXT("Object"));
		return EmptyObject();
	}
	return *Object;
}

bool FJsonValue::TryGetNumber(float& OutNumber) const
{
	double Number = 0.0;
	if (!TryGetNumber(Number))
	{
		return false;
	}
	// Out of float's range the cast is undefined, so the infinity it would round to is spelled out.
	if (std::isfinite(Number) && std::fabs(Number) > FLT_MAX)
	{
		OutNumber = Number > 0.0 ? std::numeric_limits<float>::infinity() : -std::numeric_limits<float>::infinity();
		return true;
	}
	OutNumber = static_cast<float>(Number);
	return true;
}

bool FJsonValue::TryGetNumber(int32& OutNumber) const
{
	double Number = 0.0;
	return TryGetNumber(Number) && RoundToWhole(Number, OutNumber);
}

bool FJsonValue::TryGetNumber(int64& OutNumber) const
{
	double Number = 0.0;
	return TryGetNumber(Number) && RoundToWhole(Number, OutNumber);
}

bool FJsonValue::TryGetNumber(uint32& OutNumber) const
{
	double Number = 0.0;
	return TryGetNumber(Number) && RoundToWhole(Number, OutNumber);
}

void FJsonValue::LogMisuse(const TCHAR* WantedType) const
{
	// An error whatever the value, Null included: the engine lowered the Null case to a warning
	// only after this version.
	UE_LOG(LogJson, Error, TEXT("Json Value of type '%s' used as a '%s'."), *GetType(), WantedType);
}

bool FJsonValueString::TryGetNumber(double& OutNumber) const
{
	if (!Value.IsNumeric())
	{
		return false;
	}
	OutNumber = FCString::Atod(*Value);
	return true;
}

bool FJsonValueString::TryGetBool(bool& OutBool) const
{
	OutBool = Value.Equals(TEXT("true"), ESearchCase::IgnoreCase) || Value.Equals(TEXT("yes"), ESearchCase::IgnoreCase)
		|| Value.Equals(TEXT("on"), ESearchCase::IgnoreCase) || (Value.IsNumeric() && FCString::Atod(*Value) != 0.0);
	return true;
}

bool FJsonValueNumber::TryGetString(FString& OutString) const
{
	OutString = FString::SanitizeFloat(Value, 0);
	return true;
}

bool FJsonValueBoolean::TryGetString(FString& OutString) const
{
	OutString = Value ? TEXT("true") : TEXT("false");
	return true;
}
