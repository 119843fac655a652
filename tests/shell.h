// The command as a person runs it, for tests of what it prints.

#ifndef TESTS_SHELL_H
#define TESTS_SHELL_H

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace test {

struct Printed {
    int status; ///< -1 if the process was ended by a signal
    std::string text; ///< standard output; standard error as well where `arguments` ask for it
};

/// Runs `ymap` with `arguments`, which a shell reads.
inline Printed run_ymap(const std::string& arguments)
{
    FILE* pipe = popen(("'" YMAP_BINARY "' " + arguments).c_str(), "r");
    std::string text;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
        text += static_cast<char>(c);
    const int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
}

inline std::string read_file(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace test

#endif
