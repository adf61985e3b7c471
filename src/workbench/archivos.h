#pragma once

#include <string>

#include "workbench/viewer.h"

namespace brindlemoor {

/// The detached viewer window, and the copy of a file that it shows.
extern Window Archivos;
extern Viewer ArchivosViewer;
extern std::string ArchivosBytes;

/// The two sizes that follow the choice of `Zoom` in the detached window, in twips: 260 at 100%.
struct DetachedZoom {
    double Width = 260;
    double Height = 260;
};
extern DetachedZoom ArchivosZoom;

/// Shows `bytes`, a file of that type, in the detached window under `caption`, a path. The window
/// takes captions, lists and choices from the main window as they are now. What is converted or
/// repaired there changes neither the main window nor the disk.
void ShowArchivos(const std::string& caption, const std::string& bytes, int mode);

/// Lays the window out for an inner size in twips; one too small for the viewer changes nothing.
void ResizeArchivos(int width, int height);

}  // namespace brindlemoor
