#include "console/workbench.h"
#include "platform/windows/win32/message_box.h"
#include "platform/windows/win32/toolkit.h"
#include "platform/windows/windows_api.h"
#include "platform/windows/windows_runtime.h"

/// The program on Windows: the system's own files and controls.
int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    // Programs and documents from elsewhere may lie beside the program, libraries among them.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    platform::WindowsRuntime runtime(win32::messageBox);
    win32::Win32Toolkit toolkit;
    console::Workbench workbench(runtime, toolkit);
    workbench.start();
    toolkit.run();
    return 0;
}
