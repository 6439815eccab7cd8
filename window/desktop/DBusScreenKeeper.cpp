#include <optional>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "platform/ScreenAwake.h"
#include "window/ScreenKeeper.h"

namespace korvel {
namespace {

QDBusMessage callTo(const char* method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                          QStringLiteral("/org/freedesktop/ScreenSaver"),
                                          QStringLiteral("org.freedesktop.ScreenSaver"),
                                          QLatin1String(method));
}

}  // namespace

/// The desktop's screen saver. It gives a number for each request, by which that is taken back.
class ScreenKeeper::Desktop : public QObject {
 public:
    void keep(bool on) {
        wanted_ = on;
        if (waiting_)
            return;  // the answer decides
        if (on && !number_)
            inhibit();
        else if (!on && number_)
            release();
    }

 private:
    void inhibit() {
        QDBusMessage call = callTo("Inhibit");
        call << QCoreApplication::applicationName() << QStringLiteral("Flight");
        auto* answer = new QDBusPendingCallWatcher(  // this owns it
            QDBusConnection::sessionBus().asyncCall(call), this);
        waiting_ = true;
        connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
            answer->deleteLater();
            waiting_ = false;
            const QDBusPendingReply<uint> reply = *answer;
            if (reply.isError())
                return;
            number_ = reply.value();
            keep(wanted_);
        });
    }

    void release() {
        QDBusMessage call = callTo("UnInhibit");
        call << *number_;
        QDBusConnection::sessionBus().asyncCall(call);
        number_.reset();
    }

    std::optional<uint> number_;
    bool wanted_ = false;
    bool waiting_ = false;
};

ScreenKeeper::ScreenKeeper() = default;

ScreenKeeper::~ScreenKeeper() { keep(false); }

void ScreenKeeper::keep(bool on) {
    if (on == kept_)
        return;
    kept_ = on;
    if (keepScreenAwake(on))
        return;
    if (!desktop_)
        desktop_ = std::make_unique<Desktop>();
    desktop_->keep(on);
}

}  // namespace korvel
