#include <algorithm>

#include "core/settings_file.h"
#include "fakes.h"

using namespace fakes;
using core::AppState;

namespace {

const std::string ini = R"(c:\nwb\nwbw.ini)";
const std::string tmp = R"(c:\nwb\~nwbwini.tmp)";
const std::string bkp = R"(c:\nwb\nwbwini.bkp)";
const std::string beta3 = R"(c:\nwb\kelmcons.ini)";
const std::string header = "'1.0 Norvane Workbench'|";
const std::string beta3Header =
    "'Norvane Development Workbench' settings file (format version: 0.4.0)|";
// All fields differ, except the hide flags, of which only one is set at a time.
const std::string texts =
    "compiler.exe|gui.exe|console.exe||extractor.exe|editor.exe|word.exe|"
    "manual.html|manual.pdf|"
    R"(tutorial.htm|browser.exe|c:\a b\"reader".exe|edit.kel|compile.kel|play.kcd|extract.kel|)";
const std::string folders = R"(|C:\games\lib|c:\kelm\library)";
const std::string flags[] = {" 1 | 0 | 0 | 0 |", " 0 | 1 | 0 | 0 |", " 0 | 0 | 1 | 0 |",
                             " 0 | 0 | 0 | 1 |"};
const std::string sample = lines(header + texts + flags[1] + " 2 | 3 " + folders);
const std::string defaults =
    R"(c:\kelm\programs\kelm.exe|c:\kelm\programs\winkrun.exe|||||)"
    R"(C:\Program Files\Microsoft Office\Office\Winword.exe||||)"
    R"(C:\Program Files\Plus!\Microsoft Internet\IEXPLORE.EXE|)"
    R"(C:\Program Files\Adobe\Acrobat 4.0\Reader\AcroRd32.exe||||||||| 1 | 1 )";
const std::string nothing = "|||||||||||||||||||| 1 | 1 ";
const std::string unknown = "The format of your NWB/w settings file is unknown.";

/// Returns all fields in file order, as the file has them after its header.
std::string fields(const AppState& state) {
    std::string all;
    for (const auto& text :
         {state.CompilerPath, state.GuiPlayerPath, state.ConsolePlayerPath, state.DosPlayerPath,
          state.ExtractorPath, state.EditorPath, state.WordProcessorPath, state.ManualHtmlPath,
          state.ManualPdfPath, state.TutorialPath, state.BrowserPath, state.AcrobatPath,
          state.EditFileName, state.CompileFileName, state.PlayFileName, state.ExtractFileName})
        all += text + "|";
    for (const auto flag :
         {state.EditHidden, state.CompileHidden, state.PlayHidden, state.ExtractHidden})
        all += (flag ? " " + std::to_string(*flag) + " " : "") + "|";
    all += " " + std::to_string(state.PlayerChoice) + " | " + std::to_string(state.StartTab) + " ";
    for (const std::string& folder : state.IncludeFolders)
        all += (folder.empty() ? "" : "|") + folder;
    return all;
}

struct Settings : testing::Test, Desk {
    /// Loads the file and returns the fields.
    std::string load(const std::string& path, const std::string& text) {
        runtime.files[path].text = text;
        core::LoadSettings(program);
        return fields(state);
    }
};

TEST_F(Settings, EachLineIsTheFieldThatItShouldBe) {
    for (const std::string& hidden : flags) {
        const std::string text = lines(header + texts + hidden + " 2 | 3 " + folders);
        EXPECT_EQ(load(ini, text), texts + hidden + " 2 | 3 " + folders);
        EXPECT_TRUE(runtime.boxes.empty());
        runtime.files[bkp].text = "older";
        core::SaveSettings(program);
        EXPECT_EQ(runtime.files[ini].text, text);
        EXPECT_EQ(runtime.files[bkp].text, text);
        EXPECT_EQ(runtime.files.size(), 2u);
    }
}

TEST_F(Settings, TheOlderFormatIsReadAndLeftAlone) {
    const std::string old = lines(beta3Header + texts + "lib");
    runtime.files[tmp].text = sample;  // not an interrupted save: there is no backup
    EXPECT_EQ(load(beta3, old), texts + "|||| 1 | 1 |lib") << "an empty path stays empty";
    EXPECT_TRUE(runtime.told("Your NWB/w settings file is for Beta Release 3."));
    core::SaveSettings(program);
    EXPECT_EQ(runtime.files[beta3].text, old);
    EXPECT_EQ(runtime.files[ini].text, lines(header + texts + "|||| 1 | 1 |lib"))
        << "flags that were never set are empty lines";
}

TEST_F(Settings, WithoutAGoodFileTheDefaultsServe) {
    core::LoadSettings(program);
    EXPECT_EQ(fields(state), defaults);
    EXPECT_TRUE(runtime.told("Settings file not found"));
    EXPECT_EQ(load(beta3, lines("'norvane" + beta3Header.substr(8) + texts)), defaults);
    EXPECT_TRUE(runtime.told(unknown));
    runtime.files[beta3].text = lines(beta3Header + texts);  // is ignored
    for (const char* wrong : {"'1.0 NORVANE Workbench'\r\nx", "", "rubbish\r\n1\r\n2"}) {
        EXPECT_EQ(load(ini, wrong), defaults) << wrong;
        EXPECT_TRUE(runtime.told(unknown));
    }
}

