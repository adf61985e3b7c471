#include "platform/qt/outside_drops.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSysInfo>
#include <QTest>
#include <QUrl>
#include <filesystem>
#include <memory>
#include <string>

#include "core/disk_state.h"
#include "core/platform.h"
#include "platform/qt/shell.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

namespace fs = std::filesystem;

/// The program, and images in a folder that its list does not show yet.
class OutsideDropsTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        Elsewhere_ = (fs::path(PcFolder).parent_path() / "else where").string();
        fs::create_directories(Elsewhere_);
        fs::copy_file(PcFolder + "/COCO.DSK", Elsewhere_ + "/First #1.dsk");
        fs::copy_file(PcFolder + "/COCO.DSK", Elsewhere_ + "/ni\xF1o.dsk");
        fs::copy_file(PcFolder + "/NOTE.TXT", Elsewhere_ + "/NOTE.TXT");
    }

    /// The address of a file, as file managers send it.
    QUrl At(const std::string& name) const {
        const QByteArray path = QByteArray::fromStdString(Elsewhere_ + "/" + name);
        return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"));
    }

    /// Drags addresses over the widget at a place of the window and drops them there if they are
    /// taken. Returns whether they were.
    bool Drop(const QList<QUrl>& urls, QWidget* over = nullptr) {
        const bool taken = DropOnly(urls, over);
        if (taken) QTest::qWait(20);
        return taken;
    }

    /// The same without the time in which the drop does its work.
    bool DropOnly(const QList<QUrl>& urls, QWidget* over = nullptr) {
        QMimeData data;
        data.setUrls(urls);
        data.setText(QStringLiteral("text of the same"));
        QWidget* widget = over == nullptr ? Window_.Widget.get() : over;
        const QPoint middle = widget->rect().center();
        const auto actions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
        QDragEnterEvent enter(middle, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &enter);
        if (!enter.isAccepted()) return false;
        QDragMoveEvent move(middle, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &move);
        EXPECT_TRUE(move.isAccepted());
        QDropEvent drop(middle, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &drop);
        EXPECT_TRUE(drop.isAccepted());
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);         // the file manager keeps its file
        EXPECT_EQ(PrincipalControl("File1").Path, PcFolder);  // nothing before its drag has ended
        return true;
    }

    std::string Elsewhere_;
};

TEST_F(OutsideDropsTest, OneImageIsShownInItsFolderAndClicked) {
    EXPECT_TRUE(Drop({At("First #1.dsk")}));
    EXPECT_EQ(PrincipalControl("File1").Path, Elsewhere_);
    ASSERT_EQ(Files()->count(), 3);
    EXPECT_TRUE(Files()->item(0)->isSelected());
    EXPECT_EQ(Files()->item(0)->text().toStdString(), "First #1.dsk");
    EXPECT_EQ(Find<QLineEdit>("FilePath")->text().toStdString(), Elsewhere_ + "/First #1.dsk");
    EXPECT_EQ(Directory()->model()->rowCount(), 3);
}

TEST_F(OutsideDropsTest, ANameKeepsItsOwnBytes) {
    EXPECT_TRUE(Drop({At("ni\xF1o.dsk")}));
    EXPECT_EQ(PrincipalControl("PathDsk").Text, Elsewhere_ + "/ni\xF1o.dsk");
}

TEST_F(OutsideDropsTest, TheListsAndBoxesOfTheWindowLeaveFilesToIt) {
    QWidget* const places[] = {Find<QLineEdit>("FilePath"),
                               Find<QComboBox>("DirPattern")->lineEdit(), Find<QWidget>("EditFAT"),
                               Files()->viewport(), Directory()->viewport()};
    for (QWidget* place : places) {
        EXPECT_TRUE(Drop({At("First #1.dsk")}, place)) << place->objectName().toStdString();
        EXPECT_EQ(PrincipalControl("PathDsk").Text, Elsewhere_ + "/First #1.dsk");
        // The box of the allocation bytes got no text of the drop: it holds numbers alone.
        const std::string& bytes = PrincipalControl("EditFAT").Text;
        EXPECT_EQ(bytes.find_first_not_of("0123456789 "), std::string::npos) << bytes;
        UserAction([this] {
            SetText(PrincipalControl("FilePath"), PcFolder);
            PrincipalControl("FilePath").Leave();
            SetText(PrincipalControl("PathDsk"), "");
        });
    }
}

