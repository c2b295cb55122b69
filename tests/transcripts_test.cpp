#include "core/settings_file.h"
#include "fakes.h"
#include "forms/drop.h"

using namespace fakes;
using core::AppState;

namespace {

/// Returns what a control shows, each on a line: its text, or its rows after the selected one.
std::string shownBy(const forms::Control& control) {
    std::string shown;
    if (const auto* box = dynamic_cast<const forms::TextBox*>(&control)) {
        shown = box->Text();
    } else if (const auto* list = dynamic_cast<const forms::ListBox*>(&control)) {
        shown = list->Text();
        for (int row = 0; row < list->ListCount(); ++row)
            shown += "\n- " + list->List(row);
    } else if (const auto* drives = dynamic_cast<const forms::DriveList*>(&control)) {
        shown = drives->Drive();
        for (const std::string& drive : drives->drives())
            shown += "\n- " + drive;
    } else if (const auto* folders = dynamic_cast<const forms::FolderList*>(&control)) {
        shown = folders->Path();
        for (const auto& row : folders->rows())
            shown += "\n-" + std::string(row.depth + 1, ' ') + row.name;
    } else {
        shown = control.Caption() + (control.usable() ? "" : " (unusable)");
    }
    return shown + '\n';
}

/// The program in the hands of a user who acts as the lines of transcripts.txt say. A dialog that
/// opens takes the lines until it closes.
///
///     new                            the program, not yet opened
///     path NAME = PATH               a setting
///     folders TEXT[|TEXT...]         the include list
///     file PATH [= TIME]             exists, and was changed then, in seconds
///     folder PATH = [NAME...]        exists, with the folders of these names in it
///     gone PATH                      no longer exists
///     current PATH                   is the current folder
///     short PATH = PATH              the path and its short form
///     registry TYPE KEY\NAME = BYTES  a value
///     fail                           makes the next operation of the platform fail
///     choose PATH                    answers so to the next file dialog, instead of Cancel
///     refuse                         answers No to all questions from now on
///     open                           shows the console
///     tab NUMBER                     selects a tab, counted from 1
///     click NAME                     a control or menu item
///     pick NAME = NUMBER             a row of a list, counted from 0
///     type NAME = [TEXT]             into a box; (blank) stands for a blank
///     enter, escape                  presses the key
///     activate                       comes back from another window
///     meanwhile LINE                 acts so while a message box is open, from now on
///     drop [NAME]                    the box for a file that is dropped there
///     show NAME                      what a control shows
///     write PATH = TEXT              a file, "|" between its lines
///     load, save                     reads and saves the settings
///     saved                          the files with settings
class User {
  public:
    explicit User(const std::string& lines) : lines_(lines) { start(); }

    std::string transcript;  ///< the lines acted on, and after "|" what the user sees and starts

    /// Acts in the form, until it closes or the lines end.
    void act(forms::Form* form) {
        forms::Form* const before = std::exchange(form_, form);
        std::string line;
        while ((!form_ || !form_->unloaded()) && std::getline(lines_, line)) {
            if (line.starts_with('|')) continue;  // what was seen when it was agreed
            transcript += line + '\n';
            if (line.empty() || line[0] == '#') continue;
            try {
                perform(line);
            } catch (const std::exception& error) {
                shown_ += std::string(error.what()) + '\n';
            }
            tell();
        }
        form_ = before;
    }

