#include "accessibility_bus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <stdexcept>

namespace tour {

namespace {

constexpr const char* accessible = "org.a11y.atspi.Accessible";

QDBusConnection connection() {
    const auto address = QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
        "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"));
    if (address.type() != QDBusMessage::ReplyMessage)
        throw std::runtime_error("there is no accessibility bus: " +
                                 address.errorMessage().toStdString());
    return QDBusConnection::connectToBus(address.arguments().at(0).toString(), "accessibility");
}

}  // namespace

AccessibilityBus::AccessibilityBus() : bus_(connection()) {
    if (!bus_.isConnected()) throw std::runtime_error("the accessibility bus does not answer");
}

QVariant AccessibilityBus::call(const Spoken& object, const char* interface, const char* method,
                                const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = bus_.call(message, QDBus::Block, 3000);
    return reply.arguments().isEmpty() ? QVariant() : reply.arguments().at(0);
}

std::vector<Spoken> AccessibilityBus::children(const Spoken& object) const {
    std::vector<Spoken> all;
    const QVariant reply = call(object, accessible, "GetChildren");
    if (!reply.canConvert<QDBusArgument>()) return all;
    const auto list = reply.value<QDBusArgument>();
    for (list.beginArray(); !list.atEnd();) {
        Spoken child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        all.push_back(child);
    }
    return all;
}

std::string AccessibilityBus::property(const Spoken& object, const char* name) const {
    return call(object, "org.freedesktop.DBus.Properties", "Get", {accessible, name})
        .value<QDBusVariant>()
        .variant()
        .toString()
        .trimmed()
        .toStdString();
}

quint64 AccessibilityBus::states(const Spoken& object) const {
    const auto halves = qdbus_cast<QList<uint>>(call(object, accessible, "GetState"));
    return halves.size() == 2 ? halves[0] | static_cast<quint64>(halves[1]) << 32 : 0;
}

QRect AccessibilityBus::place(const Spoken& object) const {
    const QVariant reply = call(object, "org.a11y.atspi.Component", "GetExtents", {0U});
    if (!reply.canConvert<QDBusArgument>()) return {};
    const auto edges = reply.value<QDBusArgument>();
    int left = 0, top = 0, width = 0, height = 0;
    edges.beginStructure();
    edges >> left >> top >> width >> height;
    edges.endStructure();
    return {left, top, width, height};
}

void AccessibilityBus::read(Spoken object, std::vector<Spoken>& all) const {
    object.states = states(object);
    if (!object.is(State::Showing)) return;
    object.role = call(object, accessible, "GetRoleName").toString().toStdString();
    // Qt reports a combo box's current entry as its name.
    object.name = property(object, object.role == "combo box" ? "Description" : "Name");
    object.place = place(object);
    const int self = static_cast<int>(all.size());
    all.push_back(object);
    for (Spoken& child : children(object)) {
        child.parent = self;
        read(child, all);
    }
}

std::vector<Spoken> AccessibilityBus::windows(const std::string& program) const {
    Spoken registry;
    registry.service = "org.a11y.atspi.Registry";
    registry.path = "/org/a11y/atspi/accessible/root";
    for (const Spoken& found : children(registry)) {
        if (property(found, "Name") != program) continue;
        std::vector<Spoken> all = children(found);
        for (Spoken& window : all)
            window.states = states(window);
        return all;
    }
    return {};
}

std::vector<Spoken> AccessibilityBus::window(const std::string& program) const {
    std::vector<Spoken> all;
    for (const Spoken& window : windows(program))
        if (all.empty() && window.is(State::Active)) read(window, all);
    return all;
}

std::vector<Spoken> AccessibilityBus::top(const std::string& program) const {
    std::vector<Spoken> all;
    const std::vector<Spoken> found = windows(program);
    for (auto window = found.rbegin(); window != found.rend() && all.empty(); ++window)
        if (window->is(State::Showing)) read(*window, all);
    return all;
}

void AccessibilityBus::send(const Spoken& object, const char* interface, const char* method,
                            const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    message.setArguments(arguments);
    bus_.send(message);
}

void AccessibilityBus::act(const Spoken& object) const {
    send(object, "org.a11y.atspi.Action", "DoAction", {0});
    Spoken after = object;
    do
        after.states = states(object);
    while (after.is(State::Pressed));
}

void AccessibilityBus::setText(const Spoken& object, const std::string& text) const {
    send(object, "org.a11y.atspi.EditableText", "SetTextContents", {QString::fromStdString(text)});
}

std::string AccessibilityBus::text(const Spoken& object) const {
    return call(object, "org.a11y.atspi.Text", "GetText", {0, -1}).toString().toStdString();
}

}  // namespace tour
