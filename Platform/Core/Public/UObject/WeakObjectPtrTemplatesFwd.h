#pragma once

// Names TWeakObjectPtr for code in Core that holds objects weakly (delegate bindings) without
// seeing UObject. CoreUObject defines it; code using it must be a template instantiated where that
// definition is visible.

template<class T> class TWeakObjectPtr;
