#include "Serialization/MathJson.h"

#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"

#include <cmath>
#include <initializer_list>

namespace UE::Engine::Private
{
	namespace
	{
		using FNames = std::initializer_list<const TCHAR*>;

		const FNames ColorNames = {TEXT("R"), TEXT("G"), TEXT("B"), TEXT("A")};
		const FNames PointNames = {TEXT("X"), TEXT("Y")};

		/** Fills InOut (one slot per name) from an object by name or an array by position. */
		bool ReadComponents(const FJsonValue& Json, FNames Names, double* InOut, FString& OutProblem)
		{
			const TSharedPtr<FJsonObject>* Object = nullptr;
			const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
			int32 Index = 0;
			if (Json.Type == EJson::Object && Json.TryGetObject(Object) && Object->IsValid())
			{
				for (const TCHAR* Name : Names)
				{
					const TSharedPtr<FJsonValue> Field = (*Object)->TryGetField(Name);
					if (Field.IsValid() && !(Field->Type == EJson::Number && Field->TryGetNumber(InOut[Index])))
					{
						OutProblem = FString::Printf(TEXT("%s must be a number"), Name);
						return false;
					}
					++Index;
				}
				return true;
			}
			if (Json.Type == EJson::Array && Json.TryGetArray(Array) && Array->Num() == int32(Names.size()))
			{
				for (const TSharedPtr<FJsonValue>& Element : *Array)
				{
					if (!Element.IsValid() || Element->Type != EJson::Number || !Element->TryGetNumber(InOut[Index++]))
					{
						OutProblem = TEXT("every component must be a number");
						return false;
					}
				}
				return true;
			}
			OutProblem = FString::Printf(TEXT("expected an object or an array of %d numbers"), int32(Names.size()));
			return false;
		}

		bool AllWhole(const double* Values, int32 Num, double Min, double Max)
		{
			for (int32 Index = 0; Index < Num; ++Index)
			{
				if (Values[Index] != std::trunc(Values[Index]) || Values[Index] < Min || Values[Index] > Max)
				{
					return false;
				}
			}
			return true;
		}

		TSharedPtr<FJsonValue> ComponentsToJson(FNames Names, const double* Values)
		{
			TSharedPtr<FJsonObject> Object = MakeShared<FJsonObject>();
			int32 Index = 0;
			for (const TCHAR* Name : Names)
			{
				Object->SetNumberField(Name, Values[Index++]);
			}
			return MakeShared<FJsonValueObject>(Object);
		}
	}

	bool IsMathType(const FString& CppType)
	{
		return CppType.Equals(TEXT("FLinearColor")) || CppType.Equals(TEXT("FColor")) || CppType.Equals(TEXT("FVector2D")) ||
			CppType.Equals(TEXT("FIntPoint"));
	}

	bool JsonToMathValue(const FString& CppType, void* ValuePtr, const FJsonValue& Json, FString& OutProblem)
	{
		if (CppType.Equals(TEXT("FLinearColor")))
		{
			FLinearColor& Color = *static_cast<FLinearColor*>(ValuePtr);
			double Values[4] = {Color.R, Color.G, Color.B, Color.A};
			if (!ReadComponents(Json, ColorNames, Values, OutProblem))
			{
				return false;
			}
			Color = FLinearColor(float(Values[0]), float(Values[1]), float(Values[2]), float(Values[3]));
			return true;
		}
		if (CppType.Equals(TEXT("FColor")))
		{
			FColor& Color = *static_cast<FColor*>(ValuePtr);
			double Values[4] = {double(Color.R), double(Color.G), double(Color.B), double(Color.A)};
			if (!ReadComponents(Json, ColorNames, Values, OutProblem))
			{
				return false;
			}
			if (!AllWhole(Values, 4, 0.0, 255.0))
			{
				OutProblem = TEXT("FColor components are whole numbers from 0 to 255");
				return false;
			}
			Color = FColor(uint8(Values[0]), uint8(Values[1]), uint8(Values[2]), uint8(Values[3]));
			return true;
		}
		if (CppType.Equals(TEXT("FVector2D")))
		{
			FVector2D& Vector = *static_cast<FVector2D*>(ValuePtr);
			double Values[2] = {Vector.X, Vector.Y};
			if (!ReadComponents(Json, PointNames, Values, OutProblem))
			{
				return false;
			}
			Vector = FVector2D(Values[0], Values[1]);
			return true;
		}
		if (CppType.Equals(TEXT("FIntPoint")))
		{
			FIntPoint& Point = *static_cast<FIntPoint*>(ValuePtr);
			double Values[2] = {double(Point.X), double(Point.Y)};
			if (!ReadComponents(Json, PointNames, Values, OutProblem))
			{
				return false;
			}
			if (!AllWhole(Values, 2, -2147483648.0, 2147483647.0))
			{
				OutProblem = TEXT("FIntPoint components are whole 32-bit numbers");
				return false;
			}
			Point = FIntPoint(int32(Values[0]), int32(Values[1]));
			return true;
		}
		OutProblem = FString::Printf(TEXT("a %s cannot be set from data"), *CppType);
		return false;
	}

	TSharedPtr<FJsonValue> MathValueToJson(const FString& CppType, const void* ValuePtr)
	{
		if (CppType.Equals(TEXT("FLinearColor")))
		{
			const FLinearColor& Color = *static_cast<const FLinearColor*>(ValuePtr);
			const double Values[4] = {Color.R, Color.G, Color.B, Color.A};
			return ComponentsToJson(ColorNames, Values);
		}
		if (CppType.Equals(TEXT("FColor")))
		{
			const FColor& Color = *static_cast<const FColor*>(ValuePtr);
			const double Values[4] = {double(Color.R), double(Color.G), double(Color.B), double(Color.A)};
			return ComponentsToJson(ColorNames, Values);
		}
		if (CppType.Equals(TEXT("FVector2D")))
		{
			const FVector2D& Vector = *static_cast<const FVector2D*>(ValuePtr);
			const double Values[2] = {Vector.X, Vector.Y};
			return ComponentsToJson(PointNames, Values);
		}
		if (CppType.Equals(TEXT("FIntPoint")))
		{
			const FIntPoint& Point = *static_cast<const FIntPoint*>(ValuePtr);
			const double Values[2] = {double(Point.X), double(Point.Y)};
			return ComponentsToJson(PointNames, Values);
		}
		return MakeShared<FJsonValueNull>();
	}
}
