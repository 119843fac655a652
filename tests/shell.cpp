#include "shell.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>

namespace test {
namespace {

using File = std::unique_ptr<FILE, int (*)(FILE*)>;

File temporary_file()
{
    return File(std::tmpfile(), std::fclose);
}

std::string contents(const File& file)
{
    std::fseek(file.get(), 0, SEEK_END);
    std::string text(static_cast<size_t>(std::ftell(file.get())), '\0');
    std::rewind(file.get());
    text.resize(std::fread(text.data(), 1, text.size(), file.get()));
    return text;
}

double in_seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

} // namespace

std::string rpc(const std::string& body)
{
    return "<rpc message-id=\"1\" xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"" + nc + ">\n" +
           body + "\n</rpc>";
}

Outcome run_ymap(const std::string& arguments, const std::filesystem::path& folder,
                 const std::string& input)
{
    const File in = temporary_file(), out = temporary_file(), err = temporary_file();
    std::fwrite(input.data(), 1, input.size(), in.get());
    std::rewind(in.get());
    const std::string command = "exec '" YMAP_BINARY "' " + arguments;
    const pid_t child         = fork();
    if (child == 0) {
        const rlimit limit{60, 60};
        setrlimit(RLIMIT_CPU, &limit);
        if (dup2(fileno(in.get()), 0) < 0 || dup2(fileno(out.get()), 1) < 0 ||
            dup2(fileno(err.get()), 2) < 0 || chdir(folder.c_str()) != 0)
            _exit(126);
        execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(out), contents(err),
            in_seconds(usage.ru_utime) + in_seconds(usage.ru_stime), usage.ru_maxrss};
}

std::string repeat(size_t count, const std::string& text)
{
    std::string all;
    all.reserve(count * text.size());
    for (size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

void expect_one_line(const std::string& text)
{
    EXPECT_EQ(std::ranges::count(text, '\n'), 1) << text;
    EXPECT_TRUE(text.ends_with('\n'));
    EXPECT_LE(text.size(), 600U);
    EXPECT_TRUE(std::ranges::none_of(text, [](unsigned char c) {
        return (c < 0x20 && c != '\n') || c == 0x7f;
    })) << text;
}

InFolder::InFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "ymap-XXXXXX").string();
    folder           = mkdtemp(name.data());
    std::filesystem::create_directory_symlink(YMAP_EXAMPLES, folder / "examples");
}

std::filesystem::path InFolder::write(const std::string& name, const std::string& text) const
{
    std::ofstream(folder / name, std::ios::binary) << text;
    return folder / name;
}

} // namespace test
