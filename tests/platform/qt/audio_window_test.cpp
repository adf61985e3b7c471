#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "user_actions.h"
#include "window_fixture.h"
#include "workbench/audio_convert.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

using Texts = std::vector<std::string>;

/// Opens the dialog by the menu, in either language, and uses it with mouse and keys.
class AudioWindowTest : public WindowTest {
  protected:
    void TearDown() override {
        WindowTest::TearDown();
        AudioConvert = Window();
    }

    void SpeakSpanish() {
        QMenu* options = ClickItem(Bar(), "Options");
        QMenu* languages = ClickItem(options, "Language");
        ClickItem(languages, "Spanish");
        QApplication::processEvents();
        menu_ = "Opciones";
    }

    /// Lets `act` use the dialog; one that it leaves open is closed by Escape.
    void Use(const std::function<void(QWidget* dialog)>& act) const {
        const WhenOpen box(Box::Dialog, [&act](QWidget* dialog) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
            act(dialog);
            if (dialog->isVisible()) QTest::keyClick(dialog, Qt::Key_Escape);
        });
        QMenu* options = ClickItem(Bar(), menu_);
        ClickItem(options, "Audio");
    }

    static std::string TextOf(QWidget* dialog, const std::string& name) {
        return In<QComboBox>(dialog, name)->currentText().toStdString();
    }
    static std::string Result(QWidget* dialog, const std::string& name) {
        return In<QLineEdit>(dialog, name)->text().toStdString();
    }

    static void Press(QWidget* dialog, const std::string& name) {
        QTest::mouseClick(In<QPushButton>(dialog, name), Qt::LeftButton);
    }

    /// Replaces the text of a combo box by what is typed.
    static void Type(QWidget* dialog, const std::string& name, const std::string& text) {
        QLineEdit* line = In<QComboBox>(dialog, name)->lineEdit();
        QTest::mouseClick(line, Qt::LeftButton);
        QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(line, QString::fromStdString(text));
    }

    /// Opens the list with the mouse and clicks an entry.
    static void Pick(QWidget* dialog, const std::string& name, int index) {
        auto* box = In<QComboBox>(dialog, name);
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier,
                          QPoint(box->width() - 8, box->height() / 2));
        QAbstractItemView* list = box->view();
        ASSERT_TRUE(QTest::qWaitFor([list] { return list->isVisible(); }));
        const QRect place = list->visualRect(box->model()->index(index, 0));
        QTest::mouseMove(list->viewport(), place.center());
        QTest::qWait(QApplication::doubleClickInterval() / 2);  // a release at once opens only
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
        EXPECT_TRUE(QTest::qWaitFor([list] { return !list->isVisible(); }));
    }

    static std::string Focused() {
        const QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? "" : widget->objectName().toStdString();
    }

  private:
    std::string menu_ = "Options";
};

// The values

TEST_F(AudioWindowTest, TypedAndPickedValuesChangeTheDerivedFieldsAtOnce) {
    Use([](QWidget* dialog) {
        EXPECT_EQ(Result(dialog, "ByteRate"), "44100");
        Type(dialog, "SampleRate", "48000 of mine");
        EXPECT_EQ(TextOf(dialog, "SampleRate"), "48000 of mine");
        EXPECT_EQ(Result(dialog, "ByteRate"), "48000");
        Pick(dialog, "NumChannels", 1);
        EXPECT_EQ(TextOf(dialog, "NumChannels"), "2 - Stereo");
        EXPECT_EQ(Result(dialog, "BlockAlin"), "2");
        EXPECT_EQ(Result(dialog, "ByteRate"), "96000");
        Type(dialog, "Frec1200", "1100");
        EXPECT_EQ(Result(dialog, "ByteRate"), "96000");
        EXPECT_EQ(Result(dialog, "Size"), "");
        EXPECT_EQ(Result(dialog, "Increment"), "");
        Press(dialog, "Ok");
    });
    EXPECT_EQ(Stored("SampleRate"), "48000 of mine");
    EXPECT_EQ(Stored("NumChannels"), "2 - Stereo");
    EXPECT_EQ(Stored("Frec1200"), "1100");
    EXPECT_EQ(Stored("SilenceHeader"), "500");
    Use([](QWidget* dialog) { EXPECT_EQ(TextOf(dialog, "SampleRate"), "48000 of mine"); });
}

TEST_F(AudioWindowTest, TheKeysWalkThroughAList) {
    Use([](QWidget* dialog) {
        auto* box = In<QComboBox>(dialog, "SampleRate");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Down);
        EXPECT_EQ(TextOf(dialog, "SampleRate"), "44100 (Default)");
        QTest::keyClick(box, Qt::Key_Down);
        EXPECT_EQ(TextOf(dialog, "SampleRate"), "22050");
        EXPECT_EQ(Result(dialog, "ByteRate"), "22050");
    });
}

