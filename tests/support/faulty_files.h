#pragma once

#include "core/file_operations.h"

namespace brindlemoor::test {

/// The steps of replacing a file, in their order.
enum class FileStep { OpenNew, SetPermissions, Write, FlushToDisk, Close, Rename, FlushFolder };
inline constexpr FileStep kAllFileSteps[] = {
    FileStep::OpenNew, FileStep::SetPermissions, FileStep::Write,      FileStep::FlushToDisk,
    FileStep::Close,   FileStep::Rename,         FileStep::FlushFolder};

/// The system's operations, of which `step` fails with "no space left on device"; a write has put
/// half of its bytes into the file by then.
FileOperationTable FailingAt(FileStep step);

/// The system's operations, where `reach` runs before each step, and half way through a write.
FileOperationTable Watching(const std::function<void(FileStep step)>& reach);

/// Has `FileOperations` count in `flushed`, and not do, the flushes of many files together.
void CountCommonFlushes(int& flushed);

/// Puts the system's own operations back at the end of a test.
class FileOperationsKept {
  public:
    FileOperationsKept() = default;
    ~FileOperationsKept() { FileOperations = SystemFileOperations(); }
    FileOperationsKept(const FileOperationsKept&) = delete;
    FileOperationsKept& operator=(const FileOperationsKept&) = delete;
};

}  // namespace brindlemoor::test
