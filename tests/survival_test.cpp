#include <sys/resource.h>
#include <sys/wait.h>

#include <csignal>
#include <random>
#include <thread>

#include "linux_desktop.h"
#include "model.h"
#include "platform/linux/linux_runtime.h"
#include "tools/command_script.h"

/// How much of the last file was written when it was to be brought to the disk.
static off_t flushed = 0;

/// In place of the system's: waits for no disk, so that the kills fall evenly on a save's steps.
extern "C" int fsync(int handle) {
    flushed = lseek(handle, 0, SEEK_CUR);
    return 0;
}

namespace {

struct Survival : LinuxDesktop {
    const fs::path file = c / "nwb/nwbw.ini";
    std::vector<std::string> told;
    platform::LinuxRuntime runtime{[this](const std::string& text, int, const std::string&) {
                                       told.push_back(text);
                                       return core::Runtime::Answer::Ok;
                                   },
                                   file.parent_path()};

    Survival() {
        std::string text = "'1.0 Norvane Workbench'\r\n";
        for (int field = 0; field < 16; ++field)
            text += "0\r\n";
        write(file, text + " 0 \r\n 0 \r\n 0 \r\n 0 \r\n 1 \r\n 1 \r\nlib\r\nlib2\r\n");
    }
    /// A run of the program in which the user stamps the four files anew, if at all, and closes the
    /// console. Gives the stamp that the run came up with; "mixed" where the settings are not
    /// whole.
    std::string run(const std::string& stamp, forms::WindowState state) {
        model::FakeToolkit toolkit;
        console::Workbench workbench(runtime, toolkit);
        workbench.start();
        workbench.application().Forms(0).keyPress('x');
        auto& form = dynamic_cast<console::frmConsole&>(workbench.application().Forms(0));
        std::string before = form.edit.txtFnameE.Text;
        if (form.compile.lstInclude.ListCount() != 2) before = "mixed";
        for (forms::TextBox* box : {&form.edit.txtFnameE, &form.compile.txtFname,
                                    &form.play.txtFnameP, &form.spelling.txtFnameS}) {
            if (box->Text() != before) before = "mixed";
            if (!stamp.empty()) box->type(stamp);
            form.keyDown(9, forms::ctrlMask);  // the next tab
        }
        form.WindowState = state;
        form.close();
        return before;
    }
};

/// Works in a process of its own, which is killed behind that time, if any. True if all went well.
bool apart(const std::function<void()>& work, std::chrono::nanoseconds time = {}) {
    const pid_t child = fork();
    if (child == 0) {
        work();
        std::fflush(stdout);
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    std::this_thread::sleep_for(time);
    if (time.count() > 0) kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    return status == 0;
}

TEST_F(Survival, KilledAtAnyMomentTheSettingsAreOldOrNew) {
    const char* kills = std::getenv("NWBW_KILLS");
    const int rounds = kills ? std::atoi(kills) : 60;
    // No place is stored for a minimised window, so most of the time goes into the settings.
    const auto minimised = forms::WindowState::Minimised;
    const auto begin = std::chrono::steady_clock::now();
    std::string before = run("", minimised);
    const auto whole = std::chrono::steady_clock::now() - begin;
    std::mt19937 random(20261124);
    for (int round = 1; round <= rounds; ++round) {
        const std::string stamp = std::to_string(round);
        const bool ended = apart([&] { run(stamp, minimised); }, random() % 100 * whole / 70);
        const std::string now = run("", minimised);
        ASSERT_TRUE(now == stamp || (!ended && now == before)) << now << " in round " << round;
        EXPECT_EQ(flushed, fs::file_size(file));
        before = now;
    }
    EXPECT_TRUE(told.empty());
}

TEST_F(Survival, AFullDiskIsToldAndCostsNothing) {
    const std::string before = contentOf(file);
    for (const rlim_t room : {0, 1, 100}) {
        const auto work = [&] {
            const rlimit limit{room, room};
            std::signal(SIGXFSZ, SIG_IGN);
            setrlimit(RLIMIT_FSIZE, &limit);
            model::FakeToolkit toolkit;
            forms::Application application(toolkit, nullptr);
            const core::Program program{runtime, application, {}};
            tools::CommandScript script(program);
            const std::string text(200, 'x');
            EXPECT_TRUE(errorOf([&] {
                            script.RunCommandScript(text, true, 1);
                        }).starts_with("Cannot write c:\\nwb\\~kelmcon.bat: "));
            run("new", forms::WindowState::Normal);
            EXPECT_TRUE(told.back().starts_with("Cannot write c:\\nwb\\~nwbwini.tmp: "));
        };
        EXPECT_TRUE(apart(work));
        EXPECT_EQ(contentOf(file), before);
    }
}

}  // namespace
