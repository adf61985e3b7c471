#pragma once

#include <string>

namespace brindlemoor {

/// A file's name as a disk family takes it.
struct DiskFileName {
    std::string Text;  ///< by which the file is looked for among the rows: not cut to its fields
    std::string Name;  ///< 8 characters on DECB and Dragon, empty on the other families
    std::string Ext;   ///< 3 characters, or empty
};

/// The wanted name in a path: what stands behind its last "\". Where the PC's separator is "/", a
/// path that begins with it is divided there too; in any other one it is a byte of a name, as disks
/// may hold it.
std::string WantedName(const std::string& path);

/// `wanted` by the rules of `Disk.DiskFamily`. DECB and Dragon: upper case, no blanks at the ends,
/// those inside as "-"; `Name` is what stands before the first point, `Ext` what stands before the
/// second, both cut and padded with blanks. OS-9 and FLEX: the first 29 characters.
DiskFileName NameForDisk(const std::string& wanted);

/// The type that goes with an extension of three characters: 0 for BAS, 1 for DAT, 3 for TXT, 2
/// for BIN and all others. An empty extension counts as BAS.
int TypeOfExtension(const std::string& ext);

}  // namespace brindlemoor
