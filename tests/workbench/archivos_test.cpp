#include "workbench/archivos.h"

#include <gtest/gtest.h>

#include "support/viewer_fixture.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kCoco("\xFF\x00\x08\x26\x07\x00\x0A\x9E\x00\x00\x00", 11);
const std::string kDragon("\x55\x01\x24\x01\x00\x08\x8B\x8D\xAA\x24\x07\x00\x0A\xA0\x00\x00\x00",
                          17);

class ArchivosTest : public ViewerTest {
  protected:
    static Control& Own(const std::string& name) { return ControlOf(Archivos, name); }
};

TEST_F(ArchivosTest, ShowsTheFileUnderItsPathBesideTheMainWindow) {
    ShowArchivos("/disks/READ.ME", "ONE\rTWO", kViewData);
    EXPECT_EQ(script_.Windows, Texts{"Archivos"});
    EXPECT_EQ(Archivos.Caption, "/disks/READ.ME");
    EXPECT_EQ(Lines(), (Texts{"ONE", "TWO"}));
}

TEST_F(ArchivosTest, TakesCaptionsListsAndChoicesFromTheMainWindow) {
    Choose("Anchos", 2);
    SetText(PrincipalControl("Zoom"), "150%");
    Choose("OpciónChar"_w, 1);
    ShowArchivos("x", "A", kViewData);
    for (int label = 1; label <= 10; ++label) {
        const std::string name = "Label" + std::to_string(label);
        EXPECT_EQ(Own(name).Text, PrincipalControl(name).Text) << name;
        EXPECT_EQ(Own(name).Visible, label >= 7) << name;
    }
    for (const std::string& name :
         {std::string("VerAsc"), "OpciónChar"_w, std::string("Zoom"), std::string("Anchos")}) {
        EXPECT_EQ(Own(name).Items, PrincipalControl(name).Items) << name;
        EXPECT_EQ(Own(name).ListIndex, PrincipalControl(name).ListIndex) << name;
        EXPECT_EQ(Own(name).Text, PrincipalControl(name).Text) << name;
    }
    EXPECT_DOUBLE_EQ(ArchivosViewer.CellWidth, 12);
}

TEST_F(ArchivosTest, WorksOnItsOwnCopy) {
    View("MAIN", kViewData);
    ShowArchivos("x", "\xEFTEXT", kViewData);
    EXPECT_EQ(ArchivosBytes, "o\rTEXT");
    EXPECT_EQ(Disk.PcFileBytes, "MAIN");
    EXPECT_EQ(PrincipalViewer.ViewerText, "MAIN");
    SetListIndex(Own("Anchos"), 4);
    EXPECT_EQ(PrincipalControl("Anchos").ListIndex, 0);
}

TEST_F(ArchivosTest, ADragonProgramStaysInTokens) {
    ShowArchivos("x", kCoco, kViewBasic);
    EXPECT_EQ(ArchivosViewer.ViewerText, "\r10 CLS\r");
    ShowArchivos("x", kDragon, kViewBasic);
    EXPECT_EQ(ArchivosViewer.ViewerText, kDragon);
    View(kDragon, kViewBasic);
    EXPECT_EQ(PrincipalViewer.ViewerText, "\r10 CLS\r");
}

TEST_F(ArchivosTest, AChangeOfZoomSetsTwoSizesAndHasNoUpperEnd) {
    ShowArchivos("x", "TEXT", kViewData);
    EXPECT_EQ(ArchivosZoom.Width, 260);
    SetText(Own("Zoom"), "50%");
    EXPECT_EQ(ArchivosZoom.Width, 130);
    EXPECT_EQ(ArchivosZoom.Height, 130);
    EXPECT_DOUBLE_EQ(ArchivosViewer.CellHeight, 6);
    SetText(Own("Zoom"), "5000%");
    EXPECT_EQ(Own("Zoom").Text, "5000%");
    EXPECT_DOUBLE_EQ(ArchivosViewer.CellWidth, 400);
    SetText(Own("Zoom"), std::string(400, '9') + "%");  // no number is too large
    SetText(Own("Zoom"), "100%");
    EXPECT_FALSE(script_.Ended);
}

TEST_F(ArchivosTest, AResizeLaysOutAndDrawsAnew) {
    ShowArchivos("x", "A\rB", kViewData);
    Lines();
    Archivos.Resize(800 * kTwipsPerPixel, 400 * kTwipsPerPixel);
    EXPECT_FALSE(Lines().empty());
    const Control& picture = Own("Archivo");
    EXPECT_EQ(Own("VScrollA").Left, picture.Left + picture.Width);
    EXPECT_EQ(Own("HScrollA").Top, picture.Top + picture.Height);
    EXPECT_LE(Own("VScrollA").Left + Own("VScrollA").Width, 800 * kTwipsPerPixel);
    EXPECT_LE(Own("Propiedades").Top + Own("Propiedades").Height, 400 * kTwipsPerPixel);
    const int width = picture.Width;
    Archivos.Resize(10, 10);
    EXPECT_EQ(Own("Archivo").Width, width);
}

TEST_F(ArchivosTest, AClosedWindowLetsGoOfTheFile) {
    ShowArchivos("x", std::string(1000, 'A'), kViewData);
    Archivos.Close();
    EXPECT_TRUE(ArchivosBytes.empty());
    EXPECT_TRUE(ArchivosViewer.ViewerText.empty());
    ViewFile(ArchivosViewer, 0);
}

TEST_F(ArchivosTest, KeepsItsSizeForTheNextFile) {
    ShowArchivos("x", "A", kViewData);
    Archivos.Resize(900 * kTwipsPerPixel, 700 * kTwipsPerPixel);
    ShowArchivos("y", "B", kViewData);
    EXPECT_EQ(Archivos.Width, 900 * kTwipsPerPixel);
    EXPECT_EQ(Archivos.Height, 700 * kTwipsPerPixel);
}

TEST_F(ArchivosTest, TheNextFilesPictureIsANewerOneThanTheLast) {
    ShowArchivos("x", "A", kViewData);
    const unsigned before = ArchivosViewer.Surface.Revision;
    ShowArchivos("y", "B", kViewData);
    EXPECT_GT(ArchivosViewer.Surface.Revision, before);
}

}  // namespace
}  // namespace brindlemoor::test
