#pragma once

#include <QEvent>
#include <QObject>
#include <functional>

namespace brindlemoor {

/// Lets `hook` see every event of `watched` before the object itself does; true keeps the event
/// from it. The hook lives as long as the object. Of several hooks the last one comes first.
void HookEvents(QObject* watched, std::function<bool(QEvent*)> hook);

}  // namespace brindlemoor
