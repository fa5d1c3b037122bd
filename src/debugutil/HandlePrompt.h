// The prompt for a pipeline that both debug menus show.
#pragma once

#include "tvs-api/Types.h"

/// Asks for the screen id and, if `askProfile`, for the profile (otherwise 1), fills in both fields and prints them.
/// At the end of input the fields not answered are those of the main pipeline, and nothing is printed.
void PromptForTVSHandle(TVSHandle* handle, bool askProfile);
