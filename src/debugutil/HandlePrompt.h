// The prompt for a pipeline; both debug menus use it.
#pragma once

#include "tvs-api/Types.h"

/// Prompts for the screen id and, if `askProfile` is set, for the profile (otherwise 1). Fills in both fields and
/// prints them. At the end of input prints nothing; a field that was not read gets the value of the main pipeline.
void PromptForTVSHandle(TVSHandle* handle, bool askProfile);
