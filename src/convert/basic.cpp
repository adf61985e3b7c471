#include "convert/basic.h"

#include "convert/basic_to_text.h"
#include "convert/text_to_basic.h"

namespace brindlemoor {

std::string BasicConvert(std::string& data, bool addLineFeed) {
    if (data.empty()) return {};
    return IsTokenized(data) ? BasicToText(data, addLineFeed) : TextToBasic(data);
}

}  // namespace brindlemoor
