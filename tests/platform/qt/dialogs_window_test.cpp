#include <gtest/gtest.h>

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <memory>
#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/languages.h"
#include "core/screen.h"
#include "image/modified_state.h"
#include "platform/qt/fixed_font.h"
#include "platform/qt/shell.h"
#include "support/disk_fixture.h"
#include "support/os9_builder.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/colour_options.h"
#include "workbench/header_info.h"
#include "workbench/info_nitros.h"
#include "workbench/principal.h"
#include "workbench/spare_options.h"

namespace brindlemoor::test {
namespace {

class DialogsTest : public WindowTest {
  protected:
    /// Clicks into a field and types over all that stands there.
    static void Type(QWidget* field, const std::string& text) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(field->window()));
        auto* box = qobject_cast<QComboBox*>(field);
        QWidget* line = box != nullptr ? box->lineEdit() : field;
        Press(line);
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, QString::fromStdString(text));
    }

    static std::string Text(QWidget* dialog, const std::string& name, int index = 0) {
        return In<QLineEdit>(dialog, name, index)->text().toStdString();
    }

    /// Presses Escape or another key in the box that the next action brings up.
    static std::unique_ptr<WhenOpen> AnswerNext(Qt::Key key, std::string& text) {
        return std::make_unique<WhenOpen>(Box::Dialog, [key, &text](QWidget* box) {
            if (auto* message = qobject_cast<QMessageBox*>(box)) {
                text = message->text().toStdString();
            }
            QTest::keyClick(box, key);
        });
    }

    void PickFromOptionsMenu(const std::string& item) const {
        QMenu* options = ClickItem(Bar(), "Options");
        ClickItem(options, item);
    }

    void OpenOs9Disk() {
        WriteTestFile(PcFolder, "OS9.DSK", Os9Builder().DiskName("VOLUME").Image());
        RestartProgram();
        ClickFile("OS9.DSK");
        ASSERT_EQ(Disk.DiskFamily, kOs9);
    }

    void RestartProgram() {
        EndProgram();
        StartProgram();
    }
};

/// Labels whose text their place cuts off, and fields that lie over others.
std::string Misplaced(const QWidget* dialog) {
    std::string found;
    for (const QLabel* label : dialog->findChildren<QLabel*>()) {
        const int width = label->fontMetrics().horizontalAdvance(label->text());
        if (!label->wordWrap() && width > label->width()) found += label->text().toStdString();
    }
    for (const auto* button : dialog->findChildren<QAbstractButton*>()) {
        const bool caption = button->text() != QStringLiteral("...");
        if (caption && button->sizeHint().width() > button->width()) {
            found += button->text().toStdString();
        }
    }
    const QList<QWidget*> all = dialog->findChildren<QWidget*>();
    for (const QWidget* one : all) {
        for (const QWidget* other : all) {
            const bool family = one->isAncestorOf(other) || other->isAncestorOf(one);
            const bool beside = one->parentWidget() == other->parentWidget();
            if (one >= other || family || !beside || !one->isVisible()) continue;
            if (!other->isVisible() || one->objectName().isEmpty()) continue;
            if (other->objectName().isEmpty() || !one->geometry().intersects(other->geometry())) {
                continue;
            }
            found += one->objectName().toStdString() + "/" + other->objectName().toStdString();
        }
        if (!one->isVisible() || one->objectName().isEmpty()) continue;
        if (!one->parentWidget()->rect().contains(one->geometry())) {
            found += one->objectName().toStdString() + " out";
        }
    }
    return found;
}

TEST_F(DialogsTest, NothingIsCutOffAndNothingOverlapsInEitherLanguage) {
    for (const char* language : {"English", "Spanish"}) {
        UserAction([language] { ChooseLanguage(language); });
        for (const int item : {1, 2, 3, 5}) {
            const WhenOpen box(Box::Dialog, [language, item](QWidget* dialog) {
                EXPECT_EQ(Misplaced(dialog), "") << language << " " << item;
                QTest::keyClick(dialog, Qt::Key_Escape);
            });
            UserAction([item] { MenuOf(Principal, "OptionsMenu").Click(item); });
            EXPECT_TRUE(box.Came());
        }
    }
}

