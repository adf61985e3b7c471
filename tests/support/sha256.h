#pragma once

#include <string>

namespace brindlemoor::test {

/// The SHA-256 digest (FIPS 180-4) of the bytes, as 64 lower-case hexadecimal digits. The tables of
/// tests/data name file contents by it.
std::string Sha256(const std::string& bytes);

}  // namespace brindlemoor::test
