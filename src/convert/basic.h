#pragma once

#include <string>

namespace brindlemoor {

/// Turns a BASIC program into its other form: tokens into text when the first byte of `data` is
/// 0xFF (Color Computer) or 0x55 (Dragon), any other text into tokens of the machine whose disk is
/// open. Nothing is asked about names or extensions, so that a text that begins with "U" counts as
/// tokens. Empty for empty `data`, and when the user gave up at an error in the tokens.
/// `addLineFeed` has every line of a text end in CR LF, not CR; it means nothing to tokens. `data`
/// is cut to its length field where it is a Color Computer's program. Fails with 5 on a negative
/// length field and with 6 on a text too long for the machine; `data` stays as it was then.
std::string BasicConvert(std::string& data, bool addLineFeed);

}  // namespace brindlemoor
