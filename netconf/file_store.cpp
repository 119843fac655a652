// Native documents in files.

#include "file_store.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <fmt/core.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "native_file.h"
#include "reader.h"
#include "request.h"

namespace ymap::netconf {

namespace {

namespace fs = std::filesystem;
using agent::Error;
using agent::RequestError;
using formats::InputError;

/// A descriptor that is closed.
class File {
public:
    File(const std::string& path, int flags, mode_t mode = 0)
        : path_(path), file_(open(path.c_str(), flags | O_CLOEXEC, mode))
    {
        if (file_ < 0)
            fail();
    }
    ~File() { close(file_); }
    File(const File&)            = delete;
    File& operator=(const File&) = delete;

    operator int() const { return file_; } // NOLINT(google-explicit-constructor)
    [[noreturn]] void fail() const
    {
        throw std::system_error(errno, std::generic_category(), path_);
    }
    void require(bool holds) const
    {
        if (!holds)
            fail();
    }

private:
    std::string path_;
    int file_;
};

/// A file that is taken away again unless it has got another name.
struct Unfinished {
    std::string path;
    bool is_kept = false;
    ~Unfinished()
    {
        if (!is_kept)
            unlink(path.c_str());
    }
};

/// Where the running configuration really is: beside that file are its lock and its next content.
std::string checked_path(const std::string& path, bool read_only)
{
    std::error_code error;
    const fs::path real = fs::canonical(path, error);
    if (error)
        throw InputError(path, 0, fmt::format("cannot open: {}", error.message()));
    const File file(real, read_only ? O_RDONLY : O_RDWR);
    char first[4096];
    const ssize_t count = read(file, first, sizeof first);
    file.require(count >= 0);
    if (!read_only && is_json({first, static_cast<size_t>(count)}))
        throw InputError(path, 0,
                         "a running configuration in JSON can't be edited; serve it with "
                         "--read-only, or convert it to XML");
    return real;
}

struct stat status_of(const std::string& path)
{
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        throw InputError(path, 0, fmt::format("cannot open: {}", std::strerror(errno)));
    return status;
}

/// What the kernel tells of the process of a session: nobody has to be believed. It may be told to
/// hide processes from other users.
SessionInfo info_of(uint32_t id)
{
    SessionInfo info{id, {}, 0};
    const std::string path = fmt::format("/proc/{}", id);
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) {
        const passwd* user = getpwuid(status.st_uid);
        info.user          = user != nullptr ? user->pw_name : std::to_string(status.st_uid);
    }
    // proc(5): when it began is the field 22; the second one, in brackets, may hold anything.
    std::string fields, field;
    std::getline(std::ifstream(path + "/stat"), fields, '\0');
    std::istringstream behind(fields.substr(fields.rfind(')') + 1));
    for (int i = 2; i < 21; ++i)
        behind >> field;
    timespec now{};
    int64_t ticks = 0;
    if (behind >> ticks && clock_gettime(CLOCK_BOOTTIME, &now) == 0)
        info.since = time(nullptr) - now.tv_sec + ticks / sysconf(_SC_CLK_TCK);
    return info;
}

bool same_time(const timespec& a, const timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

} // namespace

bool NativeFile::Stamp::operator==(const Stamp& other) const
{
    return device == other.device && inode == other.inode && size == other.size &&
           same_time(modified, other.modified) && same_time(changed, other.changed) &&
           generation == other.generation;
}

NativeFile::Stamp NativeFile::stamp_of(const struct stat& status, uint64_t generation)
{
    return {status.st_dev,  status.st_ino,  status.st_size,
            status.st_mtim, status.st_ctim, generation};
}

agent::Native NativeFile::get(uint64_t generation)
{
    // The file is looked at before it is read: a later content is then read once more.
    const Stamp now = stamp_of(status_of(path_), generation);
    // What edits leave behind stays in the tree's memory.
    constexpr size_t slack = 1 << 20;
    if (now == stamp_ && document_.tree.size() <= 2 * read_size_ + slack)
        return {&document_, top_};
    forget();
    document_ = read_native(path_, depth_limit_);
    try {
        top_ = &agent::data_of(document_);
    } catch (const RequestError& error) {
        throw InputError(document_.name, error.error.line, error.error.message);
    }
    read_size_ = document_.tree.size();
    stamp_     = now;
    return {&document_, top_};
}

void NativeFile::replace(const std::function<void()>& before_replacing)
{
    struct stat old {};
    if (stat(path_.c_str(), &old) != 0)
        throw std::system_error(errno, std::generic_category(), path_);
    const std::string new_path  = path_ + ".new";
    const std::string directory = fs::path(path_).parent_path();
    // One that a killed session has left may be another user's.
    if (unlink(new_path.c_str()) != 0 && errno != ENOENT)
        throw std::system_error(errno, std::generic_category(), new_path);
    const File file(new_path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, 0600);
    Unfinished unfinished{new_path};
    // The group is kept, or nobody gets more than before; the owner where we may.
    if (fchown(file, old.st_uid, old.st_gid) != 0)
        file.require(fchown(file, static_cast<uid_t>(-1), old.st_gid) == 0);
    file.require(fchmod(file, old.st_mode & 07777) == 0);
    formats::Output out([&](std::string_view piece) {
        while (!piece.empty()) {
            const ssize_t count = write(file, piece.data(), piece.size());
            file.require(count >= 0 || errno == EINTR);
            piece.remove_prefix(static_cast<size_t>(std::max<ssize_t>(count, 0)));
        }
    });
    write_native(out, *top_);
    file.require(fsync(file) == 0);
    const File folder(directory, O_RDONLY | O_DIRECTORY);
    before_replacing();
    if (rename(new_path.c_str(), path_.c_str()) != 0)
        file.fail();
    unfinished.is_kept = true;
    if (fsync(folder) != 0)
        throw RequestError(
            {"operation-failed", fmt::format("the edit is in place, but may not survive a loss of "
                                             "power: {}",
                                             std::strerror(errno))});
    struct stat status {};
    fstat(file, &status); // or else the file is read once more
    stamp_ = stamp_of(status, stamp_.generation);
}

// ---------------------------------------------------------------------------------------------

FileStore::FileStore(const Options& options)
    : mutex_milliseconds_(options.mutex_milliseconds),
      running_(checked_path(options.running, options.read_only), options.depth_limit),
      locks_(running_.path() + ".lock", status_of(running_.path()), options.read_only)
{
    for (const std::string& path : options.state)
        state_.emplace_back(path, options.depth_limit);
}

agent::Native FileStore::get(NativeFile& file, uint64_t generation)
{
    try {
        return file.get(generation);
    } catch (const InputError& error) {
        throw RequestError({"operation-failed", error.what()});
    }
}

agent::Native FileStore::running()
{
    return get(running_, locks_.generation());
}

std::span<const agent::Native> FileStore::all()
{
    natives_ = {running()};
    for (NativeFile& file : state_)
        natives_.push_back(get(file, 0));
    return natives_;
}

FileStore::EditMutex FileStore::take_edit_mutex()
{
    if (!locks_.take_edit_mutex(mutex_milliseconds_))
        throw RequestError({"in-use", fmt::format("other sessions have edited without a pause for "
                                                  "{} s",
                                                  mutex_milliseconds_ / 1000)});
    return EditMutex(&locks_);
}

agent::Native FileStore::begin_edit()
{
    EditMutex mutex = take_edit_mutex();
    if (const uint32_t holder = locks_.client_lock_holder();
        holder != 0 && !locks_.has_client_lock()) {
        Error error{"in-use",
                    fmt::format("session {} has locked the running configuration", holder)};
        error.session_id = std::to_string(holder);
        throw RequestError(error);
    }
    const agent::Native native = running();
    static_cast<void>(mutex.release()); // end_edit() frees it
    return native;
}

void FileStore::commit()
{
    try {
        running_.replace([&] {
            locks_.count_generation();
            running_.set_generation(locks_.generation());
        });
    } catch (const std::system_error& error) {
        throw RequestError(
            {"operation-failed", fmt::format("cannot store the edit: {}", error.what())});
    }
}

void FileStore::end_edit(bool is_changed)
{
    if (is_changed)
        running_.forget();
    locks_.free_edit_mutex();
}

void FileStore::lock()
{
    const EditMutex mutex = take_edit_mutex(); // no edit is half done when a lock is given
    if (locks_.take_client_lock())
        return;
    const uint32_t holder = locks_.client_lock_holder();
    Error error{"lock-denied",
                fmt::format("session {} has locked the running configuration", holder)};
    error.type       = "protocol";
    error.session_id = std::to_string(holder);
    throw RequestError(error);
}

void FileStore::unlock()
{
    if (!locks_.has_client_lock()) {
        Error error{"operation-failed", "this session has no lock on the running configuration"};
        error.type = "protocol";
        throw RequestError(error);
    }
    locks_.free_client_lock();
}

LockHolder FileStore::lock_holder()
{
    return {locks_.client_lock_holder(), locks_.client_lock_time()};
}

std::vector<SessionInfo> FileStore::other_sessions()
{
    std::vector<SessionInfo> infos;
    for (const uint32_t id : locks_.other_sessions())
        infos.push_back(info_of(id));
    return infos;
}

void FileStore::kill_session(uint32_t id)
{
    const auto fail = [&](const char* tag, const std::string& message) {
        Error error{tag, message};
        error.type        = "protocol";
        error.bad_element = "session-id";
        throw RequestError(error);
    };
    const auto pid = static_cast<pid_t>(id);
    if (pid == getpid())
        fail("invalid-value", "a session doesn't kill itself; close-session ends it");
    if (pid <= 0 || !locks_.is_session(id))
        fail("invalid-value", fmt::format("there is no session {}", id));
    // A request that is being carried out has some time to come to its end.
    using namespace std::chrono;
    for (const auto& [signal, time] : {std::pair(SIGTERM, seconds(5)), {SIGKILL, seconds(2)}}) {
        if (kill(pid, signal) != 0 && errno != ESRCH)
            fail("access-denied", fmt::format("session {} is another user's", id));
        for (const auto end = steady_clock::now() + time; steady_clock::now() < end;
             std::this_thread::sleep_for(milliseconds(2)))
            if (!locks_.is_session(id))
                return;
    }
    fail("operation-failed", fmt::format("session {} doesn't end", id));
}

} // namespace ymap::netconf
