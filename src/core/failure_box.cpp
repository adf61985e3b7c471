#include "core/failure_box.h"

#include "core/disk_state.h"
#include "core/platform.h"

namespace brindlemoor {

void ShowFailure(const RuntimeFailure& failure) {
    Platform.ShowMessage(ErrorBoxText(failure), Disk.AppTitle, Buttons::Ok, MessageIcon::Critical);
}

}  // namespace brindlemoor
