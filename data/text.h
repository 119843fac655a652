// Texts as XML and messages see them.

#ifndef YMAP_DATA_TEXT_H
#define YMAP_DATA_TEXT_H

#include <string>
#include <string_view>

namespace ymap::data {

/// `text` without the white space of XML around it.
std::string_view trim(std::string_view text);

/// Bytes of the control character that stands at `at` in a text of UTF-8, or 0 if there is none.
/// They are U+0000 to U+001F and U+007F to U+009F, the last of which some terminals obey as well.
size_t control_size(std::string_view text, size_t at);

/// `text` as one line that a terminal doesn't obey: a control character becomes a blank, and a byte
/// that is no UTF-8 a question mark.
std::string without_controls(std::string_view text);

/// `text` as part of a message: without control characters, and cut in the middle where it is long,
/// so that a person can read it whatever a document holds.
std::string for_message(std::string_view text);

} // namespace ymap::data

#endif
