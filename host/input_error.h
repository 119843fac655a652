// The one error of the command that is not a bug: the input or the command line is at fault.

#ifndef YMAP_HOST_INPUT_ERROR_H
#define YMAP_HOST_INPUT_ERROR_H

#include <algorithm>
#include <stdexcept>
#include <string>

namespace ymap::host {

/// Its text is the whole line for the person at the terminal, such as "request.xml:7: ...". The
/// command prints it on standard error and ends with status 2.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// `text` as part of a message: one line that a person can read and a terminal doesn't obey. What a
/// document holds is cut where it is long, and its control characters become blanks.
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
    std::ranges::replace_if(
        text, [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
    for (size_t at = 0; (at = text.find('\xc2', at)) != std::string::npos; ++at)
        if (at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) < 0xa0) // U+0080-9F
            text.replace(at, 2, " ");
    return text;
}

} // namespace ymap::host

#endif