TEST_F(OutsideDropsTest, TextIsStillTakenByTheBoxes) {
    QMimeData data;
    data.setText(QStringLiteral("text"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Find<QLineEdit>("FilePath"), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDragEnterEvent other(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window_.Widget.get(), &other);
    EXPECT_FALSE(other.isAccepted());
}

TEST_F(OutsideDropsTest, OtherDropsAreRefused) {
    EXPECT_FALSE(Drop({At("NOTE.TXT")}));
    EXPECT_FALSE(Drop({At("")}));
    EXPECT_FALSE(Drop({At("GONE.DSK")}));
    EXPECT_FALSE(Drop({At("First #1.dsk"), At("ni\xF1o.dsk")}));

    EXPECT_FALSE(Drop({At("NOTE.TXT")}, Find<QLineEdit>("FilePath")));
    EXPECT_FALSE(Drop({QUrl(QStringLiteral("https://example.org/First.dsk"))}));
    QUrl remote = At("First #1.dsk");
    remote.setHost(QStringLiteral("another-machine.example"));
    EXPECT_FALSE(Drop({remote}));
}

TEST_F(OutsideDropsTest, OtherFilesDroppedOnTheDirectoryGoIntoTheDisk) {
    ClickFile("OTHER.DSK");
    fs::copy_file(PcFolder + "/NOTE.TXT", Elsewhere_ + "/a b.bas");
    EXPECT_TRUE(Drop({At("NOTE.TXT"), At("a b.bas")}, Directory()->viewport()));
    EXPECT_EQ(Directory()->model()->rowCount(), 3);
    EXPECT_EQ(DirTable[1].FullName, "NOTE.TXT");
    EXPECT_EQ(DirTable[2].FullName, "A-B.BAS");
    EXPECT_EQ(DirTable[2].Content, "a text");
    EXPECT_EQ(PrincipalControl("File1").Path, PcFolder);
    EXPECT_TRUE(Find<QWidget>("UndoBtn")->isEnabled());
}

TEST_F(OutsideDropsTest, BesideTheDirectoryThoseFilesAreRefused) {
    ClickFile("OTHER.DSK");
    EXPECT_FALSE(Drop({At("NOTE.TXT")}, Files()->viewport()));
    EXPECT_FALSE(Drop({At("NOTE.TXT"), At("GONE.TXT")}, Directory()->viewport()));
    EXPECT_EQ(Directory()->model()->rowCount(), 1);
}

TEST_F(OutsideDropsTest, AnAddressMayNameThisPc) {
    QUrl here = At("First #1.dsk");
    here.setHost(QStringLiteral("localhost"));
    EXPECT_TRUE(Drop({here}));
    EXPECT_EQ(PrincipalControl("File1").Path, Elsewhere_);
}

TEST_F(OutsideDropsTest, NothingIsTakenWhileABoxStandsBeforeTheWindow) {
    const WhenOpen box(Box::Dialog, [this](QWidget* dialog) {
        EXPECT_FALSE(Drop({At("First #1.dsk")}));
        dialog->close();
    });
    UserAction([] { Platform.ShowModal("Acerca"); });
}

TEST_F(OutsideDropsTest, ABoxThatOpensBeforeTheDropDoesItsWorkKeepsItOut) {
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        QTest::qWait(20);
        dialog->close();
    });
    EXPECT_TRUE(DropOnly({At("First #1.dsk")}));
    UserAction([] { Platform.ShowModal("Acerca"); });
    QTest::qWait(20);
    EXPECT_EQ(PrincipalControl("File1").Path, PcFolder);
}

}  // namespace
}  // namespace brindlemoor::test
