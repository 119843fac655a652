// Native documents in files, shared by sessions: the running configuration, which sessions edit one
// after the other, and state data, which others write.

#ifndef YMAP_NETCONF_FILE_STORE_H
#define YMAP_NETCONF_FILE_STORE_H

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "datastore.h"
#include "locks.h"

namespace ymap::netconf {

/// A native document in a file, kept as it was read for as long as the file is the same.
class NativeFile {
public:
    NativeFile(std::string path, uint32_t depth_limit)
        : path_(std::move(path)), depth_limit_(depth_limit)
    {
    }

    /// The document as the file has it now. `generation` has another value when the file is known
    /// to be another. Throws formats::InputError.
    agent::Native get(uint64_t generation = 0);
    /// Writes the document in place of the file, by way of another beside it, and returns when both
    /// are stored. `before_replacing` is called ahead of the moment when the new one takes the
    /// place. Throws std::system_error, and the file is what it was; or agent::RequestError, once
    /// the new one is in place, for what can't be promised of it. The document is then to be
    /// forgotten.
    void replace(const std::function<void()>& before_replacing);
    /// The next get() reads the file.
    void forget() { stamp_ = {}; }
    /// Sets what get() is given as the generation by now.
    void set_generation(uint64_t generation) { stamp_.generation = generation; }
    const std::string& path() const { return path_; }

private:
    /// What tells one content of the file from another.
    struct Stamp {
        dev_t device        = 0;
        ino_t inode         = 0;
        off_t size          = -1;
        timespec modified   = {};
        timespec changed    = {};
        uint64_t generation = 0;
        bool operator==(const Stamp& other) const;
    };
    static Stamp stamp_of(const struct stat& status, uint64_t generation);

    std::string path_;
    uint32_t depth_limit_;
    Stamp stamp_ = {};
    data::Document document_;
    OzkMapNode* top_  = nullptr;
    size_t read_size_ = 0; ///< of the tree, when it was read
};

class FileStore : public Datastore {
public:
    struct Options {
        std::string running;
        std::vector<std::string> state = {};
        uint32_t depth_limit           = 0;
        bool read_only                 = false; ///< no edit will be asked for
        int mutex_milliseconds         = 30000; ///< how long an edit waits for others
    };

    /// Looks at the files, but doesn't read them. Throws formats::InputError for a running
    /// configuration that can't be served, std::system_error for what can't be opened.
    explicit FileStore(const Options& options);

    agent::Native running() override;
    std::span<const agent::Native> all() override;
    agent::Native begin_edit() override;
    void commit() override;
    void end_edit(bool is_changed) override;
    void lock() override;
    void unlock() override;
    LockHolder lock_holder() override;
    std::vector<SessionInfo> other_sessions() override;
    void kill_session(uint32_t id) override;

private:
    struct FreeEditMutex {
        void operator()(Locks* locks) const { locks->free_edit_mutex(); }
    };
    /// The mutex of edits, until it is freed or released to who frees it.
    using EditMutex = std::unique_ptr<Locks, FreeEditMutex>;

    agent::Native get(NativeFile& file, uint64_t generation);
    EditMutex take_edit_mutex();

    int mutex_milliseconds_;
    NativeFile running_;
    std::deque<NativeFile> state_;
    std::vector<agent::Native> natives_;
    Locks locks_;
};

} // namespace ymap::netconf

#endif
