#pragma once

#include <string>
#include <vector>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"
#include "workbench/principal_viewer.h"

namespace brindlemoor::test {

/// A started program whose viewer stands on "Windows" characters, "Auto" for BASIC and lines and
/// "100%", so that each line in view is one `DrawText`. The picture is 80 by 36 pixels: ten cells
/// and three rows at 100%.
class ViewerTest : public WorkbenchTest {
  protected:
    void SetUp() override;

    static void Choose(const std::string& list, int index) {
        SetListIndex(PrincipalControl(list), index);
    }

    /// Shows `bytes` as a file just chosen, of that type.
    void View(const std::string& bytes, int mode);

    /// The lines that were drawn since the last call, each cut to what fits.
    std::vector<std::string> Lines();

    static std::string Kind() { return PrincipalControl("Propiedades").Text; }
    static Control& Rows() { return PrincipalControl("VScrollA"); }
    static Control& Columns() { return PrincipalControl("HScrollA"); }
};

}  // namespace brindlemoor::test
