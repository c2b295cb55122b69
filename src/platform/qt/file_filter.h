#pragma once

#include <QStringList>
#include <string>

namespace qt {

/// The filters of a file dialog in Qt's form, from pairs of description and pattern parted by
/// "|". The patterns match without regard to case, and "*.*" matches every name.
QStringList nameFilters(const std::string& filter);

}  // namespace qt
