#include "convert/wav.h"

#include "convert/cas_block.h"
#include "convert/wav_reader.h"
#include "convert/wav_writer.h"
#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"

namespace brindlemoor {

namespace {

/// A dot in the name of a folder begins no extension.
void ChangeExtension(std::string& name, const std::string& extension) {
    const std::size_t dot = name.rfind('.');
    const std::size_t separator = name.find_last_of(std::string("\\") + PathSeparator());
    const bool hasDot =
        dot != std::string::npos && (separator == std::string::npos || separator < dot);
    if (hasDot) name.erase(dot);
    name += extension;
}

}  // namespace

std::string WavConvert(std::string& data, std::string& name) {
    std::string result;
    if (data.compare(0, 4, "RIFF") == 0) {
        result = WavToCas(data, name);
        ChangeExtension(name, ".CAS");
    } else if (IsCasStream(data)) {
        result = CasToWav(data);
        ChangeExtension(name, ".WAV");
    } else {
        Platform.ShowMessage("El Archivo de entrada debe ser CAS o WAV", Disk.AppTitle, Buttons::Ok,
                             MessageIcon::Exclamation);
    }
    return result;
}

}  // namespace brindlemoor
