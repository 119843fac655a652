// Sources of bytes, and errors in what they give.

#include "reader.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <fmt/core.h>

#include "text.h"

namespace ymap::formats {

InputError::InputError(const std::string& name, uint32_t error_line, std::string_view message)
    : std::runtime_error(
          error_line != 0 ? fmt::format("{}:{}: {}", name, error_line, data::for_message(message))
                          : fmt::format("{}: {}", name, data::for_message(message))),
      line(error_line)
{
}

Source bytes_of(std::string_view text)
{
    return [text](char* buffer, size_t size) mutable {
        const size_t count = std::min(size, text.size());
        std::copy_n(text.data(), count, buffer);
        text.remove_prefix(count);
        return count;
    };
}

Source bytes_of_file(const std::string& path)
{
    std::shared_ptr<FILE> file;
    if (path == "-")
        file = {stdin, [](FILE*) {}};
    else if (FILE* opened = std::fopen(path.c_str(), "rb"))
        file = {opened, std::fclose};
    else
        throw InputError(path, 0, fmt::format("cannot open: {}", std::strerror(errno)));
    return [file, name = name_of_file(path)](char* buffer, size_t size) {
        const size_t count = std::fread(buffer, 1, size, file.get());
        if (count == 0 && std::ferror(file.get()) != 0)
            throw InputError(name, 0, fmt::format("cannot read: {}", std::strerror(errno)));
        return count;
    };
}

std::string name_of_file(const std::string& path)
{
    return path == "-" ? "(standard input)" : path;
}

std::string read_all(const Source& source)
{
    std::string bytes;
    char buffer[1 << 16];
    while (const size_t count = source(buffer, sizeof buffer))
        bytes.append(buffer, count);
    return bytes;
}

} // namespace ymap::formats
