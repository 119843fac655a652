// The library as a plugin: loaded by name into a process that has the framework's operations but
// none of the sibling libraries, and with functions that a maintainer wrote in place of generated
// ones. This program links neither the map library nor the siblings.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "notation.h"

namespace {

constexpr char root_walker[] = "ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces";

class Library {
public:
    explicit Library(const char* file, int binding = RTLD_LAZY)
        : handle_(dlopen(file, binding | RTLD_LOCAL))
    {
        EXPECT_NE(handle_, nullptr) << dlerror();
    }
    ~Library() { dlclose(handle_); }
    Library(const Library&) = delete;

    OzkMapFunction* function(const std::string& name) const
    {
        return reinterpret_cast<OzkMapFunction*>(dlsym(handle_, name.c_str()));
    }

private:
    void* handle_;
};

/// An edit that sets `type` in an entry, and brings a node of another model.
constexpr char edit[] = "interfaces(interface(type) x:policy)";

/// The paths of a walk of one tree.
std::string walk(const Library& library, uint32_t op_code, const char* text, uint32_t& status)
{
    ozk::Tree tree;
    test::read_nodes(tree, tree.top(), text, NS_IETF_INTERFACES);
    ozk::Run run(op_code);
    status = run.walk(library.function(root_walker), tree.top().subtrees);
    return test::shown(run.added());
}

TEST(Loading, WorksWithoutTheSiblings)
{
    ASSERT_EQ(dlsym(RTLD_DEFAULT,
                    "ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface"),
              nullptr);
    const Library library(YMAP_LIBRARY);
    uint32_t status = MAP_OK;
    EXPECT_EQ(walk(library, MAP_OP_EDIT, edit, status), "N list");
    EXPECT_EQ(status, MAP_NOT_MAPPED);
}

// An agent that binds all at once has to bring the siblings, and is told which one it lacks.
TEST(Loading, AtOnceNeedsTheSiblings)
{
    ASSERT_EQ(dlopen(YMAP_LIBRARY, RTLD_NOW | RTLD_LOCAL), nullptr);
    const std::string message = dlerror();
    EXPECT_NE(message.find("undefined symbol: ymap_"), message.npos) << message;
    EXPECT_NE(message.find("_augment_lvl"), message.npos) << message;

    void* siblings = dlopen(YMAP_SIBLINGS, RTLD_NOW | RTLD_GLOBAL);
    ASSERT_NE(siblings, nullptr) << dlerror();
    {
        const Library library(YMAP_LIBRARY, RTLD_NOW);
        uint32_t status = MAP_NOT_MAPPED;
        EXPECT_TRUE(walk(library, MAP_OP_GET, "interfaces", status).starts_with("N list"));
        EXPECT_EQ(status, MAP_OK);
    }
    dlclose(siblings);
}

#ifndef YMAP_SANITIZED // the sanitizers' runtimes look at the dying process their own way
using LoadingDeathTest = testing::Test;

TEST(LoadingDeathTest, MissingSiblingIsNamedWhenItIsCalled)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const Library library(YMAP_LIBRARY);
    uint32_t status = MAP_OK;
    EXPECT_EXIT(walk(library, MAP_OP_GET, "interfaces", status), testing::ExitedWithCode(127),
                "undefined symbol: "
                "ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface");
}
#endif

TEST(Loading, FunctionsOfTheManualSourceTakeThePlaceOfGeneratedOnes)
{
    const Library library(YMAP_REPLACED_LIBRARY);
    uint32_t status = MAP_OK;
    EXPECT_EQ(walk(library, MAP_OP_EDIT, edit, status),
              "/container, /list, /leaf, /again, /again, /hook");
    EXPECT_EQ(status, MAP_OK);
    // The generated bodies stay under their own names, called by nobody.
    for (const std::string name :
         {"list_lvla_interfaces_interface", "leaf_lvla_interfaces_interface_type",
          "lvla_interfaces_parse_augments"}) {
        const std::string plain = "ymap_iq_ietf_if_ietfinterfaces_" + name;
        ASSERT_NE(library.function("__" + plain), nullptr);
        EXPECT_NE(library.function("__" + plain), library.function(plain));
    }
}

} // namespace
