#include "core/safe_file_name.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace brindlemoor {
namespace {

TEST(SafeFileName, AnOrdinaryNameStaysByteForByte) {
    for (const char* name : {"ALPHA.BAS", "$(rm).BAS", "a b;c.BAS", "A..B", "\xD1.BIN", "NOEXT."}) {
        EXPECT_EQ(SafeFileName(name), name);
    }
}

TEST(SafeFileName, SeparatorsOfAnyPcBecomeDashes) {
    EXPECT_EQ(SafeFileName("A/B\\C.BAS"), "A-B-C.BAS");
    EXPECT_EQ(SafeFileName("/etc/passwd"), "-etc-passwd");
}

TEST(SafeFileName, ControlBytesBecomeDashes) {
    EXPECT_EQ(SafeFileName(std::string("A\0B\n\x1F\x7F.C", 8)), "A-B---.C");
}

TEST(SafeFileName, DotsInFrontLeadNowhere) {
    EXPECT_EQ(SafeFileName("."), "-");
    EXPECT_EQ(SafeFileName(".."), "--");
    EXPECT_EQ(SafeFileName("../../X"), "---..-X");
    EXPECT_EQ(SafeFileName(".BAS"), "-BAS");
}

TEST(SafeFileName, ADashInFrontStays) {
    EXPECT_EQ(SafeFileName("-rf.BAS"), "-rf.BAS");
}

TEST(SafeFileName, AnEmptyNameGetsOne) {
    EXPECT_EQ(SafeFileName(""), "-");
}

TEST(SafeFileName, NoNameOfTwoBytesLeadsOutOfTheFolder) {
    const std::filesystem::path folder = "/folder";
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string name = {static_cast<char>(first), static_cast<char>(second)};
            const std::filesystem::path path = folder / SafeFileName(name);
            ASSERT_EQ(path.lexically_normal().parent_path(), folder) << first << " " << second;
            ASSERT_EQ(path.string().find('\0'), std::string::npos);
        }
    }
}

}  // namespace
}  // namespace brindlemoor
