#include "workbench/principal.h"

#include <gtest/gtest.h>

#include <set>

#include "core/byte_helpers.h"
#include "core/runtime_failure.h"
#include "core/screen.h"
#include "core/settings.h"
#include "support/workbench_fixture.h"

namespace brindlemoor {
namespace {

using Texts = std::vector<std::string>;
using enum ControlKind;

/// A control of the main window as it is designed.
struct DesignRow {
    const char* Name;
    ControlKind Kind;
    const char* Text;
};

class PrincipalDesign : public test::WorkbenchTest {
  protected:
    static Texts Captions(const std::string& menu) {
        Texts captions;
        for (const MenuItem& item : MenuOf(Principal, menu).Items) captions.push_back(item.Caption);
        return captions;
    }
};

constexpr DesignRow kDesign[] = {
    {"ListDirec", Grid, ""},
    {"Info", Label, ""},
    {"VerBorrados", CheckBox, "Ver Borrados"},
    {"VerContinuaciones", CheckBox, "Ver Contnuaciones"},
    {"Label3", Label, "Directorio CoCo:"},
    {"Iconos", Hidden, ""},
    {"txtEdit", TextBox, ""},
    {"ComboEdit", ComboBox, ""},
    {"TrackBlock", Picture, ""},
    {"Sectores", Picture, ""},
    {"Track", TextBox, "Pista"},
    {"Sector", TextBox, "Sector"},
    {"Granulo", TextBox, "Granulo"},
    {"HScroll1", HorizontalBar, ""},
    {"VScroll1", VerticalBar, ""},
    {"Label1", Label, "Sector:"},
    {"Label2", Label, "Pista:"},
    {"Label11", Label, "Traks 0-9 10-19 20-29 30-39 "},
    {"Label12", Label, ""},
    {"Frame1", Frame, ""},
    {"EditFAT", TextBox, ""},
    {"LabelFat", Label, "FAT:"},
    {"EditBat", Button, "Editar BAT"},
    {"SaveBtn", Button, "Grabar"},
    {"UndoBtn", Button, "Reversar"},
    {"Archivo", Picture, ""},
    {"Caracteres", Frame, ""},
    {"Picture1", Hidden, ""},
    {"VScrollA", VerticalBar, ""},
    {"HScrollA", HorizontalBar, ""},
    {"VerAsc", ComboBox, "Auto"},
    {"Anchos", ComboBox, "Auto"},
    {"Zoom", ComboBox, "100%"},
    {"OpciónChar", ComboBox, "Windows"},
    {"Propiedades", Label, ""},
    {"Label4", Label, "Directorio PC:"},
    {"Label5", Label, "Tipo:"},
    {"Label6", Label, "Archivo:"},
    {"Label7", Label, "Basic:"},
    {"Label8", Label, "Caracteres:"},
    {"Label9", Label, "Zoom:"},
    {"Label10", Label, "Ancho:"},
    {"PathDsk", Label, ""},
    {"Drive1", DriveList, ""},
    {"Dir1", FolderList, ""},
    {"File1", FileList, ""},
    {"FilePath", TextBox, ""},
    {"DirPattern", ComboBox, ""},
    {"Drag", Hidden, ""},
    {"NoDrop", Hidden, ""},
};

TEST_F(PrincipalDesign, HoldsEveryControlWithItsTextAndNoOther) {
    std::set<std::string> names;
    for (const DesignRow& row : kDesign) {
        const std::string name = Windows1252(row.Name);
        names.insert(name);
        const Control* control = FindControl(Principal, name);
        ASSERT_NE(control, nullptr) << row.Name;
        EXPECT_EQ(control->Name, name);
        EXPECT_EQ(control->Kind, row.Kind) << row.Name;
        EXPECT_EQ(control->Text, row.Text) << row.Name;
    }
    for (const Control& control : Principal.Controls) {
        EXPECT_TRUE(names.count(control.Name) == 1 || control.Name == "totales") << control.Name;
    }
    EXPECT_EQ(Principal.Controls.size(), names.size() + 3);
}

TEST_F(PrincipalDesign, HasThreeTotalsLinesInTheFixedFont) {
    for (int line = 0; line < 3; ++line) {
        EXPECT_EQ(PrincipalControl("totales", line).Font, FontKind::Fixed);
        EXPECT_EQ(PrincipalControl("totales", line).Text, "");
    }
    for (const char* name : {"ListDirec", "Sectores", "Archivo"}) {
        EXPECT_EQ(PrincipalControl(name).Font, FontKind::Fixed) << name;
    }
}

TEST_F(PrincipalDesign, TheButtonsHaveTheTipsOfTheDesign) {
    EXPECT_EQ(PrincipalControl("EditBat").ToolTip, "Edit Bit Allocation Table");
    EXPECT_EQ(PrincipalControl("SaveBtn").ToolTip, "Graba el archiv DSK");
    EXPECT_EQ(PrincipalControl("UndoBtn").ToolTip, "Graba el archiv DSK");
}

TEST_F(PrincipalDesign, TheViewersListsHaveTheItemsOfTheDesign) {
    EXPECT_EQ(PrincipalControl("VerAsc").Items, (Texts{"Auto", "Comprimido", "ASC CoCo"}));
    EXPECT_EQ(PrincipalControl("Anchos").Items,
              (Texts{"Auto", "Lineas (13)", "Lineas (13+10)", "Lineas (0)", "Todo", "256"}));
    EXPECT_EQ(PrincipalControl("Zoom").Items,
              (Texts{" 10%", "  50%", "  75%", "100%", "150%", "200%", "500%", "1000%", "2600%"}));
    EXPECT_EQ(PrincipalControl("OpciónChar"_w).Items,
              (Texts{"Windows", "CoCo", "CoCo Bas", "CoCo MAX"}));
    EXPECT_TRUE(PrincipalControl("Anchos").Editable);
    EXPECT_TRUE(PrincipalControl("Zoom").Editable);
    EXPECT_FALSE(PrincipalControl("VerAsc").Editable);
    EXPECT_FALSE(PrincipalControl("OpciónChar"_w).Editable);
}

TEST_F(PrincipalDesign, ThePatternListHoldsSixPatternsTheLastOneForAllFiles) {
    const Control& patterns = PrincipalControl("DirPattern");
    EXPECT_EQ(patterns.Items.size(), 6U);
    EXPECT_EQ(patterns.Items[5], "Todos Los Archivos: *.*");
    EXPECT_TRUE(patterns.Editable);
}

TEST_F(PrincipalDesign, TheMenusHaveTheCaptionsOfTheDesign) {
    EXPECT_EQ(Captions("MainMenu"), (Texts{"Archivo", "Opciones", "Ayuda"}));
    const Texts files = Captions("FilesMenu");
    ASSERT_EQ(files.size(), 9U);
    for (const std::size_t separator : {1U, 4U, 7U}) EXPECT_EQ(files[separator], "-");
    const Texts options = Captions("OptionsMenu");
    ASSERT_EQ(options.size(), 6U);
    EXPECT_EQ(Texts(options.begin() + 2, options.end()),
              (Texts{"Header Info", "Info OS9/NitrOS-9", "Audio", "Opciones"}));
    EXPECT_EQ(Captions("LanguageMenu"), (Texts{"English", "Español"_w}));
    EXPECT_EQ(Captions("HelpMenu").size(), 3U);
    EXPECT_EQ(Captions("PopMenu").size(), 8U);
    EXPECT_EQ(Captions("TypeMenu"), (Texts{"0=Basic", "1=Basic", "2=Binario", "3=Data"}));
    EXPECT_EQ(Captions("FormMenu"), (Texts{"B=Binario", "A=AscII"}));
    EXPECT_EQ(Captions("columnsMenu").size(), 18U);
}

TEST_F(PrincipalDesign, OnlyTheConversionMenuGrows) {
    EXPECT_EQ(Captions("ConvMenu").size(), 7U);
    for (const Menu& menu : Principal.Menus) {
        EXPECT_EQ(menu.CanGrow, menu.Name == "ConvMenu") << menu.Name;
    }
}

TEST_F(PrincipalDesign, EachPopupLeadsToItsArray) {
    const std::pair<const char*, const char*> popups[] = {{"MenuPop", "PopMenu"},
                                                          {"MenuType", "TypeMenu"},
                                                          {"MenuForm", "FormMenu"},
                                                          {"MenuColumns", "columnsMenu"}};
    for (const auto& [popup, array] : popups) {
        ASSERT_EQ(MenuOf(Principal, popup).Items.size(), 1U) << popup;
        EXPECT_EQ(MenuOf(Principal, popup).Items[0].SubMenu, array);
        EXPECT_NE(FindMenu(Principal, array), nullptr) << array;
    }
    EXPECT_EQ(MenuOf(Principal, "OptionsMenu").Items[0].SubMenu, "LanguageMenu");
}

TEST_F(PrincipalDesign, NothingIsThereToSaveOrUndoAtFirst) {
    const Menu& files = MenuOf(Principal, "FilesMenu");
    for (std::size_t index = 0; index < files.Items.size(); ++index) {
        EXPECT_EQ(files.Items[index].Enabled, index != 3 && index != 5) << index;
    }
    EXPECT_TRUE(PrincipalControl("SaveBtn").Enabled);
    EXPECT_FALSE(PrincipalControl("UndoBtn").Enabled);
}

TEST_F(PrincipalDesign, TheCellEditorsAreHidden) {
    EXPECT_FALSE(PrincipalControl("txtEdit").Visible);
    EXPECT_FALSE(PrincipalControl("ComboEdit").Visible);
}

TEST_F(PrincipalDesign, TheGridIsWhiteWithItsOwnAlternateRowsAndNoColumns) {
    EXPECT_EQ(ListDirec.BackColour, 0xFFFFFF);
    EXPECT_EQ(ListDirec.AlternateRowBackColour, 0xE6FCFC);
    EXPECT_TRUE(ListDirec.Columns.empty());
    EXPECT_TRUE(ListDirec.Rows.empty());
}

// The menus' actions

class PrincipalMenus : public test::WorkbenchTest {
  protected:
    void SetUp() override {
        WorkbenchTest::SetUp();
        Start();
    }

