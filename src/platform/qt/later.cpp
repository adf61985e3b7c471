#include "platform/qt/later.h"

#include <QTimer>
#include <utility>

namespace brindlemoor {

void RunLater(QObject* context, int milliseconds, std::function<void()> routine) {
    auto* timer = new QTimer(context);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, context, [timer, routine = std::move(routine)] {
        timer->deleteLater();
        routine();
    });
    timer->start(milliseconds);
}

}  // namespace brindlemoor
