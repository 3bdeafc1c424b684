#pragma once

// FWidgetHierarchy: walks the on-screen hierarchy, which runs through two kinds of link: a
// panel's slots to its children, and a user widget to the root of its widget tree. Going up, a
// tree's root leads to the user widget that owns the tree.

#include "CoreMinimal.h"
#include "Templates/Function.h"
#include "Layout/Geometry.h"

class UUserWidget;
class UWidget;

/** Static helpers over the widget hierarchy. Game thread only. */
class FWidgetHierarchy
{
public:
	/** The panel holding Widget, or the user widget whose tree Widget is the root of; null at the top. */
	static UWidget* GetParent(const UWidget* Widget);
	/** Widget's children in paint order (panel children, or a user widget's tree root). */
	static void GetChildren(const UWidget* Widget, TArray<UWidget*>& OutChildren);
	/** True when the top of Widget's hierarchy stands in the viewport. */
	static bool IsOnScreen(const UWidget* Widget);
	/** True when Widget and every widget above it are enabled. */
	static bool IsEnabledInHierarchy(const UWidget* Widget);
	/** Widget's cached geometry moved by the render translations of it and its parents. */
	static FGeometry GetPaintGeometry(const UWidget* Widget);
	/** Calls Visitor for Root and every widget below it, parents first. */
	static void ForEachWidget(UWidget* Root, TFunctionRef<void(UWidget*)> Visitor);
	/** The user widgets of Root's hierarchy (Root included), parents first or children first. */
	static void CollectUserWidgets(UWidget* Root, bool bParentsFirst, TArray<UUserWidget*>& Out);
	/** Zeroes the cached geometry of Root and every widget below it. */
	static void ResetGeometry(UWidget* Root);
};
