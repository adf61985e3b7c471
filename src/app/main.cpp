#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "core/platform.h"
#include "platform/qt/colours.h"
#include "platform/qt/demonstration.h"
#include "platform/qt/large_blocks.h"
#include "platform/qt/later.h"
#include "platform/qt/main_window.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/shell.h"
#include "workbench/acerca.h"
#include "workbench/command_line.h"
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

void OpenAskedImage(const std::string& path) {
    if (path.empty()) return;
    bool opened = false;
    UserAction([&] { opened = OpenFromCommandLine(path); });
    if (!opened) std::fprintf(stderr, "brindlemoor: no such file: %s\n", path.c_str());
}

int Print(const CommandLine& line) {
    std::fputs(line.Answer.c_str(), line.ExitCode == 0 ? stdout : stderr);
    return line.ExitCode;
}

std::vector<std::string> Words(int argumentCount, char** arguments) {
    return {arguments + std::min(argumentCount, 1), arguments + argumentCount};
}

}  // namespace

int main(int argumentCount, char** arguments) {
    // Help needs no display. What is wrong can be told only when Qt has taken its own words out.
    const CommandLine help = ReadCommandLine(Words(argumentCount, arguments));
    if (!help.Answer.empty() && help.ExitCode == 0) return Print(help);
    QApplication application(argumentCount, arguments);
    const CommandLine line = ReadCommandLine(Words(argumentCount, arguments));
    if (!line.Answer.empty()) return Print(line);
    ReuseLargeBlocks();
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
    RunLater(window.Widget.get(), 0, [&line] { OpenAskedImage(line.Image); });
    return QApplication::exec();
}
