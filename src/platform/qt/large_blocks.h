#pragma once

namespace brindlemoor {

/// Has the memory of a large image that is closed serve the next one, instead of being given back
/// to the system and asked for again page by page, which takes longer than reading the image. What
/// stays with the program is at most 128 MiB beyond what it uses. Does nothing where the C library
/// has no such choice.
void ReuseLargeBlocks();

}  // namespace brindlemoor
