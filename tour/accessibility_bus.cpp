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

QVariant AccessibilityBus::call(const AccessibleObject& object, const char* interface,
                                const char* method, const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = bus_.call(message, QDBus::Block, 3000);
    return reply.arguments().isEmpty() ? QVariant() : reply.arguments().at(0);
}

std::vector<AccessibleObject> AccessibilityBus::children(const AccessibleObject& object) const {
    std::vector<AccessibleObject> all;
    const QVariant reply = call(object, accessible, "GetChildren");
    if (!reply.canConvert<QDBusArgument>()) return all;
    const auto list = reply.value<QDBusArgument>();
    for (list.beginArray(); !list.atEnd();) {
        AccessibleObject child;
        QDBusObjectPath path;
        list.beginStructure();
        list >> child.service >> path;
        list.endStructure();
        child.path = path.path();
        all.push_back(child);
    }
    return all;
}

std::string AccessibilityBus::property(const AccessibleObject& object, const char* name) const {
    return call(object, "org.freedesktop.DBus.Properties", "Get", {accessible, name})
        .value<QDBusVariant>()
        .variant()
        .toString()
        .trimmed()
        .toStdString();
}

quint64 AccessibilityBus::states(const AccessibleObject& object) const {
    const auto halves = qdbus_cast<QList<uint>>(call(object, accessible, "GetState"));
    return halves.size() == 2 ? halves[0] | static_cast<quint64>(halves[1]) << 32 : 0;
}

QRect AccessibilityBus::place(const AccessibleObject& object) const {
    const QVariant reply = call(object, "org.a11y.atspi.Component", "GetExtents", {0U});
    if (!reply.canConvert<QDBusArgument>()) return {};
    const auto edges = reply.value<QDBusArgument>();
    int left = 0, top = 0, width = 0, height = 0;
    edges.beginStructure();
    edges >> left >> top >> width >> height;
    edges.endStructure();
    return {left, top, width, height};
}

void AccessibilityBus::read(AccessibleObject object, std::vector<AccessibleObject>& all) const {
    object.states = states(object);
    if (!object.is(State::Showing)) return;
    object.role = call(object, accessible, "GetRoleName").toString().toStdString();
    // Qt reports a combo box's current entry as its name.
    object.name = property(object, object.role == "combo box" ? "Description" : "Name");
    object.place = place(object);
    const int self = static_cast<int>(all.size());
    all.push_back(object);
    for (AccessibleObject& child : children(object)) {
        child.parent = self;
        read(child, all);
    }
}

std::vector<AccessibleObject> AccessibilityBus::windows(const std::string& program) const {
    AccessibleObject registry;
    registry.service = "org.a11y.atspi.Registry";
    registry.path = "/org/a11y/atspi/accessible/root";
    for (const AccessibleObject& found : children(registry)) {
        if (property(found, "Name") != program) continue;
        std::vector<AccessibleObject> all = children(found);
        for (AccessibleObject& window : all)
            window.states = states(window);
        return all;
    }
    return {};
}

std::vector<AccessibleObject> AccessibilityBus::window(const std::string& program) const {
    std::vector<AccessibleObject> all;
    for (const AccessibleObject& window : windows(program))
        if (all.empty() && window.is(State::Active)) read(window, all);
    return all;
}

std::vector<AccessibleObject> AccessibilityBus::top(const std::string& program) const {
    std::vector<AccessibleObject> all;
    const std::vector<AccessibleObject> found = windows(program);
    for (auto window = found.rbegin(); window != found.rend() && all.empty(); ++window)
        if (window->is(State::Showing)) read(*window, all);
    return all;
}

void AccessibilityBus::send(const AccessibleObject& object, const char* interface,
                            const char* method, const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(object.service, object.path, interface, method);
    message.setArguments(arguments);
    bus_.send(message);
}

void AccessibilityBus::act(const AccessibleObject& object) const {
    send(object, "org.a11y.atspi.Action", "DoAction", {0});
    AccessibleObject after = object;
    do
        after.states = states(object);
    while (after.is(State::Pressed));
}

void AccessibilityBus::setText(const AccessibleObject& object, const std::string& text) const {
    send(object, "org.a11y.atspi.EditableText", "SetTextContents", {QString::fromStdString(text)});
}

std::string AccessibilityBus::text(const AccessibleObject& object) const {
    return call(object, "org.a11y.atspi.Text", "GetText", {0, -1}).toString().toStdString();
}

}  // namespace tour
