#include "platform/windows/win32/file_dialog.h"

#include <commdlg.h>
// After <commdlg.h>, which it needs.
#include <cderr.h>

#include <algorithm>
#include <optional>

#include "forms/longest_name.h"
#include "platform/windows/wide.h"

namespace win32 {

namespace {

/// Shows the dialog once, offering a name. Returns nullopt if the dialog rejects the name, and an
/// empty string if the user cancels.
std::optional<std::wstring> ask(HWND owner, const forms::FileQuestion& question,
                                const std::wstring& offered) {
    const std::wstring title = platform::wide(question.title);
    std::wstring filter = platform::wide(question.filter + "|");
    std::ranges::replace(filter, L'|', L'\0');
    std::wstring name = offered;
    name.resize(forms::longestName + 1);

    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrTitle = title.c_str();
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = name.data();
    dialog.nMaxFile = static_cast<DWORD>(name.size());
    dialog.Flags = OFN_EXPLORER | OFN_HIDEREADONLY;
    // The dialog changes the current folder, which relative names start from. OFN_NOCHANGEDIR has
    // no effect in this one.
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    const bool chosen = GetOpenFileNameW(&dialog) != FALSE;
    const DWORD error = CommDlgExtendedError();
    SetCurrentDirectoryW(folder.c_str());
    if (chosen) return name.c_str();
    switch (error) {
        case FNERR_INVALIDFILENAME:
            return {};
        case FNERR_BUFFERTOOSMALL:
            throw forms::Refusal(std::string(forms::nameTooLong) + '.');
        default:
            return L"";
    }
}

}  // namespace

std::string chooseFile(HWND owner, const forms::FileQuestion& question) {
    std::wstring offered = platform::wide(question.name);
    if (offered.size() > forms::longestName ||
        offered.find_first_of(L"<>\"|?*") != std::wstring::npos)
        offered.clear();
    const auto chosen = ask(owner, question, offered);
    return platform::narrow(chosen ? *chosen : ask(owner, question, L"").value_or(L""));
}

}  // namespace win32
