#include "sys/desktop/queued_notify.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <atomic>

namespace {

QEvent::Type NotifyEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

} // namespace

class LThreadQueuedNotify::Receiver : public QObject {
public:
    explicit Receiver(LThreadQueuedNotify& notified) : owner(notified) { NotifyEvent(); }

    void Post() {
        auto* posted = new QEvent(NotifyEvent()); // the queue's from here on
        posts.fetch_add(1, std::memory_order_release);
        QCoreApplication::postEvent(this, posted);
    }

    bool event(QEvent* received) override {
        // What the posting thread wrote before its post is seen from here on. Qt's queue sees to that as
        // well, but the thread sanitizer can't see into it.
        posts.load(std::memory_order_acquire);
        if (received->type() != NotifyEvent())
            return QObject::event(received);
        owner.EvNotify();
        return true;
    }

private:
    LThreadQueuedNotify& owner;
    std::atomic<unsigned int> posts = 0;
};

LThreadQueuedNotify::LThreadQueuedNotify() : receiver(std::make_unique<Receiver>(*this)) {}

LThreadQueuedNotify::~LThreadQueuedNotify() = default;

void LThreadQueuedNotify::PostQueueNotify() {
    receiver->Post();
}
