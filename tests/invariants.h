// What must hold after every walk, whatever the tree and the framework's answers were. The fuzzer,
// the property test and the tables of walks all check here.

#ifndef TESTS_INVARIANTS_H
#define TESTS_INVARIANTS_H

#include <string>
#include <vector>

#include "checked_case.h"

namespace test {

/// What came of a walk.
struct Walked {
    uint32_t status = MAP_OK;
    std::string paths; ///< see notation.h
    std::string offending_tag = "-";
    /// What is wrong with it, a line each:
    ///   - a promise that holds for any walk is broken: the hierarchy is balanced; a pointer that
    ///     is handed on is one of the input's or of the library's constants; a value is the very
    ///     pointer of a node's, or "act"; the offending tag is a copy of a tag of the tree, or
    ///     untouched; the status is one of the library's or of the framework's answers; operational
    ///     data is added on MAP_OP_GET only; of context, request and tree nothing but that tag and
    ///     the position changes;
    ///   - the calls, the status, the tag or the position are not those that the rules give.
    std::string wrong;
};

Walked walk(const CheckedCase& walked);

/// The arguments of a map function; one of another type takes those that it has.
struct Arguments {
    OzkMapCtx* ctx;
    const OzkMapNode* node;
    uint32_t count; ///< of children, that a container's handler is told
    OzkDataTree* tree;
};
uint32_t call_function(const schema::Node& described, model::Function function,
                       const Arguments& arguments);

/// The same of a call of one function of a node by itself: of its handler or its hook, of what a
/// person wrote for it, or of a default that somebody's function has replaced.
std::string wrong_with_call(const CheckedCase& walked, const schema::Node& described,
                            model::Function function);

} // namespace test

#endif
