// Aligned columns.

#include "columns.h"

#include <algorithm>
#include <string_view>

namespace ymap::host {

namespace {

/// Columns that a text of UTF-8 takes on a terminal, if no character is a wide one.
size_t width(std::string_view text)
{
    return static_cast<size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; }));
}

/// Takes the first line off `text`.
std::string_view take_line(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

} // namespace

std::string aligned(const std::vector<std::vector<std::string>>& rows)
{
    std::vector<size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (size_t i = 0; i < row.size(); ++i)
            for (std::string_view rest = row[i]; !rest.empty();)
                widths[i] = std::max(widths[i], width(take_line(rest)));
    }
    std::string out;
    for (const auto& row : rows) {
        std::vector<std::string_view> rest(row.begin(), row.end());
        do {
            std::string line;
            for (size_t i = 0; i < rest.size(); ++i) {
                const std::string_view cell = take_line(rest[i]);
                line.append(cell).append(widths[i] - width(cell) + 2, ' ');
            }
            out += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
        } while (std::ranges::any_of(rest, [](std::string_view cell) { return !cell.empty(); }));
    }
    return out;
}

} // namespace ymap::host
