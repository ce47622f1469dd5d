#include "Component.h"

#include <cstdlib>
#include <ibus.h>
#include <string_view>
#include <system_error>

namespace vanoka::ibus::Component {

namespace {

namespace fs = std::filesystem;

struct NodeDeleter {
    void operator()(XMLNode* node) const { ibus_xml_free(node); }
};

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

/// The first folder of a list in the daemon's form, separated by colons, that holds the description.
std::optional<fs::path> findIn(std::string_view folders) {
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        fs::path path = fs::path(folders.substr(0, end)) / fileName;
        if (isFile(path))
            return path;
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return std::nullopt;
}

} // namespace

std::optional<fs::path> find() {
    const char* folders = std::getenv("IBUS_COMPONENT_PATH"); // in place of the usual folder
    return findIn(folders && *folders ? folders : VANOKA_COMPONENT_FOLDER);
}

std::optional<std::string> nameIn(const fs::path& path) {
    const std::unique_ptr<XMLNode, NodeDeleter> description(isFile(path) ? ibus_xml_parse_file(path.c_str())
                                                                         : nullptr);
    if (!description || std::string_view(description->name) != "component")
        return std::nullopt;
    for (const GList* item = description->sub_nodes; item; item = item->next) {
        const auto* node = static_cast<const XMLNode*>(item->data);
        if (std::string_view(node->name) != "name")
            continue;
        if (node->sub_nodes || !node->text || *node->text == '\0')
            return std::nullopt;
        return node->text;
    }
    return std::nullopt;
}

} // namespace vanoka::ibus::Component