TEST_F(Settings, DamagedFilesAreReadAsFarAsTheyGo) {
    EXPECT_EQ(load(ini, lines(header + texts)), texts + "|||| 1 | 1 ");
    const std::pair<std::string, std::string> cases[] = {
        {"2|1|1|1|3|5", " 0 | 1 | 1 | 1 | 1 | 1 "},
        {" 1 |1|1|1|0|4", " 1 | 1 | 1 | 1 | 0 | 4 "},
        {"x|1|1|1|-1|0", " 0 | 1 | 1 | 1 | 1 | 1 "},
        {"|1|1|1||", "| 1 | 1 | 1 | 1 | 1 "}};
    std::string most;
    while (most.size() < 2 * core::maxIncludes)
        most += "|f";
    for (const auto& [numbers, read] : cases)
        EXPECT_EQ(load(ini, lines(header + texts + numbers + most + most)), texts + read + most);
}

TEST_F(Settings, ATextKeepsWhatItsLineCanHold) {
    const std::pair<std::string, std::string> texts[] = {
        {R"(a"b"c)", R"(a"b"c)"}, {R"("a" b)", "a b"},     {R"(a,"b")", R"("a,b")"},
        {R"( "a")", R"(" a")"},   {"\"\r\n a", R"(" a")"}, {"\"", ""}};
    for (const auto& [typed, line] : texts) {
        state = {};
        state.CompilerPath = typed;
        state.IncludeFolders = {"one", typed, "two"};
        core::SaveSettings(program);
        const auto with = [](const std::string& text) {
            return text + nothing + "|one" + (text.empty() ? "" : "|" + text) + "|two";
        };
        EXPECT_EQ(runtime.files[ini].text, lines(header + with(line)));
        core::LoadSettings(program);
        EXPECT_EQ(fields(state), with(std::regex_replace(line, std::regex("^\"|\"$"), "")));
    }
}

/// Returns the settings file that a start with these files leads to.
std::string settingsOn(const std::map<std::string, FakeRuntime::File>& disk) {
    Desk desk;
    desk.runtime.files = disk;
    core::LoadSettings(desk.program);
    core::SaveSettings(desk.program);
    return desk.runtime.files[ini].text;
}

/// Runs the whole program; the user confirms a dialog and selects the tab Spelling. True if the
/// settings could be loaded.
bool work(FakeRuntime& runtime) {
    FakeToolkit toolkit;
    toolkit.anyUser = [](forms::Form& dialog) { dialog.pressDefault(); };
    console::Workbench workbench(runtime, toolkit);
    workbench.start();
    const bool loaded = runtime.boxes.empty() || runtime.boxes.back().flags != 48 ||
                        runtime.boxes.back().text.starts_with("NWB/w cannot write");
    forms::Application& application = workbench.application();
    application.Forms(0).keyPress('x');
    auto& form = dynamic_cast<console::frmConsole&>(application.Forms(0));
    form.mnuOptionsPrograms.click();
    form.tbsOptions.pick(4);
    form.close();
    EXPECT_TRUE(toolkit.ended);
    return loaded;
}

TEST_F(Settings, AFailureOrKillAtAnyCallOfARunLosesNothing) {
    const FakeRuntime::File older{lines(beta3Header + texts + "lib")};
    const std::map<std::string, FakeRuntime::File> disks[] = {
        {{ini, {sample}}, {bkp, older}},
        {{tmp, {sample}}, {bkp, older}},  // an interrupted save
        {{beta3, older}, {bkp, older}},   // the settings file was removed
        {}};
    FakeRuntime bare;
    bare.failAt = 1;
    EXPECT_FALSE(work(bare));
    EXPECT_EQ(bare.files[ini].text, lines(header + "|||||||||||||||| 0 | 0 | 0 | 0 | 1 | 4 "));
    for (const auto& disk : disks) {
        const std::string before = settingsOn(disk);
        FakeRuntime good;
        good.files = disk;
        EXPECT_TRUE(work(good));
        const std::string after = good.files[ini].text;
        EXPECT_NE(after.find(" 4 \r\n"), std::string::npos);
        for (int call = 1; call <= good.calls; ++call) {
            FakeRuntime killed;
            killed.files = disk;
            killed.killAt = call;
            EXPECT_THROW(work(killed), FakeRuntime::Killed);
            const std::string left = settingsOn(killed.files);
            EXPECT_TRUE(left == before || left == after) << call;

            FakeRuntime runtime;
            runtime.files = disk;
            runtime.failAt = call;
            const auto boxes = [&runtime](auto fits) {
                return std::ranges::count_if(runtime.boxes, fits);
            };
            const bool loaded = work(runtime);
            ASSERT_EQ(boxes([](const auto& box) { return box.flags == 48; }), 1) << call;
            EXPECT_TRUE(runtime.files.contains(ini) || !disk.contains(ini)) << call;
            EXPECT_TRUE(loaded || runtime.files[ini].text == bare.files[ini].text) << "not half";
            runtime.failAt = runtime.calls + 50;  // during a later save
            work(runtime);
            const std::string now = settingsOn(runtime.files);
            EXPECT_TRUE(now == after || (loaded ? now == before : now == bare.files[ini].text))
                << call;
            work(runtime);
            // An unread file is kept under a name that one message gave.
            std::set<std::string> kept;
            for (const auto& [path, file] : runtime.files)
                if (file.text == sample || file.text == older.text) kept.insert(path);
            EXPECT_EQ(boxes([&](const auto& box) {
                          return std::ranges::any_of(kept, [&](const auto& path) {
                              return box.text.find('"' + path + '"') != std::string::npos;
                          });
                      }),
                      loaded || disk.empty() ? 0 : 1)
                << call;
        }
    }
}

}  // namespace
