#include "workbench/file_drag.h"

#include <cstdint>

#include "convert/file_commands.h"
#include "workbench/file_popup.h"
#include "workbench/principal.h"

namespace brindlemoor {

DragState FileDrag;

namespace {

/// One of the two roads of a drag.
struct DragRoad {
    const char* Source;
    const char* Target;
    std::int16_t Side;    ///< on which the command works: that of the source
    const char* Command;  ///< the name that the save command goes by
};

constexpr DragRoad kRoads[] = {{"File1", "ListDirec", kPcSide, "Copiar PC"},
                               {"ListDirec", "File1", kDiskSide, "Copiar DSK"}};

/// The popup's item goes by the road's name from now on.
void BeginCopy(const DragRoad& road) {
    ItemOf(MenuOf(Principal, "PopMenu"), kSaveCommand).Tag = road.Command;
    PopupSide = road.Side;
}

void ConnectSource(const DragRoad& road) {
    PrincipalControl(road.Source).MouseMove = [&road](const MouseAt& mouse) {
        const bool idle = FileDrag.Source.empty() && ListDirec.Edited.Row == 0;
        if (idle && mouse.LeftDown && SelectedCount(road.Side) > 0) {
            FileDrag = {road.Source, "NoDrop"};
        }
    };
}

void ConnectTarget(const DragRoad& road) {
    Control& target = PrincipalControl(road.Target);
    target.DragEnter = [&road](const std::string& source) {
        if (source == road.Source) FileDrag.Icon = "Drag";
    };
    target.DragLeave = [&road](const std::string& source) {
        if (source == road.Source) FileDrag.Icon = "NoDrop";
    };
    target.DragDrop = [&road](const std::string& source) {
        if (source != road.Source) return;
        BeginCopy(road);
        RunFileCommand(kSaveCommand);
    };
}

}  // namespace

void MoveFileDrag(const Control* left, const Control* entered) {
    if (FileDrag.Source.empty()) return;
    if (left != nullptr && left->DragLeave) left->DragLeave(FileDrag.Source);
    if (entered != nullptr && entered->DragEnter) entered->DragEnter(FileDrag.Source);
}

void DropFileDrag(const Control* target) {
    const std::string source = FileDrag.Source;
    CancelFileDrag();  // first: what the command shows on the screen is no longer part of the drag
    if (!source.empty() && target != nullptr && target->DragDrop) target->DragDrop(source);
}

void CancelFileDrag() {
    FileDrag = DragState();
}

void BeginCopyOfPcFiles() {
    BeginCopy(kRoads[0]);
}

void ConnectFileDrag() {
    CancelFileDrag();
    for (const DragRoad& road : kRoads) {
        ConnectSource(road);
        ConnectTarget(road);
    }
}

}  // namespace brindlemoor
