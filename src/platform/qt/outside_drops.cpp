#include "platform/qt/outside_drops.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QSysInfo>
#include <QUrl>
#include <string>
#include <vector>

#include "platform/qt/event_hook.h"
#include "platform/qt/later.h"
#include "platform/qt/shell.h"
#include "workbench/dropped_files.h"

namespace brindlemoor {

namespace {

using DropRoutine = void (*)(const std::vector<std::string>& paths);

#ifdef Q_OS_WIN
std::string LocalPath(const QUrl& url) {
    return url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile()).toStdString()
                             : std::string();
}
#else
/// The path of a file of this PC in its own bytes, which need not be characters of any kind; empty
/// for what lies elsewhere.
std::string LocalPath(const QUrl& url) {
    const QString host = url.host();
    const bool here = host.isEmpty() || host == QLatin1String("localhost") ||
                      host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
    if (!url.isLocalFile() || !here) return {};
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}
#endif

std::vector<std::string> PathsOf(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls()) paths.push_back(LocalPath(url));
    return paths;
}

bool IsFree() {
    return QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr && !Shell.Ended;
}

bool BringsFiles(QEvent* event) {
    const QEvent::Type type = event->type();
    const bool drop = type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
    return drop && static_cast<QDropEvent*>(event)->mimeData()->hasUrls();
}

bool IsOver(const QWidget* widget, const QWidget* window, const QDropEvent& drop) {
    const QPoint place = widget->mapFrom(window, drop.position().toPoint());
    return widget->isVisible() && widget->rect().contains(place);
}

/// What a drop of these files at that place does, if anything: an image is opened wherever it is
/// dropped, other files are copied into the disk whose directory they are dropped on.
DropRoutine RoutineFor(const std::vector<std::string>& paths, bool overDirectory) {
    if (TakesDroppedFiles(paths)) return DropFilesFromOutside;
    return overDirectory && TakesFilesForDisk(paths) ? DropFilesOnDirectory : nullptr;
}

/// The file manager waits for the end of its drag, so that what the drop does comes behind it. A
/// box or a menu may have opened by then: under it nothing is to change.
bool OnWindowEvent(QWidget* window, const QWidget* directory, QEvent* event) {
    if (!BringsFiles(event)) return false;
    auto* drop = static_cast<QDropEvent*>(event);
    const std::vector<std::string> paths = PathsOf(*drop->mimeData());
    const DropRoutine routine = RoutineFor(paths, IsOver(directory, window, *drop));
    if (!IsFree() || routine == nullptr) {
        drop->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() != QEvent::Drop) return true;
    window->activateWindow();
    RunLater(window, 0, [paths, routine] {
        if (IsFree()) UserAction([&] { routine(paths); });
    });
    return true;
}

bool OnBoxEvent(QEvent* event) {
    if (!BringsFiles(event)) return false;
    event->ignore();  // so that it goes on to the window
    return true;
}

}  // namespace

void TakeOutsideDrops(QWidget* window, QWidget* directory) {
    for (QWidget* child : window->findChildren<QWidget*>()) {
        if (child->acceptDrops()) HookEvents(child, OnBoxEvent);
    }
    window->setAcceptDrops(true);
    HookEvents(window, [window, directory](QEvent* event) {
        return OnWindowEvent(window, directory, event);
    });
}

}  // namespace brindlemoor
