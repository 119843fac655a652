// Texts as XML and messages see them.

#include "text.h"

#include <algorithm>

namespace ymap::data {

std::string_view trim(std::string_view text)
{
    const auto is_white = [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; };
    const char* first   = text.data();
    const char* last    = first + text.size();
    while (first != last && is_white(*first))
        ++first;
    while (first != last && is_white(last[-1]))
        --last;
    return {first, static_cast<size_t>(last - first)};
}

size_t control_size(std::string_view text, size_t at)
{
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    if (byte < 0x20 || byte == 0x7f)
        return 1;
    return byte == 0xc2 && next >= 0x80 && next < 0xa0 ? 2 : 0;
}

std::string without_controls(std::string_view text)
{
    std::string line;
    for (size_t at = 0, size = 0; at < text.size(); at += std::max(size, size_t{1})) {
        size = control_size(text, at);
        line += size > 0 ? ' ' : text[at];
    }
    return line;
}

std::string for_message(std::string_view text)
{
    constexpr size_t longest = 400;
    if (text.size() <= longest)
        return without_controls(text);
    size_t end = longest;
    while ((static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) // within a character
        --end;
    return without_controls(text.substr(0, end)) + "...";
}

} // namespace ymap::data
