#include "Blueprint/WidgetSlotReader.h"

#include "Components/BorderSlot.h"
#include "Components/ButtonSlot.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/HorizontalBoxSlot.h"
#include "Components/OverlaySlot.h"
#include "Components/SizeBoxSlot.h"
#include "Components/VerticalBoxSlot.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"

namespace
{
	/** Reads a number, or an array of numbers; false for anything else. */
	bool ReadNumbers(const TSharedPtr<FJsonValue>& Value, TArray<double>& Out)
	{
		Out.Reset();
		double Number = 0.0;
		const TArray<TSharedPtr<FJsonValue>>* Array = nullptr;
		if (Value->Type == EJson::Number && Value->TryGetNumber(Number))
		{
			Out.Add(Number);
			return true;
		}
		if (!Value->TryGetArray(Array))
		{
			return false;
		}
		for (const TSharedPtr<FJsonValue>& Element : *Array)
		{
			if (!Element || Element->Type != EJson::Number || !Element->TryGetNumber(Number))
			{
				return false;
			}
			Out.Add(Number);
		}
		return true;
	}

	bool ReadVector(const TSharedPtr<FJsonValue>& Value, FVector2D& Out)
	{
		TArray<double> Numbers;
		if (!ReadNumbers(Value, Numbers) || Numbers.Num() != 2)
		{
			return false;
		}
		Out = FVector2D(Numbers[0], Numbers[1]);
		return true;
	}

	/** Padding as one number (all sides), two (horizontal, vertical) or four (left, top, right, bottom). */
	bool ReadMargin(const TSharedPtr<FJsonValue>& Value, FMargin& Out)
	{
		TArray<double> N;
		if (!ReadNumbers(Value, N))
		{
			return false;
		}
		switch (N.Num())
		{
		case 1: Out = FMargin(float(N[0])); return true;
		case 2: Out = FMargin(float(N[0]), float(N[1])); return true;
		case 4: Out = FMargin(float(N[0]), float(N[1]), float(N[2]), float(N[3])); return true;
		default: return false;
		}
	}

	bool ReadHAlign(const FString& Text, EHorizontalAlignment& Out)
	{
		const TPair<const TCHAR*, EHorizontalAlignment> Names[] = { { TEXT("Fill"), HAlign_Fill }, { TEXT("Left"), HAlign_Left }, { TEXT("Center"), HAlign_Center }, { TEXT("Right"), HAlign_Right } };
		for (const auto& [Name, Alignment] : Names)
		{
			if (Text == Name)
			{
				Out = Alignment;
				return true;
			}
		}
		return false;
	}

	bool ReadVAlign(const FString& Text, EVerticalAlignment& Out)
	{
		const TPair<const TCHAR*, EVerticalAlignment> Names[] = { { TEXT("Fill"), VAlign_Fill }, { TEXT("Top"), VAlign_Top }, { TEXT("Center"), VAlign_Center }, { TEXT("Bottom"), VAlign_Bottom } };
		for (const auto& [Name, Alignment] : Names)
		{
			if (Text == Name)
			{
				Out = Alignment;
				return true;
			}
		}
		return false;
	}

	/** "Auto", "Fill" or a number (a fill share). */
	bool ReadChildSize(const TSharedPtr<FJsonValue>& Value, FSlateChildSize& Out)
	{
		FString Text;
		double Share = 0.0;
		if (Value->Type == EJson::String && Value->TryGetString(Text))
		{
			if (Text == TEXT("Auto"))
			{
				Out = FSlateChildSize(ESlateSizeRule::Automatic);
				return true;
			}
			if (Text == TEXT("Fill"))
			{
				Out = FSlateChildSize(ESlateSizeRule::Fill);
				return true;
			}
			return false;
		}
		if (Value->Type == EJson::Number && Value->TryGetNumber(Share))
		{
			Out = FSlateChildSize(ESlateSizeRule::Fill);
			Out.Value = float(Share);
			return true;
		}
		return false;
	}

	void AddProblem(FString& OutError, const FString& Field, const TCHAR* Expected)
	{
		if (!OutError.IsEmpty())
		{
			OutError += TEXT("; ");
		}
		OutError += FString::Printf(TEXT("slot field \"%s\" %s"), *Field, Expected);
	}

