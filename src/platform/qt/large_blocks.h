#pragma once

namespace brindlemoor {

/// Has the memory of a large image that is closed serve the next one, instead of being given back
/// to the system and asked for again page by page, which takes longer than reading the image. What
/// stays with the program is up to 128 MiB beyond what it uses, and more as long as a small block
/// that is in use lies behind it. Does nothing where the C library has no such choice, or allows
/// none of that size.
void ReuseLargeBlocks();

}  // namespace brindlemoor
