#include "workbench/file_dialog.h"

#include "core/byte_helpers.h"
#include "core/platform.h"
#include "workbench/pc_pane.h"

namespace brindlemoor {

namespace {

constexpr int kOpenFlags = 2050;
constexpr int kSaveFlags = kAskBeforeOverwriting;

}  // namespace

std::string FileDialog(const std::string& mode, std::string& path, std::string& name,
                       const FileDialogTexts& texts, int& filterIndex, std::optional<int> flags) {
    FileQuestion question;
    question.Save = mode != "A";
    question.Folder = path;
    question.Name = name;
    question.DefaultExt = Left(texts.DefaultExt, 3);
    question.Title = texts.Title.empty() ? "¿Seleccione el archivo?"_w : texts.Title;
    question.Filter = texts.Filter.empty() ? "Todos Los Archivos (*.*)|*.*" : texts.Filter;
    question.FilterIndex = filterIndex;
    question.Flags = flags.value_or(question.Save ? kSaveFlags : kOpenFlags);
    const std::string chosen = Platform.FileDialog(question);
    if (chosen.empty()) return {};
    SplitPath(chosen, path, name);
    filterIndex = question.FilterIndex;
    return chosen;
}

std::string FilterOf(const std::string& item) {
    return item + "|" + PatternOf(item);
}

}  // namespace brindlemoor
