// Aligned columns on a terminal.

#ifndef YMAP_HOST_COLUMNS_H
#define YMAP_HOST_COLUMNS_H

#include <string>
#include <vector>

namespace ymap::host {

/// Rows of cells, aligned by columns, two blanks between them; no blank ends a line. A cell may
/// have several lines; a row is as many lines as its longest cell has.
std::string aligned(const std::vector<std::vector<std::string>>& rows);

} // namespace ymap::host

#endif
