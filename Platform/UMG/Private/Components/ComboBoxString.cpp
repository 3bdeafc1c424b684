#include "Components/ComboBoxString.h"
#include "Components/DefaultWidgetStyle.h"
#include "Rendering/SlateDrawList.h"

#include "Fonts/FontMeasure.h"

namespace
{
	/** The default style's padding around the text and the drop-down arrow's width. */
	constexpr double ComboPaddingX = 4.0;
	constexpr double ComboPaddingY = 2.0;
	constexpr double ComboArrowWidth = 16.0;
}

// The combo box's own accessors are where its deprecated member may still be named.
PRAGMA_DISABLE_DEPRECATION_WARNINGS

UComboBoxString::UComboBoxString()
{
	// The engine's default combo box font is the regular face at 10 points.
	Font.TypefaceFontName = FName(TEXT("Regular"));
	Font.Size = 10.0f;
}

UComboBoxString::~UComboBoxString() = default;

const FSlateFontInfo& UComboBoxString::GetFont() const
{
	return Font;
}

PRAGMA_ENABLE_DEPRECATION_WARNINGS

void UComboBoxString::AddOption(const FString& Option)
{
	DefaultOptions.Add(Option);
}

void UComboBoxString::ClearSelection()
{
	SelectedOption.Empty();
}

FString UComboBoxString::GetSelectedOption() const
{
	return SelectedOption;
}

int32 UComboBoxString::GetSelectedIndex() const
{
	return FindOptionIndex(SelectedOption);
}

int32 UComboBoxString::GetOptionCount() const
{
	return DefaultOptions.Num();
}

bool UComboBoxString::RemoveOption(const FString& Option)
{
	const int32 Index = FindOptionIndex(Option);
	if (Index == INDEX_NONE)
	{
		return false;
	}
	if (DefaultOptions[Index].Equals(SelectedOption, ESearchCase::CaseSensitive))
	{
		SelectedOption.Empty();
	}
	DefaultOptions.RemoveAt(Index);
	return true;
}

int32 UComboBoxString::FindOptionIndex(const FString& Option) const
{
	for (int32 Index = 0; Index < DefaultOptions.Num(); ++Index)
	{
		if (DefaultOptions[Index].Equals(Option, ESearchCase::CaseSensitive))
		{
			return Index;
		}
	}
	return INDEX_NONE;
}

FString UComboBoxString::GetOptionAtIndex(int32 Index) const
{
	return DefaultOptions.IsValidIndex(Index) ? DefaultOptions[Index] : FString();
}

void UComboBoxString::ClearOptions()
{
	DefaultOptions.Empty();
	SelectedOption.Empty();
}

void UComboBoxString::SetSelectedOption(FString Option)
{
	SelectOption(Option, ESelectInfo::Direct);
}

void UComboBoxString::SetSelectedIndex(const int32 Index)
{
	if (DefaultOptions.IsValidIndex(Index))
	{
		SelectOption(DefaultOptions[Index], ESelectInfo::Direct);
	}
}

bool UComboBoxString::SelectOption(const FString& Option, ESelectInfo::Type SelectionType)
{
	const int32 Index = FindOptionIndex(Option);
	if (Index == INDEX_NONE)
	{
		return false;
	}
	// As Slate's combo box, only a change of selection is announced.
	if (DefaultOptions[Index].Equals(SelectedOption, ESearchCase::CaseSensitive))
	{
		return true;
	}
	SelectedOption = DefaultOptions[Index];
	OnSelectionChanged.Broadcast(SelectedOption, SelectionType);
	return true;
}

FVector2D UComboBoxString::ComputeDesiredSize() const
{
	const FSlateFontMeasure& Measure = FSlateFontMeasure::Get();
	double Width = 0.0;
	for (const FString& Option : DefaultOptions)
	{
		Width = FMath::Max(Width, Measure.Measure(Option, GetFont()).X);
	}
	const double Height = Measure.GetMaxCharacterHeight(GetFont());
	return FVector2D(Width + 2.0 * ComboPaddingX + ComboArrowWidth, Height + 2.0 * ComboPaddingY);
}

void UComboBoxString::PaintSelf(FSlateWindowElementList& OutDrawElements, const FGeometry& Geometry, float Opacity) const
{
	const FPaintRect Box = FPaintRect::FromBox(Geometry.GetAbsolutePosition(), Geometry.GetLocalSize());
	FSlateDrawElement::MakeBox(OutDrawElements, Box, DefaultWidgetStyle::ButtonFace, Opacity);
	FSlateDrawElement::MakeFrame(OutDrawElements, Box, 1, DefaultWidgetStyle::BoxEdge, Opacity);
	const FVector2D Arrow(Box.Right - 14, (Box.Top + Box.Bottom) / 2 - 2);
	FSlateDrawElement::MakeLine(OutDrawElements, Arrow, Arrow + FVector2D(4, 4), 1.5f, DefaultWidgetStyle::Tick, Opacity);
	FSlateDrawElement::MakeLine(OutDrawElements, Arrow + FVector2D(4, 4), Arrow + FVector2D(8, 0), 1.5f, DefaultWidgetStyle::Tick, Opacity);
	FSlateDrawElement::MakeText(OutDrawElements, Geometry.GetAbsolutePosition() + FVector2D(4, 2), GetSelectedOption(), FSlateFontInfo(FName(TEXT("Regular")), 10),
		FLinearColor::White, Opacity);
}
