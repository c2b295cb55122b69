#include "platform/windows/win32/accessibility.h"

#include <initguid.h>
// After <initguid.h>, which makes it define the identifiers that it declares.
#include <oleacc.h>

#include "platform/windows/wide.h"
#include "platform/windows/win32/com.h"

namespace win32 {

namespace {

constexpr auto client = static_cast<DWORD>(OBJID_CLIENT);

/// Returns the service that stores the accessible properties that programs set, or null.
Com<IAccPropServices> annotations() {
    return comFrom<IAccPropServices>([](IAccPropServices** made) {
        return CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IAccPropServices, reinterpret_cast<void**>(made));
    });
}

}  // namespace

AccessibleName::AccessibleName(HWND window, const std::string& name) : window_(window) {
    if (const auto service = annotations())
        service->SetHwndPropStr(window, client, CHILDID_SELF, PROPID_ACC_NAME,
                                platform::wide(name).c_str());
}

AccessibleName::~AccessibleName() {
    MSAAPROPID name = PROPID_ACC_NAME;
    if (const auto service = annotations())
        service->ClearHwndProps(window_, client, CHILDID_SELF, &name, 1);
}

}  // namespace win32
