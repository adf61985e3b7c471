#pragma once

#include <string>

#include "support/workbench_fixture.h"

namespace brindlemoor::test {

/// The started program over a DECB disk of four files, "ALPHA   .BAS", "BETA    .BIN", a deleted
/// one and "EIGHTLET.TXT", in the grid with both kinds of hidden rows shown.
class EditTest : public WorkbenchTest {
  protected:
    void SetUp() override;

    /// Opens an image as a click on its file does, and fills the grid.
    static void OpenDisk(const std::string& image);

    /// What a press of the left button on a row does: selects it and makes it the current one.
    static void SelectRow(int gridRow);

    /// What the grid's cell shows; rows and columns from 1.
    static std::string Shown(int row, int column);

    /// The first `length` bytes of a directory slot of the image.
    static std::string Slot(int slot, std::size_t length = 16);

    std::string Original;  ///< the disk's bytes
};

}  // namespace brindlemoor::test
