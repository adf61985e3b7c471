#pragma once

#include <QStringList>
#include <string>

#include "core/platform.h"

namespace brindlemoor {

/// Shows the file dialog: `Platform.FileDialog`.
std::string RunFileDialog(FileQuestion& question);

/// The filters of a question as the dialog shows them: a description with its patterns, which match
/// without regard to case.
QStringList NameFilters(const std::string& filter);

}  // namespace brindlemoor
