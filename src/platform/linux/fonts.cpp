#include "platform/linux/fonts.h"

#include <fontconfig/fontconfig.h>

namespace platform {

void lookUpFonts() {
    FcInit();
}

}  // namespace platform
