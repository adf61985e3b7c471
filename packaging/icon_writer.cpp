#include <QGuiApplication>
#include <cstdio>

#include "platform/qt/icon.h"

/// Writes the program's picture: the first argument is the beginning of the files' names, the
/// others are sizes in pixels. "out/name- 16 32" makes out/name-16.png and out/name-32.png.
int main(int argumentCount, char** arguments) {
    const QGuiApplication application(argumentCount, arguments);
    const QStringList words = QGuiApplication::arguments();
    for (const QString& size : words.mid(2)) {
        const QString path = words.at(1) + size + QStringLiteral(".png");
        if (!brindlemoor::ProgramPicture(size.toInt()).save(path, "PNG")) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
