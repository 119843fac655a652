// The one error of the command that is not a bug: the input or the command line is at fault. And
// how messages show what an input holds.

#ifndef YMAP_HOST_INPUT_ERROR_H
#define YMAP_HOST_INPUT_ERROR_H

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>

namespace ymap::host {

/// Its text is the whole line for the person at the terminal, such as "request.xml:7: ...". The
/// command prints it on standard error and ends with status 2.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Bytes of the control character that stands at `at` in a text of UTF-8, or 0 if there is none.
/// They are U+0000 to U+001F and U+007F to U+009F, the last of which some terminals obey as well.
inline size_t control_size(std::string_view text, size_t at)
{
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    if (byte < 0x20 || byte == 0x7f)
        return 1;
    return byte == 0xc2 && next >= 0x80 && next < 0xa0 ? 2 : 0;
}

/// `text` as one line that a terminal doesn't obey: a control character becomes a blank.
inline std::string without_controls(std::string_view text)
{
    std::string line;
    for (size_t at = 0, size = 0; at < text.size(); at += std::max(size, size_t{1})) {
        size = control_size(text, at);
        line += size > 0 ? ' ' : text[at];
    }
    return line;
}

/// `text` as part of a message: without control characters, and cut where it is long, so that a
/// person can read it whatever a document holds.
inline std::string for_message(std::string text)
{
    constexpr size_t longest = 400;
    if (text.size() > longest) {
        size_t end = longest;
        while ((static_cast<unsigned char>(text[end]) & 0xc0) == 0x80) // within a character
            --end;
        text.resize(end);
        text += "...";
    }
    return without_controls(text);
}

} // namespace ymap::host

#endif
