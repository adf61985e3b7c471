#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/workbench_fixture.h"

namespace brindlemoor::test {

// The program of two lines `10 CLS` and `20 A` in both forms, byte by byte.
std::string CocoTokens();
std::string DragonTokens();
std::string TokensAsText();  ///< with the CR that a text begins with

/// A text of one line that another disk's program would be: `10 B`.
std::string OtherText();
std::string OtherCocoTokens();

/// The started program over a folder of the PC, with a disk open and selections made as a user
/// makes them. Programs of the PC all seem to be installed.
class CommandTest : public WorkbenchTest {
  protected:
    void SetUp() override;

    /// Opens an image, and forgets what was shown meanwhile.
    void OpenDisk(const std::string& image);

    /// Makes files in the folder of `File1` and selects them all.
    void SelectFiles(const std::map<std::string, std::string>& files);

    /// Selects the rows of `DirTable`.
    static void SelectRows(const std::vector<int>& rows);

    static void RunPc(int index);
    static void RunDisk(int index);

    /// The bytes of a file in the folder of `File1`; "(none)" when there is none.
    std::string PcFile(const std::string& name) const;

    /// The names of all files in that folder, hidden ones too, by their bytes.
    std::vector<std::string> PcFiles() const;

    /// The live rows' names, divided by blanks.
    static std::string LiveRows();

    /// A program of the PC that writes `bytes` over the file that it is started on.
    void EditorWrites(const std::string& bytes);
};

}  // namespace brindlemoor::test
