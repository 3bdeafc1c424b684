#pragma once

// Types the UMG widgets wrap around Slate's: visibility and the size rule of box slots.

#include "CoreMinimal.h"
#include "SlateWrapperTypes.generated.h"

/** Whether a widget is drawn, takes room in layout and can be hit by the pointer. */
UENUM(BlueprintType)
enum class ESlateVisibility : uint8
{
	/** Drawn, takes room, can be hit. */
	Visible,
	/** Not drawn and takes no room. */
	Collapsed,
	/** Not drawn, but takes its room. */
	Hidden,
	/** Drawn and takes room; neither it nor its children can be hit. */
	HitTestInvisible,
	/** Drawn and takes room; it cannot be hit, its children can. */
	SelfHitTestInvisible
};

/** How a box slot sizes its child along the box's direction. */
UENUM(BlueprintType)
namespace ESlateSizeRule
{
	enum Type
	{
		/** The child's desired size. */
		Automatic,
		/** A share of the room left after the automatic slots, by the slot's value. */
		Fill
	};
}

/** The size rule of a box slot and, for Fill, its share. */
USTRUCT(BlueprintType)
struct UMG_API FSlateChildSize
{
	GENERATED_BODY()

	/** Fill with a share of 1. */
	FSlateChildSize() = default;
	/** The given rule with a share of 1. */
	FSlateChildSize(ESlateSizeRule::Type InSizeRule) : SizeRule(InSizeRule) {}

	/** The share of the free room this slot takes, against the other Fill slots. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	float Value = 1.0f;

	/** Automatic or Fill. */
	UPROPERTY(EditAnywhere, Category = "Appearance")
	ESlateSizeRule::Type SizeRule = ESlateSizeRule::Fill;
};
