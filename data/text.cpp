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

namespace {

/// Bytes of the character of UTF-8 (RFC 3629) that stands at `at`, or 0 if there is none.
size_t character_size(std::string_view text, size_t at)
{
    const auto first  = static_cast<unsigned char>(text[at]);
    const size_t size = first < 0x80   ? 1
                        : first < 0xc2 ? 0
                        : first < 0xe0 ? 2
                        : first < 0xf0 ? 3
                        : first < 0xf5 ? 4
                                       : 0;
    if (size > text.size() - at)
        return 0;
    for (size_t i = 1; i < size; ++i)
        if ((static_cast<unsigned char>(text[at + i]) & 0xc0) != 0x80)
            return 0;
    return size;
}

} // namespace

std::string without_controls(std::string_view text)
{
    std::string line;
    for (size_t at = 0; at < text.size();) {
        const size_t control = control_size(text, at), size = character_size(text, at);
        if (control > 0)
            line += ' ';
        else if (size > 0)
            line.append(text, at, size);
        else
            line += '?';
        at += std::max({control, size, size_t{1}});
    }
    return line;
}

std::string for_message(std::string_view text)
{
    constexpr size_t longest = 400, longest_tail = 100;
    if (text.size() <= longest)
        return without_controls(text);
    const auto is_within = [&](size_t at) { // a character
        return (static_cast<unsigned char>(text[at]) & 0xc0) == 0x80;
    };
    size_t end = longest - longest_tail, tail = text.size() - longest_tail;
    while (end > 0 && is_within(end))
        --end;
    while (tail < text.size() && is_within(tail))
        ++tail;
    return without_controls(text.substr(0, end)) + "..." + without_controls(text.substr(tail));
}

} // namespace ymap::data