	void ApplyCanvasField(UCanvasPanelSlot* Slot, const FString& Field, const TSharedPtr<FJsonValue>& Value, FString& OutError)
	{
		FVector2D Vector;
		TArray<double> N;
		bool bFlag = false;
		if (Field == TEXT("Position"))
		{
			ReadVector(Value, Vector) ? Slot->SetPosition(Vector) : AddProblem(OutError, Field, TEXT("must be [x, y]"));
		}
		else if (Field == TEXT("Size"))
		{
			ReadVector(Value, Vector) ? Slot->SetSize(Vector) : AddProblem(OutError, Field, TEXT("must be [width, height]"));
		}
		else if (Field == TEXT("Alignment"))
		{
			ReadVector(Value, Vector) ? Slot->SetAlignment(Vector) : AddProblem(OutError, Field, TEXT("must be [x, y]"));
		}
		else if (Field == TEXT("AutoSize"))
		{
			Value->Type == EJson::Boolean && Value->TryGetBool(bFlag) ? Slot->SetAutoSize(bFlag) : AddProblem(OutError, Field, TEXT("must be true or false"));
		}
		else if (Field == TEXT("ZOrder"))
		{
			ReadNumbers(Value, N) && N.Num() == 1 ? Slot->SetZOrder(int32(N[0])) : AddProblem(OutError, Field, TEXT("must be a number"));
		}
		else if (Field == TEXT("Anchors") && ReadNumbers(Value, N) && (N.Num() == 1 || N.Num() == 2 || N.Num() == 4))
		{
			Slot->SetAnchors(N.Num() == 4 ? FAnchors(float(N[0]), float(N[1]), float(N[2]), float(N[3]))
				: (N.Num() == 2 ? FAnchors(float(N[0]), float(N[1])) : FAnchors(float(N[0]))));
		}
		else if (Field == TEXT("Offsets") && ReadNumbers(Value, N) && N.Num() == 4)
		{
			Slot->SetOffsets(FMargin(float(N[0]), float(N[1]), float(N[2]), float(N[3])));
		}
		else
		{
			AddProblem(OutError, Field, TEXT("is unknown or malformed for a canvas slot"));
		}
	}

	/** Padding and alignment, shared by every slot but the canvas's; Size only for boxes. */
	template<class SlotType>
	void ApplyAlignedField(SlotType* Slot, const FString& Field, const TSharedPtr<FJsonValue>& Value, FString& OutError)
	{
		FString Text;
		if (Field == TEXT("Padding"))
		{
			ReadMargin(Value, Slot->Padding) ? void() : AddProblem(OutError, Field, TEXT("must be a number or 2 or 4 numbers"));
		}
		else if (Field == TEXT("HAlign"))
		{
			Value->TryGetString(Text) && ReadHAlign(Text, Slot->HorizontalAlignment) ? void() : AddProblem(OutError, Field, TEXT("must be Fill, Left, Center or Right"));
		}
		else if (Field == TEXT("VAlign"))
		{
			Value->TryGetString(Text) && ReadVAlign(Text, Slot->VerticalAlignment) ? void() : AddProblem(OutError, Field, TEXT("must be Fill, Top, Center or Bottom"));
		}
		else if constexpr (requires { Slot->Size; })
		{
			if (Field == TEXT("Size"))
			{
				ReadChildSize(Value, Slot->Size) ? void() : AddProblem(OutError, Field, TEXT("must be \"Auto\", \"Fill\" or a fill share"));
				return;
			}
			AddProblem(OutError, Field, TEXT("is unknown for this slot"));
		}
		else
		{
			AddProblem(OutError, Field, TEXT("is unknown for this slot"));
		}
	}

	template<class SlotType>
	bool TryApplyAligned(UPanelSlot* Slot, const FString& Field, const TSharedPtr<FJsonValue>& Value, FString& OutError)
	{
		if (SlotType* Typed = Cast<SlotType>(Slot))
		{
			ApplyAlignedField(Typed, Field, Value, OutError);
			return true;
		}
		return false;
	}
}

bool UE::UMG::ApplySlotJson(UPanelSlot* Slot, const FJsonObject& Json, FString& OutError)
{
	OutError.Empty();
	for (const auto& [Field, Value] : Json.Values)
	{
		if (!Value)
		{
			continue;
		}
		if (UCanvasPanelSlot* CanvasSlot = Cast<UCanvasPanelSlot>(Slot))
		{
			ApplyCanvasField(CanvasSlot, Field, Value, OutError);
		}
		else if (!TryApplyAligned<UOverlaySlot>(Slot, Field, Value, OutError) && !TryApplyAligned<UHorizontalBoxSlot>(Slot, Field, Value, OutError)
			&& !TryApplyAligned<UVerticalBoxSlot>(Slot, Field, Value, OutError) && !TryApplyAligned<UBorderSlot>(Slot, Field, Value, OutError)
			&& !TryApplyAligned<UButtonSlot>(Slot, Field, Value, OutError) && !TryApplyAligned<USizeBoxSlot>(Slot, Field, Value, OutError))
		{
			AddProblem(OutError, Field, TEXT("is not used: this panel's slots have no layout data"));
		}
	}
	return OutError.IsEmpty();
}
