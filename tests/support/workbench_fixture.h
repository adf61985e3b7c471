#pragma once

#include <string>

#include "core/disk_state.h"
#include "platform/scripted/scripted_platform.h"
#include "support/settings_fixture.h"
#include "workbench/grid.h"

namespace brindlemoor::test {

/// A main window as it is built before the start-up, over an empty settings folder, an empty disk
/// and a scripted platform. The program's working folder is `PcFolder`, so that the pane of the
/// PC's files shows it.
class WorkbenchTest : public SettingsTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Builds the window anew and forgets the disk and the settings in memory, as at the next
    /// start of the program. The settings file stays.
    void BuildAgain();

    /// Runs the start-up, which is expected to succeed.
    static void Start();

    /// What stands behind the first line "key=" of the settings file; "(none)" without that line.
    std::string Stored(const std::string& key) const;

    /// Replaces the settings file by the text of a new one, with `from` replaced by `to` in it.
    void GiveDefaultSettings(const std::string& from = {}, const std::string& to = {});

    /// An empty folder of the PC, and the way back to where the tests were started.
    std::string PcFolder;
    Script script_;

  private:
    std::string startedIn_;
};

/// A started program with an empty disk, whose directory the test fills row by row.
class DirectoryTest : public WorkbenchTest {
  protected:
    void SetUp() override;

    /// Appends a row of that name to `DirTable`.
    static DirEntry& AddEntry(const std::string& name, const std::string& ext = {});

    /// Empties `DirTable` and opens an empty disk of that family.
    static void NewDirectory(Family family);

    /// What the grid's cell shows; rows and columns from 1.
    static std::string Shown(int row, int column);
    static const GridCell& Cell(int row, int column);

    /// The numbers of the columns that show, in their own order.
    static std::string ShownColumns();
};

}  // namespace brindlemoor::test
