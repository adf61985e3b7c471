#include "workbench/principal.h"

namespace brindlemoor {

Window Principal;
Grid ListDirec;

Control& PrincipalControl(std::string_view name, int index) {
    return ControlOf(Principal, name, index);
}

}  // namespace brindlemoor
