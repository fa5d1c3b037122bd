// The prompt for a pipeline, for both debug menus.
#pragma once

#include "tvs-api/Types.h"

/// Prompts for the screen id and, if `askProfile`, for the profile (otherwise 1), fills in both fields and prints them.
/// At the end of input the fields that were not read are those of the main pipeline, and nothing is printed.
void PromptForTVSHandle(TVSHandle* handle, bool askProfile);
