#include "guide.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace tour {

namespace {

using namespace std::chrono_literals;

std::string indented(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += "      | " + line + "\n";
    return text;
}

/// Makes a file name: lower case, with a dash for everything except letters and digits.
std::string fileName(const std::string& what) {
    std::string name;
    for (const char letter : what) {
        if (std::isalnum(static_cast<unsigned char>(letter)) != 0)
            name += static_cast<char>(std::tolower(letter));
        else if (!name.ends_with('-'))
            name += '-';
    }
    return name;
}

}  // namespace

bool happens(const std::function<bool()>& condition) {
    constexpr auto patience = 20s;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(10ms);
    }
    return true;
}

Guide::Guide(const Display& display, const Demo& demo, std::filesystem::path pictures)
    : display_(display), demo_(demo), pictures_(std::move(pictures)), program_(demo.start()) {}

void Guide::take(const Step& step) {
    ++taken_;
    std::cout << "  " << taken_ << "  " << step.what << std::endl;
    try {
        std::visit(*this, step.action);
    } catch (const std::exception&) {
        picture("failed " + step.what);
        throw;
    }
    picture(step.what);
}

void Guide::picture(const std::string& what) {
    std::this_thread::sleep_for(150ms);  // for drawing to finish
    char number[8];
    std::snprintf(number, sizeof number, "%03d-", taken_);
    display_.picture(pictures_ / (number + fileName(what) + ".png"));
}

Window Guide::toFront() const {
    const auto window = display_.inView(window_);
    if (!window) throw std::runtime_error("the window has gone");
    display_.focus(*window);
    return *window;
}

void Guide::operator()(const Press& press) {
    toFront();
    display_.press(press.keys);
}

void Guide::operator()(const Type& type) {
    toFront();
    display_.type(type.text);
}

void Guide::operator()(const Click& click) {
    const Window on = toFront();
    const Spot spot = map_.find(click.control, on.width);
    display_.click(on.left + spot.x, on.top + spot.y);
}

void Guide::operator()(const Close&) {
    display_.close(toFront());
    (*this)(Vanish{});
}

void Guide::operator()(const Appear& appear) {
    std::optional<Window> window;
    if (!happens([&] { return (window = display_.find(appear.title, window_)).has_value(); }))
        throw std::runtime_error("no window \"" + appear.title + "\" appeared");
    window_ = window->id;
    toFront();
}

void Guide::operator()(const Vanish&) {
    if (!happens([&] { return !display_.inView(window_); }))
        throw std::runtime_error("the window did not disappear");
}

void Guide::operator()(const Absent& absent) {
    if (!happens([&] { return !display_.find(absent.title, window_); }))
        throw std::runtime_error("the window \"" + absent.title + "\" did not disappear");
    // It may already have been active while the focus was elsewhere.
    display_.unfocus();
}

void Guide::operator()(const Script& script) {
    expect("the command script", script.lines, [&] {
        const std::string text = demo_.text("~kelmcon.bat");
        Lines found = lines(text);
        const auto ends = static_cast<std::size_t>(std::ranges::count(text, '\r'));
        if (ends != found.size() || !text.ends_with("\r\n")) found.push_back("(line ends differ)");
        return found;
    });
}

void Guide::operator()(const Call& call) {
    const std::string file = call.program.substr(call.program.rfind('\\') + 1);
    Lines expected{"run " + file.substr(0, file.rfind('.')), "folder " + call.folder};
    for (const std::string& argument : call.arguments)
        expected.push_back("argument " + argument);
    for (const std::string& input : call.input)
        expected.push_back("input " + input);
    expect("the call of " + call.program, expected, [&] { return demo_.lastCall(call.program); });
    demo_.forgetCalls(call.program);
}

void Guide::operator()(const FileHolds& held) {
    expect("the file " + held.file, lines(held.text), [&] { return lines(demo_.text(held.file)); });
}

void Guide::operator()(const End&) {
    if (!happens([&] { return program_->ended(); }))
        throw std::runtime_error("the program has not ended");
    if (const int code = program_->wait(); code != 0)
        throw std::runtime_error("the program ended with code " + std::to_string(code));
}

void Guide::expect(const std::string& what, const Lines& expected,
                   const std::function<Lines()>& found) {
    Lines last;
    if (!happens([&] { return (last = found()) == expected; }))
        throw std::runtime_error(what + " reads\n" + indented(last) + "    and not\n" +
                                 indented(expected));
    std::cout << indented(last);
}

}  // namespace tour
