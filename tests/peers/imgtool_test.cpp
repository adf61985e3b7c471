#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <ostream>
#include <sstream>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "filesystems/commit.h"
#include "filesystems/delete_file.h"
#include "filesystems/write_file.h"
#include "support/decb_builder.h"
#include "support/dragon_builder.h"
#include "support/write_fixture.h"

// Disks that this program wrote and committed, read by MAME's imgtool.

namespace brindlemoor::test {
namespace {

/// One file of a disk, as imgtool lists and extracts it.
struct PeerFile {
    std::string Attributes;  ///< type and format, as "2 B"; of a Dragon file what its header says
    std::string Bytes;

    bool operator==(const PeerFile&) const = default;
};

std::ostream& operator<<(std::ostream& out, const PeerFile& file) {
    return out << file.Attributes << ", " << file.Bytes.size()
               << " bytes: " << testing::PrintToString(file.Bytes.substr(0, 16));
}

using PeerFiles = std::map<std::string, PeerFile>;

/// What a command prints; `status` is what it ends with.
std::string Output(const std::string& command, int& status) {
    std::string text;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return text;
    std::array<char, 4096> part = {};
    for (std::size_t count = 1; count > 0;) {
        count = std::fread(part.data(), 1, part.size(), pipe);
        text.append(part.data(), count);
    }
    status = pclose(pipe);
    return text;
}

/// A text as one word of a command line.
std::string Quoted(const std::string& text) {
    return "'" + ReplaceText(text, "'", "'\\''") + "'";
}

/// Runs imgtool with that verb on an image.
std::string Imgtool(const std::string& verb, const std::string& format, const std::string& image,
                    const std::string& arguments, int& status) {
    return Output(
        Quoted(BRINDLEMOOR_IMGTOOL) + " " + verb + " " + format + " " + Quoted(image) + arguments,
        status);
}

/// The lines of the listing between its two rules: name, size, attributes, in columns of a fixed
/// width.
PeerFiles ListedFiles(const std::string& listing) {
    PeerFiles files;
    std::istringstream lines(listing);
    std::string line;
    int rules = 0;
    while (std::getline(lines, line)) {
        if (line.rfind("-----", 0) == 0) {
            ++rules;
        } else if (rules == 1 && line.size() > 55 && line.front() != '/') {
            files[TrimRight(line.substr(0, 30))].Attributes = Trim(line.substr(40, 15));
        }
    }
    return files;
}

/// What imgtool says of an error, which stands behind a path.
std::string ErrorOf(const std::string& text) {
    const std::string error = text.substr(text.rfind(": ") + 2);
    return "(" + error.substr(0, error.find('\n')) + ")";
}

/// All files of an image, as imgtool sees them. What it says where it gives up
/// stands in brackets.
PeerFiles ReadByImgtool(const std::string& format, const std::string& image) {
    const std::string folder = FreshFolder();
    const std::string path = WriteTestFile(folder, "disk.dsk", image);
    int status = 0;
    const std::string listing = Imgtool("dir", format, path, "", status);
    PeerFiles files = ListedFiles(listing);
    for (auto& [name, file] : files) {
        const std::string out = folder + "/out";
        int got = 0;
        const std::string text =
            Imgtool("get", format, path, " " + Quoted(name) + " " + Quoted(out), got);
        file.Bytes = got == 0 ? FileBytes(out) : ErrorOf(text);
        std::remove(out.c_str());
    }
    if (status != 0) files["(listing)"].Bytes = ErrorOf(listing);
    return files;
}

// --- The disks ---

constexpr const char* kDecbFormat = "coco_jvc_rsdos";
constexpr const char* kDragonFormat = "coco_jvc_dgndos";
constexpr const char* kDragonFile = ". (001)";  // a file without a header of its own

void Store(const std::string& path, const std::string& data, bool overwrite = false) {
    std::string bytes = data;
    WriteFileToDisk(path, overwrite, bytes);
}

void Remove(const std::string& name) {
    DeleteDiskFile(name);
    DeleteDiskFile();
}

struct PeerCase {
    std::string Name;
    std::string Format;
    std::string Image;           ///< the disk to begin with
    std::function<void()> Work;  ///< what is written and deleted on it
    PeerFiles Stored;            ///< the files that are on it then
    std::string Reason;          ///< the rule that makes imgtool read something else
    PeerFiles Read;              ///< and what it reads
};

void PrintTo(const PeerCase& peerCase, std::ostream* out) {
    *out << peerCase.Name;
}

/// Files of all sizes about a sector and a granule, and of all types.
PeerCase ManyFiles(int tracks) {
    PeerCase result{
        "Decb" + std::to_string(tracks), kDecbFormat, DecbBuilder(tracks).Image(), {}, {}, {}, {}};
    for (const std::size_t size : {1U, 255U, 256U, 257U, 2303U, 2304U, 2305U, 20000U}) {
        result.Stored["F" + std::to_string(size) + ".BIN"] =
            PeerFile{"2 B", Pattern(size, static_cast<unsigned>(size))};
    }
    result.Stored["TEXT.BAS"] = {"0 A", "10 PRINT"};
    result.Stored["TOKENS.BAS"] = {"0 B", "\xFF\x01\x02"};
    result.Stored["DATA.DAT"] = {"1 A", "data"};
    result.Stored["TEXT.TXT"] = {"3 A", "text"};
    result.Stored["NOEXT"] = {"2 B", "no extension"};
    result.Work = [files = result.Stored] {
        for (const auto& [name, file] : files) Store("C:\\PC\\" + LowerCase(name), file.Bytes);
    };
    return result;
}

/// One file that takes all granules.
PeerCase WholeDisk(int tracks) {
    const std::string data = Pattern(68 * 2304 - 1, 1);
    PeerCase result{"Decb" + std::to_string(tracks) + "Full",
                    kDecbFormat,
                    DecbBuilder(tracks).Image(),
                    [data] { Store("ALL.BIN", data); },
                    {{"ALL.BIN", {"2 B", data}}},
                    {},
                    {}};
    if (tracks == 35) {
        result.Reason =
            "granule 67 makes the image a byte longer, and a length that is no number "
            "of sectors is taken for a header";
    }
    return result;
}

PeerCase DeletedAndReplaced() {
    DecbBuilder disk;
    disk.File(0, "ONE", "BIN", 2, 0, {32}, Pattern(700, 1));
    disk.File(1, "TWO", "BIN", 2, 0, {33, 34}, Pattern(3000, 2));
    disk.File(2, "THREE", "BIN", 2, 0, {35}, Pattern(500, 3));
    const std::string data = Pattern(6000, 4);
    return {"DecbDeletedAndReplaced",
            kDecbFormat,
            disk.Image(),
            [data] {
                Remove("TWO.BIN");
                Remove("ONE.BIN");
                Store("TWO.BIN", data, true);
            },
            {{"TWO.BIN", {"2 B", data}}, {"THREE.BIN", {"2 B", Pattern(500, 3)}}},
            {},
            {}};
}

PeerCase Overwritten() {
    const std::string old = Pattern(2400, 1);
    const std::string data = Pattern(5000, 2);
    // Of the new bytes the commit leaves what lies behind the old ones and their filling.
    const std::string left = old + std::string(2295, '\xFF') + data.substr(4695, 9);
    return {"DecbOverwritten",
            kDecbFormat,
            DecbBuilder().File(0, "FILE", "BIN", 2, 0, {10, 11}, old).Image(),
            [data] { Store("FILE.BIN", data, true); },
            {{"FILE.BIN", {"2 B", data}}},
            "the place of the old row is written, which keeps its size and its content, and the "
            "commit adds the new row as a file without granules",
            {{"FILE.BIN", {"2 B", left}}, {"(listing)", {"", "(Corrupt image)"}}}};
}

/// One file of up to four sectors.
PeerCase OneDragonFile(std::size_t size, int tracks) {
    const std::string data = Pattern(size, static_cast<unsigned>(size));
    return {
        "Dragon" + std::to_string(tracks) + "Of" + std::to_string(size),
        kDragonFormat,
        DragonBuilder(tracks).File(0, "OLD", "DAT", {{400, 2}}, Pattern(300, 1)).Image(),
        [data] { Store("new.bin", data); },
        {{"OLD     .DAT", {kDragonFile, Pattern(300, 1)}}, {"NEW     .BIN", {kDragonFile, data}}},
        {},
        {}};
}

PeerCase DeletedDragonFile() {
    DragonBuilder disk;
    disk.File(0, "A", "BIN", {{400, 2}}, Pattern(300, 1));
    disk.File(1, "B", "BIN", {{410, 2}}, Pattern(300, 2));
    return {"DragonDeleted",
            kDragonFormat,
            disk.Image(),
            [] { Remove("B.BIN"); },
            {{"A       .BIN", {kDragonFile, Pattern(300, 1)}}},
            {},
            {}};
}

PeerCase TwoDragonFiles() {
    const std::string one = Pattern(1000, 1);
    const std::string two = Pattern(700, 2);
    return {"DragonTwoFiles",
            kDragonFormat,
            DragonBuilder().Image(),
            [one, two] {
                Store("ONE.BIN", one);
                Store("TWO.BIN", two);
            },
            {{"ONE     .BIN", {kDragonFile, one}}, {"TWO     .BIN", {kDragonFile, two}}},
            "the sectors of a chain are not marked as used, those behind them are: the second file "
            "takes the sectors of the first",
            {{"ONE     .BIN", {kDragonFile, two + one.substr(700)}},
             {"TWO     .BIN", {kDragonFile, two}}}};
}

PeerCase LongDragonFile() {
    const std::string data = Pattern(1025, 1);
    return {
        "DragonOfFiveSectors",
        kDragonFormat,
        DragonBuilder().File(0, "OLD", "DAT", {{400, 2}}, Pattern(300, 1)).Image(),
        [data] { Store("LONG.BIN", data); },
        {{"OLD     .DAT", {kDragonFile, Pattern(300, 1)}}, {"LONG    .BIN", {kDragonFile, data}}},
        "a new file of more than four sectors has no continuation row: four sectors are left of "
        "it, to which the commit writes nothing",
        {{"OLD     .DAT", {kDragonFile, Pattern(300, 1)}},
         {"LONG    .BIN", {kDragonFile, std::string(769, '\0')}}}};
}

PeerCase FirstLongDragonFile() {
    const std::string data = Pattern(1025, 1);
    return {"DragonFirstOfFiveSectors",
            kDragonFormat,
            DragonBuilder().Image(),
            [data] { Store("LONG.BIN", data); },
            {{"LONG    .BIN", {kDragonFile, data}}},
            "without a link its continuation row is row 0, which is itself: it loses its name and "
            "all sectors but the last",
            {{"        .", {kDragonFile, "(File not found)"}}}};
}

std::vector<PeerCase> PeerCases() {
    std::vector<PeerCase> cases;
    for (const int tracks : {35, 40, 80}) {
        cases.push_back(ManyFiles(tracks));
        cases.push_back(WholeDisk(tracks));
    }
    cases.push_back(DeletedAndReplaced());
    cases.push_back(Overwritten());
    for (const std::size_t size : {1U, 255U, 256U, 257U, 1000U, 1024U}) {
        cases.push_back(OneDragonFile(size, 40));
    }
    cases.push_back(OneDragonFile(1000, 80));
    cases.push_back(DeletedDragonFile());
    cases.push_back(TwoDragonFiles());
    cases.push_back(LongDragonFile());
    cases.push_back(FirstLongDragonFile());
    return cases;
}

class ImgtoolTest : public WriteTest, public testing::WithParamInterface<PeerCase> {};

/// Where a reason stands in the table, imgtool reads exactly what the reason lets it.
TEST_P(ImgtoolTest, ReadsWhatWeWrote) {
    const PeerCase& peerCase = GetParam();
    Read(peerCase.Image);
    script_.Messages.clear();
    peerCase.Work();
    CommitDirectory();
    EXPECT_TRUE(script_.Messages.empty());
    const PeerFiles read = ReadByImgtool(peerCase.Format, Disk.ImageBytes);
    if (peerCase.Reason.empty()) {
        EXPECT_EQ(read, peerCase.Stored);
    } else {
        EXPECT_EQ(read, peerCase.Read) << peerCase.Reason;
        EXPECT_NE(read, peerCase.Stored) << "they agree now: " << peerCase.Reason;
    }
}

INSTANTIATE_TEST_SUITE_P(Disks, ImgtoolTest, testing::ValuesIn(PeerCases()),
                         [](const auto& tested) { return tested.param.Name; });

}  // namespace
}  // namespace brindlemoor::test
