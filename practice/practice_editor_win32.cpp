/// A small text viewer for Windows that stands in for the author's editor and word processor and
/// for Notepad. It records how it was called.

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "record.h"

namespace {

/// Converts line endings to those of the system's edit control.
std::string withCrLf(const std::string& text) {
    std::string all;
    for (const char letter : text) {
        if (letter == '\n' && !all.ends_with('\r')) all += '\r';
        all += letter;
    }
    return all;
}

std::string read(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return withCrLf({std::istreambuf_iterator<char>(in), {}});
}

/// Returns the file name. Like Notepad, takes the whole command line as one name, which may contain
/// blanks.
std::string fileNamed(int argumentCount, const char* const* arguments) {
    std::string name;
    for (int i = 1; i < argumentCount; ++i)
        name += (i > 1 ? " " : "") + std::string(arguments[i]);
    return name;
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM large) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    if (message == WM_SIZE)
        MoveWindow(GetTopWindow(window), 0, 0, LOWORD(large), HIWORD(large), TRUE);
    return DefWindowProcA(window, message, wide, large);
}

void show(const std::string& file) {
    WNDCLASSA kind{};
    kind.lpfnWndProc = procedure;
    kind.hInstance = GetModuleHandleA(nullptr);
    kind.lpszClassName = "PracticeEditor";
    RegisterClassA(&kind);

    const std::string title =
        std::filesystem::path(file).filename().string() + " - Practice Editor";
    HWND window = CreateWindowA(kind.lpszClassName, title.c_str(), WS_OVERLAPPEDWINDOW, 0, 0, 560,
                                420, nullptr, nullptr, kind.hInstance, nullptr);
    HWND text = CreateWindowA("EDIT", read(file).c_str(),
                              WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY, 0, 0,
                              0, 0, window, nullptr, kind.hInstance, nullptr);
    SendMessageA(text, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(ANSI_FIXED_FONT)), 0);
    ShowWindow(window, SW_SHOWNORMAL);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const std::string file = fileNamed(__argc, __argv);
    char program[MAX_PATH] = {};  // started from the search path, it was called by its name alone
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    const char* const call[] = {program, file.c_str()};
    const practice::Record record(file.empty() ? 1 : 2, call);
    show(file);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}
