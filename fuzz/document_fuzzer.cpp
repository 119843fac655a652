// Fuzzes the document reader of the command `ymap`: whatever the bytes are, they are read into a
// request or refused with one line. A request that was read is walked, since what the reader lets
// through is what the map library gets.

#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "document.h"
#include "input_error.h"
#include "run.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

[[noreturn]] void fail(const std::string& what)
{
    fprintf(stderr, "%s\n", what.c_str());
    abort();
}

/// The reader takes files: these bytes are one without a name.
class MemoryFile {
public:
    MemoryFile(const uint8_t* data, size_t size) : descriptor_(memfd_create("document", 0))
    {
        if (descriptor_ < 0 || write(descriptor_, data, size) != static_cast<ssize_t>(size))
            fail("no room for the document");
    }
    ~MemoryFile() { close(descriptor_); }
    MemoryFile(const MemoryFile&)            = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

OzkMapFunction* walker_of(const ymap::host::ModelRoot& root)
{
    void* found = dlsym(RTLD_DEFAULT, root.symbol);
    if (found == nullptr)
        fail(std::string("no walker ") + root.symbol);
    return reinterpret_cast<OzkMapFunction*>(found);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    // The first byte is the operation of bare data trees.
    ymap::host::ReadOptions options;
    constexpr uint32_t ops[] = {MAP_OP_GET, MAP_OP_GET_CONFIG, MAP_OP_EDIT};
    if (data[0] % 4 != 3)
        options.op_code = ops[data[0] % 4];
    const MemoryFile file(data + 1, size - 1);
    try {
        ymap::host::Request request = ymap::host::read_document(file.path(), options);
        ozk::Run run(request.op_code);
        for (ymap::host::RequestRoot& root : request.roots)
            run.walk(walker_of(*root.model_root), &root.tree.root());
        if (!run.faults().empty())
            fail(run.faults().front());
    } catch (const ymap::host::InputError& error) {
        const std::string line = error.what();
        if (line.empty() || line.size() > 600 || line.find('\n') != std::string::npos)
            fail("not one line that a person can read: " + line);
    }
    return 0;
}
