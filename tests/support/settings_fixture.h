#pragma once

#include <gtest/gtest.h>

#include <string>

namespace brindlemoor::test {

/// A test with an empty settings folder of its own, and with all program-wide state as it is at
/// the start of the program.
class SettingsTest : public testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes the settings folder and a settings file in it, and points `Settings` at that file.
    void GiveSettings(const std::string& text);

    /// The settings file, or another file of the settings folder, as it is on the PC.
    std::string SettingsFile(const std::string& name = "Brindlemoor.INI") const;

    /// Writes a file of the settings folder, behind the program's back.
    void WriteFile(const std::string& name, const std::string& text) const;

    bool HasFile(const std::string& name) const;

    /// The base folder of this test, in which the settings folder is made.
    std::string Base;
};

/// Sets an environment variable; an empty value removes it.
void SetVariable(const std::string& name, const std::string& value);

}  // namespace brindlemoor::test
