#pragma once

// Deprecation markers, as the engine's Core defines them. UE_DEPRECATED(Version, Message) marks a
// declaration the engine has retired since Version; a use of it warns, and with warnings as errors
// fails to build, as it does in the engine. Code that must still touch such a member (the engine's
// own implementation, reflection, tests of the old behaviour) brackets the use with
// PRAGMA_DISABLE_DEPRECATION_WARNINGS / PRAGMA_ENABLE_DEPRECATION_WARNINGS.

#ifndef UE_DEPRECATED
	#define UE_DEPRECATED(Version, Message) [[deprecated(Message " Please update your code to the new API before upgrading to the next release, otherwise your project will no longer compile.")]]
#endif

#ifndef PRAGMA_DISABLE_DEPRECATION_WARNINGS
	#define PRAGMA_DISABLE_DEPRECATION_WARNINGS \
		_Pragma("GCC diagnostic push") \
		_Pragma("GCC diagnostic ignored \"-Wdeprecated-declarations\"")
#endif

#ifndef PRAGMA_ENABLE_DEPRECATION_WARNINGS
	#define PRAGMA_ENABLE_DEPRECATION_WARNINGS _Pragma("GCC diagnostic pop")
#endif
