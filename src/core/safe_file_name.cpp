#include "core/safe_file_name.h"

#include <string_view>

#include "core/byte_helpers.h"

namespace brindlemoor {

namespace {

constexpr char kStandIn = '-';
constexpr unsigned char kLastControl = 31;
constexpr unsigned char kDelete = 127;

bool LosesItsMeaning(char character) {
    constexpr std::string_view kWindowsCharacters = ":|?\"";
    const auto byte = static_cast<unsigned char>(character);
    if (byte <= kLastControl || byte == kDelete) return true;
    if (character == '/' || character == '\\') return true;
    return PathSeparator() == '\\' && kWindowsCharacters.find(character) != std::string_view::npos;
}

}  // namespace

std::string SafeFileName(const std::string& name) {
    std::string safe = name;
    for (char& character : safe) {
        if (LosesItsMeaning(character)) character = kStandIn;
    }
    for (char& character : safe) {
        if (character != '.') break;
        character = kStandIn;
    }
    return safe.empty() ? std::string(1, kStandIn) : safe;
}

}  // namespace brindlemoor