TEST_F(DialogsTest, AHeaderIsMadeByTyping) {
    ClickFile("COCO.DSK");
    std::string question;
    std::unique_ptr<WhenOpen> answer;
    const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
        Type(In<QLineEdit>(dialog, "Version"), "V1.99");
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(Text(dialog, "Version"), "V1.15");
        EXPECT_EQ(dialog->focusWidget(), In<QLineEdit>(dialog, "CompatibilityVersion"));
        Press(In<QCheckBox>(dialog, "Check", 0));
        Press(In<QCheckBox>(dialog, "Check", 3));
        EXPECT_EQ(Text(dialog, "Flags"), "9");
        Type(In<QLineEdit>(dialog, "Flags"), "16");
        EXPECT_EQ(Text(dialog, "Flags"), "15");
        EXPECT_TRUE(In<QCheckBox>(dialog, "Check", 2)->isChecked());
        Type(In<QLineEdit>(dialog, "DiskName"), "TEN LETTER");
        EXPECT_EQ(Text(dialog, "HeaderLength"), "22");
        Type(In<QComboBox>(dialog, "Tracks"), "77");
        answer = AnswerNext(Qt::Key_Return, question);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    PickFromOptionsMenu("Header Info");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(question, "Desea crearle un encabezado a este disco?");
    EXPECT_EQ(Disk.ImageHeader, std::string("DK\x16\0\x1F\0\0\0\x4D\x01\x0F\x50TEN LETTER", 22));
    EXPECT_TRUE(Find<QPushButton>("UndoBtn")->isEnabled());
    EXPECT_EQ(ListDirec.BackColour, 65535);
}

TEST_F(DialogsTest, EnterLeavesTheFieldBeforeItPressesTheButton) {
    ClickFile("COCO.DSK");
    UserAction([] { Disk.ImageHeader = std::string("dk\x0C\0\0\0\0\0\x28\1\0\0", 12); });
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        auto* source = In<QComboBox>(dialog, "SourceID");
        source->setFocus();
        QTest::keyClick(source, Qt::Key_End);
        EXPECT_EQ(Text(dialog, "ID"), "0");
        Type(In<QLineEdit>(dialog, "SourceVersion"), "V2.50");
        source->setFocus();
        QTest::keyClick(source, Qt::Key_Up);
        QTest::keyClick(source, Qt::Key_Return);
    });
    PickFromOptionsMenu("Header Info");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(ByteAt(Disk.ImageHeader, 6), 84);
    EXPECT_EQ(ByteAt(Disk.ImageHeader, 7), 0x2F);
}

TEST_F(DialogsTest, AClickOnASignatureThatIsNoneSelectsTheFirst) {
    ClickFile("COCO.DSK");
    UserAction([] { Disk.ImageHeader = "xx" + std::string(10, '\0'); });
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        auto* signature = In<QComboBox>(dialog, "Signature");
        EXPECT_EQ(signature->currentIndex(), -1);
        EXPECT_EQ(signature->placeholderText(), QStringLiteral("xx"));
        const WhenOpen list(Box::Menu, [](QWidget* popup) {
            QTest::keyClick(popup->focusWidget() != nullptr ? popup->focusWidget() : popup,
                            Qt::Key_Escape);
        });
        Press(signature);
        EXPECT_TRUE(QTest::qWaitFor([&list] { return list.Came(); }));
        EXPECT_EQ(signature->currentText(), QStringLiteral("dk = VDK"));
        Press(In<QPushButton>(dialog, "Cancelar"));
    });
    PickFromOptionsMenu("Header Info");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(Disk.ImageHeader.substr(0, 2), "xx");
    EXPECT_FALSE(HeaderInfo.Open);
}

