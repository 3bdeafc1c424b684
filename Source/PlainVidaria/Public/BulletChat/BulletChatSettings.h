#pragma once

#include "CoreMinimal.h"

/**
 * The viewer's bullet chat preferences as the overlay applies them. The overlay takes them once,
 * when it starts, and hands them to every comment it spawns from then on; reading them from
 * storage is the host's affair, so that no disk access happens inside a tick. The defaults leave
 * the designer's blueprint exactly as it was drawn.
 */
struct FBulletChatSettings
{
	/** The font size the designer's node blueprint is drawn for; other sizes scale from it. */
	static constexpr int32 DefaultFontSize = 24;

	/** Font size for comments; the node's font is scaled by FontSize / DefaultFontSize. */
	int32 FontSize = DefaultFontSize;
	/** Multiplier on every comment's drawn flight speed. */
	float SpeedScale = 1.0f;
	/** Whether comments are shown at all. */
	bool bIsOpened = true;
};
