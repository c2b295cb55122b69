#pragma once

#include <windows.h>

// The system's header makes macros of names that core/runtime.h and its implementations bear.
#undef GetShortPathName
#undef MessageBox
#undef RegOpenKeyEx
#undef RegQueryValueEx
