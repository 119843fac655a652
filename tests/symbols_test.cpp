// The built library as a linker and a loader see it: its exported names against the naming rule,
// what it needs, and what is in its sections.

#include <elf.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "schema.h"

namespace {

/// As much of an ELF file as these tests look at.
class Elf {
public:
    struct Symbol {
        unsigned char binding;
        uint64_t address;
    };

    explicit Elf(const std::string& file)
    {
        std::ifstream in(file, std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(in), {});
        EXPECT_GT(bytes_.size(), sizeof(Elf64_Ehdr)) << file;
        const auto* header = at<Elf64_Ehdr>(0);
        for (unsigned i = 0; i < header->e_phnum; ++i)
            segments.push_back(*at<Elf64_Phdr>(header->e_phoff + i * sizeof(Elf64_Phdr)));
        for (unsigned i = 0; i < header->e_shnum; ++i) {
            const auto* section = at<Elf64_Shdr>(header->e_shoff + i * sizeof(Elf64_Shdr));
            const auto* names =
                at<Elf64_Shdr>(header->e_shoff + header->e_shstrndx * sizeof(Elf64_Shdr));
            sections[&bytes_[names->sh_offset + section->sh_name]] = section;
        }
        const Elf64_Shdr* strings = sections.at(".dynstr");
        for (const Elf64_Sym& symbol : entries<Elf64_Sym>(".dynsym")) {
            const std::string name = &bytes_[strings->sh_offset + symbol.st_name];
            by_index.push_back(name);
            if (symbol.st_shndx == SHN_UNDEF)
                undefined.insert(name);
            else
                defined[name] = {static_cast<unsigned char>(ELF64_ST_BIND(symbol.st_info)),
                                 symbol.st_value};
        }
        for (const Elf64_Dyn& entry : entries<Elf64_Dyn>(".dynamic")) {
            dynamic[entry.d_tag] = entry.d_un.d_val;
            if (entry.d_tag == DT_NEEDED)
                needed.insert(&bytes_[strings->sh_offset + entry.d_un.d_val]);
        }
    }

    template <class Entry>
    std::vector<Entry> entries(const std::string& section) const
    {
        const Elf64_Shdr* header = sections.at(section);
        const auto* first        = at<Entry>(header->sh_offset);
        return {first, first + header->sh_size / sizeof(Entry)};
    }

    std::vector<Elf64_Phdr> segments;
    std::vector<std::string> by_index; ///< names of the dynamic symbols
    std::map<std::string, const Elf64_Shdr*> sections;
    std::map<std::string, Symbol> defined;
    std::set<std::string> undefined;
    std::set<std::string> needed;
    std::map<Elf64_Sxword, Elf64_Xword> dynamic; ///< the last value of each tag

private:
    template <class Record>
    const Record* at(uint64_t offset) const
    {
        return reinterpret_cast<const Record*>(&bytes_[offset]);
    }

