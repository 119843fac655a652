// What tests call: the map functions of the library that is linked, the roots' walkers by name.

#ifndef TESTS_ROOTS_H
#define TESTS_ROOTS_H

#include <span>
#include <string>

#include "schema.h"
#include "ymap_ietf_if.h"

namespace test {

/// An operation code that no source knows.
inline constexpr uint32_t other_operation  = 2;
inline constexpr uint32_t all_operations[] = {MAP_OP_GET_CONFIG, MAP_OP_EDIT, MAP_OP_GET,
                                              other_operation};
/// The status with which a test lets the framework fail.
inline constexpr uint32_t framework_failure = 0xbad;

/// The roots of the schemas in their order, each with its walker.
struct Root {
    const schema::Model& model;
    const schema::Node& node;
    OzkMapFunction* walker;
};
enum RootName {
    ietf_configuration,
    ietf_state,
    native_global,
    native_configuration,
    native_operational
};
std::span<const Root> roots();

/// The map function of that name in the loaded library.
void* find_map_function(const std::string& name);
template <class Function = OzkMapFunction>
Function* map_function(const std::string& name)
{
    return reinterpret_cast<Function*>(find_map_function(name));
}

} // namespace test

#endif
