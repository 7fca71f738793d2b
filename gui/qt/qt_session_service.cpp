#include "gui/qt/qt_session_service.h"

#include "gui/main_window.h"
#include "gui/qt/qt_text.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFileInfo>
#include <QTimer>
#include <QUrl>

namespace {

constexpr const char* ServiceName = "com.quenbysoftware.Sonvire";
constexpr const char* ObjectPath = "/com/quenbysoftware/Sonvire";
constexpr const char* Interface = "org.freedesktop.Application";
constexpr const char* OpenArgument = "open-argument"; ///< the action of a second start with a file
constexpr int AnswerMs = 5000;
constexpr int BusyMs = 200; // until a request is tried again

std::vector<std::string> LocalFiles(const QStringList& addresses) {
    std::vector<std::string> paths;
    for (const QString& address : addresses)
        if (const QUrl url(address); url.isLocalFile())
            paths.push_back(FromQt(url.toLocalFile()));
    return paths;
}

QDBusMessage MakeRequest(const std::string& path) {
    const char* method = path.empty() ? "Activate" : "ActivateAction";
    QDBusMessage request = QDBusMessage::createMethodCall(ServiceName, ObjectPath, Interface, method);
    if (!path.empty())
        request << OpenArgument << QVariantList{QFileInfo(ToQt(path)).absoluteFilePath()};
    return request << QVariantMap();
}

/// What another process asks the window for, besides to show itself.
struct Request {
    std::vector<std::string> documents;
    std::string argument;
};

Request ReadRequest(const QDBusMessage& message) {
    const QVariantList arguments = message.arguments();
    if (message.member() == "Open" && !arguments.isEmpty())
        return {LocalFiles(arguments[0].toStringList()), {}};
    if (message.member() != "ActivateAction" || arguments.size() < 2 || arguments[0] != OpenArgument)
        return {};
    const auto parameters = qdbus_cast<QVariantList>(arguments[1]);
    return {{}, parameters.isEmpty() ? std::string() : FromQt(parameters[0].toString())};
}

} // namespace

/// The object on the bus.
class LQtSessionService::Requests : public QDBusVirtualObject {
public:
    LMainWindow* window = nullptr; ///< set before the event loop runs

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
        if (!QStringList{"Open", "Activate", "ActivateAction"}.contains(message.member()))
            return false;
        connection.send(message.createReply());
        // Once the caller has its answer: what follows may open a dialog.
        QTimer::singleShot(0, this, [this, request = ReadRequest(message)] {
            window->Activate();
            Serve(request);
        });
        return true;
    }

private:
    /// A dialog that is open, or a job that runs under one, is finished first: what is asked for would change
    /// the tone below it.
    void Serve(const Request& request) {
        const bool busy = QApplication::activeModalWidget() || QApplication::activePopupWidget();
        if (busy)
            QTimer::singleShot(BusyMs, this, [this, request] { Serve(request); });
        else if (!request.documents.empty())
            window->OpenDocuments(request.documents);
        else if (!request.argument.empty())
            window->OpenArgument(request.argument);
    }
};

LQtSessionService::LQtSessionService() : requests(std::make_unique<Requests>()) {}
LQtSessionService::~LQtSessionService() = default;

bool LQtSessionService::HandOver(const std::string& path) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return false;
    bus.registerVirtualObject(ObjectPath,
                              requests.get()); // first, so that who finds the name finds the object
    if (bus.registerService(ServiceName))
        return false;
    bus.unregisterObject(ObjectPath);
    return bus.call(MakeRequest(path), QDBus::Block, AnswerMs).type() == QDBusMessage::ReplyMessage;
}

void LQtSessionService::Serve(LMainWindow& window) {
    requests->window = &window;
}
