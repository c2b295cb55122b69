#pragma once

#include "platform/windows/windows_api.h"

// After <windows.h>, which it needs.
#include <commctrl.h>
