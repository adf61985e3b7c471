#pragma once

#include "core/runtime_failure.h"

namespace brindlemoor {

/// Shows the error box of a failure, and returns when the user has pressed its button.
void ShowFailure(const RuntimeFailure& failure);

}  // namespace brindlemoor
