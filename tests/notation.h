// Trees in tests, in one notation that is read and shown by the same few lines.
//
//     tag=value#position@edit(children)     nodes stand side by side with a blank between them
//
// A namespace other than that of the node above is a prefix (`acl:`, `pf:`, `x:` of no model, `*:`
// for none); `?` is a tag that is not available. A value with blanks stands in single quotes. An
// edit is that of the node itself; children inherit it.

#ifndef TESTS_NOTATION_H
#define TESTS_NOTATION_H

#include <fstream>
#include <iterator>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "run.h"
#include "schema.h"
#include "tree.h"

namespace test {

/// A namespace of no model.
inline constexpr char foreign_ns[] = "urn:example:foreign";

/// Reads nodes below `parent`; those without a prefix are of the namespace `ns_uri`.
void read_nodes(ozk::Tree& tree, OzkMapNode& parent, std::string_view text, const char* ns_uri);
/// A node for `described` below `parent`, with all below it, each once. The value of a leaf is its
/// path, and the last child of each other node has a tag that no schema has.
void append_whole(ozk::Tree& tree, OzkMapNode& parent, const schema::Node& described,
                  const char* ns_uri);
/// The children of `node`; those of the namespace `ns_uri` have no prefix.
std::string shown(const OzkMapNode& node, const char* ns_uri);
/// Paths with " list", "=value" and "@tag" of the node referred to, a comma between two. Entries
/// are told by a letter: N and O of the native models, I and S of /interfaces and
/// /interfaces-state.
std::string shown(std::span<const ozk::AddedPath> paths);

inline std::string read_file(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error("can't read " + path);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace test

#endif
