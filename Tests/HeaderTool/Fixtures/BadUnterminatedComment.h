#include "BadUnterminatedComment.generated.h"

/** Never closed
UENUM()
enum class EComment { A };
