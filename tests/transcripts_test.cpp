#include "fakes.h"

using namespace fakes;
using core::AppState;

namespace {

/// Returns the lines of the text, each after "|".
std::string marked(std::string text) {
    std::erase(text, '\r');
    text = std::regex_replace(text, std::regex("(.*\n)"), "| $1");
    return std::regex_replace(text, std::regex(" +\n"), "\n");
}

/// The program in the hands of a user who acts as the lines of transcripts.txt say:
///
///     new                            the program, not yet opened
///     path NAME = PATH               a setting
///     file PATH [= TIME]             exists, and was changed then, in seconds
///     gone                           all files are deleted
///     short PATH = PATH              the path and its short form
///     answer No                      to all questions from now on
///     open                           shows the console
///     tab NUMBER                     selects a tab, counted from 1
///     click NAME                     a control or menu item
///     type NAME = [TEXT]             into a box; (blank) stands for a blank
///     include FOLDER                 is added to the compiler's search list
///     enter                          presses Enter
///     meanwhile LINE                 acts once the next message box is open
///     show NAME                      what a control shows
class User {
  public:
    /// Returns what the user then sees and what starts, as lines after "|".
    std::string act(const std::string& line) {
        perform(line);
        std::string seen = std::exchange(shown_, "");
        for (const auto& box : desk_->runtime.newBoxes())
            seen += (box.title.empty() ? "" : box.title + "? ") + box.text + '\n';
        for (const auto& [style, command] : std::exchange(desk_->runtime.shells, {})) {
            seen += "run " + std::to_string(style) + ' ' + command + '\n';
            const std::string script = command.substr(1, command.size() - 2);
            if (command.ends_with(".bat\"")) seen += marked(desk_->runtime.files[script].text);
        }
        return marked(seen);
    }

  private:
    void perform(const std::string& line) {
        const std::size_t blank = line.find(' '), equals = line.find(" =");
        const std::string verb = line.substr(0, blank);
        const std::string rest = blank == line.npos ? "" : line.substr(blank + 1);
        const std::string name = rest.substr(0, equals == line.npos ? equals : equals - blank - 1);
        std::string value = equals == line.npos ? "" : line.substr(equals + 2);
        value = value == " (blank)" ? " " : value.substr(value.empty() ? 0 : 1);
        if (verb == "new") desk_ = std::make_unique<Desk>();
        auto& [runtime, toolkit, application, program, state, console] = *desk_;
        const auto control = [&]() -> forms::Control& {
            forms::Control* found = console->find(name);
            return found ? *found : throw std::runtime_error("there is no control " + name);
        };
        if (verb == "path") state.*paths.at(name) = value;
        if (verb == "file") runtime.files[name].changed = value.empty() ? 0 : std::stoi(value);
        if (verb == "gone") runtime.files.clear();
        if (verb == "short") runtime.shortNames[name] = value;
        if (verb == "answer") runtime.answer = core::Runtime::Answer::No;
        if (verb == "open") desk_->open();
        if (verb == "tab") console->tbsOptions.pick(std::stoi(name));
        if (verb == "click") control().click();
        if (verb == "type") dynamic_cast<forms::TextBox&>(control()).type(value);
        if (verb == "include") console->compile.lstInclude.AddItem(name);
        if (verb == "enter") console->pressDefault();
        if (verb == "meanwhile") {
            meanwhile_ = rest;
            runtime.whileBoxIsOpen = [this] { perform(std::exchange(meanwhile_, "")); };
        }
        if (verb != "show") return;
        const auto* box = dynamic_cast<forms::TextBox*>(&control());
        shown_ += (box ? box->Text() : control().Caption()) + (box && box->multiLine ? "" : "\n");
    }
    const std::map<std::string, std::string AppState::*> paths = {
        {"compiler", &AppState::CompilerPath},       {"gui player", &AppState::GuiPlayerPath},
        {"dos player", &AppState::DosPlayerPath},    {"player", &AppState::ConsolePlayerPath},
        {"extractor", &AppState::ExtractorPath},     {"editor", &AppState::EditorPath},
        {"processor", &AppState::WordProcessorPath}, {"manual", &AppState::ManualHtmlPath},
        {"pdf", &AppState::ManualPdfPath},           {"tutorial", &AppState::TutorialPath},
        {"browser", &AppState::BrowserPath},         {"acrobat", &AppState::AcrobatPath}};
    std::unique_ptr<Desk> desk_;
    std::string shown_;
    std::string meanwhile_;
};

TEST(Transcripts, GoAsAgreed) {
    User user;
    std::string found;
    std::istringstream lines(contentOf(fs::path(NWBW_TESTS) / "transcripts.txt"));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('|')) continue;  // what was seen when it was agreed
        found += line + '\n';
        if (!line.empty() && line[0] != '#') found += user.act(line);
    }
    expectAgreed("transcripts.txt", found);
}

}  // namespace
