#pragma once

#include "Enums.generated.h"

UENUM(BlueprintType)
enum class EPlayState : uint8
{
	Stopped,
	Playing = 3 UMETA(DisplayName = "Now playing"),
	Paused UMETA(DisplayName = "暂停", Hidden),
};

UENUM()
enum EPlainKind
{
	KindA,
	KindB = KindA + 2
};

UENUM()
namespace ESelectInfo
{
	enum Type : int
	{
		OnKeyPress,
		Direct,
	};
}
