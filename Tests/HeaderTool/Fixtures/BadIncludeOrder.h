#include "BadIncludeOrder.generated.h"
#include "CoreMinimal.h"

UENUM()
enum class EOrder { A };
