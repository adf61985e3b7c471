#pragma once

#include <string>

namespace brindlemoor {

/// What stands in `FilePath`, as its change routine copied it last.
extern std::string FilePathText;

/// Shows the folder `path` in `Dir1` and its files in `File1`, and chooses the drive that it lies
/// on in `Drive1`. Fails with 76 when there is no such folder.
void ShowPcFolder(const std::string& path);

/// The name of the file that is selected in `File1`, empty when there is none.
std::string SelectedPcFile();

/// Fills `Drive1` from the platform's drives.
void ListPcDrives();

/// The pattern in a text of `DirPattern`: all that stands from the second character behind its
/// first ":" on, empty without one.
std::string PatternOf(const std::string& text);

/// Reads the folder of `File1` anew; a selected file that is still there stays selected, without
/// a click.
void RefreshPcFiles();

/// Sets the folder of `Dir1`, lists it and its subfolders, and runs its change routine. Fails with
/// 76 when there is no such folder.
void SetDir1Path(const std::string& path);

/// Sets the folder of `File1` and lists its files. Fails with 76 when there is no such folder.
void SetFile1Path(const std::string& path);

/// Chooses in `Drive1` the drive on which `path` lies.
void SetDriveOf(const std::string& path);

/// Hangs the event routines of `Drive1`, `Dir1`, `File1`, `DirPattern` and `FilePath` on them.
void ConnectPcPane();

}  // namespace brindlemoor
