// `ymap serve`: a NETCONF server on standard input and output, one session a process.

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <fmt/core.h>
#include <syslog.h>
#include <unistd.h>

#include "commands.h"
#include "file_store.h"
#include "options.h"
#include "session.h"
#include "text.h"
#include "yang.h"

namespace ymap::host {

namespace {

/// Lines for the system's log; or, for whoever tries the server by hand, for standard error.
class SystemLog {
public:
    explicit SystemLog(bool to_stderr) : to_stderr_(to_stderr)
    {
        openlog("ymap", LOG_PID, LOG_DAEMON);
    }

    void line(int priority, const std::string& text) const
    {
        const std::string clean = data::without_controls(text);
        if (to_stderr_)
            std::fputs((clean + "\n").c_str(), stderr); // whether anybody reads it or not
        else
            syslog(priority, "%s", clean.c_str());
    }

    /// A stream whose lines go to the log.
    FILE* stream()
    {
        if (stream_ == nullptr) {
            const cookie_io_functions_t functions{nullptr, take, nullptr, nullptr};
            stream_ = fopencookie(this, "w", functions);
            if (stream_ == nullptr)
                throw std::bad_alloc();
            setvbuf(stream_, nullptr, _IONBF, 0);
        }
        return stream_;
    }
    ~SystemLog()
    {
        if (stream_ != nullptr)
            std::fclose(stream_);
    }
    SystemLog(const SystemLog&)            = delete;
    SystemLog& operator=(const SystemLog&) = delete;

private:
    static ssize_t take(void* self, const char* bytes, size_t size)
    {
        auto& log = *static_cast<SystemLog*>(self);
        log.begun_.append(bytes, size);
        for (size_t end; (end = log.begun_.find('\n')) != std::string::npos;
             log.begun_.erase(0, end + 1))
            log.line(LOG_DEBUG, log.begun_.substr(0, end));
        return static_cast<ssize_t>(size);
    }

    bool to_stderr_;
    FILE* stream_ = nullptr;
    std::string begun_; ///< of a line that hasn't ended
};

std::string environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// The modules that clients are told of: the clients' models with what they deviate by, which they
/// have of their own, and those that are drawn from the map library, when one is asked for.
std::vector<netconf::SchemaModule>
served_modules(const std::function<const agent::MapLibrary&()>& library_of)
{
    std::vector<netconf::SchemaModule> served;
    for (const agent::YangModule& module : agent::yang_modules()) {
        if (module.deviates())
            served.push_back(
                {module.model->name, module.model->revision, module.model->ns_uri, module.name});
        served.push_back({module.name, module.revision, module.ns_uri, "",
                          [=] { return yang_text(module, library_of()); }});
    }
    return served;
}

/// A file that is opened must not become a standard stream that is missing: what is written there
/// would be written into it. Each gets what can't be read or written, as if it were missing still.
void fill_standard_streams()
{
    for (int file = 0; file <= 2; ++file)
        if (fcntl(file, F_GETFD) < 0)
            open("/dev/null", file == 0 ? O_WRONLY : O_RDONLY);
}

int serve(const ServeOptions& options, SystemLog& log)
{
    const auto log_line    = [&](const std::string& line) { log.line(LOG_INFO, line); };
    const auto id          = static_cast<uint32_t>(getpid());
    const std::string user = environment("USER"), peer = environment("SSH_CONNECTION");

    netconf::FileStore store({.running     = options.running,
                              .state       = options.state,
                              .depth_limit = options.depth_limit,
                              .read_only   = options.read_only});
    std::optional<agent::MapLibrary> library;
    const auto library_of = [&]() -> const agent::MapLibrary& {
        if (!library)
            library.emplace(load_library(options.library));
        return *library;
    };
    agent::Hooks hooks;
    if (!options.log.empty())
        hooks.before_pass = [&](ozk::Run& run, const char*) {
            run.set_log_stream(log.stream());
            run.set_level(MAP_LOG_ERROR, true);
            run.set_level(MAP_LOG_TRACE, options.log == "trace");
        };
    netconf::Server server(store, library_of,
                           {.session_id     = id,
                            .read_only      = options.read_only,
                            .drops_unmapped = options.unmapped == "drop",
                            .depth_limit    = options.depth_limit,
                            .user           = user,
                            .peer           = peer,
                            .modules        = served_modules(library_of),
                            .hooks          = hooks},
                           log_line);

    log_line(fmt::format("session {}: begins: {} ({})", id, data::for_message(user),
                         data::for_message(peer)));
    const netconf::SessionEnd end = netconf::serve_session(server, options.session, [&] {
        // While the client reads the hello; what is wrong is said again to whoever asks.
        try {
            library_of();
            store.running();
        } catch (const std::exception& error) {
            log.line(LOG_ERR, fmt::format("session {}: {}", id, error.what()));
        }
    });
    log.line(end.is_fault ? LOG_WARNING : LOG_INFO,
             fmt::format("session {}: ends: {}", id, data::for_message(end.reason)));
    return end.is_fault ? exit_walk_error : exit_mapped;
}

} // namespace

// Whatever ends the verb is in the log as well: nobody sees a subsystem's standard error.
int serve(const ServeOptions& options)
{
    fill_standard_streams();
    SystemLog log(options.log_to_stderr);
    try {
        return serve(options, log);
    } catch (const std::exception& error) {
        if (!options.log_to_stderr)
            log.line(LOG_ERR, data::for_message(error.what()));
        throw;
    }
}

} // namespace ymap::host
