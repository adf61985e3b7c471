#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <string>
#include <vector>

#include "core/settings.h"
#include "platform/qt/shell.h"
#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

TEST_F(WindowTest, TheLanguageMenuSwitchesEveryCaption) {
    ClickFile("COCO.DSK");
    ASSERT_NE(ItemOf(Bar(), "Options"), nullptr);
    QMenu* options = ClickItem(Bar(), "Options");
    ASSERT_NE(options, nullptr);
    QMenu* languages = ClickItem(options, "Language");
    ASSERT_NE(languages, nullptr);
    EXPECT_TRUE(ItemOf(languages, "English")->isChecked());
    ClickItem(languages, "Spanish");
    EXPECT_NE(ItemOf(Bar(), "Archivos"), nullptr);
    EXPECT_EQ(ItemOf(Bar(), "Files"), nullptr);
    EXPECT_EQ(Find<QLabel>("Label8")->text().toStdString(), "Caracteres:");
    EXPECT_EQ(Directory()->model()->headerData(0, Qt::Horizontal).toString().toStdString(),
              "NOMBRE");
    QMenu* opciones = ItemOf(Bar(), "Opciones")->menu();
    QMenu* lenguaje = ItemOf(opciones, "Lenguaje")->menu();
    ASSERT_EQ(lenguaje->actions().size(), 2);
    EXPECT_FALSE(lenguaje->actions().at(0)->isChecked());
    EXPECT_TRUE(lenguaje->actions().at(1)->isChecked());
    EXPECT_EQ(ItemText(lenguaje->actions().at(1)), "Espa\u00F1ol");
    EXPECT_EQ(Stored("CurrentLanguage"), "Spanish");
}

TEST_F(WindowTest, ReOpenAndSaveCanBeChosenOnlyOnAChangedDisk) {
    QMenu* files = ItemOf(Bar(), "Files")->menu();
    EXPECT_FALSE(ItemOf(files, "Save")->isEnabled());
    EXPECT_FALSE(ItemOf(files, "ReOpen (Undo)")->isEnabled());
    EXPECT_TRUE(ItemOf(files, "Open")->isEnabled());
    EXPECT_TRUE(files->actions().at(1)->isSeparator());
    UserAction([] { MenuOf(Principal, "FilesMenu").Items[5].Enabled = true; });
    EXPECT_TRUE(ItemOf(files, "Save")->isEnabled());
}

TEST_F(WindowTest, AShortcutRunsItsItem) {
    std::vector<int> clicked;
    MenuOf(Principal, "FilesMenu").Click = [&clicked](int index) { clicked.push_back(index); };
    QTest::keyClick(Window_.Widget.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(clicked, std::vector<int>{2});
    QTest::keyClick(Window_.Widget.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(clicked, std::vector<int>{2});  // greyed
}

TEST_F(WindowTest, ExitClosesTheWindow) {
    ClickFile("COCO.DSK");
    QMenu* files = ClickItem(Bar(), "Files");
    ASSERT_NE(files, nullptr);
    ClickItem(files, "Exit");
    EXPECT_FALSE(Window_.Widget->isVisible());
    EXPECT_EQ(ExitCode, 0);
    EXPECT_EQ(Stored("ArchivoActual"), PcFolder + "/COCO.DSK");
}

TEST_F(WindowTest, TheAboutBoxNamesProgramAndMakers) {
    std::vector<std::string> texts;
    bool readOnly = true;
    {
        const WhenOpen about(Box::Dialog, [&](QWidget* box) {
            for (const QLabel* label : box->findChildren<QLabel*>()) {
                texts.push_back(label->text().toStdString());
            }
            for (const QLineEdit* line : box->findChildren<QLineEdit*>()) {
                texts.push_back(line->text().toStdString());
                readOnly = readOnly && line->isReadOnly();
            }
            QTest::keyClick(box, Qt::Key_Escape);
        });
        QMenu* help = ClickItem(Bar(), "Help");
        ASSERT_NE(help, nullptr);
        ClickItem(help, "About...");
    }
    const auto has = [&texts](const std::string& text) {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    };
    EXPECT_TRUE(has("Brindlemoor"));
    EXPECT_TRUE(has("Version: " + ProgramVersion()));
    EXPECT_TRUE(has("Web (Blog):"));
    EXPECT_TRUE(has("Email: "));
    EXPECT_TRUE(has("hello@brindlemoor.example"));
    EXPECT_TRUE(has(QStringLiteral("Desarrollo y programaci\u00F3n por:").toStdString()));
    EXPECT_TRUE(readOnly);
}

}  // namespace
}  // namespace brindlemoor::test
