#pragma once

// Miscellaneous definitions every module sees through CoreTypes.h, as the engine's header of the
// same name gives them. Only what the declarations of this tree use is here.

// Marks an API that still works but will go: callers get a compiler warning (an error under
// -Werror) naming the replacement. Version is the release that deprecated it, e.g. 5.1.
#define UE_DEPRECATED(Version, Message) [[deprecated(Message " Please update your code to the new API before upgrading to the next release, otherwise your project will no longer compile.")]]

// Brackets code that must still touch a deprecated member (an engine class's own implementation,
// reflection code) without a warning. Always used as a pair.
#define PRAGMA_DISABLE_DEPRECATION_WARNINGS \
	_Pragma("GCC diagnostic push") \
	_Pragma("GCC diagnostic ignored \"-Wdeprecated-declarations\"")
#define PRAGMA_ENABLE_DEPRECATION_WARNINGS _Pragma("GCC diagnostic pop")
