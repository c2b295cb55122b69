#include "core/common_runtime.h"

#include "core/module1.h"
#include "core/text.h"

namespace core {

void failTo(const std::string& doing, const std::string& path, const std::string& reason) {
    throw RuntimeError("Cannot " + doing + ' ' + path + ": " + reason);
}

void CommonRuntime::vbaFileOpen(const std::string& path, OpenMode mode) {
    vbaFileClose();
    if (mode == OpenMode::Input) {
        input_ = FieldReader(readFile(path));
    } else {
        openOutput(path);
        outputPath_ = path;
    }
}

void CommonRuntime::vbaFileClose() {
    input_ = FieldReader("");
    closeOutput();
}

void CommonRuntime::vbaPrintFile(const std::string& text) {
    if (!isOutputOpen()) throw RuntimeError("Cannot write: no file is open for output");
    writeOutput(text + std::string(crlf));
}

Runtime::Answer CommonRuntime::rtcMsgBox(const std::string& text, int flags,
                                         const std::string& title) {
    return messageBox_(text, flags, title.empty() ? appTitle : title);
}

}  // namespace core
