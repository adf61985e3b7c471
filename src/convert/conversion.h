#pragma once

#include <functional>
#include <string>

namespace brindlemoor {

/// What `conversion` returns. A failure that ends it is shown in the error box, and the result is
/// empty: nothing to view, nothing to store. What the conversion changed before it failed is the
/// conversion's own care.
std::string ConvertedOrNothing(const std::function<std::string()>& conversion);

}  // namespace brindlemoor
