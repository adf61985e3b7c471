#include "support/manifest.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace brindlemoor::test {
namespace {

using Row = std::vector<std::string>;

// "a,b,c" at the separator; an empty text gives no element.
Row Elements(const std::string& text, char separator) {
    Row elements;
    if (text.empty()) return elements;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string::npos;
         end = text.find(separator, start)) {
        elements.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    elements.push_back(text.substr(start));
    return elements;
}

std::int64_t Number(const std::string& text) {
    return text.empty() ? kNoNumber : std::stoll(text);
}

std::vector<std::int64_t> Numbers(const std::string& text) {
    std::vector<std::int64_t> numbers;
    for (const std::string& element : Elements(text, ',')) numbers.push_back(Number(element));
    return numbers;
}

// "first:count,first:count"
std::vector<ChainPart> Parts(const std::string& text) {
    std::vector<ChainPart> parts;
    for (const std::string& element : Elements(text, ',')) {
        const Row pair = Elements(element, ':');
        parts.push_back({Number(pair.at(0)), Number(pair.at(1))});
    }
    return parts;
}

// The rows of a table below its heading, which must be `columns`.
std::vector<Row> ReadTable(const std::string& file, const std::string& columns) {
    std::istringstream text(ReadTestData(file));
    std::string line;
    std::getline(text, line);
    Row heading = Elements(line, '\t');
    std::string names;
    for (const std::string& name : heading) {
        if (!names.empty()) names += " ";
        names += name;
    }
    if (names != columns) throw std::runtime_error(file + " has the columns " + names);
    std::vector<Row> rows;
    while (std::getline(text, line)) {
        rows.push_back(Elements(line, '\t'));
        if (rows.back().size() != heading.size()) {
            throw std::runtime_error(file + " has a row of another length: " + line);
        }
    }
    if (rows.empty()) throw std::runtime_error(file + " has no rows");
    return rows;
}

}  // namespace

std::vector<ImageFacts> ReadImageTable() {
    std::vector<ImageFacts> table;
    for (const Row& row : ReadTable("images.txt",
                                    "image size sha256 family container tracks sides sectors "
                                    "header_bytes files free_bytes deleted")) {
        table.push_back({row[0], Number(row[1]), row[2], row[3], row[4], Number(row[5]),
                         Number(row[6]), Number(row[7]), Number(row[8]), Number(row[9]),
                         Number(row[10]), Elements(row[11], ',')});
    }
    return table;
}

std::vector<DecbFacts> ReadDecbTable() {
    std::vector<DecbFacts> table;
    for (const Row& row : ReadTable("decb_manifest.txt",
                                    "image name ext size sha256 type_code flag granules "
                                    "first_granule last_sector_bytes chain same_as")) {
        table.push_back({row[0], row[1], row[2], Number(row[3]), row[4], Number(row[5]), row[6],
                         Number(row[7]), Number(row[8]), Number(row[9]), Parts(row[10]), row[11]});
    }
    return table;
}

std::vector<DamagedFacts> ReadDamagedTable() {
    std::vector<DamagedFacts> table;
    for (const Row& row : ReadTable("decb_damaged_manifest.txt",
                                    "image name ext hurt size sha256 chain chain_now")) {
        table.push_back({row[0], row[1], row[2], Number(row[3]) == 1, Number(row[4]), row[5],
                         Numbers(row[6]), Numbers(row[7])});
    }
    return table;
}

std::vector<DragonFacts> ReadDragonTable() {
    std::vector<DragonFacts> table;
    for (const Row& row : ReadTable("dragon_manifest.txt",
                                    "image name ext size sha256 protected type load length exec "
                                    "extents entries same_as")) {
        table.push_back({row[0], row[1], row[2], Number(row[3]), row[4], Number(row[5]) == 1,
                         Number(row[6]), Number(row[7]), Number(row[8]), Number(row[9]),
                         Parts(row[10]), Numbers(row[11]), row[12]});
    }
    return table;
}

std::vector<Os9Facts> ReadOs9Table() {
    std::vector<Os9Facts> table;
    for (const Row& row : ReadTable("os9_manifest.txt",
                                    "image kind path name size sha256 attributes owner modified "
                                    "fd_sector segments same_as")) {
        table.push_back({row[0], row[1] == "directory", row[2], row[3], Number(row[4]), row[5],
                         row[6], row[7], row[8], Number(row[9]), Parts(row[10]), row[11]});
    }
    return table;
}

std::vector<TapeFacts> ReadTapeTable() {
    std::vector<TapeFacts> table;
    for (const Row& row : ReadTable("tape_manifest.txt",
                                    "image rate name type ascii gap exec load name_block "
                                    "data_blocks size sha256 same_as")) {
        table.push_back({row[0], Number(row[1]), row[2], Number(row[3]), Number(row[4]),
                         Number(row[5]), Number(row[6]), Number(row[7]), row[8], Number(row[9]),
                         Number(row[10]), row[11], row[12]});
    }
    return table;
}

std::string TestDataPath(const std::string& file) {
    return std::string(BRINDLEMOOR_TEST_DATA) + "/" + file;
}

std::string ReadTestData(const std::string& file) {
    std::ifstream stream(TestDataPath(file), std::ios::binary);
    if (!stream) throw std::runtime_error(TestDataPath(file) + " cannot be read");
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace brindlemoor::test
