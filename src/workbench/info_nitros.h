#pragma once

#include "workbench/control.h"

// The dialog shows the identification sector of an OS-9 disk field by field, and writes what its
// fields hold over the first bytes of `Disk.ImageBytes`. The rest of the program knows of it when
// the disk is read the next time.

namespace brindlemoor {

extern Window InfoNitros;

/// Builds the dialog with all fields empty.
void BuildInfoNitros();

/// Builds it anew and fills it from the open disk; on a disk of another family, or without one,
/// it stays empty.
void LoadInfoDialog();

/// Writes the fields into the image and closes the dialog. What would fall behind the end of the
/// image is dropped. A date that cannot be understood shows the error box; then nothing is written
/// and the dialog stays open.
void AcceptInfoDialog();

/// Closes the dialog; nothing is changed.
void CancelInfoDialog();

/// The text of the field of that index (0 to 19) changed: a number below 0 empties it, one that
/// its bytes cannot hold becomes the largest that they can. The check boxes of the two fields that
/// have some follow.
void InfoFieldChanged(int index);

/// A check box of the attributes, or of the disk's format, changed: the field takes the sum of
/// the boxes, and the attributes' letters follow.
void AttributesClicked();
void FormatClicked();

}  // namespace brindlemoor
