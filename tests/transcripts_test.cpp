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
///     short PATH = PATH              the path and its short form
///     refuse                         answers No to all questions from now on
///     open                           shows the console
///     tab NUMBER                     selects a tab, counted from 1
///     click NAME                     a control or menu item
///     type NAME = [TEXT]             into a box; (blank) stands for a blank
///     include FOLDER                 is added to the compiler's search list
///     enter                          presses Enter
///     meanwhile LINE                 acts so while a message box is open, from now on
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
        static const std::regex parts(R"((\w+) ?(.*?)(?: = ?(.*))?)");
        std::smatch part;
        std::regex_match(line, part, parts);
        const std::string rest = line.substr(line.find(' ') + 1);
        const std::string name = part[2], value = part[3] == "(blank)" ? " " : part[3].str();
        const auto control = [&]() -> forms::Control& {
            forms::Control* found = desk_->opened->find(name);
            return found ? *found : throw std::runtime_error("there is no control " + name);
        };
        const auto box = [&] { return dynamic_cast<forms::TextBox*>(&control()); };
        const std::map<std::string, std::function<void()>> verbs = {
            {"new", [&] { desk_ = std::make_unique<Desk>(); }},
            {"path", [&] { desk_->state.*paths_.at(name) = value; }},
            {"file", [&] { desk_->runtime.files[name].changed = std::stoi('0' + value); }},
            {"short", [&] { desk_->runtime.shortNames[name] = value; }},
            {"refuse", [&] { desk_->runtime.answer = core::Runtime::Answer::No; }},
            {"open", [&] { desk_->open(); }},
            {"tab", [&] { desk_->opened->tbsOptions.pick(std::stoi(name)); }},
            {"click", [&] { control().click(); }},
            {"type", [&] { box()->type(value); }},
            {"include", [&] { desk_->opened->compile.lstInclude.AddItem(name); }},
            {"enter", [&] { desk_->opened->pressDefault(); }},
            {"meanwhile", [&] { desk_->runtime.whileBoxIsOpen = [this, rest] { perform(rest); }; }},
            {"show", [&] { shown_ += (box() ? box()->Text() : control().Caption()) + '\n'; }}};
        verbs.at(part[1])();
    }

    const std::map<std::string, std::string AppState::*> paths_ = {
        {"compiler", &AppState::CompilerPath},       {"gui player", &AppState::GuiPlayerPath},
        {"dos player", &AppState::DosPlayerPath},    {"player", &AppState::ConsolePlayerPath},
        {"extractor", &AppState::ExtractorPath},     {"editor", &AppState::EditorPath},
        {"processor", &AppState::WordProcessorPath}, {"manual", &AppState::ManualHtmlPath},
        {"pdf", &AppState::ManualPdfPath},           {"tutorial", &AppState::TutorialPath},
        {"browser", &AppState::BrowserPath},         {"acrobat", &AppState::AcrobatPath}};
    std::unique_ptr<Desk> desk_;
    std::string shown_;
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
