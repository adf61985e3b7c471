#pragma once

#include <QObject>
#include <functional>

namespace brindlemoor {

/// Runs `routine` once from the event loop, `milliseconds` from now at the earliest: when the
/// event at hand is done. Does not run when `context` is gone by then.
void RunLater(QObject* context, int milliseconds, std::function<void()> routine);

}  // namespace brindlemoor
