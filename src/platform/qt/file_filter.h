#pragma once

#include <QStringList>
#include <string>

namespace qt {

/// Returns a file dialog's filters in Qt's form, from pairs of description and pattern separated by
/// "|". The patterns ignore case, and "*.*" matches every name.
QStringList nameFilters(const std::string& filter);

}  // namespace qt
