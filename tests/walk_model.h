// The rules of a walk, computed from the schema: what a map library has to call, in which order,
// and what it has to return, for any tree, operation and answers of the framework. Written from the
// rules alone; shares no line with the library.

#ifndef TESTS_WALK_MODEL_H
#define TESTS_WALK_MODEL_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "run.h"
#include "schema.h"
#include "ymap.h"

namespace model {

/// What a switch of the log layer is turned to.
struct Switches {
    bool error = false; ///< MAP_LOG_ERROR
    bool trace = false; ///< MAP_LOG_TRACE
    bool lines = false; ///< trace_on
};

/// Everything that decides a walk.
struct Input {
    const schema::Model* model = nullptr;
    const schema::Node* root   = nullptr; ///< one of the model's roots
    uint32_t op_code           = MAP_OP_GET;
    const OzkMapCtx* ctx       = nullptr; ///< for its address in lines only
    const OzkMapNode* node     = nullptr;
    uint32_t count             = 0;    ///< of children, that a container's handler is told
    bool has_tree              = true; ///< false: the function is called with a null tree
    Switches switches;
    std::map<size_t, Switches> turned; ///< by number of the call, from 1, before which it happens
    std::map<std::pair<ozk::Op, size_t>, uint32_t> answers; ///< as in ozk::Run::answer
};

/// What must come of it.
struct Outcome {
    uint32_t status = MAP_OK;
    /// As ozk::Run records them; a trace line has no source line: "...name: ctx=...".
    std::vector<ozk::Call> calls;
    std::optional<std::string> offending_tag;
    uint32_t list_position  = 0;
    bool sets_list_position = false;
};

Outcome walk(const Input& input);

/// The functions of a node that are exported beside its walker.
enum class Function { handler, augment_hook, default_hook, manual_leaf, when_hook };
inline constexpr Function all_functions[] = {Function::handler, Function::augment_hook,
                                             Function::default_hook, Function::manual_leaf,
                                             Function::when_hook};
/// The exported name of a function of the node; empty if the node has none of the kind.
std::string name_of(const schema::Node& described, Function function);
/// What must come of calling it by itself.
Outcome call(const Input& input, const schema::Node& described, Function function);

/// The literal value among those that a library may hand on.
inline constexpr char active_value[] = "act";

/// The statuses that a map library may give by itself.
bool is_status_of_library(uint32_t status);

} // namespace model

#endif
