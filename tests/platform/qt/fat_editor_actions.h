#pragma once

#include <QWidget>
#include <functional>

namespace brindlemoor::test {

/// Runs `open`, which brings up the question about a Dragon disk's bitmap, answers Yes, lets `act`
/// use the editor once its text has the focus, and closes it if it is still open.
void UseFatEditor(const std::function<void()>& open,
                  const std::function<void(QWidget* dialog)>& act);

}  // namespace brindlemoor::test
