#pragma once

#include <map>
#include <string>

#include "convert/wav_fixture.h"

namespace brindlemoor::test {

/// The settings of the tape, as they stand in a new settings file but for a second of silence at
/// the start, without which nothing can be written.
class AudioTest : public TapeTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    static void GiveOptions(const std::map<std::string, std::string>& values);
};

/// Settings in memory alone, the section "Audio Options" with these values in place of the usual
/// ones.
void GiveAudioOptions(const std::map<std::string, std::string>& values);

/// A stream with two leaders around its name block: 128, 21, 128, the contents' blocks.
std::string SomeStream(std::size_t contents = 10);

}  // namespace brindlemoor::test
