#include "docs/frm_splash.h"

namespace docs {

frmSplash::frmSplash(forms::Application& application, std::function<void()> openConsole)
    : Form(application, "frmSplash",
           {.accessibleName = core::appTitle,
            .place = {0, 0, 7275, 4320},
            .bare = true,
            .background = 0x000080}),
      openConsole_(std::move(openConsole)) {
    KeyPreview = true;
}

void frmSplash::Form_Load() {
    lblProductName.Caption = core::appTitle;
}

void frmSplash::Form_KeyPress(int) {
    dismiss();
}

void frmSplash::dismiss() {
    Unload();
    openConsole_();
}

}  // namespace docs