    std::vector<char> bytes_;
};

/// What a name in the exported table is, as `nm -D` would show it.
enum class Export {
    alone,    ///< one strong name
    twin,     ///< a weak name at the address of its __ twin
    replaced, ///< a strong name at another address than its __ twin
};

std::map<std::string, Export> names_by_rule()
{
    std::map<std::string, Export> names;
    for (const schema::Model& model : schema::models()) {
        for (const schema::Node& root : model.roots) {
            names[root.walker()] = Export::alone;
            schema::for_each(root, [&](const schema::Node& node) {
                names[node.handler()] = node.manual_handler ? Export::replaced : Export::twin;
                if (node.kind != schema::Kind::leaf)
                    names[node.augment_hook()] =
                        node.manual_augment_hook ? Export::replaced : Export::twin;
                if (node.manual_leaf)
                    names[node.prefix + "man_leaf_" + node.stem] = Export::alone;
                if (node.when_hook)
                    names[node.handler() + "_handle_when"] = Export::alone;
            });
        }
    }
    return names;
}

TEST(Symbols, ExportedTableIsWhatTheNamingRuleGives)
{
    const Elf library(YMAP_LIBRARY);
    std::set<std::string> expected;
    for (const auto& [name, kind] : names_by_rule()) {
        expected.insert(name);
        ASSERT_TRUE(library.defined.contains(name)) << name;
        const Elf::Symbol plain = library.defined.at(name);
        EXPECT_EQ(plain.binding, kind == Export::twin ? STB_WEAK : STB_GLOBAL) << name;
        if (kind == Export::alone)
            continue;
        expected.insert("__" + name);
        ASSERT_TRUE(library.defined.contains("__" + name)) << name;
        const Elf::Symbol generated = library.defined.at("__" + name);
        EXPECT_EQ(generated.binding, STB_GLOBAL) << name;
        EXPECT_EQ(generated.address == plain.address, kind == Export::twin) << name;
    }
    for (const auto& [name, symbol] : library.defined)
        EXPECT_TRUE(expected.contains(name)) << name << " is exported beside the rule";
    EXPECT_EQ(library.defined.size(), 1336U);
}

// The letters that the schema gives by itself, against the ones that are written down for it.
TEST(Symbols, LevelLetters)
{
    std::map<char, int> nodes;
    for (const schema::Model& model : schema::models())
        for (const schema::Node& root : model.roots)
            schema::for_each(root, [&](const schema::Node& node) { ++nodes[node.stem[3]]; });
    EXPECT_EQ(nodes,
              (std::map<char, int>{{'a', 512}, {'b', 23}, {'c', 7}, {'d', 4}, {'e', 4}, {'f', 4}}));

    const struct {
        const char* path;
        const char* stem;
    } cases[] = {
        {"/interfaces/interface-nq/interface/interface-type-information/bundle-information/member/"
         "mac-address/address",
         "lvlb_interfaces_macaddress_address"},
        {"/interfaces/inventory-summary/interface-counts/up-interface-count",
         "lvlc_interfaces_interfacecounts_upinterfacecount"},
        {"/interfaces/interface-summary/interface-type/interface-counts/"
         "admin-down-interface-count",
         "lvlf_interfaces_interfacecounts_admindowninterfacecount"},
        {"/interfaces/interfaces/interface/interface-name",
         "lvlb_interfaces_interface_interfacename"},
        {"/interfaces/interfaces/interface/interface", "lvla_interfaces_interface_interface"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(schema::find(schema::models()[2], c.path).stem, c.stem) << c.path;
}

const std::set<std::string> framework_operations = {
    "ozk_map_add_to_node_hierarchy",
    "ozk_map_remove_from_node_hierarchy",
    "ozk_map_update_current_list_node",
    "ozk_map_do_these_match",
    "ozk_map_is_request_add",
    "ozk_map_is_request_delete",
    "ozk_map_datatree_add_path_flagged",
    "ozk_strdup",
    "ozk_debug_should_log",
    "_tlm_dt_log_filter_adv",
    "ret_nc_ozk_trace_index_incr",
    "_lstrace",
};

TEST(Symbols, ImportsAreTheFrameworkTheSiblingsAndLibc)
{
    const Elf library(YMAP_LIBRARY);
    EXPECT_TRUE(std::ranges::includes(library.undefined, framework_operations));
    std::set<std::string> siblings;
    for (const std::string& name : library.undefined)
        if (name.starts_with("ymap_") || name.starts_with("__ymap_"))
            siblings.insert(name);
    EXPECT_EQ(siblings,
              (std::set<std::string>{
                  "ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface",
                  "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_"
                  "configuration",
                  "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_"
                  "configuration",
                  "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_"
                  "configuration",
              }));
}

#ifndef YMAP_SANITIZED // a sanitizer brings its own runtime, relocations and data

TEST(Library, NeedsLibcAlone)
{
    EXPECT_EQ(Elf(YMAP_LIBRARY).needed, std::set<std::string>{"libc.so.6"});
}

// What the library can reach beside the framework and the siblings: no allocator, no file, no lock
// but that of stderr.
TEST(Library, OfLibcImportsWhatAssertionsAndLinesNeed)
{
    std::set<std::string> others;
    for (const std::string& name : Elf(YMAP_LIBRARY).undefined)
        if (!name.empty() && !name.starts_with("ymap_") && !framework_operations.contains(name))
            others.insert(name);
    EXPECT_EQ(others, (std::set<std::string>{"__stack_chk_fail", "abort", "flockfile", "fprintf",
                                             "snprintf", "stderr"}));
}

TEST(Library, Hardening)
{
    const Elf library(YMAP_LIBRARY);
    bool has_relro = false;
    bool has_stack = false; // without its header the stack may be executed
    for (const Elf64_Phdr& segment : library.segments) {
        has_stack |= segment.p_type == PT_GNU_STACK;
        if (segment.p_type == PT_LOAD || segment.p_type == PT_GNU_STACK) {
            EXPECT_NE(segment.p_flags & (PF_W | PF_X), unsigned{PF_W | PF_X});
        }
        if (segment.p_type != PT_GNU_RELRO)
            continue;
        has_relro = true;
        // All but the slots of the sibling entry points, which are bound at their first call.
        for (const char* name : {".dynamic", ".got"}) {
            const Elf64_Shdr* section = library.sections.at(name);
            EXPECT_GE(section->sh_addr, segment.p_vaddr) << name;
            EXPECT_LE(section->sh_addr + section->sh_size, segment.p_vaddr + segment.p_memsz)
                << name;
        }
    }
    EXPECT_TRUE(has_relro);
    EXPECT_TRUE(has_stack);
    EXPECT_FALSE(library.dynamic.contains(DT_TEXTREL));
    if (const auto flags = library.dynamic.find(DT_FLAGS); flags != library.dynamic.end()) {
        EXPECT_EQ(flags->second & DF_TEXTREL, 0U);
    }
    const uint64_t reserved_slots = 3; // the linker's own
    EXPECT_EQ(library.entries<uint64_t>(".got.plt").size(),
              reserved_slots + library.entries<Elf64_Rela>(".rela.plt").size());

    // Note header, "GNU", then properties of type, size and value; one is all there is.
    const auto note = library.entries<uint32_t>(".note.gnu.property");
    ASSERT_GE(note.size(), 7U);
    EXPECT_EQ(note[4], unsigned{GNU_PROPERTY_X86_FEATURE_1_AND});
    EXPECT_EQ(note[6], unsigned{GNU_PROPERTY_X86_FEATURE_1_IBT | GNU_PROPERTY_X86_FEATURE_1_SHSTK});
}

TEST(Library, RunsNothingAtLoadTime)
{
    const Elf library(YMAP_LIBRARY);
    for (const Elf64_Sxword tag :
         {DT_INIT, DT_FINI, DT_INIT_ARRAY, DT_FINI_ARRAY, DT_PREINIT_ARRAY})
        EXPECT_FALSE(library.dynamic.contains(tag)) << tag;
}

TEST(Library, WritableDataIsSiteWordsOnly)
{
    const Elf library(YMAP_LIBRARY);
    EXPECT_FALSE(library.sections.contains(".bss"));
    EXPECT_FALSE(library.sections.contains(".data.rel.ro"));
    for (const uint32_t word : library.entries<uint32_t>(".data"))
        ASSERT_EQ(word, 0xffffffffU);
}

// Relocations name what the process has to bring and nothing of the library itself: all calls
// within it were bound when it was linked. The sibling entry points are bound at their first call.
TEST(Library, RelocationsAreImportsAlone)
{
    const Elf library(YMAP_LIBRARY);
    for (const Elf64_Rela& relocation : library.entries<Elf64_Rela>(".rela.dyn"))
        EXPECT_EQ(ELF64_R_TYPE(relocation.r_info), R_X86_64_GLOB_DAT);
    size_t siblings = 0;
    for (const Elf64_Rela& slot : library.entries<Elf64_Rela>(".rela.plt")) {
        const std::string& name = library.by_index.at(ELF64_R_SYM(slot.r_info));
        if (name == "__stack_chk_fail") // which clang calls through a stub as well
            continue;
        EXPECT_NE(name.find("_augment_lvl"), std::string::npos) << name;
        ++siblings;
    }
    EXPECT_EQ(siblings, 4U);
}

#endif

} // namespace
