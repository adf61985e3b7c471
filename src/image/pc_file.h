#pragma once

#include <string>
#include <system_error>

namespace brindlemoor {

/// A file longer than this is a hard disk image: an OS-9 part, and 256 virtual DECB drives that
/// begin at this 0-based offset. Bytes.
inline constexpr long long kHardDiskLimit = 94371840;

/// Bytes of the OS-9 part of a hard disk image, from its first byte on.
inline constexpr long long kHardDiskOs9Bytes = 44533120;

/// Bytes of a virtual DECB drive: 35 tracks of 18 sectors of 256 bytes.
inline constexpr long long kVirtualDriveBytes = 161280;

/// Bits of the `options` of `LoadPcFile`.
inline constexpr int kSkipCreateQuestion = 1;
inline constexpr int kSkipOverwriteQuestion = 2;
/// One of many files that are written into a folder: its flush is left to `FlushPcFolder` as far as
/// no old file is in danger.
inline constexpr int kFlushWithOthers = 4;

/// The last answer to the question for a virtual drive; empty stands for the OS-9 part.
extern std::string VhdReply;

/// The part of a file that the last reading took; `Length` 0 stands for the whole file.
struct FilePart {
    long long Offset = 0;  ///< 0-based, bytes
    long long Length = 0;  ///< bytes
};
extern FilePart LastPartRead;

/// Shows "Error!!! ", the error's number and the system's text, as every failure of a file does.
void ShowFileError(const std::error_code& error);

/// Reads (`mode` "A") the PC file at `path` into `data`, or writes (`mode` "G") `data` to it.
///
/// In `path`, "<" and ">" become "-" and "*" becomes "A"; it comes back empty when the user gave
/// up. Reading a file above `kHardDiskLimit` asks for the drive, stores the answer in `VhdReply`
/// and reads that part only; `LastPartRead` tells which. Writing asks before it overwrites, or
/// creates, a file, unless `options` has `kSkipOverwriteQuestion`, or `kSkipCreateQuestion`; the
/// bytes go to a new file in the same folder that takes the old one's place at the end, so that a
/// failure leaves the old file as it was.
///
/// A failure shows "Error!!! ", its number and the system's text. Returns true when the bytes were
/// read or written; otherwise `data` holds what was read until then.
bool LoadPcFile(const std::string& mode, std::string& path, std::string& data, int options);

/// Has the disk keep all files that were written into `folder` with `kFlushWithOthers`. Shows the
/// error of a failure.
void FlushPcFolder(const std::string& folder);

/// `LoadPcFile` with the mode "G".
bool WritePcFile(std::string& path, std::string& data, int options);

}  // namespace brindlemoor
