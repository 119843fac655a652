// The command as a person runs it, for tests of what it prints.

#ifndef TESTS_SHELL_H
#define TESTS_SHELL_H

#include <filesystem>
#include <string>

#include "support.h"

namespace test {

/// Attributes: the namespaces of the models, and the prefix `nc`.
inline const std::string ietf = " xmlns=\"urn:ietf:params:xml:ns:yang:ietf-interfaces\"";
inline const std::string cfg  = " xmlns=\"http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg\"";
inline const std::string oper =
    " xmlns=\"http://brelvik.example/ns/yang/Brelvik-NQ-pfi-im-cmd-oper\"";
inline const std::string nc = " xmlns:nc=\"urn:ietf:params:xml:ns:netconf:base:1.0\"";

/// An rpc that holds `body`, which begins in line 2. NETCONF is its default namespace.
std::string rpc(const std::string& body);

struct Outcome {
    int status = -1; ///< -1 if the process was ended by a signal
    std::string out, err;
    double seconds = 0; ///< of processor time
    long kilobytes = 0; ///< of memory, at the most
};

/// Runs `ymap` in `folder` with `arguments`, which a shell reads. Processor time beyond a minute
/// ends it.
Outcome run_ymap(const std::string& arguments, const std::filesystem::path& folder = ".",
                 const std::string& input = "");

std::string repeat(size_t count, const std::string& text);

/// One line, short enough to be read, without control characters.
void expect_one_line(const std::string& text);

/// A folder of its own for each test, removed behind it. The examples are there as "examples".
class InFolder : public testing::Test {
protected:
    InFolder();
    ~InFolder() override { std::filesystem::remove_all(folder); }

    std::filesystem::path write(const std::string& name, const std::string& text) const;
    Outcome run(const std::string& arguments) const { return run_ymap(arguments, folder); }

    std::filesystem::path folder;
};

} // namespace test

#endif