    static void Click(const std::string& menu, int index) { MenuOf(Principal, menu).Click(index); }
};

TEST_F(PrincipalMenus, ExitClosesTheWindow) {
    Click("FilesMenu", 8);
    EXPECT_TRUE(script_.Closed);
}

TEST_F(PrincipalMenus, TheOptionsShowTheirWindows) {
    for (int index = 1; index <= 5; ++index) Click("OptionsMenu", index);
    EXPECT_EQ(script_.ModalWindows,
              (Texts{"Opciones", "HeaderInfo", "InfoNitros", "AudioConvert", "frmOptions"}));
}

TEST_F(PrincipalMenus, OnlyTheTwoWindowsThatEditTheImageRefreshTheModifiedState) {
    for (int index = 1; index <= 5; ++index) {
        Disk.ImageBytes.clear();
        Disk.ImageModified = 0;
        script_.OnModal = [](const std::string&) { Disk.ImageBytes = "changed"; };
        Click("OptionsMenu", index);
        EXPECT_EQ(Disk.ImageModified != 0, index == 2 || index == 3) << index;
    }
}

TEST_F(PrincipalMenus, HelpOpensTheTextOfTheLanguageInForceInTheUsersEditor) {
    test::SetVariable("BRINDLEMOOR_EDITOR", "mine");
    Click("HelpMenu", 0);
    Click("LanguageMenu", 1);
    Click("HelpMenu", 0);
    ASSERT_EQ(script_.Programs.size(), 2U);
    EXPECT_EQ(script_.Programs[0].Program, "mine");
    EXPECT_EQ(script_.Programs[0].Arguments, Texts{PcFolder + "/Brindlemoor English"});
    EXPECT_EQ(script_.Programs[1].Arguments, Texts{PcFolder + "/Brindlemoor Español"_w});
    test::SetVariable("BRINDLEMOOR_EDITOR", "");
}

TEST_F(PrincipalMenus, HelpLeadsToTheMakersPageAndTheAboutBox) {
    Click("HelpMenu", 1);
    ASSERT_EQ(script_.Pages.size(), 1U);
    EXPECT_EQ(script_.Pages[0].substr(0, 8), "https://");
    Click("HelpMenu", 2);
    EXPECT_EQ(script_.ModalWindows, (Texts{"Acerca"}));
    EXPECT_TRUE(script_.Programs.empty());
}

TEST_F(PrincipalMenus, ChoosingALanguageChecksItStoresItAndPutsItIntoEffect) {
    Click("LanguageMenu", 1);
    const Menu& menu = MenuOf(Principal, "LanguageMenu");
    EXPECT_FALSE(menu.Items[0].Checked);
    EXPECT_TRUE(menu.Items[1].Checked);
    EXPECT_EQ(menu.Items[0].Caption, "Ingles");
    EXPECT_EQ(menu.Items[1].Tag, "Spanish");
    EXPECT_EQ(Settings.CurrentLanguage, "Spanish");
    EXPECT_EQ(Settings.LanguageIndex, 1);
    EXPECT_EQ(Stored("CurrentLanguage"), "Spanish");
    EXPECT_EQ(PrincipalControl("Label5").Text, "Tipo:");
    EXPECT_EQ(PrincipalControl("Label3").Text, "Directorio CoCo:  ");
    EXPECT_EQ(MenuOf(Principal, "FilesMenu").Items[8].Caption, "Salir");
}

TEST_F(PrincipalMenus, ALanguageChangeRebuildsTheGridWithAllHeaders) {
    Click("LanguageMenu", 1);
    ASSERT_EQ(ListDirec.Columns.size(), 18U);
    EXPECT_TRUE(ListDirec.Redraw);
    EXPECT_EQ(ListDirec.Columns[0].Header, "NOMBRE");
    EXPECT_EQ(ListDirec.Columns[16].Header, "PEDC");
    EXPECT_EQ(ListDirec.Columns[17].Header, "Secuencia de Granulos o Sectores   ");
    Click("LanguageMenu", 0);
    EXPECT_EQ(ListDirec.Columns[0].Header, "NAME");
    EXPECT_EQ(ListDirec.Columns[17].Header, "Granules Or Sectors secuence   ");
}

TEST_F(PrincipalMenus, AfterALanguageChangeWidthsAndOrderComeFromTheFileAgain) {
    Click("LanguageMenu", 0);
    ListDirec.ColumnResized(2, 77);
    MoveColumn(ListDirec, 1, 3);
    ListDirec.ColumnMoved(1);
    Click("LanguageMenu", 1);
    EXPECT_EQ(ListDirec.Columns[1].Width, 77);
    EXPECT_EQ(ListDirec.Columns[0].Order, 3);
    EXPECT_EQ(ListDirec.Columns[1].Order, 1);
}

TEST_F(PrincipalMenus, ALanguageThatTheMenuLacksFailsWith9) {
    try {
        Click("LanguageMenu", 2);
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number, 9);
    }
    EXPECT_EQ(Stored("CurrentLanguage"), "English");
}

TEST_F(PrincipalMenus, TheConversionMenuKeepsTheElementThatSpanishLacks) {
    ASSERT_EQ(MenuOf(Principal, "ConvMenu").Items.size(), 11U);
    Click("LanguageMenu", 1);
    const Menu& menu = MenuOf(Principal, "ConvMenu");
    ASSERT_EQ(menu.Items.size(), 11U);
    EXPECT_EQ(menu.Items[9].Caption, "DSK <-> VDK");
    EXPECT_EQ(menu.Items[9].Tag, "DSK <-> VDK");
    EXPECT_EQ(menu.Items[10].Caption, "DSK <-> VDK");
}

// What the lists of the viewer store

TEST_F(PrincipalMenus, TheViewersListsStoreTheirPlaceOrText) {
    SetListIndex(PrincipalControl("VerAsc"), 2);
    EXPECT_EQ(Stored("VerAscActual"), "2");
    SetListIndex(PrincipalControl("OpciónChar"_w), 3);
    EXPECT_EQ(Stored("OpciónCharActual"_w), "3");
    SetListIndex(PrincipalControl("Anchos"), 1);
    EXPECT_EQ(Stored("AnchoActual"), "lines (13)");
    SetText(PrincipalControl("Anchos"), "64");
    EXPECT_EQ(Stored("AnchoActual"), "64");
}

TEST_F(PrincipalMenus, TheZoomIsNotKept) {
    const std::string before = SettingsFile();
    SetListIndex(PrincipalControl("Zoom"), 5);
    SetText(PrincipalControl("Zoom"), "90%");
    EXPECT_EQ(SettingsFile(), before);
}

TEST_F(PrincipalMenus, ABusyWindowStoresNothing) {
    const std::string before = SettingsFile();
    WindowBusy = true;
    SetListIndex(PrincipalControl("VerAsc"), 1);
    SetListIndex(PrincipalControl("OpciónChar"_w), 1);
    SetListIndex(PrincipalControl("Anchos"), 1);
    SetText(PrincipalControl("Anchos"), "64");
    EXPECT_EQ(SettingsFile(), before);
}

}  // namespace
}  // namespace brindlemoor
