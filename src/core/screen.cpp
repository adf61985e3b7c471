#include "core/screen.h"

namespace brindlemoor {

ScreenTable NoScreen() {
    using Text = const std::string&;
    using Texts = const std::vector<std::string>&;
    ScreenTable table;
    table.FillDirectoryGrid = [] {};
    table.PaintTrackBlock = [](int) {};
    table.DrawSectorMap = [](int) {};
    table.ShowSectorPlace = [](int, int) {};
    table.ShowGranuleField = [](bool) {};
    table.KeepSectorView = [] { return [] {}; };
    table.ShowModified = [] {};
    table.GiveUpColumnSort = [] {};
    table.SelectedRows = [] { return std::vector<int>(); };
    table.EditFat = [] {};
    table.OpenPaintSurface = [](int, int) { return PaintSurface{nullptr, [] {}}; };
    table.RefreshPcFiles = [] {};
    table.PcListFolder = [] { return std::string(); };
    table.PcListName = [] { return std::string(); };
    table.PcSelectedNames = [] { return std::vector<std::string>(); };
    table.SetFilePath = [](Text) {};
    table.PathDskText = [] { return std::string(); };
    table.SetPathDsk = [](Text) {};
    table.ViewFile = [](int, int) {};
    table.ShowDetached = [](Text, Text, int) {};
    table.SetCaptionAndTag = [](Text, Text) {};
    table.SetListItems = [](Text, Texts) {};
    table.SetMenuItems = [](Text, Texts) {};
    table.SetLanguageMenu = [](Texts, Texts, Text) {};
    table.SetControlIndex = [](Text, int) {};
    table.SetControlText = [](Text, Text) {};
    table.SetAlternateRowColour = [](std::int32_t) {};
    table.SetGridHeaders = [] {};
    return table;
}

ScreenTable Screen = NoScreen();
bool WindowBusy = false;

}  // namespace brindlemoor