TEST_F(AudioWindowTest, TheSliderGoesFrom0To145) {
    Use([](QWidget* dialog) {
        auto* slider = In<QSlider>(dialog, "Volumen");
        EXPECT_EQ(slider->value(), 110);
        EXPECT_EQ(slider->toolTip(), "110");
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_Right);
        EXPECT_EQ(slider->value(), 111);
        QTest::keyClick(slider, Qt::Key_PageDown);
        EXPECT_EQ(slider->value(), 101);
        QTest::keyClick(slider, Qt::Key_End);
        EXPECT_EQ(slider->value(), 145);
        QTest::keyClick(slider, Qt::Key_Right);
        EXPECT_EQ(slider->value(), 145);
        EXPECT_EQ(ControlOf(AudioConvert, "Volumen").Value, 145);
        EXPECT_EQ(slider->toolTip(), "145");
        Drag(slider, QPoint(slider->width() - 8, slider->height() / 2),
             QPoint(4, slider->height() / 2));
        EXPECT_EQ(slider->value(), 0);
        Press(dialog, "Ok");
    });
    EXPECT_EQ(Stored("Volume"), "110");
}

TEST_F(AudioWindowTest, TheCheckBoxIsNotStored) {
    Use([](QWidget* dialog) {
        auto* show = In<QCheckBox>(dialog, "Show");
        QTest::mouseClick(show, Qt::LeftButton, Qt::NoModifier, QPoint(8, show->height() / 2));
        EXPECT_TRUE(show->isChecked());
        Press(dialog, "Ok");
    });
    EXPECT_EQ(Stored("Show"), "False");
    Use([](QWidget* dialog) { EXPECT_FALSE(In<QCheckBox>(dialog, "Show")->isChecked()); });
}

TEST_F(AudioWindowTest, TheBoxesOfResultsCannotBeTypedInto) {
    Use([](QWidget* dialog) {
        for (const char* name : {"BlockAlin", "ByteRate", "Size", "Increment"}) {
            auto* box = In<QLineEdit>(dialog, name);
            const QString before = box->text();
            QTest::mouseClick(box, Qt::LeftButton);
            QTest::keyClicks(box, QStringLiteral("1"));
            EXPECT_EQ(box->text(), before) << name;
        }
    });
}

// The buttons