  private:
    void tell() {
        EXPECT_EQ(desk_->runtime.keysOpen, 0);
        std::string seen = std::exchange(shown_, "");
        for (const auto& box : desk_->runtime.newBoxes())
            seen += (box.flags == core::Runtime::exclamation ? "! " : "") +
                    (box.title.empty() ? "" : box.title + "? ") + box.text + '\n';
        for (const auto& [style, command] : std::exchange(desk_->runtime.shells, {})) {
            seen += "run " + std::to_string(style) + ' ' + command + '\n';
            const std::string script = command.substr(1, command.size() - 2);
            if (command.ends_with(".bat\"")) seen += marked(desk_->runtime.files[script].text);
        }
        if (!desk_->toolkit.focused.empty())
            seen += "focus on " + std::exchange(desk_->toolkit.focused, "") + '\n';
        if (const auto asked = std::exchange(desk_->toolkit.fileAsked, {}); !asked.title.empty()) {
            seen += "asks " + asked.title + '|' + asked.filter + '|' + asked.name + '\n';
            desk_->toolkit.fileChosen.clear();
        }
        transcript += marked(seen);
    }
    void start() {
        form_ = nullptr;
        desk_ = std::make_unique<Desk>();
        desk_->toolkit.user = [this](forms::Form& dialog) {
            shown_ += "opens " + dialog.Caption() + '\n';
            tell();
            act(&dialog);
        };
    }
    void perform(const std::string& line) {
        const Act asked = actOf(line);
        const std::string rest = line.substr(line.find(' ') + 1);
        const std::string& name = asked.name;
        const std::string value = asked.value == "(blank)" ? " " : asked.value;
        const auto control = [&]() -> forms::Control& {
            forms::Control* found = form_->find(name);
            return found ? *found : throw std::runtime_error("there is no control " + name);
        };
        auto& runtime = desk_->runtime;
        const std::map<std::string, std::function<void()>> verbs = {
            {"new", [&] { start(); }},
            {"path", [&] { desk_->state.*paths_.at(name) = filled(value); }},
            {"file", [&] { runtime.files[name].changed = std::stoi('0' + value); }},
            {"folder",
             [&] {
                 std::istringstream names(value);
                 runtime.tree[name].assign(std::istream_iterator<std::string>(names), {});
             }},
            {"gone", [&] { runtime.tree.erase(name), runtime.files.erase(name); }},
            {"current", [&] { runtime.current = rest; }},
            {"short", [&] { runtime.shortNames[name] = value; }},
            {"registry",
             [&] {
                 const auto key = name.rfind('\\');
                 runtime.registry[name.substr(2, key - 2)][name.substr(key + 1)] = {
                     static_cast<std::uint32_t>(name[0] - '0'), filled(value)};
             }},
            {"fail", [&] { runtime.failAt = runtime.calls + 1; }},
            {"choose", [&] { desk_->toolkit.fileChosen = rest; }},
            {"refuse", [&] { runtime.answer = core::Runtime::Answer::No; }},
            {"open", [&] { form_ = &desk_->open(); }},
            {"folders",
             [&] {
                 std::istringstream texts(filled(rest));
                 for (std::string& folder : desk_->state.IncludeFolders)
                     std::getline(texts, folder, '|');
             }},
            {"tab", [&] { desk_->opened->tbsOptions.pick(std::stoi(name)); }},
            {"click", [&] { control().click(); }},
            {"pick", [&] { pick(control(), std::stoi(value)); }},
            {"type", [&] { dynamic_cast<forms::TextBox&>(control()).type(value); }},
            {"include", [&] { desk_->opened->compile.lstInclude.AddItem(name); }},
            {"enter", [&] { form_->pressDefault(); }},
            {"escape", [&] { form_->pressCancel(); }},
            {"activate",
             [&] {
                 if (runtime.boxes.size() < 9) form_->activate();
             }},
            {"meanwhile", [&] { runtime.whileBoxIsOpen = [this, rest] { perform(rest); }; }},
            {"drop",
             [&] {
                 const auto* box = forms::dropTarget(name.empty() ? *form_ : control());
                 shown_ += (box ? box->name : "none") + '\n';
             }},
            {"show", [&] { shown_ += shownBy(control()); }},
            {"write",
             [&] {
                 runtime.files[name].text = std::regex_replace(value, std::regex("\\|"), "\r\n");
             }},
            {"load", [&] { core::LoadSettings(desk_->program); }},
            {"save", [&] { core::SaveSettings(desk_->program); }},
            {"saved", [&] {
                 for (const auto& [path, file] : runtime.files)
                     if (!file.text.empty() && !path.ends_with(".bat"))
                         shown_ += path + " = " +
                                   std::regex_replace(file.text, std::regex("\r\n"), "|") + '\n';
             }}};
        verbs.at(asked.verb)();
    }
    static void pick(forms::Control& control, int row) {
        if (auto* list = dynamic_cast<forms::ListBox*>(&control)) list->pick(row);
        if (auto* drives = dynamic_cast<forms::DriveList*>(&control)) drives->pick(row);
        if (auto* folders = dynamic_cast<forms::FolderList*>(&control)) folders->choose(row);
    }

    const std::map<std::string, std::string AppState::*> paths_ = {
        {"compiler", &AppState::CompilerPath},       {"gui player", &AppState::GuiPlayerPath},
        {"dos player", &AppState::DosPlayerPath},    {"player", &AppState::ConsolePlayerPath},
        {"extractor", &AppState::ExtractorPath},     {"editor", &AppState::EditorPath},
        {"processor", &AppState::WordProcessorPath}, {"manual", &AppState::ManualHtmlPath},
        {"pdf", &AppState::ManualPdfPath},           {"tutorial", &AppState::TutorialPath},
        {"browser", &AppState::BrowserPath},         {"acrobat", &AppState::AcrobatPath}};
    std::istringstream lines_;
    std::unique_ptr<Desk> desk_;
    forms::Form* form_ = nullptr;
    std::string shown_;
};

TEST(Transcripts, GoAsAgreed) {
    User user(contentOf(fs::path(NWBW_TESTS) / "transcripts.txt"));
    user.act(nullptr);
    expectAgreed("transcripts.txt", user.transcript);
}

}  // namespace
