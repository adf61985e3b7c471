#pragma once

#include <optional>
#include <string>

namespace brindlemoor {

/// What `FileDialog` asks for beside the folder and the name.
struct FileDialogTexts {
    std::string DefaultExt;  ///< for a name that is typed without one; three letters of it count
    std::string Title;       ///< empty: "¿Seleccione el archivo?"
    std::string Filter;      ///< description, "|", patterns, "|", description ...; empty: all files
};

/// The system's file dialog: for opening with `mode` "A", for saving with any other. It starts in
/// the folder `path` with `name`. Returns the whole path that was chosen, empty when the user gave
/// up; `path` and `name` become its folder and its file, and `filterIndex` (from 1) the filter
/// chosen. Without `flags` a file to open must exist, and a file to be overwritten brings up the
/// dialog's own question.
std::string FileDialog(const std::string& mode, std::string& path, std::string& name,
                       const FileDialogTexts& texts, int& filterIndex,
                       std::optional<int> flags = std::nullopt);

/// The pair of description and patterns for an item of `DirPattern`.
std::string FilterOf(const std::string& item);

}  // namespace brindlemoor