TEST_F(AudioWindowTest, DefaultShowsTheFirstItemsAndStoresNothing) {
    const std::string before = SettingsFile();
    Use([](QWidget* dialog) {
        Type(dialog, "SampleRate", "5");
        Press(dialog, "Default");
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(TextOf(dialog, "SampleRate"), "44100 (Default)");
        EXPECT_EQ(TextOf(dialog, "Frec2400"), "2400 (Default)");
        EXPECT_EQ(Result(dialog, "ByteRate"), "44100");
        Press(dialog, "Cancel");
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(AudioWindowTest, EnterIsOkWhereverTheFocusIs) {
    for (const char* name : {"SampleRate", "Show", "ByteRate", "Volumen"}) {
        const std::string rate = std::string("1000 ") + name;
        Use([name, &rate](QWidget* dialog) {
            Type(dialog, "SampleRate", rate);
            auto* field = In<QWidget>(dialog, name);
            field->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            EXPECT_FALSE(dialog->isVisible()) << name;
        });
        EXPECT_EQ(Stored("SampleRate"), rate);
    }
}

TEST_F(AudioWindowTest, EnterPressesTheButtonThatHasTheFocus) {
    const std::string before = SettingsFile();
    Use([](QWidget* dialog) {
        Type(dialog, "SampleRate", "5");
        auto* defaults = In<QPushButton>(dialog, "Default");
        defaults->setFocus();
        QTest::keyClick(defaults, Qt::Key_Enter);
        EXPECT_TRUE(dialog->isVisible());
        EXPECT_EQ(TextOf(dialog, "SampleRate"), "44100 (Default)");
        auto* cancel = In<QPushButton>(dialog, "Cancel");
        cancel->setFocus();
        QTest::keyClick(cancel, Qt::Key_Return);
        EXPECT_FALSE(dialog->isVisible());
    });
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(AudioWindowTest, EscapeIsCancelWhereverTheFocusIs) {
    const std::string before = SettingsFile();
    for (const char* name : {"SampleRate", "Volumen", "Ok"}) {
        Use([name](QWidget* dialog) {
            Type(dialog, "SampleRate", "5");
            In<QWidget>(dialog, name)->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            EXPECT_FALSE(dialog->isVisible()) << name;
        });
        EXPECT_FALSE(AudioConvert.Open);
    }
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(AudioWindowTest, TheTabKeyGoesDownTheColumnsToTheButtons) {
    Use([](QWidget* dialog) {
        Texts order;
        In<QWidget>(dialog, "Output")->setFocus();
        for (int i = 0; i < 19; ++i) {
            order.push_back(Focused());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(order,
                  (Texts{"Output0", "Volumen0", "WavFormat0", "SampleRate0", "BitsPerSample0",
                         "NumChannels0", "BlockAlin0", "ByteRate0", "Size0", "Frec12000",
                         "Frec24000", "SilenceStart0", "SilenceHeader0", "SilenceBlock0",
                         "Increment0", "Show0", "Default0", "Ok0", "Cancel0"}));
        EXPECT_EQ(Focused(), "Output0");
    });
}

// The look, in both languages

class AudioLookTest : public AudioWindowTest, public testing::WithParamInterface<bool> {
  protected:
    void UseLook(const std::function<void(QWidget* dialog)>& act) {
        if (GetParam()) SpeakSpanish();
        Use(act);
    }
};

TEST_P(AudioLookTest, EveryCaptionIsSeenWhole) {
    UseLook([](QWidget* dialog) {
        EXPECT_EQ(In<QLabel>(dialog, "LabelSilenceHeader")->text(),
                  GetParam() ? QStringLiteral("Desp\u00FAes de Cabezera:")
                             : QStringLiteral("After Header :"));
        EXPECT_EQ(In<QGroupBox>(dialog, "Silences")->title(),
                  GetParam() ? QStringLiteral("Silencios") : QStringLiteral("Silences"));
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            EXPECT_LE(label->sizeHint().width(), label->width()) << label->text().toStdString();
            EXPECT_FALSE(label->text().isEmpty());
        }
        for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
            EXPECT_LE(button->sizeHint().width(), button->width()) << button->text().toStdString();
        }
        for (const QGroupBox* frame : dialog->findChildren<QGroupBox*>()) {
            EXPECT_LT(frame->fontMetrics().horizontalAdvance(frame->title()), frame->width() - 20);
        }
    });
}

TEST_P(AudioLookTest, EveryItemFitsItsBox) {
    UseLook([](QWidget* dialog) {
        for (const QComboBox* box : dialog->findChildren<QComboBox*>()) {
            for (int i = 0; i < box->count(); ++i) {
                EXPECT_LE(box->fontMetrics().horizontalAdvance(box->itemText(i)),
                          box->lineEdit()->width() - 4)
                    << box->itemText(i).toStdString();
            }
        }
    });
}

TEST_P(AudioLookTest, NothingLiesOverAnythingElse) {
    UseLook([](QWidget* dialog) {
        std::vector<const QWidget*> shown;
        for (const Control& control : AudioConvert.Controls) {
            shown.push_back(In<QWidget>(dialog, control.Name));
        }
        for (const QWidget* one : shown) {
            EXPECT_TRUE(one->parentWidget()->rect().contains(one->geometry()))
                << one->objectName().toStdString();
            for (const QWidget* other : shown) {
                const bool apart = one == other || one->parentWidget() != other->parentWidget() ||
                                   !one->geometry().intersects(other->geometry());
                EXPECT_TRUE(apart)
                    << one->objectName().toStdString() << " " << other->objectName().toStdString();
            }
        }
    });
}

TEST_P(AudioLookTest, FieldsStandUnderEachOtherBesideTheirLabels) {
    UseLook([](QWidget* dialog) {
        std::map<int, int> widths;  // of the fields, by their left edge
        for (std::size_t i = 1; i < AudioConvert.Controls.size(); ++i) {
            const Control& label = AudioConvert.Controls[i - 1];
            if (label.Kind != ControlKind::Label) continue;
            const auto* field = In<QWidget>(dialog, AudioConvert.Controls[i].Name);
            const auto* named = In<QWidget>(dialog, label.Name);
            EXPECT_EQ(field->y(), named->y()) << label.Name;
            const int left = field->mapTo(dialog, QPoint(0, 0)).x();
            EXPECT_EQ(widths.try_emplace(left, field->width()).first->second, field->width())
                << label.Name;
        }
        EXPECT_EQ(widths.size(), 2U);
    });
}

TEST_P(AudioLookTest, AScreenReaderSaysTheLabels) {
    UseLook([](QWidget* dialog) {
        const QString rate = In<QLabel>(dialog, "LabelSampleRate")->text();
        EXPECT_EQ(In<QWidget>(dialog, "SampleRate")->accessibleName(), rate);
        const QString volume = In<QLabel>(dialog, "LabelVolume")->text();
        EXPECT_EQ(In<QWidget>(dialog, "Volumen")->accessibleName(), volume);
        for (const QComboBox* box : dialog->findChildren<QComboBox*>()) {
            EXPECT_FALSE(box->accessibleName().isEmpty()) << box->objectName().toStdString();
        }
    });
}

INSTANTIATE_TEST_SUITE_P(Languages, AudioLookTest, testing::Values(false, true),
                         [](const auto& language) {
                             return language.param ? "Spanish" : "English";
                         });

}  // namespace
}  // namespace brindlemoor::test
