#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

/// A file name split at its last dot. A leading or trailing dot does not count.
struct NameParts {
    explicit NameParts(std::string_view name);

    std::string_view stem;
    std::string_view extension;  ///< without its dot
};

/// True if the name is its own short name: a stem of at most 8 and an extension of at most 3
/// plain characters.
bool isShortName(std::string_view name);

/// True if the stem ends like a shortened one, in "~" and a number.
bool endsAsShortened(std::string_view name);

/// The short names of one folder. Names that share a long stem and have a short extension share one
/// short stem too: a tool that is given only the stem, and appends another extension, then names
/// the file that its user means.
class ShortNames {
  public:
    /// Works out the short names for a folder's names. `createdAt` returns when a name was created,
    /// in any unit; the older of two names that compete for a short stem gets the lower number.
    ShortNames(const std::vector<std::string>& names,
               const std::function<std::int64_t(const std::string&)>& createdAt);

    /// Returns the short form of a name in the folder.
    [[nodiscard]] const std::string& shortFor(const std::string& name) const;
    /// Returns the name with this short form, in any case, or an empty string.
    [[nodiscard]] std::string nameFor(std::string_view shortName) const;
    /// Replaces a short stem, alone or with an extension, by the long one. Returns an empty string
    /// if no name in the folder has that short stem.
    [[nodiscard]] std::string withLongStem(std::string_view name) const;

  private:
    std::unordered_map<std::string, std::string> shortForms_;  ///< by name
    std::unordered_map<std::string, std::string> names_;       ///< by short form, case folded
    std::unordered_map<std::string, std::string> longStems_;   ///< by short stem, case folded
};

}  // namespace platform
