// Adds what it was started with to the file that NWBW_ECHO names: the folder, the words, and the
// input, unless the last word tells that there is none.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace fs = std::filesystem;

static std::string textOf(const fs::path& words) {
    const std::u8string text = words.u8string();
    return {text.begin(), text.end()};
}

#ifdef _WIN32
int wmain(int count, wchar_t* words[]) {
#else
int main(int count, char* words[]) {
#endif
    std::ofstream echo(std::getenv("NWBW_ECHO"), std::ios::app | std::ios::binary);
    echo << textOf(fs::current_path());
    for (int i = 1; i < count; ++i)
        echo << '[' << textOf(words[i]) << ']';
    if (count == 1 || fs::path(words[count - 1]) != "no-input")
        echo << std::string(std::istreambuf_iterator<char>(std::cin), {});
    echo << '\n';
    return 0;
}
