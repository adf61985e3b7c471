#pragma once

#include <string>

namespace brindlemoor {

/// Keeps the open disk where it differs from its file: writes `Disk.ImageHeader` and
/// `Disk.ImageBytes` beside the settings file, as "Brindlemoor rescue 1" (the first number, up to
/// 999, that no file has) with the extension of the image's own name. Returns the copy's path; an
/// empty text when nothing is unsaved, or where no copy could be written. Changes nothing else and
/// fails with nothing: it runs when the program is about to end.
std::string RescueImage();

}  // namespace brindlemoor
