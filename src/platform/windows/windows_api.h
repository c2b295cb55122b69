#pragma once

#include <windows.h>

// <windows.h> makes macros of names that core/runtime.h and its implementations use.
#undef GetShortPathName
#undef MessageBox
#undef RegOpenKeyEx
#undef RegQueryValueEx