TEST_F(DialogsTest, ANumberTooLargeKeepsTheHeaderDialogOpen) {
    ClickFile("COCO.DSK");
    UserAction([] { Disk.ImageHeader = std::string("dk\x0C\0\0\0\0\0\x28\1\0\0", 12); });
    const std::string header = Disk.ImageHeader;
    std::string message;
    const WhenOpen box(Box::Dialog, [&message](QWidget* dialog) {
        Type(In<QComboBox>(dialog, "Tracks"), "300");
        {
            const auto error = AnswerNext(Qt::Key_Return, message);
            Press(In<QPushButton>(dialog, "Aceptar"));
        }
        EXPECT_TRUE(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    PickFromOptionsMenu("Header Info");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(message, "Run-time error '6':\n\nOverflow");
    EXPECT_EQ(Disk.ImageHeader, header);
    EXPECT_FALSE(Shell.Ended);
}

TEST_F(DialogsTest, TheOs9SectorIsEditedByTyping) {
    OpenOs9Disk();
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        EXPECT_EQ(Text(dialog, "Text", 14), "VOLUME");
        Type(In<QLineEdit>(dialog, "Text", 1), "300");
        EXPECT_EQ(Text(dialog, "Text", 1), "255");
        Type(In<QLineEdit>(dialog, "Text", 0), "-5");
        EXPECT_EQ(Text(dialog, "Text", 0), "");
        Type(In<QLineEdit>(dialog, "Text", 6), "0");
        EXPECT_EQ(Text(dialog, "Attr"), "");
        Press(In<QCheckBox>(dialog, "Att", 7));
        EXPECT_EQ(Text(dialog, "Text", 6), "128");
        EXPECT_EQ(Text(dialog, "Attr"), "D");
        Type(In<QLineEdit>(dialog, "Text", 6), "255");
        for (int bit = 0; bit < 8; ++bit) {
            EXPECT_TRUE(In<QCheckBox>(dialog, "Att", bit)->isChecked());
        }
        EXPECT_EQ(Text(dialog, "Attr"), "rweRWESD");
        Type(In<QLineEdit>(dialog, "Text", 8), "0");
        Press(In<QCheckBox>(dialog, "DiskFormat", 1));
        Type(In<QLineEdit>(dialog, "Text", 14), std::string(40, 'N'));
        EXPECT_EQ(Text(dialog, "Text", 14), std::string(32, 'N'));
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    PickFromOptionsMenu("Info OS9/NitrOS-9");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(Disk.ImageBytes.substr(0, 4), std::string("\0\0\0\xFF", 4));
    EXPECT_EQ(ByteAt(Disk.ImageBytes, 13), 255);
    EXPECT_EQ(ByteAt(Disk.ImageBytes, 16), 2);
    EXPECT_EQ(Disk.ImageBytes.substr(31, 32), std::string(31, 'N') + "\xCE");
    EXPECT_EQ(Disk.ImageModified, -1);
    EXPECT_TRUE(Find<QPushButton>("UndoBtn")->isEnabled());
}

TEST_F(DialogsTest, ABadDateKeepsTheOs9DialogOpen) {
    OpenOs9Disk();
    const std::string image = Disk.ImageBytes;
    std::string message;
    const WhenOpen box(Box::Dialog, [&message](QWidget* dialog) {
        Type(In<QLineEdit>(dialog, "Text", 13), "tomorrow");
        {
            const auto error = AnswerNext(Qt::Key_Escape, message);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        }
        EXPECT_TRUE(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    PickFromOptionsMenu("Info OS9/NitrOS-9");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(message, "Run-time error '13':\n\nType mismatch");
    EXPECT_EQ(Disk.ImageBytes, image);
    EXPECT_EQ(Disk.ImageModified, 0);
    EXPECT_FALSE(Shell.Ended);
}

TEST_F(DialogsTest, EnterOnTheCancelButtonCancels) {
    ClickFile("COCO.DSK");
    const std::string image = Disk.ImageBytes;
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        EXPECT_EQ(Text(dialog, "Text", 0), "");  // another family's disk
        In<QPushButton>(dialog, "Cancelar")->setFocus();
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    PickFromOptionsMenu("Info OS9/NitrOS-9");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(Disk.ImageBytes, image);
}

TEST_F(DialogsTest, TheDialogsOpenWithNoDiskToo) {
    for (const char* item : {"Header Info", "Info OS9/NitrOS-9"}) {
        std::string question;
        std::unique_ptr<WhenOpen> answer;
        const bool header = item[0] == 'H';
        const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
            if (header) answer = AnswerNext(Qt::Key_Escape, question);
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        PickFromOptionsMenu(item);
        EXPECT_TRUE(box.Came());
        EXPECT_TRUE(Disk.ImageBytes.empty());
        EXPECT_TRUE(Disk.ImageHeader.empty());
    }
}

TEST_F(DialogsTest, TabGoesThroughTheFieldsInTheirOrder) {
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        In<QLineEdit>(dialog, "Text", 0)->setFocus();
        for (int index = 1; index < 15; ++index) {
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            if (index == 7) {  // the letters stand beside the number of the attributes
                EXPECT_EQ(dialog->focusWidget(), In<QLineEdit>(dialog, "Attr"));
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            }
            EXPECT_EQ(dialog->focusWidget(), In<QLineEdit>(dialog, "Text", index)) << index;
        }
        EXPECT_EQ(In<QLineEdit>(dialog, "Text", 14)->accessibleName(),
                  QStringLiteral("Volume Name (NAM)"));
        EXPECT_TRUE(In<QLineEdit>(dialog, "Text", 14)->fontInfo().fixedPitch());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    PickFromOptionsMenu("Info OS9/NitrOS-9");
    EXPECT_TRUE(box.Came());
}

/// Types a colour into the chooser that comes up next, and accepts it.
std::unique_ptr<WhenOpen> ChooseNext(const QString& colour) {
    return std::make_unique<WhenOpen>(Box::Dialog, [colour](QWidget* box) {
        auto* chooser = qobject_cast<QColorDialog*>(box);
        ASSERT_NE(chooser, nullptr);
        auto* name = chooser->findChild<QLineEdit*>(QStringLiteral("qt_colorname_lineedit"));
        if (name == nullptr) {
            for (QLineEdit* line : chooser->findChildren<QLineEdit*>()) {
                if (line->text().startsWith(QLatin1Char('#'))) name = line;
            }
        }
        ASSERT_NE(name, nullptr);
        QTest::keyClick(name, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(name, colour);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

QColor BackOf(const QWidget* widget) {
    return widget->palette().color(QPalette::Base);
}

TEST_F(DialogsTest, AColourIsChosenShownAndNotStored) {
    ClickFile("COCO.DSK");
    const WhenOpen box(Box::Dialog, [](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Options"));
        EXPECT_EQ(Text(dialog, "Color", 0), "0");
        EXPECT_EQ(BackOf(In<QLineEdit>(dialog, "Color", 0)), QColor(Qt::black));
        {
            const auto chooser = ChooseNext(QStringLiteral("#102030"));
            Press(In<QPushButton>(dialog, "BtnColores", 0));
        }
        EXPECT_EQ(Text(dialog, "Color", 0), std::to_string(0x302010));
        EXPECT_EQ(BackOf(In<QLineEdit>(dialog, "Color", 0)), QColor(0x10, 0x20, 0x30));
        EXPECT_EQ(ListDirec.AlternateRowBackColour, 0x302010);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    PickFromOptionsMenu("Colours");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(Stored(""), "0");
}

TEST_F(DialogsTest, GivingTheChooserUpWritesItsFirstColour) {
    std::string none;
    const WhenOpen box(Box::Dialog, [&none](QWidget* dialog) {
        {
            const auto chooser = AnswerNext(Qt::Key_Escape, none);
            Press(In<QPushButton>(dialog, "BtnColores", 1));
        }
        EXPECT_EQ(Text(dialog, "Color", 1), "13158655");
        {
            auto* field = In<QLineEdit>(dialog, "Color", 1);
            const auto chooser = AnswerNext(Qt::Key_Escape, none);
            field->setFocus();
            QTest::keyClicks(field, QStringLiteral("7"));  // a change asks too
        }
        EXPECT_EQ(Text(dialog, "Color", 1), "13158655");
        Press(In<QPushButton>(dialog, "Normal"));
        EXPECT_TRUE(dialog->isVisible());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    PickFromOptionsMenu("Colours");
    EXPECT_TRUE(box.Came());
    EXPECT_FALSE(Opciones.Open);
    EXPECT_EQ(Stored("SectorErrorColor"), "13158655");
}

TEST_F(DialogsTest, NamesCanBeReadOnDarkRows) {
    ClickFile("COCO.DSK");
    UserAction([] {
        ListDirec.AlternateRowBackColour = 0;
        Screen.FillDirectoryGrid();
    });
    const QTableView* view = Directory();
    const QRect row = view->visualRect(view->model()->index(1, 0));
    const QImage shown = view->viewport()->grab(row).toImage();
    int dark = 0;
    int light = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const int grey = qGray(shown.pixel(x, y));
            if (grey < 40) ++dark;
            if (grey > 200) ++light;
        }
    }
    EXPECT_GT(dark, light);
    EXPECT_GT(light, 20);
}

TEST_F(DialogsTest, TheSpareOptionsShowTheirMessages) {
    std::string apply;
    std::string accept;
    const WhenOpen box(Box::Dialog, [&](QWidget* dialog) {
        EXPECT_EQ(In<QTabBar>(dialog, "tbsOptions")->tabText(0), QStringLiteral("Opciones"));
        {
            const auto message = AnswerNext(Qt::Key_Return, apply);
            Press(In<QPushButton>(dialog, "cmdApply"));
        }
        EXPECT_TRUE(dialog->isVisible());
        In<QTabBar>(dialog, "tbsOptions")->setFocus();
        const auto message = AnswerNext(Qt::Key_Return, accept);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    });
    PickFromOptionsMenu("Opciones");
    EXPECT_TRUE(box.Came());
    EXPECT_EQ(apply, "Coloque código aquí para establecer opciones o cerrar el cuadro de diálogo");
    EXPECT_EQ(accept, "Coloque código aquí para establecer opciones y cerrar el cuadro de diálogo");
    EXPECT_FALSE(SpareOptions.Open);
}

}  // namespace
}  // namespace brindlemoor::test
