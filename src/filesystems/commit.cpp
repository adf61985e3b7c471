#include "filesystems/commit.h"

#include "core/disk_state.h"
#include "filesystems/commit_decb.h"
#include "filesystems/commit_dragon.h"
#include "filesystems/commit_os9.h"
#include "filesystems/flex.h"
#include "filesystems/sectors.h"

namespace brindlemoor {

void CommitDirectory() {
    switch (Disk.DiskFamily) {
        case kDragon:
            CommitDragonDisk();
            return;
        case kOs9:
            CommitOs9Disk();
            return;
        case kFlex:
            ResetGatheredBytes();
            ReadFlexDisk();
            return;
        default:
            CommitDecbDisk();
    }
}

}  // namespace brindlemoor
