#include "workbench/event_dispatcher.h"

#include "core/failure_box.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

bool Dispatch(const std::function<void()>& event) {
    const std::optional<RuntimeFailure> failure = FailureOfStep(event);
    if (!failure) return true;
    ShowFailure(*failure);
    Platform.EndProgram();
    return false;
}

}  // namespace brindlemoor
