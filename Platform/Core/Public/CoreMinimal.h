#pragma once

// The engine's everyday umbrella header: fundamental types, strings, text, names, containers,
// smart pointers, math types, time, delegates and logging.

#include "CoreTypes.h"

#include "Containers/Array.h"
#include "Containers/ContainerFwd.h"
#include "Containers/Map.h"
#include "Containers/Set.h"
#include "Delegates/Delegate.h"
#include "Math/Color.h"
#include "Math/IntPoint.h"
#include "Math/UnrealMathUtility.h"
#include "Math/Vector2D.h"
#include "Templates/Function.h"
#include "Templates/SharedPointer.h"
#include "Templates/Tuple.h"
#include "Templates/TypeHash.h"
#include "Templates/UniquePtr.h"
#include "Templates/UnrealTemplate.h"
#include "Containers/StringConv.h"
#include "Containers/UnrealString.h"
#include "CoreGlobals.h"
#include "Internationalization/Text.h"
#include "Logging/LogMacros.h"
#include "Misc/CString.h"
#include "Misc/Char.h"
#include "Misc/DateTime.h"
#include "Misc/Timespan.h"
#include "UObject/NameTypes.h"
