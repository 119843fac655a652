#include "schema.h"

#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

#include "ymap.h"

namespace schema {
namespace {

std::string without_hyphens(std::string tag)
{
    std::erase(tag, '-');
    return tag;
}

Node parse_line(const std::string& line)
{
    Node node;
    std::istringstream words(line);
    words >> node.tag;
    for (std::string word; words >> word;) {
        if (word == "{}")
            node.kind = Kind::container;
        else if (word == "[]")
            node.kind = Kind::list;
        else if (word == "manual")
            node.manual_leaf = true;
        else if (word == "when")
            node.when_hook = true;
        else if (word == "by-hand")
            node.manual_handler = true;
        else if (word == "hook")
            node.manual_augment_hook = true;
        else
            throw std::runtime_error("schema: what is '" + word + "' in: " + line);
    }
    return node;
}

/// A stem has at most three tags: the root's, the parent's and the node's own. The first node of a
/// stem has the letter a, the next one b: each stem counts by itself. `above` holds the tags of the
/// nodes above, the root's first.
void give_names(Node& node, std::vector<std::string>& above, const std::string& prefix,
                std::map<std::string, char>& letters)
{
    const std::string own = without_hyphens(node.tag);
    std::string stem      = own;
    if (above.size() > 1)
        stem = above.back() + "_" + stem;
    if (!above.empty())
        stem = above.front() + "_" + stem;
    const char letter = letters.try_emplace(stem, 'a').first->second++;
    node.prefix       = prefix;
    node.stem         = std::string("lvl") + letter + "_" + stem;
    above.push_back(own);
    for (Node& child : node.children)
        give_names(child, above, prefix, letters);
    above.pop_back();
}

Model read(const std::string& file, const std::string& ns_uri, const std::string& prefix)
{
    std::ifstream in(std::string(YMAP_SCHEMA_DIR) + "/" + file);
    if (!in)
        throw std::runtime_error("schema: can't read " + file);
    Model model{ns_uri, file.substr(0, file.find('.')), {}};
    std::vector<std::vector<Node>*> levels{&model.roots};
    std::vector<std::string> paths{""};
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        const size_t level = line.find_first_not_of(' ') / 2;
        levels.resize(level + 1);
        paths.resize(level + 1);
        Node node = parse_line(line);
        node.path = paths.back() + "/" + node.tag;
        levels.back()->push_back(node);
        levels.push_back(&levels.back()->back().children);
        paths.push_back(node.path);
    }
    std::vector<std::string> above;
    std::map<std::string, char> letters;
    for (Node& root : model.roots)
        give_names(root, above, prefix, letters);
    return model;
}

const Node* search(const std::vector<Node>& nodes, const std::string& path)
{
    for (const Node& node : nodes) {
        if (node.path == path)
            return &node;
        if (path.starts_with(node.path + "/"))
            if (const Node* found = search(node.children, path))
                return found;
    }
    return nullptr;
}

} // namespace

std::string Node::handler() const
{
    const char* kinds[] = {"cont_", "list_", "leaf_"};
    return prefix + kinds[static_cast<int>(kind)] + stem;
}

const std::vector<Model>& models()
{
    static const std::vector<Model> all{
        read("ietf-interfaces.txt", NS_IETF_INTERFACES, "ymap_iq_ietf_if_ietfinterfaces_"),
        read("brelvik-nq-ifmgr-cfg.txt", NS_NQ_IFMGR_CFG, "ymap_qi_ietf_if_brelviknqifmgrcfg_"),
        read("brelvik-nq-pfi-im-cmd-oper.txt", NS_NQ_PFI_IM_CMD_OPER,
             "ymap_qi_ietf_if_brelviknqpfiimcmdoper_"),
    };
    return all;
}

size_t node_count()
{
    size_t count = 0;
    for (const Model& model : models())
        for (const Node& root : model.roots)
            for_each(root, [&](const Node&) { ++count; });
    return count;
}

const Node& find(const Model& model, const std::string& path)
{
    if (const Node* node = search(model.roots, path))
        return *node;
    throw std::runtime_error("schema: no node " + path);
}

} // namespace schema
