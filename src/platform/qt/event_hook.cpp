#include "platform/qt/event_hook.h"

#include <utility>

namespace brindlemoor {

namespace {

class EventHook : public QObject {
  public:
    EventHook(QObject* watched, std::function<bool(QEvent*)> hook)
        : QObject(watched), hook_(std::move(hook)) {
        watched->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override { return hook_(event); }

  private:
    std::function<bool(QEvent*)> hook_;
};

}  // namespace

void HookEvents(QObject* watched, std::function<bool(QEvent*)> hook) {
    new EventHook(watched, std::move(hook));  // owned by `watched`
}

}  // namespace brindlemoor
