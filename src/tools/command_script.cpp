#include "tools/command_script.h"

#include "core/text.h"

namespace tools {

using core::crlf;

std::string_view stemOf(std::string_view path) {
    path.remove_prefix(core::drivePart(path).size());
    return core::beforeLast(core::afterLast(path, '\\'), '.');
}

void CommandScript::SplitFileName(const std::string& fileText, forms::TextBox& box) {
    const std::string_view drive = core::drivePart(fileText);
    const std::string_view afterDrive = std::string_view(fileText).substr(drive.size());
    const std::string_view fileName = core::afterLast(afterDrive, '\\');
    const std::string_view folder = afterDrive.substr(0, afterDrive.size() - fileName.size());

    std::string lines;
    if (!drive.empty()) lines.append(drive).append(crlf);
    if (!folder.empty()) lines.append("cd ").append(core::quoted(folder)).append(crlf);
    box.Text = lines;

    FileStem = core::beforeLast(fileName, '.');
    FileBase = std::string(drive).append(folder).append(FileStem);
}

void CommandScript::ShortenStem(const std::string& fileText,
                                std::initializer_list<std::string_view> extensions) {
    if (core::length(FileStem) <= longestStem) return;

    std::string shortPath = core::GetShortName(program_.runtime, fileText);
    for (const std::string_view extension : extensions) {
        if (!shortPath.empty()) break;
        shortPath = core::GetShortName(program_.runtime, std::string(FileBase).append(extension));
    }
    FileStem = stemOf(shortPath);
}

void CommandScript::RunCommandScript(const std::string& commandText, bool withTail,
                                     int windowStyle) {
    core::Runtime& runtime = program_.runtime;
    try {
        runFrom(runtime.AppPath(), commandText, withTail, windowStyle);
    } catch (const core::RuntimeError&) {
        runFrom(runtime.TempPath(), commandText, withTail, windowStyle);
    }
}

void CommandScript::runFrom(const std::string& folder, const std::string& commandText,
                            bool withTail, int windowStyle) {
    core::Runtime& runtime = program_.runtime;
    const std::string path = folder + "\\~kelmcon.bat";
    runtime.vbaFileOpen(path, core::Runtime::OpenMode::Output);
    runtime.vbaPrintFile(commandText);
    if (withTail) {
        for (const std::string command : {"pause", "exit"}) {
            runtime.vbaPrintFile(std::string(crlf) + command + std::string(crlf));
        }
    }
    runtime.vbaFileClose();
    runtime.rtcShell(core::quoted(path), windowStyle);
}

}  // namespace tools
