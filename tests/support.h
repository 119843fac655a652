// What the tests of the map library share: input trees written down in a few words, a walk with
// its record, and the record in a notation that a table of cases can hold.

#ifndef TESTS_SUPPORT_H
#define TESTS_SUPPORT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data_tree.h"
#include "run.h"
#include "schema.h"
#include "ymap_ietf_if.h"

namespace test {

using ozk::DataNode;
using ozk::Edit;

/// The status with which a test lets the framework fail.
inline constexpr uint32_t framework_failure = 0xbad;
/// An operation code that no source knows.
inline constexpr uint32_t other_operation  = 2;
inline constexpr uint32_t all_operations[] = {MAP_OP_GET_CONFIG, MAP_OP_EDIT, MAP_OP_GET,
                                              other_operation};
/// A namespace of no model.
inline constexpr char foreign_ns[] = "urn:example:foreign";

/// A node without value; its namespace is the root's unless it is given one.
DataNode node(const char* tag, std::vector<DataNode> children = {});
DataNode leaf(const char* tag, const char* value);
DataNode in_ns(DataNode node, const char* ns_uri);
/// The node with an edit operation of its own.
DataNode with(Edit edit, DataNode node);
DataNode without_tag(DataNode node);
DataNode at_position(uint32_t position, DataNode node);

/// The five roots, with the namespace of the model.
struct Root {
    const char* tag;
    const char* ns_uri;
    const char* output_ns; ///< of all paths that a walk adds
    OzkMapFunction* walker;
};
extern const Root ietf_configuration;
extern const Root ietf_state;
extern const Root native_configuration;
extern const Root native_global;
extern const Root native_operational;
extern const Root* const all_roots[5];

const schema::Model& model_of(const Root& root);
const schema::Node& node_of(const Root& root);

/// A tree of the node and all below it, each once; a leaf's value is its path. The last child of
/// each of its other nodes has a tag that no table has.
DataNode whole(const schema::Node& described, const char* ns_uri);

/// One walk of a tree: everything that a test may set before go() and look at after it.
class Walk {
public:
    /// Nodes of `children` that have no namespace get the root's. On an edit the default operation
    /// is merge (RFC 6241, 7.2).
    Walk(const Root& walked, uint32_t op_code, std::vector<DataNode> children);

    uint32_t go(); ///< may be called again: run and record go on

    /// The record without the questions to the log layer, a line a call:
    ///     push TAG container      pop TAG               list PATH
    ///     match TAG LITERAL yes   add? TAG yes          delete? TAG no
    ///     add PATH = VALUE ref TAG    add PATH list     copy TAG
    ///     sibling NAME TAG        ERR TEXT              TRC TEXT
    /// A null text is "-". Of comparisons, only the ones that match are shown.
    std::vector<std::string> script() const;
    /// The lines of script() that begin with one of the words.
    std::vector<std::string> script(std::vector<std::string_view> words) const;
    std::string offending_tag() const; ///< "-" if none

    ozk::InputTree input;
    ozk::Run run;
    const Root& root;
};

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b);

/// The map function of that name in the loaded library; a test fails if there is none.
template <class Function = OzkMapFunction>
Function* map_function(const std::string& name)
{
    void* find_map_function(const std::string&);
    return reinterpret_cast<Function*>(find_map_function(name));
}

/// The whole file; a test fails if it can't be read.
inline std::string read_file(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Lets the sibling libraries report to, and be answered by, the run that is going on.
void connect_siblings();

} // namespace test

#endif
