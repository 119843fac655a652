// What sessions tell each other, by record locks of the kernel on one file: a session is a process
// of its own, and what a process that ends has locked is free again.

#ifndef YMAP_NETCONF_LOCKS_H
#define YMAP_NETCONF_LOCKS_H

#include <cstdint>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

namespace ymap::netconf {

/// The file of locks beside a running document. It stays open for as long as the session lives,
/// and nobody else may open it in the process: closing any descriptor of a file frees all that the
/// process has locked in it (POSIX, fcntl). The session's id is the id of its process.
class Locks {
public:
    /// Opens the file `path`; it is made, with the mode and the group of `model`, unless
    /// `read_only` is set: a session that only reads does without where there is none. Throws
    /// std::system_error.
    Locks(std::string path, const struct stat& model, bool read_only);
    ~Locks();
    Locks(const Locks&)            = delete;
    Locks& operator=(const Locks&) = delete;

    /// The <lock> of a client (RFC 6241, 7.5), under the mutex; false if a session holds it. Throws
    /// std::system_error, and nobody has it then.
    bool take_client_lock();
    void free_client_lock();
    bool has_client_lock() const { return has_client_lock_; }
    /// The session that holds the client's lock, this one included; 0 for none.
    uint32_t client_lock_holder();
    /// When that lock was taken, in seconds since 1970.
    int64_t client_lock_time() const;

    /// Waits until no other session edits, for `milliseconds` at most, and keeps others from it;
    /// false if that time has passed.
    bool take_edit_mutex(int milliseconds);
    void free_edit_mutex();

    /// How many times the document was about to be replaced. Files alone don't tell for certain:
    /// two quick writes may leave one with the inode, the times and the size of one before.
    uint64_t generation();
    /// Counts one more; under the mutex. Throws std::system_error.
    void count_generation();

    /// Whether `id` is a session on the same document.
    bool is_session(uint32_t id);
    /// All of them but this one, in order.
    std::vector<uint32_t> other_sessions();

private:
    /// False if there is none.
    bool open_existing();
    /// Another session may have made the file in the meantime.
    bool is_open() { return file_ >= 0 || open_existing(); }
    /// Tells the others of this session.
    void enter();
    /// Locks the byte at `offset`, or frees it; false if another process has locked it.
    bool set(short type, off_t offset);
    /// A lock of another process on any of the `count` bytes at `offset`; of the type F_UNLCK if
    /// there is none.
    struct flock find(off_t offset, off_t count);
    /// The process that has locked a byte, this one aside; 0 for none.
    uint32_t holder(off_t offset);
    void write_number(off_t offset, uint64_t number);
    uint64_t read_number(off_t offset) const;

    std::string path_;
    bool read_only_;
    int file_             = -1;
    bool has_client_lock_ = false;
};

} // namespace ymap::netconf

#endif
