#pragma once

#include <string>

// The fields of a "dk" header as the header editor writes them:
//
//    0  2  signature, "dk" for a disk, "DK" for a ROM of DOS
//    2  2  header length, low byte first: 12 and the length of the name
//    4  1  version: major number in bits 4 to 7, minor number, in hundredths, in bits 0 to 3
//    5  1  version with which it is compatible, in the same form
//    6  1  id of the program that made it
//    7  1  version of that program, in the same form
//    8  1  tracks
//    9  1  sides
//   10  1  flags: bit 0 write protect, 1 advisory lock, 2 mandatory lock, 3 not the set's last disk
//   11  1  bits 0 to 2 compression code, bits 3 to 7 length of the disk name
//   12     disk name, and what the compression keeps behind it

namespace brindlemoor {

/// Bytes of a header before its name, and the offsets of the fields there.
inline constexpr int kDkHeaderBytes = 12;
enum DkHeaderOffset : int {
    kDkSignature = 0,
    kDkLength = 2,
    kDkVersion = 4,
    kDkCompatibility = 5,
    kDkSourceId = 6,
    kDkSourceVersion = 7,
    kDkTracks = 8,
    kDkSides = 9,
    kDkFlags = 10,
    kDkNameLength = 11,
    kDkName = 12,
};

/// The text of a version byte: 19 is "V1.03".
std::string VersionText(int byte);

/// The byte of such a text; its first character is passed over. Fails with 6 on a version above
/// 15 and 15 hundredths, whose byte would be beyond 255.
int VersionByte(const std::string& text);

/// A version as a person typed it, in the same form: above 15.4 it becomes "V15.40", below 0
/// "V0.00"; of any other a fraction above 15 hundredths becomes that.
std::string NormaliseVersion(const std::string& text);

/// What the fields of a header hold. The numbers are as they were typed.
struct DkHeaderFields {
    std::string Signature;
    double Length = 0;
    std::string Version;
    std::string Compatibility;
    double SourceId = 0;
    std::string SourceVersion;
    double Tracks = 0;
    double Sides = 0;
    double Flags = 0;
    double Compression = 0;
    double NameLength = 0;
    std::string Name;
};

/// The header of these fields. Fails with 6 on a number that its field cannot hold: outside 0 to
/// 255, or for the length outside 16 bits with a sign.
std::string DkHeaderOf(const DkHeaderFields& fields);

}  // namespace brindlemoor
