#include "display.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <sstream>
#include <stdexcept>

#include "child.h"

namespace tour {

namespace {

// A window may disappear at any moment, even between finding and using it.
int ignoreError(::Display*, XErrorEvent*) {
    return 0;
}

}  // namespace

Display::Display() : connection_(XOpenDisplay(nullptr)) {
    if (connection_ == nullptr) throw std::runtime_error("there is no display");
    XSetErrorHandler(ignoreError);
}

Display::~Display() {
    XCloseDisplay(connection_);
}

std::optional<Window> Display::find(std::string_view wanted, unsigned long except) const {
    ::Window root = DefaultRootWindow(connection_);
    ::Window parent = 0;
    ::Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(connection_, root, &root, &parent, &children, &count) == 0) return {};

    std::optional<Window> found;
    for (unsigned i = count; i-- > 0 && !found;) {
        const std::string name = title(children[i]);
        const bool matches = wanted.starts_with(' ') ? name.ends_with(wanted) : name == wanted;
        if (children[i] != except && matches) found = inView(children[i]);
    }
    XFree(children);
    return found;
}

std::optional<Window> Display::inView(unsigned long id) const {
    XWindowAttributes attributes;
    if (XGetWindowAttributes(connection_, id, &attributes) == 0 ||
        attributes.map_state != IsViewable || attributes.override_redirect != 0)
        return {};
    return Window{id, attributes.x, attributes.y, attributes.width};
}

std::string Display::title(unsigned long window) const {
    XTextProperty property;
    if (XGetTextProperty(connection_, window, &property, atom("_NET_WM_NAME")) == 0 &&
        XGetTextProperty(connection_, window, &property, XA_WM_NAME) == 0)
        return {};
    std::string name(reinterpret_cast<char*>(property.value), property.nitems);
    XFree(property.value);
    return name;
}

void Display::focus(const Window& window) const {
    // A window manager reports a window's state; some windows wait for that before they hide.
    const long shown[] = {NormalState, None};
    XChangeProperty(connection_, window.id, atom("WM_STATE"), atom("WM_STATE"), 32, PropModeReplace,
                    reinterpret_cast<const unsigned char*>(shown), 2);
    XRaiseWindow(connection_, window.id);
    XSetInputFocus(connection_, window.id, RevertToPointerRoot, CurrentTime);
    XSync(connection_, False);
}

void Display::unfocus() const {
    XSetInputFocus(connection_, None, RevertToNone, CurrentTime);
    XSync(connection_, False);
}

void Display::close(const Window& window) const {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window.id;
    event.xclient.message_type = atom("WM_PROTOCOLS");
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(atom("WM_DELETE_WINDOW"));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(connection_, window.id, False, NoEventMask, &event);
    XSync(connection_, False);
}

void Display::click(int x, int y) const {
    XTestFakeMotionEvent(connection_, -1, x, y, CurrentTime);
    XTestFakeButtonEvent(connection_, 1, True, CurrentTime);
    XTestFakeButtonEvent(connection_, 1, False, CurrentTime);
    XSync(connection_, False);
}

void Display::press(const std::string& keys) const {
    std::istringstream parts(keys);
    std::vector<unsigned long> held;
    unsigned long last = NoSymbol;
    for (std::string part; std::getline(parts, part, '+');) {
        if (last != NoSymbol) held.push_back(last);
        if (part == "Alt" || part == "Ctrl" || part == "Shift") {
            part = part == "Ctrl" ? "Control_L" : part + "_L";
        } else if (part.size() == 1) {
            part[0] = static_cast<char>(std::tolower(part[0]));
        }
        last = XStringToKeysym(part.c_str());
        if (last == NoSymbol) throw std::runtime_error("there is no key " + part);
    }
    key(last, held);
}

void Display::type(std::string_view text) const {
    for (const char letter : text) {
        // The key symbols of printable letters equal their character codes.
        const unsigned long symbol =
            letter == '\n' ? XK_Return : static_cast<unsigned char>(letter);
        const KeyCode code = XKeysymToKeycode(connection_, symbol);
        const bool plain = XkbKeycodeToKeysym(connection_, code, 0, 0) == symbol;
        key(symbol, plain ? std::vector<unsigned long>{} : std::vector<unsigned long>{XK_Shift_L});
    }
}

void Display::key(unsigned long symbol, std::vector<unsigned long> held) const {
    held.push_back(symbol);
    for (auto it = held.begin(); it != held.end(); ++it)
        XTestFakeKeyEvent(connection_, XKeysymToKeycode(connection_, *it), True, CurrentTime);
    for (auto it = held.rbegin(); it != held.rend(); ++it)
        XTestFakeKeyEvent(connection_, XKeysymToKeycode(connection_, *it), False, CurrentTime);
    XSync(connection_, False);
}

void Display::picture(const std::filesystem::path& file) const {
    Child({"import", "-window", "root", file.string()}).wait();
}

unsigned long Display::atom(const char* name) const {
    return XInternAtom(connection_, name, False);
}

}  // namespace tour
