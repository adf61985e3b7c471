#include "convert/file_commands.h"

namespace brindlemoor {

std::int16_t PopupSide = kPcSide;

void FileCommand(int /*index*/) {}

std::function<void(int index)> RunFileCommand = FileCommand;

}  // namespace brindlemoor
