#include "workbench/acerca.h"

#include <string>

#include "core/byte_helpers.h"
#include "core/settings.h"
#include "workbench/control_design.h"

namespace brindlemoor {

Window Acerca;

namespace {

constexpr char kMail[] = "hello@brindlemoor.example";
constexpr char kMakers[] = "The Brindlemoor team";

Control& Add(const std::string& name, ControlKind kind, Place place, const std::string& text) {
    Acerca.Controls.push_back(Designed(name, kind, place, text));
    return Acerca.Controls.back();
}

}  // namespace

void BuildAcerca() {
    Acerca = {};
    Acerca.Name = "Acerca";
    Acerca.Caption = "Brindlemoor";
    Acerca.Width = 400 * kTwipsPerPixel;
    Acerca.Height = 202 * kTwipsPerPixel;
    using enum ControlKind;
    Add("Icono", Picture, {8, 8, 64, 64}, "");
    Add("Titulo", Label, {88, 12, 300, 28}, "Brindlemoor").Font = FontKind::Title;
    Add("Version", Label, {88, 40, 300, 22}, "Version: " + ProgramVersion());
    Add("Label1", Label, {8, 88, 380, 22}, "Desarrollo y programación por:"_w);
    Add("Label2", Label, {24, 110, 364, 22}, kMakers);
    Add("Label3", Label, {8, 142, 90, 24}, "Web (Blog):");
    Add("Text1", TextBox, {100, 142, 288, 24}, kMakersPage).ReadOnly = true;
    Add("Label4", Label, {8, 172, 90, 24}, "Email: ");
    Add("Text2", TextBox, {100, 172, 288, 24}, kMail).ReadOnly = true;
}

}  // namespace brindlemoor
