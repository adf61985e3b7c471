// Maps of disks that are damaged, or made to do harm.

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "core/runtime_failure.h"
#include "support/decb_builder.h"
#include "support/disk_fixture.h"
#include "support/dragon_builder.h"
#include "support/flex_builder.h"
#include "support/map_fixture.h"
#include "support/map_reader.h"
#include "support/os9_builder.h"

namespace brindlemoor {
namespace {

using test::Pattern;

class MapDamageTest : public test::MapTest {
  protected:
    static double MillisecondsOf(const std::function<void()>& step) {
        const auto start = std::chrono::steady_clock::now();
        step();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        return time.count();
    }
};

// All 1,701 rows with 48 segments of 65,535 sectors each: painted strip by strip that would be
// five thousand million.
TEST_F(MapDamageTest, FilesThatLieOverEachOtherThousandsOfTimesArePaintedAtOnce) {
    NewDirectory(kOs9);
    Disk.TrackCount = 32767;
    Disk.SectorsPerTrack = 255;
    Disk.ImageBytes = "any";
    Disk.FatBytes.assign(65535, '\0');
    std::string chain;
    for (int segment = 0; segment < 48; ++segment) chain += std::string("\0\0\0\xFF\xFF", 5);
    for (int row = 0; row < kDirTableRows; ++row) AddEntry("FILE").Chain = chain;
    EXPECT_LT(MillisecondsOf([] { PaintTrackBlock(5); }), 2000);
    EXPECT_EQ(test::MapRows(270)[269], "XXXXXXXXXXXXXXXXXX");
}

TEST_F(MapDamageTest, SegmentsThatWouldOverflowAreClipped) {
    NewDirectory(kOs9);
    Disk.TrackCount = 35;
    Disk.SectorsPerTrack = 18;
    Disk.ImageBytes = "any";
    Disk.FatBytes.clear();
    AddEntry("FILE").Chain = std::string("\xFF\xFF\xFF\xFF\xFF", 5);
    AddEntry("ALSO").Chain = std::string("\0\0\5\xFF\xFF", 5);
    PaintTrackBlock(-1);
    EXPECT_EQ(test::MapRows(35)[0], ".....ooooooooooooo");
    EXPECT_EQ(test::MapRows(35)[34], "oooooooooooooooooo");
}

// A chain that runs in a loop makes the disk an OS-9 one, with the rows of Disk BASIC.
TEST_F(MapDamageTest, ADiskThatChangedItsFamilyWhileItWasReadIsPainted) {
    test::DecbBuilder disk;
    disk.File(0, "LOOP    ", "BIN", 2, 0, {3, 4}, Pattern(3000, 1)).Fat(4, 3);
    Show(disk.Image());
    EXPECT_EQ(Disk.DiskFamily, kOs9);
    ShowRowOnMap(0);
    EXPECT_NE(Text("EditFAT"), "");
}

/// What a user may do to the sector view, at random.
void ActAtRandom(std::mt19937& random) {
    static const std::vector<std::string> texts = {"",   "-1", "0",   "1",     "17",   "18",
                                                   "36", "x",  "3.5", "70000", "1e99", "FAT"};
    const int x = static_cast<int>(random() % 500) - 50;
    const int y = static_cast<int>(random() % 500) - 50;
    Control& map = PrincipalControl("TrackBlock");
    const auto typeInto = [&](const char* name) {
        SetText(PrincipalControl(name), texts[random() % texts.size()]);
    };
    const auto scroll = [&](const char* name) {
        Control& bar = PrincipalControl(name);
        const auto range = static_cast<unsigned>(bar.Maximum - bar.Minimum + 1);
        SetValue(bar, bar.Minimum + static_cast<int>(random() % range));
    };
    switch (random() % 9) {
        case 0:
            typeInto("Track");
            break;
        case 1:
            typeInto("Sector");
            break;
        case 2:
            typeInto("Granulo");
            break;
        case 3:
            scroll("HScroll1");
            break;
        case 4:
            scroll("VScroll1");
            break;
        case 5:
            map.MouseDown({x, y, true, false});
            break;
        case 6:
            map.MouseMove({x, y, random() % 2 == 0, false});
            break;
        case 7:
            map.Key(36 + static_cast<int>(random() % 6));
            break;
        default:
            ListDirec.RowClick(static_cast<int>(random() % 200) - 2);
            break;
    }
    ASSERT_FALSE(WindowBusy);
}

void ShowHostile(const std::string& image, std::mt19937& random) {
    Disk.ImageBytes = image;
    // A disk that cannot be read keeps what was known of it: the map has to take that as well.
    FailureOfStep([] { ReadDisk(); });
    PaintTrackBlock(static_cast<int>(random() % 20) - 1);
    DrawSectorMap(-1);
    for (int event = 0; event < 12; ++event) ActAtRandom(random);
}

class MapSpoiledTest : public MapDamageTest, public testing::WithParamInterface<int> {
  protected:
    static std::string Good(int family) {
        if (family == kDecb) {
            test::DecbBuilder disk;
            disk.File(0, "ALPHA   ", "BIN", 2, 0, {3, 4, 40}, Pattern(6000, 1));
            disk.File(1, "BETA    ", "BIN", 2, 0, {5}, Pattern(100, 1));
            return disk.Image();
        }
        if (family == kDragon) {
            test::DragonBuilder disk(40, 36);
            disk.File(0, "ALPHA", "BIN", {{40, 20}, {100, 5}}, Pattern(25 * 256, 1));
            return disk.Image();
        }
        if (family == kOs9) {
            test::Os9Builder disk;
            disk.File(10, Pattern(600, 1)).File(20, Pattern(700, 2));
            return disk.RootNames({{"ALPHA", 10}, {"BETA", 20}}).Image();
        }
        test::FlexBuilder disk;
        disk.File(0, "ALPHA", "TXT", {{1, 1}, {1, 2}}, Pattern(400, 1));
        return disk.Image();
    }

    /// Where a family keeps what decides its map.
    static std::size_t System(int family) {
        if (family == kDecb) return 78592;
        return family == kDragon ? 92160 : 0;
    }
};

TEST_P(MapSpoiledTest, SpoiledDisksAreShownAndTakeEveryAction) {
    std::mt19937 random(static_cast<unsigned>(GetParam()) + 7);
    const std::string good = Good(GetParam());
    std::string image;
    for (int round = 0; round < 120; ++round) {
        if (round % 10 == 0) image = good;
        for (int change = 0; change < 6; ++change) {
            const std::size_t place = System(GetParam()) + random() % 1500;
            image.at(place) = static_cast<char>(random() & 0xFF);
        }
        ShowHostile(image, random);
        if (HasFatalFailure()) FAIL() << "round " << round;
    }
}

TEST_P(MapSpoiledTest, DisksCutAnywhereAreShownAndTakeEveryAction) {
    std::mt19937 random(static_cast<unsigned>(GetParam()) + 70);
    const std::string good = Good(GetParam());
    for (int round = 0; round < 120; ++round) {
        ShowHostile(good.substr(0, random() % good.size()), random);
        if (HasFatalFailure()) FAIL() << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Families, MapSpoiledTest,
                         testing::Values<int>(kDecb, kDragon, kOs9, kFlex));

}  // namespace
}  // namespace brindlemoor
