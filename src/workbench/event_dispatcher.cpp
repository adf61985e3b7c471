#include "workbench/event_dispatcher.h"

#include "core/byte_helpers.h"
#include "core/failure_box.h"
#include "core/platform.h"
#include "core/runtime_failure.h"
#include "core/settings.h"
#include "image/rescue_copy.h"

namespace brindlemoor {

namespace {

/// A program that has to end keeps what was not saved, and says where.
std::string RescueText() {
    const std::string copy = RescueImage();
    if (copy.empty()) return {};
    const bool spanish = Settings.LanguageIndex != 0;
    return "\r\n\r\n" +
           (spanish ? "Los cambios del disco que no estaban grabados quedan en:"_w
                    : "The disk with its unsaved changes was kept as:"_w) +
           "\r\n" + copy;
}

}  // namespace

bool Dispatch(const std::function<void()>& event) {
    const std::optional<RuntimeFailure> failure = FailureOfStep(event);
    if (!failure) return true;
    ShowFailure({failure->Number, failure->Text + RescueText()});
    Platform.EndProgram();
    return false;
}

}  // namespace brindlemoor
