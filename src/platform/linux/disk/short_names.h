#pragma once

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

/// False if the name is not UTF-8, or contains a character that a Windows path cannot contain or
/// that would end a line or a quoted text in a script. A short name never contains one.
bool fitsWindows(std::string_view name);

/// True if the name is its own short name: a stem of at most 8 and an extension of at most 3
/// plain characters, which no program takes for an option.
bool isShortName(std::string_view name);

/// True if the name may be the short form of another one.
bool mayBeShortened(std::string_view name);

/// The short names of one folder. Which file a short name means depends neither on times nor on
/// other extensions: a program may save by renaming, and a tool that is given only the stem appends
/// an extension of its own. So a short stem depends only on the long one and its competitors:
/// - A long stem gets its first letters and "~1" if no other long stem competes for that form, and
///   no name has it. Stems that differ only in case compete.
/// - Otherwise it gets a form with a digest of its own. So does a name that a Windows path cannot
///   contain: text boxes and settings keep its short form.
/// - A form for which names compete means none of them.
class ShortNames {
  public:
    explicit ShortNames(const std::vector<std::string>& names);

    /// Returns the short form of a name in the folder, or a name that is not there unchanged.
    [[nodiscard]] std::string shortFor(const std::string& name) const;
    /// Returns the name with this short form, in any case. If only its stem is known, returns the
    /// long stem with the extension given. Returns the name unchanged if it means no other one.
    [[nodiscard]] std::string longFor(std::string_view shortName) const;

  private:
    using Stems = std::vector<std::string_view>;
    using Forms = std::unordered_map<std::string, std::string>;

    Forms numbered_;   ///< short stem with "~1", by long stem
    Forms digests_;    ///< short stem with a digest, by long stem
    Forms longStems_;  ///< by short stem, case folded
    Forms names_;      ///< by long stem and short extension; empty if several names share them
};

}  // namespace platform
