// The input is the file of a program in tokens. It is decoded for a user who goes on at every
// error, and for one who gives up at the first.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "convert/basic.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "core/runtime_failure.h"

namespace {

/// What became of one decoding.
struct Outcome {
    std::string Text;
    std::string Left;  ///< the file behind it
    bool Failed = false;
    bool ErrorShown = false;  ///< a message with a Cancel button
};

Outcome Decode(const std::string& file, brindlemoor::Answer answer) {
    using namespace brindlemoor;
    Outcome outcome;
    Platform = SilentPlatform();
    Platform.ShowMessage = [&](const std::string&, const std::string&, Buttons buttons,
                               MessageIcon) {
        if (buttons == Buttons::Ok) return Answer::Ok;
        outcome.ErrorShown = true;
        return answer;
    };
    outcome.Left = file;
    try {
        outcome.Text = BasicConvert(outcome.Left, false);
    } catch (const RuntimeFailure&) {
        outcome.Failed = true;
    }
    return outcome;
}

void Expect(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using brindlemoor::Answer;
    std::string file(data, data + size);
    if (file.empty()) return 0;
    if (file[0] != '\xFF') file[0] = '\x55';
    const Outcome patient = Decode(file, Answer::Ok);
    const Outcome hasty = Decode(file, Answer::Cancel);

    // A failure leaves the file alone, and is one whatever the user answers.
    Expect(patient.Failed == hasty.Failed);
    if (patient.Failed) {
        Expect(patient.Left == file && hasty.Left == file && file[0] == '\xFF' && size >= 3);
        return 0;
    }
    Expect(patient.Left == hasty.Left && patient.Left == file.substr(0, patient.Left.size()));
    Expect(file[0] == '\xFF' || patient.Left == file);
    // No word is longer than seven letters; a line's head of four bytes gives six characters.
    Expect(patient.Text.front() == '\r' && patient.Text.size() <= 1 + 7 * size);
    Expect(patient.ErrorShown == hasty.ErrorShown);
    Expect(hasty.Text == (hasty.ErrorShown ? std::string() : patient.Text));
    return 0;
}
