// Stands in until the controls are there.
#include "system_classes.h"

namespace headless
{
__attribute__((weak)) void RegisterStandardControls() {}
}  // namespace headless
