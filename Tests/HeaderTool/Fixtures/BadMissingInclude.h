#include "CoreMinimal.h"

UENUM()
enum class EMissing { A };
