#include "BadDelegateArguments.generated.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(FOnPair, float, First);
