#include "platform/win32/accessibility.h"

#include <initguid.h>
// Behind <initguid.h>, which makes it define the identifiers that it declares.
#include <oleacc.h>

#include "platform/win32/com.h"
#include "platform/win32/wide.h"

namespace win32 {

void setSpokenName(HWND window, const std::string& name) {
    const auto services = comFrom<IAccPropServices>([](IAccPropServices** made) {
        return CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IAccPropServices, reinterpret_cast<void**>(made));
    });
    if (!services) return;
    services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                             PROPID_ACC_NAME, platform::wide(name).c_str());
}

}  // namespace win32
