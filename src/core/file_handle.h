#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <system_error>

namespace brindlemoor {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// An open file of the PC, which closes itself.
using File = std::unique_ptr<std::FILE, CloseFile>;

/// The system's error of the file operation that failed last: `errno`, which was 0 before it.
std::error_code LastFileError();

/// Opens an ordinary file for reading, as bytes. Null with `error` set where that is not possible;
/// a folder, a path with a zero byte, and a pipe or a device, whose reading may not end, are
/// refused without a try.
File OpenForReading(const std::string& path, std::error_code& error);

}  // namespace brindlemoor
