#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace platform {

/// A file name parted at its last dot. A dot at the start or at the end parts nothing.
struct NameParts {
    explicit NameParts(std::string_view name);

    std::string_view stem;
    std::string_view extension;  ///< without its dot
};

/// True if the name is its own short name: a stem of at most 8 and an extension of at most 3
/// plain characters.
bool isShortName(std::string_view name);

/// True if the stem ends as all do that were shortened: in "~" and a number.
bool endsAsShortened(std::string_view name);

/// The short names of one folder. Stems are shortened, not files: names that share a long stem and
/// have a short extension share one short stem, so that a tool which is told only the stem, and
/// puts another extension behind it, names the same thing as its user.
class ShortNames {
  public:
    /// Works out the short names of a folder's names. bornAt gives when a name came into being, in
    /// any unit; the older of two names that compete for a short stem gets the lower number.
    ShortNames(const std::vector<std::string>& names,
               const std::function<std::int64_t(const std::string&)>& bornAt);

    /// The short form of a name of the folder.
    [[nodiscard]] const std::string& shortFor(const std::string& name) const;
    /// The name whose short form this is, in any case; empty if there is none.
    [[nodiscard]] std::string nameFor(std::string_view shortName) const;
    /// A short stem, alone or with an extension, with the long stem in its place; empty if no name
    /// of the folder has that short stem.
    [[nodiscard]] std::string withLongStem(std::string_view name) const;

  private:
    std::unordered_map<std::string, std::string> shortForms_;  ///< by name
    std::unordered_map<std::string, std::string> names_;       ///< by short form, case folded
    std::unordered_map<std::string, std::string> longStems_;   ///< by short stem, case folded
};

}  // namespace platform
