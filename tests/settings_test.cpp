#include <algorithm>

#include "core/text.h"
#include "fakes.h"

using namespace fakes;

namespace {

const std::string tmp = R"(c:\nwb\~nwbwini.tmp)";
const std::string bkp = R"(c:\nwb\nwbwini.bkp)";
const std::string beta3 = R"(c:\nwb\kelmcons.ini)";
const std::string header = "'1.0 Norvane Workbench'|";
const std::string beta3Header =
    "'Norvane Development Workbench' settings file (format version: 0.4.0)|";
// All fields differ, except the hide flags.
const std::string texts =
    "compiler.exe|gui.exe|console.exe||extractor.exe|editor.exe|word.exe|"
    "manual.html|manual.pdf|"
    R"(tutorial.htm|browser.exe|c:\a b\"reader".exe|edit.kel|compile.kel|play.kcd|extract.kel|)";
const std::string folders = R"(|C:\games\lib|c:\kelm\library)";
const std::string sample = lines(header + texts + " 0 | 1 | 0 | 0 | 2 | 3 " + folders);

using Files = FakeRuntime::Files;

bool holds(const Files& files, const std::string& text) {
    return std::ranges::any_of(files, [&](const auto& entry) { return entry.second.text == text; });
}

/// A disk, and what a run of the whole program on it leaves: the user confirms a dialog and selects
/// the tab Spelling.
struct Outcome {
    explicit Outcome(const Files& disk, int failAt = -1, int killAt = -1) {
        runtime.files = disk;
        runtime.failAt = failAt;
        runtime.killAt = killAt;
        FakeToolkit toolkit;
        toolkit.user = [](forms::Form& dialog) { dialog.pressDefault(); };
        console::Workbench workbench(runtime, toolkit);
        forms::Application& application = workbench.application();
        try {
            workbench.start();
            loaded = std::ranges::count(runtime.boxes, 48, &FakeRuntime::Box::flags) == 0;
            application.Forms(0).keyPress('x');
            auto& form = dynamic_cast<console::frmConsole&>(application.Forms(0));
            form.mnuOptionsPrograms.click();
            form.tbsOptions.pick(4);
            form.close();
        } catch (const FakeRuntime::Killed&) {
        }
    }
    [[nodiscard]] std::string saved() { return files[ini].text; }

    FakeRuntime runtime;
    Files& files = runtime.files;
    bool loaded = false;  ///< the settings
};

const FakeRuntime::File older{lines(beta3Header + texts + "lib")};
const std::pair<const char*, Files> disks[] = {
    {"first start", {}},
    {"later start", {{ini, {sample}}, {bkp, older}}},
    {"killed between the renames", {{tmp, {sample}}, {bkp, older}}},
    {"older format", {{beta3, older}, {bkp, {sample}}}},
};

/// Ends a run at a call. What the run has read may give way to what it saves; all else stays.
void expectKillLosesNothing(const Files& disk, int call, const std::string& after) {
    const auto expectKept = [&](const Files& files, bool read) {
        if (read && disk.contains(ini)) {
            EXPECT_TRUE(holds(files, sample) || holds(files, after));
            return;
        }
        for (const auto& [path, file] : disk)
            EXPECT_TRUE(holds(files, file.text)) << path;
    };
    for (const int failAt : {-1, 1}) {  // without and with an error in the load
        const Outcome killed(disk, failAt, call);
        expectKept(killed.files, failAt < 0);
        expectKept(Outcome(killed.files).files, true);
    }
}

void expectFailureIsToldAndLosesNothing(const Files& disk, int call, const std::string& after) {
    const std::string bare = lines(header + "|||||||||||||||| 0 | 0 | 0 | 0 | 1 | 4 ");
    Outcome run(disk, call);
    const auto told = [&](const auto& fits) {
        return std::ranges::count_if(run.runtime.boxes, fits);
    };
    EXPECT_EQ(told([](const auto& box) {
                  return box.flags == 48 || box.text.starts_with("NWB/w cannot write");
              }),
              1);
    EXPECT_TRUE(run.files.contains(ini) || !disk.contains(ini)) << "the renames are undone";
    EXPECT_TRUE(run.loaded || run.saved() == bare) << "not half";
    for (const auto& [path, file] : disk) {
        if (run.loaded && disk.contains(ini)) continue;
        EXPECT_TRUE(holds(run.files, file.text)) << path;
    }
    // Each file that was put aside is named once.
    for (const auto& entry : run.files) {
        const std::string& path = entry.first;
        EXPECT_EQ(told([&](const auto& box) {
                      return box.text.find(core::quoted(path)) != std::string::npos;
                  }),
                  path.find("-unread-") == std::string::npos ? 0 : 1)
            << path;
    }
    EXPECT_EQ(Outcome(run.files).saved(), run.loaded ? after : bare);
}

TEST(Settings, NoTextIsLostWhicheverCallFailsOrIsTheLast) {
    for (const auto& [name, disk] : disks) {
        Outcome good(disk);
        EXPECT_TRUE(good.loaded);
        EXPECT_NE(good.saved().find(" 4 \r\n"), std::string::npos);
        for (int call = 1; call <= good.runtime.calls; ++call) {
            SCOPED_TRACE(std::string(name) + ", call " + std::to_string(call));
            expectKillLosesNothing(disk, call, good.saved());
            expectFailureIsToldAndLosesNothing(disk, call, good.saved());
        }
    }
}

}  // namespace
