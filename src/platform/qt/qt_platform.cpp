#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QColorDialog>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QStorageInfo>
#include <QUrl>
#include <algorithm>
#include <array>

#include "platform/qt/colours.h"
#include "platform/qt/detached_window.h"
#include "platform/qt/file_dialog_box.h"
#include "platform/qt/menus.h"
#include "platform/qt/modal_window.h"
#include "platform/qt/picture_files.h"
#include "platform/qt/picture_text.h"
#include "platform/qt/shell.h"
#include "platform/qt/start_program.h"
#include "platform/qt/text.h"
#include "workbench/principal.h"

namespace brindlemoor {

namespace {

/// The window that a box belongs to: the dialog that stands open, else the main window; none before
/// that is on the screen.
QWidget* BoxParent() {
    if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
    QWidget* window = Shell.MainWindow;
    return window != nullptr && window->isVisible() ? window : nullptr;
}

struct ButtonRow {
    Answer Meaning;
    QMessageBox::StandardButton Button;
};

constexpr std::array<ButtonRow, 4> kButtons = {{{Answer::Ok, QMessageBox::Ok},
                                                {Answer::Yes, QMessageBox::Yes},
                                                {Answer::No, QMessageBox::No},
                                                {Answer::Cancel, QMessageBox::Cancel}}};

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        default:
            return QMessageBox::Ok;
    }
}

/// What Escape and the box's close button answer.
QMessageBox::StandardButton DecliningButton(Buttons buttons) {
    if (buttons == Buttons::Ok) return QMessageBox::Ok;
    return buttons == Buttons::YesNo ? QMessageBox::No : QMessageBox::Cancel;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        default:
            return QMessageBox::NoIcon;
    }
}

Answer RunMessageBox(const std::string& text, const std::string& title, Buttons buttons,
                     MessageIcon icon) {
    RefreshWindows();
    QMessageBox box(IconOf(icon), ToText(title), ToLines(text), ButtonsOf(buttons), BoxParent());
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(DecliningButton(buttons));
    const int pressed = box.exec();
    for (const ButtonRow& row : kButtons) {
        if (row.Button == pressed) return row.Meaning;
    }
    return buttons == Buttons::Ok ? Answer::Ok : Answer::Cancel;
}

std::string RunTextBox(const std::string& prompt, const std::string& title,
                       const std::string& suggestion) {
    RefreshWindows();
    bool accepted = false;
    const QString text = QInputDialog::getText(BoxParent(), ToText(title), ToLines(prompt),
                                               QLineEdit::Normal, ToText(suggestion), &accepted);
    return accepted ? EditedBytes(suggestion, text) : std::string();
}

std::int32_t RunColourChooser(std::int32_t colour) {
    RefreshWindows();
    const QColor chosen = QColorDialog::getColor(ColourOf(colour), BoxParent());
    if (!chosen.isValid()) return colour;
    return chosen.red() | (chosen.green() << 8) | (chosen.blue() << 16);
}

void AddDrive(std::vector<DriveEntry>& drives, const QString& path, const QString& label) {
    const std::string bytes = path.toStdString();
    const bool known = std::any_of(drives.begin(), drives.end(),
                                   [&](const DriveEntry& drive) { return drive.Path == bytes; });
    if (!known) drives.push_back({bytes, label.toStdString()});
}

/// Where desktops put the media that the user plugs in.
bool IsUserMount(const QString& path) {
    return path.startsWith(QLatin1String("/media/")) || path.startsWith(QLatin1String("/mnt/")) ||
           path.startsWith(QLatin1String("/run/media/"));
}

std::vector<DriveEntry> DrivesOfPc() {
    std::vector<DriveEntry> drives;
#ifdef Q_OS_WIN
    for (const QFileInfo& drive : QDir::drives()) {
        const QString path = QDir::toNativeSeparators(drive.absoluteFilePath());
        AddDrive(drives, path, path);
    }
#else
    AddDrive(drives, QStringLiteral("/"), QStringLiteral("/"));
    AddDrive(drives, QDir::homePath(), QDir::homePath());
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString path = volume.rootPath();
        if (volume.isReady() && IsUserMount(path)) {
            AddDrive(drives, path,
                     path.section(QLatin1Char('/'), -1) + QStringLiteral(" (") + path +
                         QLatin1Char(')'));
        }
    }
#endif
    return drives;
}

}  // namespace

PlatformTable QtPlatform() {
    PlatformTable table = SilentPlatform();
    table.ShowMessage = RunMessageBox;
    table.AskText = RunTextBox;
    table.FileDialog = RunFileDialog;
    table.ChooseColour = RunColourChooser;
    table.ShowModal = [](const std::string& window) {
        RefreshWindows();
        RunModalWindow(window);
    };
    table.ShowWindow = ShowDetachedWindow;
    table.PopupMenu = [](const std::string& menu) {
        RefreshWindows();
        RunPopupMenu(Principal, menu);
    };
    table.DrawText = DrawPictureText;
    table.OpenWebPage = [](const std::string& address) {
        return QDesktopServices::openUrl(QUrl(ToText(address)));
    };
    table.SavePicture = PictureFileOf;
    table.LoadPicture = ReadPictureFile;
    table.HasProgram = IsProgramInstalled;
    table.StartProgram = StartProgramDetached;
    table.ProgramFolder = [] {
        return QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    };
    table.ListDrives = DrivesOfPc;
    table.ShowBusy = [](bool busy) {
        if (busy) {
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        } else {
            QGuiApplication::restoreOverrideCursor();
        }
    };
    table.CloseMainWindow = [] {
        if (!Shell.MainWindow.isNull()) Shell.MainWindow->close();
    };
    table.EndProgram = [] {
        Shell.Ended = true;
        QuitProgram(1);
    };
    return table;
}

}  // namespace brindlemoor
