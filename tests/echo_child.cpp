// Adds what it was started with to the file that NWBW_ECHO names: the folder, the words, the input.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

int main(int count, char* words[]) {
    std::ofstream echo(std::getenv("NWBW_ECHO"), std::ios::app);
    echo << std::filesystem::current_path().string();
    for (int i = 1; i < count; ++i)
        echo << '[' << words[i] << ']';
    echo << std::string(std::istreambuf_iterator<char>(std::cin), {}) << '\n';
}
