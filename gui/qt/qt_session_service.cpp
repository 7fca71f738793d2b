#include "gui/qt/qt_session_service.h"

#include "gui/main_window.h"
#include "gui/toolkit.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <optional>
#include <utility>

namespace {

constexpr const char* ServiceName = "com.quenbysoftware.Sonvire";
constexpr const char* ObjectPath = "/com/quenbysoftware/Sonvire";
constexpr const char* Interface = "org.freedesktop.Application";
constexpr const char* OpenArgument = "open-argument"; ///< the action of a second start with a file
constexpr int AnswerMs = 5000;
constexpr int BusyMs = 100; // until a request is tried again

/// As bytes, which need not be UTF-8.
std::string LocalFile(const QUrl& url) {
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}

std::vector<std::string> LocalFiles(const QStringList& addresses) {
    std::vector<std::string> paths;
    for (const QString& address : addresses)
        if (const QUrl url(address); url.isLocalFile())
            paths.push_back(LocalFile(url));
    return paths;
}

/// A path goes as bytes: a text could hold no others than UTF-8.
QDBusMessage MakeRequest(const std::string& path) {
    const char* method = path.empty() ? "Activate" : "ActivateAction";
    QDBusMessage request = QDBusMessage::createMethodCall(ServiceName, ObjectPath, Interface, method);
    std::error_code error;
    if (!path.empty())
        request << OpenArgument
                << QVariantList{QByteArray::fromStdString(std::filesystem::absolute(path, error).native())};
    return request << QVariantMap();
}

/// What another process asks the window for, besides to show itself.
struct Request {
    QDBusMessage message;
    std::vector<std::string> documents{};
    std::string argument{};
    bool answered = false;

    std::vector<std::string> GetFiles() const {
        return argument.empty() ? documents : std::vector<std::string>{argument};
    }
};

/// What each method takes.
constexpr std::pair<const char*, const char*> Signatures[] = {
    {"Activate", "a{sv}"}, {"Open", "asa{sv}"}, {"ActivateAction", "sava{sv}"}};

/// Nothing where the message is none of these: then nothing in it may be relied on.
std::optional<Request> ReadRequest(const QDBusMessage& message) {
    const auto* method = std::find_if(std::begin(Signatures), std::end(Signatures), [&](const auto& each) {
        return message.member() == each.first && message.signature() == each.second;
    });
    if (method == std::end(Signatures))
        return {};
    const QVariantList arguments = message.arguments();
    if (message.member() == "Open")
        return Request{message, LocalFiles(arguments[0].toStringList())};
    if (message.member() == "Activate" || arguments[0] != OpenArgument)
        return Request{message};
    const auto parameters = qdbus_cast<QVariantList>(arguments[1]);
    return Request{
        message, {}, parameters.isEmpty() ? std::string() : parameters[0].toByteArray().toStdString()};
}

} // namespace

/// The object on the bus.
class LQtSessionService::Requests : public QDBusVirtualObject {
public:
    LMainWindow* window = nullptr; ///< set before the event loop runs

    Requests() {
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, this, [this] { ServeNext(); });
    }

    QString introspect(const QString& /*path*/) const override {
        return R"(<interface name="org.freedesktop.Application">
    <method name="Activate"><arg type="a{sv}" name="platform_data" direction="in"/></method>
    <method name="Open"><arg type="as" name="uris" direction="in"/>
        <arg type="a{sv}" name="platform_data" direction="in"/></method>
    <method name="ActivateAction"><arg type="s" name="action_name" direction="in"/>
        <arg type="av" name="parameter" direction="in"/>
        <arg type="a{sv}" name="platform_data" direction="in"/></method>
</interface>)";
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.interface() != Interface && !message.interface().isEmpty())
            return false;
        std::optional<Request> request = ReadRequest(message);
        if (!request)
            return message.interface() == Interface &&
                   connection.send(message.createErrorReply(QDBusError::InvalidArgs, "is not understood"));
        waiting.push_back(std::move(*request));
        timer.start(0);
        return true;
    }

    /// What has been accepted already is left to the next run.
    void RefuseAll() {
        for (Request& request : waiting) {
            for (const std::string& path : request.answered ? request.GetFiles() : std::vector<std::string>())
                window->KeepForLater(path);
            Answer(request, request.message.createErrorReply(QDBusError::Failed, "is about to end"));
        }
        waiting.clear();
    }

private:
    /// Once, with true: who is refused opens its file itself.
    static bool Answer(Request& request, const QDBusMessage& answer) {
        return !std::exchange(request.answered, true) && QDBusConnection::sessionBus().send(answer);
    }

    /// Takes the next one. A dialog that is open, or a job that runs under one, is finished first: what is
    /// asked for would change the tone below it.
    void ServeNext() {
        if (!window->IsStanding() || window->GetToolkit().IsSessionEnding())
            RefuseAll();
        for (Request& request : waiting)
            if (Answer(request, request.message.createReply()))
                window->Activate();
        if (waiting.empty() || isServing)
            return;
        if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) {
            timer.start(BusyMs);
            return;
        }
        const Request next = std::move(waiting.front());
        waiting.pop_front();
        isServing = true;
        Serve(next);
        isServing = false;
        timer.start(0);
    }

    void Serve(const Request& request) {
        if (!request.documents.empty())
            window->OpenDocuments(request.documents);
        else if (!request.argument.empty())
            window->OpenArgument(request.argument);
    }

    std::deque<Request> waiting;
    QTimer timer;
    bool isServing = false; ///< one of them may show dialogs, in which others arrive
};

LQtSessionService::LQtSessionService() : requests(std::make_unique<Requests>()) {}
LQtSessionService::~LQtSessionService() = default;

/// The object first, so that who finds the name finds the object.
bool LQtSessionService::TakeName() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.registerVirtualObject(ObjectPath, requests.get());
    if (bus.registerService(ServiceName))
        return true;
    bus.unregisterObject(ObjectPath);
    return false;
}

bool LQtSessionService::HandOver(const std::string& path) {
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || TakeName())
        return false;
    if (bus.call(MakeRequest(path), QDBus::Block, AnswerMs).type() == QDBusMessage::ReplyMessage)
        return true;
    TakeName(); // the other one is about to end, or hangs
    return false;
}

void LQtSessionService::Serve(LMainWindow& window) {
    requests->window = &window;
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, requests.get(), [this] {
        requests->RefuseAll();
        QDBusConnection bus = QDBusConnection::sessionBus();
        bus.unregisterService(ServiceName);
        bus.unregisterObject(ObjectPath);
    });
}
