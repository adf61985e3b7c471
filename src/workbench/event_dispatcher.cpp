#include "workbench/event_dispatcher.h"

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

bool Dispatch(const std::function<void()>& event) {
    const std::optional<RuntimeFailure> failure = FailureOfStep(event);
    if (!failure) return true;
    Platform.ShowMessage(ErrorBoxText(*failure), Disk.AppTitle, Buttons::Ok, MessageIcon::Critical);
    Platform.EndProgram();
    return false;
}

}  // namespace brindlemoor
