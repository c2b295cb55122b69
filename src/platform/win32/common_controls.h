#pragma once

#include "platform/win32/windows_api.h"

// Behind <windows.h>, which it needs.
#include <commctrl.h>
