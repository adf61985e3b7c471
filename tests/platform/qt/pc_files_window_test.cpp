#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <filesystem>
#include <string>

#include "core/disk_state.h"
#include "platform/qt/shell.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

TEST_F(WindowTest, AClickOnADiskShowsItsDirectory) {
    ClickFile("COCO.DSK");
    ASSERT_EQ(Directory()->model()->rowCount(), 3);
    EXPECT_EQ(Cell(0, 1), "ALPHA   ");
    EXPECT_EQ(Cell(0, 2), "BAS");
    EXPECT_EQ(Cell(1, 7), "700");
    EXPECT_EQ(Cell(2, 7), "3,000");
    EXPECT_EQ(Find<QLineEdit>("FilePath")->text().toStdString(), PcFolder + "/COCO.DSK");
    EXPECT_EQ(Find<QLabel>("Info")->text().toStdString(),
              "35 Tracks X 18 SecXTracks = 630 Sectors = 161,280 Bytes");
}

TEST_F(WindowTest, ArrowKeysInTheFileListOpenDisksToo) {
    ClickFile("COCO.DSK");
    QTest::keyClick(Files(), Qt::Key_End);
    ASSERT_EQ(Directory()->model()->rowCount(), 1);
    EXPECT_EQ(Cell(0, 1), "SINGLE  ");
}

TEST_F(WindowTest, TheFolderListGoesUpAndDownByDoubleClickAndEnter) {
    namespace fs = std::filesystem;
    fs::create_directories(fs::path(PcFolder) / "inner");
    WriteFile("../pc/inner/DEEP.DSK", "x");
    auto* folders = Find<QListWidget>("Dir1");
    const int parent = PrincipalControl("Dir1").ListIndex - 1;
    // A double click comes behind a click that has marked the entry.
    ClickEntry(folders, parent);
    QTest::mouseDClick(folders->viewport(), Qt::LeftButton, Qt::NoModifier,
                       folders->visualItemRect(folders->item(parent)).center());
    EXPECT_EQ(PrincipalControl("Dir1").Path, fs::path(PcFolder).parent_path().string());
    folders->setFocus();
    const int last = folders->count() - 1;
    ASSERT_EQ(folders->item(last)->text().toStdString(), "pc");
    ClickEntry(folders, last);
    QTest::keyClick(folders, Qt::Key_Return);
    EXPECT_EQ(PrincipalControl("File1").Path, PcFolder);
    EXPECT_EQ(folders->item(folders->count() - 1)->text().toStdString(), "inner");
    EXPECT_EQ(Files()->count(), 3);
}

TEST_F(WindowTest, AFileNameKeepsItsOwnBytes) {
    // One name in the PC's UTF-8, and one that is none: both must be found again by their bytes.
    const std::string utf8 = PcFolder + "/ni\xC3\xB1o.txt";
    WriteFile("../pc/ni\xC3\xB1o.txt", "text");
    WriteFile("../pc/ni\xF1o.txt", "other text");
    QTest::keyClick(Files(), Qt::Key_Home);
    UserAction([] { ClickListEntry(PrincipalControl("DirPattern"), 5); });  // lists anew
    ASSERT_EQ(Files()->count(), 5);
    for (int row = 0; row < Files()->count(); ++row) {
        ClickEntry(Files(), row);
        EXPECT_EQ(
            std::filesystem::file_size(
                PcFolder + "/" + PrincipalControl("File1").Items.at(static_cast<std::size_t>(row))),
            Disk.PcFileBytes.size());
    }
    UserAction([&utf8] { SetText(PrincipalControl("FilePath"), utf8); });
    auto* path = Find<QLineEdit>("FilePath");
    path->setFocus();
    QTest::keyClick(path, Qt::Key_End);
    QTest::keyClick(path, Qt::Key_Backspace);
    EXPECT_EQ(PrincipalControl("FilePath").Text, utf8.substr(0, utf8.size() - 1));
}

TEST_F(WindowTest, AQuoteTypedIntoThePathIsDropped) {
    auto* path = Find<QLineEdit>("FilePath");
    path->setFocus();
    QTest::keyClicks(path, QStringLiteral("a\"b"));
    EXPECT_EQ(path->text().toStdString(), "ab");
    EXPECT_EQ(PrincipalControl("FilePath").Text, "ab");
}

TEST_F(WindowTest, EnterInThePathGoesToItsFolder) {
    namespace fs = std::filesystem;
    const std::string folder = (fs::path(PcFolder) / "else").string();
    fs::create_directories(folder);
    auto* path = Find<QLineEdit>("FilePath");
    path->setFocus();
    path->clear();
    QTest::keyClicks(path, QString::fromStdString(folder));
    QTest::keyClick(path, Qt::Key_Return);
    EXPECT_EQ(PrincipalControl("File1").Path, folder);
    EXPECT_EQ(Files()->count(), 0);
}

TEST_F(WindowTest, APatternPickedFromItsListFiltersTheFiles) {
    auto* patterns = Find<QComboBox>("DirPattern");
    patterns->setFocus();
    QTest::mouseClick(patterns, Qt::LeftButton, Qt::NoModifier,
                      QPoint(patterns->width() - 8, patterns->height() / 2));
    QAbstractItemView* list = patterns->view();
    ASSERT_TRUE(QTest::qWaitFor([list] { return list->isVisible(); }));
    // The list takes no click until the time of a double click has passed.
    const QPoint second = list->visualRect(list->model()->index(1, 0)).center();
    EXPECT_TRUE(QTest::qWaitFor([list, second] {
        if (!list->isVisible()) return true;
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, second);
        return false;
    }));
    EXPECT_EQ(PrincipalControl("DirPattern").ListIndex, 1);
    EXPECT_EQ(Files()->count(), 2);
    EXPECT_EQ(Stored("MuestraActual"), "1");
}

}  // namespace
}  // namespace brindlemoor::test
