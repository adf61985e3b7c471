#include "support/map_reader.h"

#include <gtest/gtest.h>

#include <map>

#include "workbench/map_picture.h"

namespace brindlemoor::test {

namespace {

char LetterOf(int colour) {
    static const std::map<int, char> letters = {{0xFFFFFF, '.'}, {0xC86464, 's'}, {0xFFFF96, 'o'},
                                                {0x64C864, 'f'}, {0x3232FF, 'X'}, {0xB4B4B4, 't'},
                                                {0x00DCDC, 'd'}, {0x00FFFF, 'D'}, {0x000000, 'B'}};
    const auto found = letters.find(colour);
    return found == letters.end() ? '#' : found->second;
}

char StripLetter(int x, int top) {
    const int colour = PixelAt(TrackBlockPicture, x, top);
    for (int y = top; y < top + 11; ++y) {
        if (PixelAt(TrackBlockPicture, x, y) != colour) return '?';
    }
    return LetterOf(colour);
}

/// Whether a pixel lies on the outline of one of the tracks.
bool OnOutline(int x, int y, int tracks) {
    for (int track = 0; track < tracks; ++track) {
        const int left = track % 10 * 19;
        const int top = track / 10 * 12;
        const bool across = x >= left && x <= left + 19 && (y == top || y == top + 12);
        const bool down = y >= top && y <= top + 12 && (x == left || x == left + 19);
        if (across || down) return true;
    }
    return false;
}

bool InTrack(int x, int y, int tracks) {
    return x < 191 && y / 12 * 10 + x / 19 < tracks;
}

}  // namespace

std::vector<std::string> MapRows(int tracks) {
    std::vector<std::string> rows;
    for (int track = 0; track < tracks; ++track) {
        std::string row;
        for (int sector = 1; sector <= 18; ++sector) {
            row += StripLetter(track % 10 * 19 + sector, track / 10 * 12 + 1);
        }
        rows.push_back(row);
    }
    return rows;
}

std::vector<std::string> MapTable(int tracks, const std::string& usual,
                                  const std::vector<std::pair<int, std::string>>& others) {
    std::vector<std::string> rows(static_cast<std::size_t>(tracks), usual);
    for (const auto& [track, row] : others) rows.at(static_cast<std::size_t>(track)) = row;
    return rows;
}

void ExpectOutlines(int tracks, NoTrack elsewhere) {
    for (int y = 0; y < TrackBlockPicture.Height; ++y) {
        for (int x = 0; x < TrackBlockPicture.Width; ++x) {
            const int colour = PixelAt(TrackBlockPicture, x, y);
            if (OnOutline(x, y, tracks)) {
                ASSERT_EQ(colour, 0) << x << "," << y;
            } else if (elsewhere == NoTrack::White && !InTrack(x, y, tracks)) {
                ASSERT_EQ(colour, 0xFFFFFF) << x << "," << y;
            }
        }
    }
}

}  // namespace brindlemoor::test
