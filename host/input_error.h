// The one error of the command that is not a bug: the input or the command line is at fault.

#ifndef YMAP_HOST_INPUT_ERROR_H
#define YMAP_HOST_INPUT_ERROR_H

#include <stdexcept>

namespace ymap::host {

/// Its text is the whole line for the person at the terminal, such as "request.xml:7: ...". The
/// command prints it on standard error and ends with status 2.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace ymap::host

#endif
