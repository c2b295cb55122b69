#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace platform {

/// An absolute path on the host, without a trailing slash except for the root "/". A type of its
/// own, because a std::string is a Windows path.
class HostPath {
  public:
    explicit HostPath(std::string text) : text_(std::move(text)) {
        while (text_.size() > 1 && text_.ends_with('/'))
            text_.pop_back();
    }

    [[nodiscard]] const std::string& text() const { return text_; }
    [[nodiscard]] const char* c_str() const { return text_.c_str(); }
    [[nodiscard]] bool isRoot() const { return text_ == "/"; }

    /// Returns the last name; the root has an empty one.
    [[nodiscard]] std::string_view name() const {
        return std::string_view(text_).substr(text_.rfind('/') + 1);
    }
    /// Returns the path of a name in this folder.
    [[nodiscard]] HostPath operator/(std::string_view name) const {
        std::string inside = isRoot() ? "" : text_;
        return HostPath(std::move(inside.append("/").append(name)));
    }
    /// Returns the folder that contains this place. The root contains itself.
    [[nodiscard]] HostPath parent() const {
        const auto slash = text_.rfind('/');
        return HostPath(slash == 0 ? "/" : text_.substr(0, slash));
    }
    /// True for the folder itself too.
    [[nodiscard]] bool isIn(const HostPath& folder) const {
        if (folder.isRoot() || text_ == folder.text_) return true;
        return text_.starts_with(folder.text_) && text_[folder.text_.size()] == '/';
    }

    bool operator==(const HostPath&) const = default;

  private:
    std::string text_;
};

}  // namespace platform
