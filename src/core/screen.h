#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/picture.h"

namespace brindlemoor {

/// The picture `Archivo` while a paint program has what stands in it.
struct PaintSurface {
    Picture* Image = nullptr;        ///< null: there is no window
    std::function<void()> GiveBack;  ///< gives the control its own size again
};

/// What the disk, file and settings routines ask of the main window. Every entry does nothing
/// until the workbench puts its own in, so that those routines run with no window at all.
struct ScreenTable {
    // The disk
    std::function<void()> FillDirectoryGrid;
    std::function<void(int selectedRow)> PaintTrackBlock;        ///< row of `DirTable`, -1 for none
    std::function<void(int resetMark)> DrawSectorMap;            ///< -1 forgets the old mark
    std::function<void(int track, int sector)> ShowSectorPlace;  ///< track from 0, sector from 1
    std::function<void(bool visible)> ShowGranuleField;
    /// Remembers the fields of the sector view, and returns the routine that puts them back.
    std::function<std::function<void()>()> KeepSectorView;
    std::function<void()> ShowModified;  ///< colours and enables by `Disk.ImageModified`
    std::function<void()> GiveUpColumnSort;
    std::function<std::vector<int>()> SelectedRows;  ///< rows of `DirTable`, in the grid's order
    std::function<void()> EditFat;  ///< offers the FAT editor, and looks at the image behind it

    /// Gives the picture `Archivo` that size in pixels and has the viewer draw into it.
    std::function<PaintSurface(int width, int height)> OpenPaintSurface;

    // The files of the PC
    std::function<void()> RefreshPcFiles;       ///< lists the folder of `File1` anew
    std::function<std::string()> PcListFolder;  ///< folder of `File1`
    std::function<std::string()> PcListName;    ///< name selected in `File1`, or empty
    std::function<std::vector<std::string>()> PcSelectedNames;  ///< selected in `File1`, in order
    std::function<void(const std::string& path)> SetFilePath;
    std::function<std::string()> PathDskText;
    std::function<void(const std::string& path)> SetPathDsk;
    std::function<void(int newFile, int mode)> ViewFile;  ///< -1: `Disk.PcFileBytes` is new
    /// Shows a file of that type in the window `Archivos`, under `caption`.
    std::function<void(const std::string& caption, const std::string& bytes, int mode)>
        ShowDetached;

    // Settings and languages. A control or menu that the window lacks fails with 730.
    std::function<void(const std::string& name, const std::string& text)> SetCaptionAndTag;
    std::function<void(const std::string& name, const std::vector<std::string>& items)>
        SetListItems;
    std::function<void(const std::string& name, const std::vector<std::string>& items)>
        SetMenuItems;
    /// Captions, tags (the section names) and the check of `LanguageMenu`. Fails with 9 on more
    /// names than the menu has items, or fewer captions than names.
    std::function<void(const std::vector<std::string>& names,
                       const std::vector<std::string>& captions, const std::string& language)>
        SetLanguageMenu;
    std::function<void(const std::string& name, int index)> SetControlIndex;
    std::function<void(const std::string& name, const std::string& text)> SetControlText;
    std::function<void(std::int32_t colour)> SetAlternateRowColour;  ///< 0x00BBGGRR
    /// Switches the grid's drawing off and sets the headers of columns 1 to 16, if it has columns.
    std::function<void()> SetGridHeaders;
};

extern ScreenTable Screen;

/// A table whose entries all do nothing.
ScreenTable NoScreen();

/// While true, the change routines of the main window's controls do nothing: a routine is setting
/// them.
extern bool WindowBusy;

}  // namespace brindlemoor
