#include "workbench/principal_design.h"

#include <string>
#include <utility>

#include "core/byte_helpers.h"
#include "workbench/control_design.h"

namespace brindlemoor {

namespace {

Control WithTip(Control control, const std::string& tip) {
    control.ToolTip = tip;
    return control;
}

Control Disabled(Control control) {
    control.Enabled = false;
    return control;
}

/// A box of several lines.
Control Wrapped(Control control) {
    control.WordWrap = true;
    return control;
}

Control WithRange(Control control, int minimum, int maximum) {
    control.Minimum = minimum;
    control.Maximum = maximum;
    control.Value = minimum;
    return control;
}

Control TotalsLine(int index) {
    Control line = Designed("totales", ControlKind::Label, {8, 0, 700, 20});
    line.Index = index;
    line.Font = FontKind::Fixed;
    return line;
}

using Controls = std::vector<Control>;

/// Upper left: the files of the PC.
void AddPcPane(Controls& controls) {
    using enum ControlKind;
    controls.push_back(Designed("Label4", Label, {8, 6, 96, 24}, "Directorio PC:"));
    controls.push_back(Designed("Drive1", DriveList, {104, 6, 284, 24}));
    controls.push_back(Designed("Dir1", FolderList, {8, 36, 160, 174}));
    controls.push_back(Designed("File1", FileList, {174, 36, 214, 174}));
    controls.back().Pattern = "*.*";
    controls.push_back(Designed("Label5", Label, {8, 216, 60, 24}, "Tipo:"));
    controls.push_back(DesignedList(
        "DirPattern", {68, 216, 320, 24},
        {"Discos CoCo y Dragon: *.DSK;*.VDK", "Discos CoCo: *.DSK", "Discos Dragon: *.VDK",
         "Archivos: *.BAS;*.BIN;*.TXT;*.DAT",
         "Discos y archivos: *.DSK;*.VDK;*.BAS;*.BIN;*.TXT;*.DAT", "Todos Los Archivos: *.*"},
        true));
    controls.push_back(Designed("Label6", Label, {8, 246, 60, 24}, "Archivo:"));
    controls.push_back(Designed("FilePath", TextBox, {68, 246, 320, 24}));
}

/// Upper right: the viewer.
void AddViewer(Controls& controls) {
    using enum ControlKind;
    controls.push_back(Designed("Caracteres", Frame, {396, 4, 600, 268}));
    controls.push_back(Designed("Label7", Label, {404, 10, 38, 24}, "Basic:"));
    controls.push_back(ListAt(
        DesignedList("VerAsc", {444, 10, 96, 24}, {"Auto", "Comprimido", "ASC CoCo"}, false), 0));
    controls.push_back(Designed("Label8", Label, {547, 10, 76, 24}, "Caracteres:"));
    controls.push_back(ListAt(DesignedList("OpciónChar"_w, {624, 10, 90, 24},
                                           {"Windows", "CoCo", "CoCo Bas", "CoCo MAX"}, false),
                              0));
    controls.push_back(Designed("Label9", Label, {721, 10, 42, 24}, "Zoom:"));
    controls.push_back(ListAt(
        DesignedList("Zoom", {764, 10, 72, 24},
                     {" 10%", "  50%", "  75%", "100%", "150%", "200%", "500%", "1000%", "2600%"},
                     true),
        3));
    controls.push_back(Designed("Label10", Label, {843, 10, 46, 24}, "Ancho:"));
    controls.push_back(ListAt(
        DesignedList("Anchos", {890, 10, 100, 24},
                     {"Auto", "Lineas (13)", "Lineas (13+10)", "Lineas (0)", "Todo", "256"}, true),
        0));
    controls.push_back(
        WithFont(Designed("Archivo", Picture, {404, 40, 570, 188}), FontKind::Fixed));
    controls.push_back(Designed("VScrollA", VerticalBar, {976, 40, 17, 188}));
    controls.push_back(Designed("HScrollA", HorizontalBar, {404, 229, 570, 17}));
    controls.push_back(Designed("Propiedades", Label, {404, 248, 570, 20}));
    controls.push_back(Designed("Picture1", Hidden, {0, 0, 512, 384}));
}

/// The line between the halves: which disk is open, and its two buttons.
void AddTitleLine(Controls& controls) {
    using enum ControlKind;
    controls.push_back(WithFont(Designed("Label3", Label, {8, 280, 470, 28}, "Directorio CoCo:"),
                                FontKind::Title));
    controls.push_back(Designed("PathDsk", Label, {486, 280, 290, 28}));
    controls.push_back(
        WithTip(Designed("SaveBtn", Button, {800, 281, 92, 26}, "Grabar"), "Graba el archiv DSK"));
    controls.push_back(Disabled(WithTip(Designed("UndoBtn", Button, {898, 281, 92, 26}, "Reversar"),
                                        "Graba el archiv DSK")));
}

/// Lower left: the directory and its totals.
void AddDirectory(Controls& controls) {
    using enum ControlKind;
    controls.push_back(WithFont(Designed("ListDirec", Grid, {8, 314, 700, 275}), FontKind::Fixed));
    for (int line = 0; line < 3; ++line) controls.push_back(TotalsLine(line));
    controls.push_back(Designed("Info", Label, {8, 0, 382, 20}));
    controls.push_back(
        Disabled(Designed("VerContinuaciones", CheckBox, {396, 0, 168, 20}, "Ver Contnuaciones")));
    controls.push_back(
        Disabled(Designed("VerBorrados", CheckBox, {568, 0, 140, 20}, "Ver Borrados")));
    controls.push_back(
        Within("ListDirec", Invisible(Designed("txtEdit", TextBox, {0, 0, 60, 17}))));
    controls.push_back(
        Within("ListDirec", Invisible(DesignedList("ComboEdit", {0, 0, 60, 17}, {}, true))));
    controls.push_back(Designed("Iconos", Hidden, {0, 0, 16, 16}));
}

/// Lower right: the map of the sectors, and the sector's text under it.
void AddMap(Controls& controls) {
    using enum ControlKind;
    controls.push_back(Designed("Frame1", Frame, {720, 314, 273, 232}));
    controls.push_back(Within("Frame1", Designed("Label2", Label, {8, 6, 40, 24}, "Pista:")));
    controls.push_back(Within("Frame1", Designed("Track", TextBox, {48, 6, 44, 24}, "Pista")));
    controls.push_back(Within("Frame1", Designed("Label1", Label, {100, 6, 46, 24}, "Sector:")));
    controls.push_back(Within("Frame1", Designed("Sector", TextBox, {146, 6, 46, 24}, "Sector")));
    controls.push_back(Within("Frame1", Designed("Granulo", TextBox, {204, 6, 61, 24}, "Granulo")));
    controls.push_back(Within("Frame1", WithFont(Wrapped(Designed("Label11", Label, {6, 36, 56, 52},
                                                                  "Traks 0-9 10-19 20-29 30-39 ")),
                                                 FontKind::Small)));
    controls.push_back(Within("Frame1", Designed("TrackBlock", Picture, {62, 36, 193, 52})));
    controls.push_back(
        Within("Frame1", WithRange(Designed("VScroll1", VerticalBar, {255, 36, 15, 52}), 1, 18)));
    controls.push_back(
        Within("Frame1", WithRange(Designed("HScroll1", HorizontalBar, {62, 89, 193, 15}), 0, 34)));
    controls.push_back(Within(
        "Frame1", WithFont(Designed("Sectores", Picture, {6, 108, 261, 120}), FontKind::Fixed)));
    controls.push_back(Designed("LabelFat", Label, {720, 552, 120, 24}, "FAT:"));
    controls.push_back(WithTip(Designed("EditBat", Button, {893, 552, 100, 24}, "Editar BAT"),
                               "Edit Bit Allocation Table"));
    controls.push_back(Wrapped(Designed("EditFAT", TextBox, {720, 580, 273, 80})));
    controls.back().ReadOnly =
        true;  // it lists the bytes; the editor behind the button changes them
    controls.push_back(Designed("Label12", Label, {720, 552, 0, 0}));
    controls.push_back(Designed("Drag", Hidden, {0, 0, 32, 32}));
    controls.push_back(Designed("NoDrop", Hidden, {0, 0, 32, 32}));
}

Menu Array(const std::string& name, const std::vector<std::string>& captions) {
    Menu menu;
    menu.Name = name;
    for (const std::string& caption : captions) {
        menu.Items.push_back({caption, {}, false, true, {}, {}});
    }
    return menu;
}

Menu MainMenuDesign() {
    Menu menu = Array("MainMenu", {"Archivo", "Opciones", "Ayuda"});
    menu.Items[0].SubMenu = "FilesMenu";
    menu.Items[1].SubMenu = "OptionsMenu";
    menu.Items[2].SubMenu = "HelpMenu";
    return menu;
}

Menu FilesMenuDesign() {
    Menu menu = Array("FilesMenu", {"Nuevo", "-", "Abrir", "ReAbrir (Undo)", "-", "Guardar",
                                    "Guardar como...", "-", "Salir"});
    menu.Items[2].Shortcut = "Ctrl+O";
    menu.Items[3].Shortcut = "Ctrl+Z";
    menu.Items[3].Enabled = false;
    menu.Items[5].Shortcut = "Ctrl+S";
    menu.Items[5].Enabled = false;
    menu.Items[8].Shortcut = "Ctrl+Q";
    return menu;
}

}  // namespace

std::vector<Control> DesignedControls() {
    Controls controls;
    AddPcPane(controls);
    AddViewer(controls);
    AddTitleLine(controls);
    AddDirectory(controls);
    AddMap(controls);
    return controls;
}

std::vector<Menu> DesignedMenus() {
    std::vector<Menu> menus;
    menus.push_back(MainMenuDesign());
    menus.push_back(FilesMenuDesign());
    menus.push_back(Array("OptionsMenu", {"Lenguaje", "Colores", "Header Info", "Info OS9/NitrOS-9",
                                          "Audio", "Opciones"}));
    menus.back().Items[0].SubMenu = "LanguageMenu";
    menus.push_back(Array("LanguageMenu", {"English", "Español"_w}));
    menus.push_back(Array("HelpMenu", {"Ayuda (Información)"_w, "Web", "Acerca de..."}));
    menus.push_back(Array("MenuPop", {"PopMenu"}));
    menus.back().Items[0].SubMenu = "PopMenu";
    menus.push_back(Array("PopMenu", {"Ver", "Editar", "Editar HEX", "Pintar", "-", "Convertir",
                                      "Grabar", "Eliminar"}));
    menus.back().Items[5].SubMenu = "ConvMenu";
    menus.push_back(Array("ConvMenu", {"BAS ASCII<->BAS (Token/Compr.)", "BAS (CR)<->BAS (CRLF)",
                                       "-", "-> ORIGINAL", "-> CAS", "-> WAV", "-> Audio"}));
    menus.back().CanGrow = true;
    menus.push_back(Array("MenuType", {"TypeMenu"}));
    menus.back().Items[0].SubMenu = "TypeMenu";
    menus.push_back(Array("TypeMenu", {"0=Basic", "1=Basic", "2=Binario", "3=Data"}));
    menus.push_back(Array("MenuForm", {"FormMenu"}));
    menus.back().Items[0].SubMenu = "FormMenu";
    menus.push_back(Array("FormMenu", {"B=Binario", "A=AscII"}));
    menus.push_back(Array("MenuColumns", {"columnsMenu"}));
    menus.back().Items[0].SubMenu = "columnsMenu";
    menus.push_back(Array("columnsMenu", std::vector<std::string>(18)));
    return menus;
}

}  // namespace brindlemoor
