#include "image/dk_header.h"

#include <algorithm>
#include <cmath>

#include "core/byte_helpers.h"
#include "core/numbers.h"

namespace brindlemoor {

namespace {

constexpr int kMajorUnit = 16;
constexpr double kMinorUnit = 100;
constexpr double kMostVersion = 15.4;
constexpr double kMostFraction = 0.15;
constexpr int kNameLengthUnit = 8;

double VersionNumber(const std::string& text) {
    return TypedNumber(CutBytes(text, 1, static_cast<std::int64_t>(text.size())));
}

std::string TextOfVersion(double version) {
    return FormatNumber(version, "V#0.00");
}

char ByteOf(double number) {
    return static_cast<char>(WholeNumber8(number));
}

}  // namespace

std::string VersionText(int byte) {
    return TextOfVersion(byte / kMajorUnit + (byte % kMajorUnit) / kMinorUnit);
}

int VersionByte(const std::string& text) {
    const double version = VersionNumber(text);
    const double whole = std::floor(version);
    return WholeNumber8(whole * kMajorUnit + (version - whole) * kMinorUnit);
}

std::string NormaliseVersion(const std::string& text) {
    const double version = VersionNumber(text);
    if (version > kMostVersion) return TextOfVersion(kMostVersion);
    if (version < 0) return TextOfVersion(0);
    const double whole = std::floor(version);
    return TextOfVersion(whole + std::min(version - whole, kMostFraction));
}

std::string DkHeaderOf(const DkHeaderFields& fields) {
    std::string header = Left(fields.Signature, kDkLength);
    header += NumberToBytes(fields.Length, 2, "");
    header += ByteOf(VersionByte(fields.Version));
    header += ByteOf(VersionByte(fields.Compatibility));
    header += ByteOf(fields.SourceId);
    header += ByteOf(VersionByte(fields.SourceVersion));
    header += ByteOf(fields.Tracks);
    header += ByteOf(fields.Sides);
    header += ByteOf(fields.Flags);
    header += ByteOf(fields.Compression + fields.NameLength * kNameLengthUnit);
    return header + fields.Name;
}

}  // namespace brindlemoor
