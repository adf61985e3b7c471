#include "convert/cas_block.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace brindlemoor {

namespace {

// Distances from the byte in front of the sync byte.
constexpr std::int64_t kTypeOffset = 2;
constexpr std::int64_t kLengthOffset = 3;
constexpr std::int64_t kBodyOffset = 4;

constexpr int kNoByte = -1;

void Tell(const std::string& text) {
    Platform.ShowMessage(text, Disk.AppTitle, Buttons::Ok, MessageIcon::Exclamation);
}

int Checksum(std::int16_t type, const std::string& body) {
    const auto add = [](unsigned sum, char byte) { return sum + static_cast<unsigned char>(byte); };
    const unsigned start = static_cast<unsigned>(type) + static_cast<unsigned>(body.size());
    return static_cast<int>(std::accumulate(body.begin(), body.end(), start, add) & 0xFF);
}

}  // namespace

bool IsCasStream(const std::string& data) {
    return data.compare(0, kStreamMark, std::string(kStreamMark, kLeaderByte)) == 0;
}

std::string CasMakeBlock(const std::string& body, std::int16_t type) {
    if (body.size() > kLongestBody) Fail(kOverflow);
    std::string block = {kLeaderByte, kSyncByte, static_cast<char>(type),
                         static_cast<char>(body.size())};
    block += body;
    block += {static_cast<char>(Checksum(type, body)), kLeaderByte};
    return block;
}

CasBlock ReadBlockAt(const std::string& stream, std::size_t& offset) {
    CasBlock block;
    const std::size_t sync = stream.find({kLeaderByte, kSyncByte}, offset);
    block.Found = sync != std::string::npos;
    if (!block.Found) Tell("No encuentro ningún Bloque"_w);
    // Without a sync byte the block is taken to begin one byte in front of what is left.
    const auto start = static_cast<std::int64_t>(block.Found ? sync : offset) - !block.Found;

    const int length = ByteOr(stream, start + kLengthOffset, kNoByte);
    if (length != kNoByte) {
        block.Type = static_cast<std::int16_t>(ByteAt(stream, start + kTypeOffset));
    }
    const std::int64_t checksum = start + kBodyOffset + std::max(length, 0);
    if (length > 0) {
        block.Body = CutBytes(stream, start + kBodyOffset, length);
        if (ByteOr(stream, checksum, kNoByte) != Checksum(block.Type, block.Body) ||
            ByteOr(stream, checksum + 1, kNoByte) != kLeaderByte) {
            Tell("ERROR!!! en el chequeo del bloque");
        }
    }
    offset = std::min(static_cast<std::size_t>(checksum) + 1, stream.size());
    return block;
}

std::string CasReadBlock(std::string& stream, std::int16_t& type) {
    std::size_t offset = 0;
    CasBlock block = ReadBlockAt(stream, offset);
    stream.erase(0, offset);
    type = block.Type;
    return std::move(block.Body);
}

}  // namespace brindlemoor
