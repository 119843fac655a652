// Messages in a stream of bytes.

#include "framing.h"

#include <algorithm>
#include <utility>

#include <fmt/core.h>

#include "text.h"

namespace ymap::netconf {

namespace {

constexpr std::string_view END_OF_MESSAGE = "]]>]]>";
constexpr std::string_view END_OF_CHUNKS  = "\n##\n";
constexpr uint64_t LARGEST_CHUNK          = 4294967295; // RFC 6242, 4.2

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

void FrameReader::feed(std::string_view bytes)
{
    buffer_.erase(0, begin_);
    begin_ = 0;
    buffer_.append(bytes);
}

FrameReader::Event FrameReader::next()
{
    if (!fault_.empty())
        return Event::bad;
    return framing_ == Framing::chunked ? next_chunked() : next_ended();
}

std::string FrameReader::take_message()
{
    is_too_big_ = has_chunks_ = false;
    return std::exchange(message_, {});
}

bool FrameReader::is_within_message() const
{
    return is_too_big_ || has_chunks_ || !message_.empty() || !data::trim(waiting()).empty();
}

FrameReader::Event FrameReader::bad(std::string_view fault)
{
    fault_ = fault;
    return Event::bad;
}

void FrameReader::take(size_t count)
{
    is_too_big_ |= count > max_message_ - message_.size();
    if (is_too_big_) {
        dropped_ += count + message_.size();
        message_ = {};
    } else {
        message_.append(buffer_, begin_, count);
    }
    begin_ += count;
}

FrameReader::Event FrameReader::next_ended()
{
    if (message_.empty() && !is_too_big_) // clients send line feeds between messages
        begin_ = std::min(buffer_.find_first_not_of(" \t\r\n", begin_), buffer_.size());
    const std::string_view bytes = waiting();
    const size_t end             = bytes.find(END_OF_MESSAGE);
    // The mark may be cut, and its beginning is kept until it is known for what it is.
    const size_t kept  = std::min(bytes.size(), END_OF_MESSAGE.size() - 1);
    const size_t count = end != bytes.npos ? end : bytes.size() - kept;
    const bool was_big = is_too_big_;
    take(count);
    if (is_too_big_ && !was_big)
        return Event::too_big;
    if (end == bytes.npos)
        return Event::more;
    begin_ += END_OF_MESSAGE.size();
    return Event::message;
}

FrameReader::Event FrameReader::next_chunked()
{
    for (;;) {
        if (chunk_left_ == 0) {
            const Event event = read_head();
            if (event != Event::more || chunk_left_ == 0)
                return event;
        }
        const size_t count = static_cast<size_t>(std::min<uint64_t>(chunk_left_, waiting().size()));
        if (count == 0)
            return Event::more;
        const bool was_big = is_too_big_;
        take(count);
        chunk_left_ -= count;
        if (is_too_big_ && !was_big)
            return Event::too_big;
    }
}

FrameReader::Event FrameReader::read_head()
{
    const std::string_view bytes = waiting();
    if (bytes.size() < END_OF_CHUNKS.size() && END_OF_CHUNKS.starts_with(bytes))
        return Event::more;
    if (bytes.starts_with(END_OF_CHUNKS)) {
        if (!has_chunks_)
            return bad("a message without a chunk");
        begin_ += END_OF_CHUNKS.size();
        return Event::message;
    }
    if (!bytes.starts_with("\n#"))
        return bad("no chunk begins where one is expected");
    // chunk-size = %x31-39 *DIGIT, and ends with a line feed.
    size_t at     = 2;
    uint64_t size = 0;
    for (; at < bytes.size() && is_digit(bytes[at]) && size <= LARGEST_CHUNK; ++at)
        size = 10 * size + static_cast<uint64_t>(bytes[at] - '0');
    if (at > 2 && bytes[2] == '0')
        return bad("the size of a chunk begins with 0");
    if (size > LARGEST_CHUNK)
        return bad("the size of a chunk is larger than 4294967295");
    if (at == bytes.size())
        return Event::more;
    if (at == 2 || bytes[at] != '\n')
        return bad("the size of a chunk is no number");
    begin_ += at + 1;
    chunk_left_ = size;
    has_chunks_ = true;
    return Event::more;
}

std::string piece_head(Framing framing, size_t size)
{
    return framing == Framing::chunked ? fmt::format("\n#{}\n", size) : std::string();
}

std::string_view message_end(Framing framing)
{
    return framing == Framing::chunked ? END_OF_CHUNKS : END_OF_MESSAGE;
}

} // namespace ymap::netconf
