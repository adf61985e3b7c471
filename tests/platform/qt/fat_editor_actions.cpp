#include "fat_editor_actions.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "user_actions.h"

namespace brindlemoor::test {

namespace {

void Use(QWidget* dialog, const std::function<void(QWidget* dialog)>& act) {
    const auto* text = dialog->findChild<QWidget*>(QStringLiteral("Text0"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->focusWidget() == text; }));
    act(dialog);
    if (dialog->isVisible()) QTest::keyClick(dialog, Qt::Key_Escape);
}

}  // namespace

void UseFatEditor(const std::function<void()>& open,
                  const std::function<void(QWidget* dialog)>& act) {
    std::unique_ptr<WhenOpen> editor;
    const WhenOpen question(Box::Dialog, [&](QWidget* box) {
        editor =
            std::make_unique<WhenOpen>(Box::Dialog, [&](QWidget* dialog) { Use(dialog, act); });
        auto* asked = qobject_cast<QMessageBox*>(box);
        ASSERT_NE(asked, nullptr);
        QTest::mouseClick(asked->button(QMessageBox::Yes), Qt::LeftButton);
    });
    open();
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(editor->Came());
}

}  // namespace brindlemoor::test
