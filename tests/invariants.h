// What must hold after every walk, whatever the tree and the framework's answers were. The fuzzer,
// the property test and the fault test all check here.

#ifndef TESTS_INVARIANTS_H
#define TESTS_INVARIANTS_H

#include <string>
#include <vector>

#include "checked_case.h"

namespace test {

/// Walks the case and gives what is wrong with it, a line each:
///   - a promise that holds for any walk is broken: the hierarchy is balanced; a pointer that is
///     handed on is one of the input's or of the library's constants; a value is the very pointer
///     of a node's, or "act"; the offending tag is a copy of a tag of the tree, or untouched; the
///     status is one of the library's or of the framework's answers; operational data is added on
///     MAP_OP_GET only; of context and request nothing but that tag and the position changes;
///   - the calls, the status, the tag or the position are not those that the rules give.
std::vector<std::string> violations(const CheckedCase& walked);

} // namespace test

#endif
