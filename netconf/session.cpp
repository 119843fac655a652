// Sessions.

#include "session.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <optional>
#include <string_view>

#include <fcntl.h>
#include <fmt/core.h>
#include <poll.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "framing.h"

namespace ymap::netconf {

namespace {

using std::chrono::seconds;
using Clock = std::chrono::steady_clock;
using Time  = Clock::time_point;

[[noreturn]] void end(const std::string& reason, bool is_fault = true)
{
    throw SessionEnd{reason, is_fault};
}

/// The descriptors, and the signals that end a session.
class Channel {
public:
    explicit Channel(const SessionOptions& options) : options_(options)
    {
        signal(SIGPIPE, SIG_IGN);
        signal(SIGXFSZ, SIG_IGN); // a file that mustn't grow is an error of the write
        sigset_t ending;
        sigemptyset(&ending);
        sigaddset(&ending, SIGTERM);
        sigaddset(&ending, SIGHUP);
        sigprocmask(SIG_BLOCK, &ending, nullptr);
        signals_ = signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK);
        if (signals_ < 0)
            end(fmt::format("cannot wait for signals: {}", std::strerror(errno)));
        // A client that takes nothing must not hold a write up. What isn't ours alone, such as a
        // terminal, is left as it is.
        struct stat status {};
        if (fstat(options_.output, &status) == 0 &&
            (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode)))
            fcntl(options_.output, F_SETFL, fcntl(options_.output, F_GETFL) | O_NONBLOCK);
    }
    ~Channel() { close(signals_); }
    Channel(const Channel&)            = delete;
    Channel& operator=(const Channel&) = delete;

    /// The next bytes; none at the end of input. Nothing if none came until `limit`.
    std::optional<std::string_view> read(std::optional<Time> limit)
    {
        for (;;) {
            if (!wait(options_.input, POLLIN, limit))
                return std::nullopt;
            if (is_ended())
                end("ended by a signal", false);
            const ssize_t count = ::read(options_.input, buffer_, sizeof buffer_);
            if (count >= 0)
                return std::string_view(buffer_, static_cast<size_t>(count));
            if (errno != EINTR && errno != EAGAIN)
                end(fmt::format("cannot read: {}", std::strerror(errno)));
        }
    }

    void write(std::string_view bytes)
    {
        waiting_ += bytes;
        if (waiting_.size() >= PIECE)
            flush();
    }

    void flush()
    {
        std::string_view bytes = waiting_;
        Time limit             = Clock::now() + seconds(options_.write_time);
        while (!bytes.empty()) {
            const ssize_t count = ::write(options_.output, bytes.data(), bytes.size());
            if (count > 0) {
                bytes.remove_prefix(static_cast<size_t>(count));
                limit = Clock::now() + seconds(options_.write_time);
            } else if (count < 0 && errno == EAGAIN) {
                // Whoever wants the session to end waits for the answer as long as it is taken.
                const int patience = is_ended() ? 1 : options_.write_time;
                limit              = std::min(limit, Clock::now() + seconds(patience));
                if (!wait(options_.output, POLLOUT, limit))
                    end(fmt::format("{}the client took nothing of an answer for {} s",
                                    is_ended_ ? "ended by a signal: " : "", patience));
            } else if (errno != EINTR) {
                end(fmt::format("cannot write: {}", std::strerror(errno)));
            }
        }
        waiting_.clear();
    }

    /// Whether a signal has come that ends the session.
    bool is_ended()
    {
        signalfd_siginfo signal;
        is_ended_ |= ::read(signals_, &signal, sizeof signal) > 0;
        return is_ended_;
    }

private:
    static constexpr size_t PIECE = 1 << 16;

    /// Waits until `file` is ready or, unless one has come before, a signal comes; false if
    /// neither is so at `limit`.
    bool wait(int file, short events, std::optional<Time> limit)
    {
        pollfd polled[] = {{file, events, 0}, {is_ended_ ? -1 : signals_, POLLIN, 0}};
        for (;;) {
            int left = -1;
            if (limit)
                left = static_cast<int>(std::max<int64_t>(
                    0,
                    std::chrono::ceil<std::chrono::milliseconds>(*limit - Clock::now()).count()));
            const int ready = poll(polled, 2, left);
            if (ready >= 0)
                return ready > 0;
            if (errno != EINTR)
                end(fmt::format("cannot wait: {}", std::strerror(errno)));
        }
    }

