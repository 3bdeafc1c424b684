#include "CoreMinimal.h"
#include "Logging/LogCapture.h"

void ProbeForgetLog() { UE::Log::ClearCapturedLines(); }
