#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "platform/qt/colours.h"

// The windows under test are real ones on a screen that nobody sees, unless another is asked for.
int main(int argumentCount, char** arguments) {
    if (std::getenv("QT_QPA_PLATFORM") == nullptr) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argumentCount, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    brindlemoor::ApplyLook(application);
    testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
