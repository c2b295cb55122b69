#include "guide.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "console/frm_console.h"
#include "platform/stubs/stubs.h"

namespace tour {

namespace {

using namespace std::chrono_literals;

std::string indented(const Texts& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += "      | " + line + "\n";
    return text;
}

/// Waits until the condition holds; throws if it does not within 20 seconds.
void await(const std::string& failure, const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) throw std::runtime_error(failure);
        std::this_thread::sleep_for(10ms);
    }
}

/// A point in a window, in pixels.
struct Spot {
    int x;
    int y;
};

/// Returns a point on a control of the console, near its left edge, as if its panel were selected,
/// in a window as wide as given, in pixels: Windows lays out forms larger where texts need it.
Spot find(const std::string& name, int windowWidth) {
    constexpr int menuBar = 22;      // in pixels, above the client area
    constexpr int panelInUse = 210;  // left edge of the panel of the selected tab, in twips
    stubs::StubRuntime runtime;
    stubs::StubToolkit toolkit;
    forms::Application application{toolkit, nullptr};
    core::Program program{runtime};
    auto& form = application.load<console::frmConsole>(program);  // gets its usual width

    forms::Control* control = form.find(name);
    if (control == nullptr) throw std::runtime_error("the console has no control " + name);
    int x = std::min(control->Width / 2, 150);
    int y = control->Height / 2;
    for (; control != &form; control = control->parent()) {
        x += control->name == "picOptions" ? panelInUse : control->Left;
        y += control->Top;
    }
    return {x * windowWidth / form.Width, menuBar + y * windowWidth / form.Width};
}

}  // namespace

Guide::Guide(const Display& display, const Demo& demo, std::filesystem::path pictures)
    : display_(display), demo_(demo), pictures_(std::move(pictures)), program_(demo.start()) {}

void Guide::take(const std::string& what, const std::function<void()>& step) {
    std::cout << "  " << ++taken_ << "  " << what << std::endl;
    step();
    std::this_thread::sleep_for(150ms);  // for drawing to finish
    char number[8];
    std::snprintf(number, sizeof number, "%03d", taken_);
    display_.picture(pictures_ / (number + std::string(".png")));
}

Window Guide::toFront() const {
    const auto window = display_.inView(window_);
    if (!window) throw std::runtime_error("the window has gone");
    display_.focus(*window);
    return *window;
}

void Guide::press(const std::string& keys) {
    std::istringstream all(keys);
    for (std::string key; all >> key;) {
        take("Press " + key, [&] {
            toFront();
            display_.press(key);
        });
    }
}

void Guide::type(const std::string& text) {
    take("Type " + text, [&] {
        toFront();
        display_.type(text);
    });
}

void Guide::retype(const std::string& text) {
    press("Ctrl+A");
    type(text);
}

void Guide::click(const std::string& control) {
    take("Click " + control, [&] {
        const Window on = toFront();
        const Spot spot = find(control, on.width);
        display_.click(on.left + spot.x, on.top + spot.y);
    });
}

void Guide::close() {
    take("Close the window", [&] { display_.close(toFront()); });
    vanishes();
}

void Guide::appears(const std::string& title) {
    take("The window \"" + title + "\" appears", [&] {
        std::optional<Window> window;
        await("it did not", [&] { return (window = display_.find(title, window_)).has_value(); });
        window_ = window->id;
        toFront();
    });
}

void Guide::vanishes() {
    take("It disappears", [&] { await("it did not", [&] { return !display_.inView(window_); }); });
}

void Guide::absent(const std::string& title) {
    take("The window \"" + title + "\" has gone", [&] {
        await("it has not", [&] { return !display_.find(title, window_); });
        // The current one may already have been active while the focus was elsewhere.
        display_.unfocus();
    });
}

void Guide::called(const Call& call) {
    const std::string file = call.program.substr(call.program.rfind('\\') + 1);
    Texts expected{"run " + file.substr(0, file.rfind('.')), "folder c:\\my games"};
    for (const std::string& argument : call.arguments)
        expected.push_back("argument " + argument);
    for (const std::string& input : call.input)
        expected.push_back("input " + input);
    expect("The call of " + call.program, expected, [&] { return demo_.lastCall(call.program); });
    demo_.forgetCalls(call.program);
}

void Guide::holds(const std::string& file, const std::string& text) {
    expect("The file " + file, lines(text), [&] { return lines(demo_.text(file)); });
}

void Guide::ends() {
    take("The program ends", [&] {
        await("it did not", [&] { return program_->ended(); });
        if (const int code = program_->wait(); code != 0)
            throw std::runtime_error("it ended with code " + std::to_string(code));
    });
}

void Guide::expect(const std::string& what, const Texts& expected,
                   const std::function<Texts()>& found) {
    take(what + " is as expected", [&] {
        Texts last;
        try {
            await("", [&] { return (last = found()) == expected; });
        } catch (const std::runtime_error&) {
            throw std::runtime_error("it reads\n" + indented(last) + "    and not\n" +
                                     indented(expected));
        }
        std::cout << indented(last);
    });
}

}  // namespace tour
