#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "core/platform.h"
#include "platform/qt/colours.h"
#include "platform/qt/demonstration.h"
#include "platform/qt/main_window.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shell.h"
#include "workbench/acerca.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace {

using namespace brindlemoor;

/// Leaves the event loop; before there is one, the exit code waits for its turn.
struct ExitRequest {
    bool Asked = false;
    int Code = 0;
};

void SpeakSystemLanguage(QApplication& application, QTranslator& translator) {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    const bool found =
        translator.load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"), folder);
    if (found) application.installTranslator(&translator);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName(QStringLiteral("Brindlemoor"));
    QApplication::setQuitOnLastWindowClosed(false);  // a box before the window is not the last one
    QTranslator translator;
    SpeakSystemLanguage(application, translator);
    ApplyLook(application);

    ExitRequest exit;
    Shell.Quit = [&exit](int code) {
        exit = {true, code};
        QApplication::exit(code);
    };
    Platform = QtPlatform();
    BuildPrincipal();
    BuildAcerca();
    MainWindow window = MakeMainWindow();
    bool started = false;
    UserAction([&started] { started = StartUp(); });
    if (!started || exit.Asked) return exit.Code;
    PrepareDemonstration(window);
    window.Widget->show();
    return QApplication::exec();
}
