#include "convert/line_ends.h"

#include "convert/text_repair.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"

namespace brindlemoor {

RunStep FileLineEnds(FileRun& run, const std::string& text) {
    const std::string extension = Right(run.DeletedPath, 3);
    if (extension != "BAS" && extension != "TXT") return RunStep::GoOn;
    const std::string warning = "Peligro!!!.. La extensión del archivo: "_w + run.FileName +
                                "deberia ser BAS o TXT\r\n"
                                "este archivo no deberia ser convertido\r\n" +
                                "Aún asi desea convertirlo?"_w;
    const Answer answer =
        Platform.ShowMessage(warning, Disk.AppTitle, Buttons::YesNoCancel, MessageIcon::Question);
    if (answer == Answer::Cancel) return RunStep::End;
    if (answer != Answer::Yes) return RunStep::GoOn;
    run.Result = ChangeLineEnds(text);
    run.Changed = true;
    return RunStep::GoOn;
}

}  // namespace brindlemoor
