// Messages of NETCONF in a stream of bytes (RFC 6242, 4). The stream is a stranger's: nothing that
// it announces is believed, and memory is taken for bytes that have come alone.

#ifndef YMAP_NETCONF_FRAMING_H
#define YMAP_NETCONF_FRAMING_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ymap::netconf {

/// How messages are told apart.
enum class Framing : uint8_t {
    end_of_message, ///< each ends with "]]>]]>" (RFC 6242, 4.3): base:1.0, and every <hello>
    chunked,        ///< RFC 6242, 4.2: base:1.1
};

/// Takes a stream apart, however its bytes arrive.
class FrameReader {
public:
    enum class Event : uint8_t {
        more,    ///< the message that has begun, if any, isn't whole
        message, ///< one is whole
        too_big, ///< the message grows beyond the limit; told once, and its end is then a `message`
        bad,     ///< not framed as RFC 6242 has it; nothing after that can be told apart
    };

    /// A message has at most `max_message` bytes.
    explicit FrameReader(size_t max_message) : max_message_(max_message) {}

    /// Another framing from the next message on.
    void set_framing(Framing framing) { framing_ = framing; }
    /// Takes in the next bytes of the stream.
    void feed(std::string_view bytes);
    /// What the bytes so far come to; to be called until it is `more`.
    Event next();
    /// The message that next() has told of; empty for one that was too big.
    std::string take_message();
    /// Whether a message has begun and hasn't ended. White space alone begins none.
    bool is_within_message() const;
    /// Bytes of the message that was too big, as far as they have come.
    size_t dropped() const { return dropped_; }
    /// What is wrong, after Event::bad.
    std::string_view fault() const { return fault_; }

private:
    Event next_ended();
    Event next_chunked();
    /// Reads the head of a chunk or the end of the chunks.
    Event read_head();
    Event bad(std::string_view fault);
    /// Takes the next `count` bytes of the stream into the message, or drops them.
    void take(size_t count);
    std::string_view waiting() const { return std::string_view(buffer_).substr(begin_); }

    const size_t max_message_;
    Framing framing_ = Framing::end_of_message;
    std::string buffer_;      ///< bytes of the stream
    size_t begin_ = 0;        ///< of those in the buffer that aren't taken yet
    std::string message_;     ///< as far as it has come
    uint64_t chunk_left_ = 0; ///< bytes of the chunk that are still to come
    bool has_chunks_     = false;
    bool is_too_big_     = false;
    size_t dropped_      = 0;
    std::string_view fault_;
};

/// What stands ahead of a piece of a message with `size` bytes, and at the end of a message.
std::string piece_head(Framing framing, size_t size);
std::string_view message_end(Framing framing);

} // namespace ymap::netconf

#endif
