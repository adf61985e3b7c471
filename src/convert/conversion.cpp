#include "convert/conversion.h"

#include "core/failure_box.h"

namespace brindlemoor {

std::string ConvertedOrNothing(const std::function<std::string()>& conversion) {
    std::string result;
    const auto failure = FailureOfStep([&] { result = conversion(); });
    if (!failure) return result;
    ShowFailure(*failure);
    return {};
}

}  // namespace brindlemoor
