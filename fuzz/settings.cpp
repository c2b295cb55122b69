// Any settings file gives usable settings, and a save that is loaded and saved again gives the same
// file.

#include <algorithm>

#include "check.h"
#include "core/settings_file.h"
#include "tests/fakes.h"

namespace {

using fuzz::check;

void load(core::Program& program) {
    core::LoadSettings(program);
    const core::AppState& state = program.state;
    for (const auto& flag :
         {state.EditHidden, state.CompileHidden, state.PlayHidden, state.ExtractHidden})
        check(flag.value_or(0) >> 1 == 0, "a box is ticked or not");
    check(state.PlayerChoice >= 0 && state.PlayerChoice <= 2, "there is such a player");
    check(state.StartTab >= 1 && state.StartTab <= 4, "there is such a tab");
    check(state.IncludeFolders.back().empty(), "the list of folders has an end");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    testing::GTEST_FLAG(throw_on_failure) = true;
    fakes::FakeRuntime runtime;
    core::Program program{runtime};

    const unsigned kind = fuzz::choice(input);
    const char* names[] = {"c:\\nwb\\nwbw.ini", "c:\\nwb\\kelmcons.ini", "c:\\nwb\\~nwbwini.tmp"};
    runtime.files[names[kind % 3]].text = input;
    if ((kind & 4) != 0) runtime.files["c:\\nwb\\nwbwini.bkp"].text = input;
    load(program);
    if ((kind & 8) != 0)  // typed by the user
        program.state.CompilerPath = program.state.IncludeFolders[0] = input;

    core::SaveSettings(program);
    if (kind % 3 == 2) {
        const auto isInput = [&](const auto& file) { return file.second.text == input; };
        check(std::ranges::any_of(runtime.files, isInput), "what was not read is kept");
    }
    const std::string saved = runtime.files.at(names[0]).text;
    load(program);
    core::SaveSettings(program);
    check(runtime.files.at(names[0]).text == saved, "a second save gives the same file");
    const auto isError = [](const auto& box) { return box.flags != core::Runtime::okOnly; };
    check(std::ranges::none_of(runtime.boxes, isError), "no operation fails");
    return 0;
}
