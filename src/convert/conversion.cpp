#include "convert/conversion.h"

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

std::string ConvertedOrNothing(const std::function<std::string()>& conversion) {
    std::string result;
    const auto failure = FailureOfStep([&] { result = conversion(); });
    if (!failure) return result;
    Platform.ShowMessage(ErrorBoxText(*failure), Disk.AppTitle, Buttons::Ok, MessageIcon::Critical);
    return {};
}

}  // namespace brindlemoor
