#pragma once

#include <string>

namespace brindlemoor::benchmarks {

// What the times of a benchmark are held against: the same bytes, only copied. Each is the quickest
// of several runs.

/// Seconds of a copy into memory that is there already.
double CopySeconds(const std::string& bytes);

/// Seconds of a copy into new memory, as a result needs it.
double CopyIntoNewSeconds(const std::string& bytes);

/// Seconds until the bytes stand in a new file of `folder` and the disk keeps them.
double WriteSeconds(const std::string& bytes, const std::string& folder);

}  // namespace brindlemoor::benchmarks
