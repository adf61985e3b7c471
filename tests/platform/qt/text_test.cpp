#include "platform/qt/text.h"

#include <gtest/gtest.h>

#include <ostream>

namespace brindlemoor {
namespace {

struct TextRow {
    const char* Rule;
    std::string Bytes;
    QString Text;
};

void PrintTo(const TextRow& row, std::ostream* out) {
    *out << row.Rule;
}

class TextRows : public testing::TestWithParam<TextRow> {};

TEST_P(TextRows, ReadBytesAsTheRuleSays) {
    EXPECT_EQ(ToText(GetParam().Bytes).toStdString(), GetParam().Text.toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    ToText, TextRows,
    testing::Values(
        TextRow{"plain letters", "Abc 9~", QStringLiteral("Abc 9~")},
        TextRow{"a lone high byte is Windows-1252", "Pa\xF1uelo", QStringLiteral("Pa\u00F1uelo")},
        TextRow{"bytes 0x80 to 0x9F have their own characters", "\x80\x92",
                QStringLiteral("\u20AC\u2019")},
        TextRow{"two bytes of UTF-8", "Pa\xC3\xB1uelo", QStringLiteral("Pa\u00F1uelo")},
        TextRow{"three bytes of UTF-8", "\xE2\x82\xAC", QStringLiteral("\u20AC")},
        TextRow{"four bytes of UTF-8", "\xF0\x9F\x92\xBE", QStringLiteral("\U0001F4BE")},
        TextRow{"a sequence cut at the end is bytes", "\xE2\x82", QStringLiteral("\u00E2\u201A")},
        TextRow{"a lead byte before a letter is a byte",
                "\xC3"
                "A",
                QStringLiteral("\u00C3A")},
        TextRow{"a longer form than needed is bytes", "\xC0\xAF", QStringLiteral("\u00C0\u00AF")},
        TextRow{"a surrogate in UTF-8 is bytes", "\xED\xA0\x80",
                QStringLiteral("\u00ED\u00A0\u20AC")},
        TextRow{"both in one text", "\xF1 \xC3\xB1", QStringLiteral("\u00F1 \u00F1")},
        TextRow{"a zero byte stays", std::string("a\0b", 3), QString(QLatin1String("a\0b", 3))}));

TEST(Text, EveryByteOf1252ComesBackAsItself) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        EXPECT_EQ(ToBytes(ToText(bytes)), bytes) << byte;
    }
}

TEST(Text, ATextBeyond1252BecomesUtf8Whole) {
    EXPECT_EQ(ToBytes(QStringLiteral("\u00F1")), "\xF1");
    EXPECT_EQ(ToBytes(QStringLiteral("\u00F1\u0416")), "\xC3\xB1\xD0\x96");
}

TEST(Text, BytesThatWouldReadAsAnotherTextAreNotWritten) {
    const QString text = QStringLiteral("\u00C3\u00B1");  // as 1252 bytes these two read as one
    EXPECT_EQ(ToText(ToBytes(text)).toStdString(), text.toStdString());
}

TEST(Text, EditingKeepsTheBytesOfWhatWasLeftAlone) {
    const std::string path = "C:\\\xF1\\\xC3\xB1.DSK";  // the same letter in both ways
    EXPECT_EQ(EditedBytes(path, ToText(path) + QStringLiteral("2")), path + "2");
    EXPECT_EQ(EditedBytes(path, QStringLiteral("D") + ToText(path).mid(1)), "D" + path.substr(1));
    EXPECT_EQ(EditedBytes(path, QString()), "");
    EXPECT_EQ(EditedBytes(path, ToText(path)), path);
}

TEST(Text, WhatIsTypedFollowsTheRest) {
    EXPECT_EQ(EditedBytes("a\xC3\xB1", QStringLiteral("a\u00F1\u00E9")), "a\xC3\xB1\xC3\xA9");
    EXPECT_EQ(EditedBytes("a\xF1", QStringLiteral("a\u00F1\u00E9")), "a\xF1\xE9");
    EXPECT_EQ(EditedBytes("", QStringLiteral("\u00E9")), "\xE9");
}

#ifndef _WIN32
TEST(Text, ATypedPathFromTheRootIsWrittenAsThePcWritesIt) {
    EXPECT_EQ(EditedBytes("/home/", QStringLiteral("/home/\u00E9")), "/home/\xC3\xA9");
}
#endif

TEST(Text, RepeatedLettersDoNotConfuseWhatWasLeftAlone) {
    EXPECT_EQ(EditedBytes("aaa", QStringLiteral("aa")), "aa");
    EXPECT_EQ(EditedBytes("aa", QStringLiteral("aaa")), "aaa");
    EXPECT_EQ(EditedBytes("abab", QStringLiteral("ab")), "ab");
}

TEST(Text, LineBreaksAreCrLfAsBytes) {
    EXPECT_EQ(ToLines("one\r\ntwo").toStdString(), "one\ntwo");
    EXPECT_EQ(LinesToBytes(QStringLiteral("one\ntwo")), "one\r\ntwo");
}

}  // namespace
}  // namespace brindlemoor
