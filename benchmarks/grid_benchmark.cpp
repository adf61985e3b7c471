// Filling the directory grid with all 1,701 rows that a directory can have.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "core/disk_state.h"
#include "core/platform.h"
#include "core/screen.h"
#include "core/settings.h"
#include "workbench/directory_grid.h"
#include "workbench/principal.h"
#include "workbench/start_up.h"

namespace brindlemoor {
namespace {

/// A file of three granules, as a Disk BASIC directory gives it.
void FillRow(DirEntry& entry, int row) {
    entry = DirEntry();
    entry.Name = "FILE" + std::to_string(row);
    entry.Ext = "DAT";
    entry.FullName = entry.Name + "." + entry.Ext;
    entry.FileType = 1;
    entry.FormatChar = "B";
    entry.Content = std::string(5000, 'x');
    entry.UnitCount = 3;
    entry.Chain = std::string("\x10\x11\x12");
    entry.SectorCount = 20;
    entry.Size = 5000;
    entry.FirstUnit = 16;
    entry.LastSectorBytes = 136;
    entry.LastGranuleSectors = 2;
}

void PrepareGrid() {
    Platform = SilentPlatform();
    Screen = NoScreen();
    Disk = DiskState();
    Disk.DiskFamily = kDecb;
    Disk.TrackCount = 35;
    Disk.SectorsPerTrack = 18;
    Disk.TotalSectors = 630;
    Disk.TotalUnits = 612;
    Disk.MaxDirEntries = 68;
    Disk.FatBytes = std::string(68, '\xff');
    Disk.DiskName = "benchmark.dsk";
    for (int row = 0; row < kDirTableRows; ++row) FillRow(DirTable[row], row);
    Settings.VisibleColumnsList = {"111101111100011101", "111110111110000111", "110010111111100001",
                                   "110010111111100101"};
    Settings.ColumnWidthList.assign(kDirectoryColumns, "60");
    Settings.ColumnHeaderList.assign(kDirectoryColumns, "HEADER");
    Settings.ColumnOrderList.clear();
    for (int column = 1; column <= kDirectoryColumns; ++column) {
        Settings.ColumnOrderList.push_back(std::to_string(column));
    }
    BuildPrincipal();
}

void FillGrid(benchmark::State& state) {
    PrepareGrid();
    for (auto _ : state) {
        Disk.DirRows = static_cast<int>(state.range(0));
        FillDirectoryGrid();
        benchmark::DoNotOptimize(ListDirec.Rows.data());
    }
    if (static_cast<std::int64_t>(ListDirec.Rows.size()) < state.range(0)) {
        state.SkipWithError("the grid was not filled as it should be");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(FillGrid)->Arg(68)->Arg(kDirTableRows)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor
