#include "platform/windows/script_check.h"

#include <gtest/gtest.h>

#include "helpers.h"

TEST(ScriptCheck, TellsWhereAScriptRunsOrWhatIsTakenForACommand) {
    const std::string k = R"("c:\a & (b)^\k.exe" )";
    const std::pair<std::string, std::string> cases[] = {
        {"c:\r\ncd \"\\my games\\\"\r\n\r\n" + k + "cave\r\nexit\r\n", "c:\\my games\\"},
        {"d:\r\n" + k, "d:"},
        {"é:\r\n" + k + R"(-Include "c:\x|y" a(b);c,d=e!' -OFx.txt)", "é:"},
        {"cd \"old\\a&b\\\"\r\n" + k + "cave -L < \"a & b.log\"", "old\\a&b\\"},
        {k + "a&ed < walk.log", R"("&" in the name "a&ed" )"},
        {k + "a&ed -Pack", R"("&" in the name "a&ed" )"},
        {k + "a | b  -OFx.txt", R"("|" in the name "a | b" )"},
        {k + "cave  -OFx^y.txt", R"("^" in the name "-OFx^y.txt" )"},
        {k + "cave < wa<lk log", R"("<" in the name "wa<lk log" )"},
        {k + R"("x"y&z" a|b)", R"("&" in the name "y&z" )"},
        {"c:\r\ncd \"\\a -b%\\\"\r\n" + k, R"("%" in the name "\a -b%\" )"},
        {k + "a\x1a", "a control character in the name \"a\x1a\" "},
        {k + "cave < ", ""},
        {"cd \"\\\\server\\games\\\"", "such as \\\\server\\games\\. Give it a drive letter."},
        {"cd \"/d\\\"", R"("/" in the name "/d\" )"},
    };
    for (const auto& [script, told] : cases) {
        std::string folder;
        const std::string error =
            errorOf([&, &script = script] { folder = platform::folderOfScript(script); });
        EXPECT_TRUE(error.empty() ? folder == told
                                  : !told.empty() && error.find(told) != std::string::npos)
            << script << ": " << folder << error;
    }
}
