// Painting the real grid with all 1,701 rows that a directory can have.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <memory>
#include <string>

#include "platform/qt/grid_view.h"
#include "platform/qt/large_blocks.h"
#include "platform/qt/shell.h"
#include "workbench/grid.h"

namespace brindlemoor {
namespace {

constexpr int kColumns = 18;
constexpr int kRows = 1701;

void FillGrid(Grid& grid) {
    for (int column = 1; column <= kColumns; ++column) {
        AddColumn(grid, {std::to_string(column), "HEADER", column % 2 == 0, 60, true, 0,
                         column % 3 == 0 ? "###,###" : "", SortKind::Text});
    }
    for (int row = 1; row <= kRows; ++row) {
        AddRow(grid);
        for (int column = 1; column <= kColumns; ++column) {
            if (column % 3 == 0) {
                SetCellNumber(grid, row, column, row * 1000.0);
            } else {
                SetCellText(grid, row, column, "TEXT" + std::to_string(row));
            }
        }
        CellOf(grid, row, 1).Bold = true;
    }
}

/// Every row is new at each turn: the model is read anew, and what is in view is painted.
void RepaintGrid(benchmark::State& state) {
    Grid grid;
    FillGrid(grid);
    Window table;
    table.Controls.emplace_back();
    table.Controls[0].Kind = ControlKind::Grid;
    Shell = ShellState();
    const auto top = std::make_unique<QWidget>();
    top->resize(1280, 860);
    const std::shared_ptr<GridView> view = MakeGridView(top.get(), grid, {&table, 0});
    view->Widget->setGeometry(0, 0, 1280, 860);
    AddRefresh(top.get(), [view] { ShowGrid(*view); });
    top->show();
    QApplication::processEvents();
    int turn = 0;
    for (auto _ : state) {
        SetCellText(grid, 1, 1, std::to_string(++turn));
        RefreshWindows();
        view->Widget->viewport()->repaint();
    }
    Shell = ShellState();
}

BENCHMARK(RepaintGrid)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlemoor

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    brindlemoor::ReuseLargeBlocks();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
