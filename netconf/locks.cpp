// Locks among sessions.

#include "locks.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ymap::netconf {

namespace {

// What the bytes of the file stand for, when locked.
constexpr off_t CLIENT_LOCK   = 0;
constexpr off_t EDIT_MUTEX    = 1;
constexpr off_t FIRST_SESSION = 100;     // by the id of the process
constexpr off_t SESSIONS      = 1 << 22; // proc(5): ids are smaller

// What the file holds: numbers of 8 bytes.
constexpr off_t GENERATION = 0;
constexpr off_t LOCK_TIME  = 8;

[[noreturn]] void fail(const std::string& path)
{
    throw std::system_error(errno, std::generic_category(), path);
}

} // namespace

Locks::Locks(std::string path, const struct stat& model, bool read_only)
    : path_(std::move(path)), read_only_(read_only)
{
    if (!open_existing() && !read_only) {
        file_ = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (file_ >= 0) {
            // Whoever may edit the document may lock it.
            if (fchown(file_, static_cast<uid_t>(-1), model.st_gid) == 0)
                fchmod(file_, model.st_mode & 0666);
            enter();
        } else if (errno != EEXIST || !open_existing()) {
            fail(path_);
        }
    }
}

Locks::~Locks()
{
    if (file_ >= 0)
        close(file_);
}

bool Locks::open_existing()
{
    const int flags = (read_only_ ? O_RDONLY : O_RDWR) | O_CLOEXEC | O_NOFOLLOW;
    file_           = open(path_.c_str(), flags);
    // Who has just made the file gives others their rights a moment later.
    for (int i = 0; i < 200 && file_ < 0 && errno == EACCES && !read_only_; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        file_ = open(path_.c_str(), flags);
    }
    if (file_ < 0 && errno != ENOENT && !read_only_)
        fail(path_);
    if (file_ >= 0)
        enter();
    return file_ >= 0;
}

void Locks::enter()
{
    if (!set(read_only_ ? F_RDLCK : F_WRLCK, FIRST_SESSION + getpid()))
        fail(path_);
}

bool Locks::set(short type, off_t offset)
{
    struct flock lock {};
    lock.l_type   = type;
    lock.l_whence = SEEK_SET;
    lock.l_start  = offset;
    lock.l_len    = 1;
    if (fcntl(file_, F_SETLK, &lock) == 0)
        return true;
    if (errno != EACCES && errno != EAGAIN)
        fail(path_);
    return false;
}

struct flock Locks::find(off_t offset, off_t count)
{
    struct flock lock {};
    lock.l_type   = is_open() ? F_WRLCK : F_UNLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start  = offset;
    lock.l_len    = count;
    if (lock.l_type != F_UNLCK && fcntl(file_, F_GETLK, &lock) != 0)
        fail(path_);
    return lock;
}

uint32_t Locks::holder(off_t offset)
{
    const struct flock lock = find(offset, 1);
    return lock.l_type == F_UNLCK ? 0 : static_cast<uint32_t>(lock.l_pid);
}

bool Locks::take_client_lock()
{
    if (client_lock_holder() != 0)
        return false;
    write_number(LOCK_TIME, static_cast<uint64_t>(time(nullptr)));
    return has_client_lock_ = set(F_WRLCK, CLIENT_LOCK);
}

void Locks::free_client_lock()
{
    set(F_UNLCK, CLIENT_LOCK);
    has_client_lock_ = false;
}

uint32_t Locks::client_lock_holder()
{
    return has_client_lock_ ? static_cast<uint32_t>(getpid()) : holder(CLIENT_LOCK);
}

int64_t Locks::client_lock_time() const
{
    return static_cast<int64_t>(read_number(LOCK_TIME));
}

bool Locks::take_edit_mutex(int milliseconds)
{
    using namespace std::chrono;
    const auto end = steady_clock::now() + std::chrono::milliseconds(milliseconds);
    // All ask equally often, however long they have waited, so that newcomers don't pass by others.
    for (auto pause = microseconds(250); !set(F_WRLCK, EDIT_MUTEX); pause = microseconds(1000)) {
        if (steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

void Locks::free_edit_mutex()
{
    set(F_UNLCK, EDIT_MUTEX);
}

uint64_t Locks::generation()
{
    return is_open() ? read_number(GENERATION) : 0;
}

void Locks::count_generation()
{
    write_number(GENERATION, read_number(GENERATION) + 1);
}

bool Locks::is_session(uint32_t id)
{
    return holder(FIRST_SESSION + static_cast<off_t>(id)) == id;
}

std::vector<uint32_t> Locks::other_sessions()
{
    std::vector<uint32_t> ids;
    // The kernel tells of any lock in a range: there may be more on both sides of it.
    std::vector<std::pair<off_t, off_t>> ranges = {{FIRST_SESSION, FIRST_SESSION + SESSIONS}};
    while (!ranges.empty()) {
        const auto [begin, end] = ranges.back();
        ranges.pop_back();
        const struct flock lock = find(begin, end - begin); // what nobody has comes back as it was
        if (lock.l_pid > 0 && lock.l_start == FIRST_SESSION + lock.l_pid)
            ids.push_back(static_cast<uint32_t>(lock.l_pid));
        if (lock.l_start > begin)
            ranges.emplace_back(begin, lock.l_start);
        if (lock.l_len > 0 && lock.l_start + lock.l_len < end)
            ranges.emplace_back(lock.l_start + lock.l_len, end);
    }
    std::ranges::sort(ids);
    return ids;
}

void Locks::write_number(off_t offset, uint64_t number)
{
    if (pwrite(file_, &number, sizeof number, offset) != sizeof number)
        fail(path_);
}

uint64_t Locks::read_number(off_t offset) const
{
    uint64_t number = 0;
    if (file_ >= 0 && pread(file_, &number, sizeof number, offset) < 0)
        fail(path_);
    return number;
}

} // namespace ymap::netconf
