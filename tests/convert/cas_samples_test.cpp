// Tapes that ToolShed 2.2 made (cecb and makewav), and what was read from them. Where we differ,
// the rule that makes us differ stands in a table, and a difference that is gone fails as well.

#include <gtest/gtest.h>

#include <map>

#include "convert/basic_fixture.h"
#include "convert/tape_fixture.h"
#include "core/runtime_failure.h"
#include "support/manifest.h"
#include "support/sha256.h"

namespace brindlemoor::test {
namespace {

using CasSamplesTest = TapeTest;
using Texts = std::vector<std::string>;
using Reasons = std::map<std::string, std::string>;

const Texts kTapes = {"basic", "ascii", "ml", "several", "makewav", "tiny"};

std::string Tape(const std::string& name) {
    return TestData("tape/" + name + ".cas");
}

std::vector<TapeFacts> FactsOf(const std::string& name) {
    return RowsOf(ReadTapeTable(), "tape/" + name + ".cas");
}

/// The tape from each of its files on, with a leader in front: cecb puts zeros between the files,
/// and makewav no leader before them.
Texts FilesOf(const std::string& name) {
    const std::string tape = Tape(name);
    Texts files;
    const std::string nameBlock = std::string("\x55\x3C\0\x0F", 4);
    for (std::size_t at = tape.find(nameBlock); at != std::string::npos;
         at = tape.find(nameBlock, at + 1)) {
        files.push_back(Leader() + tape.substr(at));
    }
    return files;
}

std::string Word(std::int64_t value) {
    return {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
}

/// The contents within a Color Computer's disk file, whose frame is checked.
std::string Contents(const std::string& file, const TapeFacts& facts) {
    const auto size = static_cast<std::size_t>(facts.Size);
    if (facts.Type == 0 && facts.Ascii == 0) {
        EXPECT_EQ(file.substr(0, 3), "\xFF" + Word(facts.Size)) << facts.Name;
        EXPECT_EQ(file.size(), size + 3) << facts.Name;
        return file.substr(3);
    }
    if (facts.Type != 2) return file;
    EXPECT_EQ(file.substr(0, 5), std::string(1, '\0') + Word(facts.Size) + Word(facts.Load))
        << facts.Name;
    EXPECT_EQ(file.substr(5 + size), Hex("FF 0000") + Word(facts.Exec)) << facts.Name;
    return file.substr(5, size);
}

TEST_F(CasSamplesTest, EveryFileOfEveryTapeIsReadAsTheManifestHasIt) {
    std::size_t files = 0;
    for (const std::string& name : kTapes) {
        const std::vector<TapeFacts> facts = FactsOf(name);
        const Texts tapes = FilesOf(name);
        ASSERT_EQ(tapes.size(), facts.size()) << name;
        for (std::size_t i = 0; i < facts.size(); ++i, ++files) {
            const CasResult file = Cas(tapes[i], "X.CAS", 9, 9);
            EXPECT_EQ(Sha256(Contents(file.Data, facts[i])), facts[i].Sha256) << facts[i].Name;
            const Texts extensions = {".BAS", ".DAT", ".BIN"};
            EXPECT_EQ(file.Name,
                      facts[i].Name + extensions.at(static_cast<std::size_t>(facts[i].Type)));
            EXPECT_EQ(file.Type, facts[i].Type) << facts[i].Name;
            EXPECT_EQ(file.AsciiFlag, facts[i].Ascii) << facts[i].Name;
            EXPECT_EQ(file.GapFlag, facts[i].Gap) << facts[i].Name;
        }
    }
    EXPECT_EQ(files, 10U);
    EXPECT_EQ(Shown(), Texts());
}

TEST_F(CasSamplesTest, TapesAsTheToolsMadeThem) {
    Reasons found;
    for (const std::string& name : kTapes) {
        const std::string tape = Tape(name);
        try {
            const CasResult result = Cas(tape, "X.CAS");
            const bool binary = result.Type == 4 && BlocksOf(result.Data).at(0).at(12) == 2;
            found[name] = binary ? "a binary" : result.Type == 4 ? "raw data" : "a tape";
        } catch (const RuntimeFailure& failure) {
            found[name] = failure.Text;
        }
    }
    // A tape is known by five bytes 0x55 at its start. cecb begins with 12 bytes 0, which make a
    // Color Computer's binary; makewav begins with the name block, which is raw data.
    const Reasons expected = {{"basic", "a binary"},   {"ascii", "a binary"},
                              {"ml", "a binary"},      {"several", "a binary"},
                              {"makewav", "raw data"}, {"tiny", "a binary"}};
    EXPECT_EQ(found, expected);
}

TEST_F(CasSamplesTest, FilesGoBackToTheSameBlocks) {
    const std::string kAscii =
        "An ASCII file stops behind its first data block: "
        "Can't perform requested operation";
    const std::string kAsciiMachine =
        "The file of a disk has no ASCII flag for machine language, which is binary: name block";
    const Reasons expected = {{"ascii TABLES", kAscii},
                              {"several RECORDS", kAsciiMachine},
                              {"several NIL", kAsciiMachine}};
    Reasons found;
    std::size_t same = 0;
    for (const std::string& name : kTapes) {
        for (const std::string& tape : FilesOf(name)) {
            const CasResult file = Cas(tape);
            const std::string row = name + " " + file.Name.substr(0, file.Name.find('.'));
            try {
                // On the disk the ASCII flag of a raw file stands beside its name.
                const CasResult again =
                    Cas(file.Data, file.Name, 0, static_cast<std::int16_t>(file.AsciiFlag));
                Texts ours = BlocksOf(again.Data);
                const Texts theirs = BlocksOf(tape);
                if (ours == theirs) {
                    ++same;
                    continue;
                }
                ours.at(0) = theirs.at(0);
                EXPECT_EQ(ours, theirs) << row;
                found[row] = kAsciiMachine;
            } catch (const RuntimeFailure& failure) {
                found[row] = "An ASCII file stops behind its first data block: " + failure.Text;
            }
        }
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(same, 7U);
}

}  // namespace
}  // namespace brindlemoor::test
