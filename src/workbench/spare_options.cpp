#include "workbench/spare_options.h"

#include <string>

#include "core/byte_helpers.h"
#include "core/disk_state.h"
#include "core/platform.h"
#include "workbench/control_design.h"

namespace brindlemoor {

Window SpareOptions;

namespace {

void Say(const std::string& text) {
    Platform.ShowMessage(text, Disk.AppTitle, Buttons::Ok, MessageIcon::None);
}

void Apply() {
    Say("Coloque código aquí para establecer opciones o cerrar el cuadro de diálogo"_w);
}

void Accept() {
    Say("Coloque código aquí para establecer opciones y cerrar el cuadro de diálogo"_w);
    SpareOptions.Open = false;
}

}  // namespace

void BuildSpareOptions() {
    using enum ControlKind;
    SpareOptions = Window();
    SpareOptions.Name = "frmOptions";
    SpareOptions.Caption = "Opciones";
    SpareOptions.Width = 348 * kTwipsPerPixel;
    SpareOptions.Height = 184 * kTwipsPerPixel;
    Control tabs = Designed("tbsOptions", TabStrip, {12, 8, 324, 28});
    tabs.Items = {"Opciones"};
    tabs.ListIndex = 0;
    Control accept = Designed("cmdOK", Button, {32, 148, 96, 28}, "Aceptar");
    accept.Default = true;
    accept.Click = Accept;
    Control cancel = Designed("cmdCancel", Button, {136, 148, 96, 28}, "Cancelar");
    cancel.Click = [] { SpareOptions.Open = false; };
    Control apply = Designed("cmdApply", Button, {240, 148, 96, 28}, "Aplicar");
    apply.Click = Apply;
    SpareOptions.Controls = {tabs, Designed("picOptions", Picture, {12, 36, 324, 100}), accept,
                             cancel, apply};
}

}  // namespace brindlemoor
