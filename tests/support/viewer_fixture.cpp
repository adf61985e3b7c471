#include "support/viewer_fixture.h"

namespace brindlemoor::test {

void ViewerTest::SetUp() {
    WorkbenchTest::SetUp();
    Start();
    SetSize(PrincipalControl("Archivo"), (80 + 2) * kTwipsPerPixel, (36 + 2) * kTwipsPerPixel);
    Choose("OpciónChar"_w, kWindowsCharacters);
    Choose("VerAsc", 0);
    Choose("Anchos", 0);
    SetText(PrincipalControl("Zoom"), "100%");
    script_ = {};
}

void ViewerTest::View(const std::string& bytes, int mode) {
    script_.DrawnLines.clear();
    Disk.PcFileBytes = bytes;
    ViewFile(PrincipalViewer, -1, mode);
}

std::vector<std::string> ViewerTest::Lines() {
    std::vector<std::string> lines;
    for (const TextLine& line : script_.DrawnLines) lines.push_back(line.Text);
    script_.DrawnLines.clear();
    return lines;
}

}  // namespace brindlemoor::test
