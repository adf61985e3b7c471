#pragma once

namespace brindlemoor {

/// Gives the map and the sector's text their pictures, and hangs the event routines on the fields,
/// scroll bars and pictures of the sector view and on the button of the allocation editor.
void ConnectSectorMap();

}  // namespace brindlemoor
