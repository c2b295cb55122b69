#pragma once

#include "platform/windows/windows_api.h"

// Behind <windows.h>, which it needs.
#include <commctrl.h>
