#include "platform/qt/file_dialog_box.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <algorithm>
#include <array>

#include "core/byte_helpers.h"
#include "platform/qt/shell.h"
#include "platform/qt/text.h"

namespace brindlemoor {

namespace {

/// The system's own dialogs tell the cases of letters apart: "*.DSK" becomes "*.[Dd][Ss][Kk]".
QString AnyCase(const std::string& pattern) {
    QString any;
    for (const QChar letter : ToText(pattern)) {
        const QChar upper = letter.toUpper();
        const QChar lower = letter.toLower();
        if (upper == lower) {
            any += letter;
        } else {
            any += QLatin1Char('[') + upper + lower + QLatin1Char(']');
        }
    }
    return any;
}

void ApplyFilters(QFileDialog& dialog, const FileQuestion& question) {
    const QStringList filters = NameFilters(question.Filter);
    if (filters.isEmpty()) return;
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    const int wanted = std::clamp(question.FilterIndex, 1, static_cast<int>(filters.size()));
    dialog.selectNameFilter(filters[wanted - 1]);
}

/// Qt's own dialog leaves it open which of its captions belong to its lists; a screen reader would
/// say only what is chosen in them. The system's dialogs have no such widgets.
void LabelLists(const QFileDialog& dialog) {
    constexpr std::array<std::array<const char*, 2>, 2> kLists = {
        {{"lookInLabel", "lookInCombo"}, {"fileTypeLabel", "fileTypeCombo"}}};
    for (const auto& [caption, list] : kLists) {
        auto* label = dialog.findChild<QLabel*>(QLatin1String(caption));
        if (label != nullptr) label->setBuddy(dialog.findChild<QWidget*>(QLatin1String(list)));
    }
}

}  // namespace

QStringList NameFilters(const std::string& filter) {
    const std::vector<std::string> parts = SplitText(filter, "|");
    QStringList filters;
    for (std::size_t part = 0; part + 1 < parts.size(); part += 2) {
        QStringList patterns;
        for (const std::string& pattern : SplitText(parts[part + 1], ";")) {
            patterns << (pattern == "*.*" ? QStringLiteral("*") : AnyCase(pattern));
        }
        if (patterns.isEmpty()) patterns << QStringLiteral("*");
        QString description = ToText(parts[part]);
        description.replace(QLatin1Char('('), QLatin1Char('['))
            .replace(QLatin1Char(')'), QLatin1Char(']'));
        filters << description + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
                       QLatin1Char(')');
    }
    return filters;
}

std::string RunFileDialog(FileQuestion& question) {
    RefreshWindows();
    QFileDialog dialog(Shell.MainWindow, ToText(question.Title), ToText(question.Folder));
    dialog.setAcceptMode(question.Save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(question.Save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if ((question.Flags & kAskBeforeOverwriting) == 0) {
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
    }
    dialog.setDefaultSuffix(ToText(question.DefaultExt));
    ApplyFilters(dialog, question);
    LabelLists(dialog);
    if (!question.Name.empty()) dialog.selectFile(ToText(question.Name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    const auto chosen = dialog.nameFilters().indexOf(dialog.selectedNameFilter());
    if (chosen >= 0) question.FilterIndex = static_cast<int>(chosen) + 1;
    return QFile::encodeName(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()))
        .toStdString();
}

}  // namespace brindlemoor
