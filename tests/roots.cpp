#include "roots.h"

#include <dlfcn.h>

#include <stdexcept>
#include <vector>

namespace test {

std::span<const Root> roots()
{
    static const std::vector<Root> all = [] {
        std::vector<Root> made;
        for (const schema::Model& model : schema::models())
            for (const schema::Node& node : model.roots)
                made.push_back({model, node, map_function(node.walker())});
        return made;
    }();
    return all;
}

void* find_map_function(const std::string& name)
{
    void* found = dlsym(RTLD_DEFAULT, name.c_str());
    if (found == nullptr)
        throw std::runtime_error("no function " + name);
    return found;
}

} // namespace test