    const SessionOptions& options_;
    int signals_   = -1;
    bool is_ended_ = false;
    std::string waiting_; ///< to be written
    char buffer_[PIECE];
};

class Session {
public:
    Session(Server& server, const SessionOptions& options)
        : server_(server), options_(options), channel_(options), reader_(options.max_message)
    {
    }

    /// Ends by a SessionEnd, or by another exception where something fails.
    [[noreturn]] void run(const std::function<void()>& on_hello_sent)
    {
        limit_ = Clock::now() + seconds(options_.hello_time);
        send(server_.hello());
        on_hello_sent();
        exchange_hellos();
        has_hello_ = true;
        while (!server_.is_closed()) {
            const std::string message = receive();
            answer([&](formats::Output& out) { server_.answer(message, out); });
        }
        end("closed by the client", false);
    }

private:
    void exchange_hellos()
    {
        const std::string message = receive();
        try {
            if (server_.take_hello(message)) {
                framing_ = Framing::chunked;
                reader_.set_framing(framing_);
            } else {
                server_.set_old_client();
            }
        } catch (const std::exception& error) {
            end(fmt::format("bad hello: {}", error.what()));
        }
    }

    /// The next message; ends the session where none comes.
    std::string receive()
    {
        if (has_hello_)
            limit_.reset();
        for (;;) {
            if (channel_.is_ended())
                end("ended by a signal", false);
            switch (reader_.next()) {
            case FrameReader::Event::message: return reader_.take_message();
            case FrameReader::Event::too_big: refuse_too_big(); break;
            case FrameReader::Event::bad: end(fmt::format("bad frame: {}", reader_.fault()));
            case FrameReader::Event::more: read_more(); break;
            }
        }
    }

    void read_more()
    {
        const bool is_within      = reader_.is_within_message();
        std::optional<Time> limit = limit_;
        const int silence         = is_within ? options_.frame_time : options_.idle_time;
        if (silence > 0 && has_hello_)
            limit = Clock::now() + seconds(silence);
        const auto bytes = channel_.read(limit);
        if (!bytes && !has_hello_)
            end(fmt::format("no hello within {} s", options_.hello_time));
        if (!bytes && is_within)
            end(fmt::format("nothing came for {} s within a message", silence));
        if (!bytes)
            end(fmt::format("idle for {} s", silence), false);
        if (bytes->empty() && is_within)
            end("the input ended within a message");
        if (bytes->empty())
            end("the client has gone", !has_hello_);
        reader_.feed(*bytes);
    }

    /// Says so, and takes the rest of the message in: a client that is still sending would not read
    /// the answer.
    [[noreturn]] void refuse_too_big()
    {
        const std::string reason =
            fmt::format("a message of more than {} bytes", options_.max_message);
        if (!has_hello_)
            end(reason);
        answer([&](formats::Output& out) { server_.refuse_too_big(options_.max_message, out); });
        const size_t most = 4 * options_.max_message;
        try {
            while (reader_.dropped() < most && reader_.next() == FrameReader::Event::more)
                read_more();
        } catch (const SessionEnd&) {
            // is for that message
        }
        end(reason);
    }

    template <class Write>
    void answer(const Write& write)
    {
        formats::Output out([&](std::string_view piece) {
            channel_.write(piece_head(framing_, piece.size()));
            channel_.write(piece);
        });
        write(out);
        channel_.write(message_end(framing_));
        channel_.flush();
    }

    void send(std::string_view message)
    {
        answer([&](formats::Output& out) {
            out << message;
            out.flush();
        });
    }

    Server& server_;
    const SessionOptions& options_;
    Channel channel_;
    FrameReader reader_;
    Framing framing_ = Framing::end_of_message;
    bool has_hello_  = false;
    std::optional<Time> limit_; ///< for the client's hello
};

} // namespace

SessionEnd serve_session(Server& server, const SessionOptions& options,
                         const std::function<void()>& on_hello_sent)
{
    try {
        Session(server, options).run(on_hello_sent);
    } catch (const SessionEnd& session_end) {
        return session_end;
    } catch (const std::exception& error) {
        return {fmt::format("failed: {}", error.what()), true};
    }
}

} // namespace ymap::netconf
