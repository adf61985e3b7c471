#include "workbench/spare_options.h"

#include <gtest/gtest.h>

#include "core/byte_helpers.h"
#include "support/workbench_fixture.h"
#include "workbench/principal.h"

namespace brindlemoor::test {
namespace {

class SpareOptionsTest : public WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        SpareOptions.Open = true;
    }
    static void Press(const char* button) { ControlOf(SpareOptions, button).Click(); }
};

TEST_F(SpareOptionsTest, ItsTextsAreThoseOfTheDesign) {
    EXPECT_EQ(SpareOptions.Caption, "Opciones");
    EXPECT_EQ(ControlOf(SpareOptions, "cmdOK").Text, "Aceptar");
    EXPECT_EQ(ControlOf(SpareOptions, "cmdCancel").Text, "Cancelar");
    EXPECT_EQ(ControlOf(SpareOptions, "cmdApply").Text, "Aplicar");
    EXPECT_EQ(ControlOf(SpareOptions, "tbsOptions").Kind, ControlKind::TabStrip);
}

TEST_F(SpareOptionsTest, ApplyShowsItsMessageAndStays) {
    Press("cmdApply");
    EXPECT_EQ(MessageTexts(script_),
              std::vector<std::string>{
                  "Coloque código aquí para establecer opciones o cerrar el cuadro de diálogo"_w});
    EXPECT_TRUE(SpareOptions.Open);
}

TEST_F(SpareOptionsTest, OkShowsItsMessageAndCloses) {
    Press("cmdOK");
    EXPECT_EQ(MessageTexts(script_),
              std::vector<std::string>{
                  "Coloque código aquí para establecer opciones y cerrar el cuadro de diálogo"_w});
    EXPECT_FALSE(SpareOptions.Open);
}

TEST_F(SpareOptionsTest, CancelClosesWithoutAMessage) {
    Press("cmdCancel");
    EXPECT_TRUE(script_.Messages.empty());
    EXPECT_FALSE(SpareOptions.Open);
}

TEST_F(SpareOptionsTest, TheMenuShowsIt) {
    Start();
    MenuOf(Principal, "OptionsMenu").Click(5);
    EXPECT_EQ(script_.ModalWindows, std::vector<std::string>{"frmOptions"});
}

}  // namespace
}  // namespace brindlemoor::test
