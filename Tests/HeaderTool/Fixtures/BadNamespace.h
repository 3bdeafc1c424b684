#include "BadNamespace.generated.h"

namespace Vidaria
{
	UENUM()
	enum class EInside { A };
}
