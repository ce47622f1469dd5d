#include "Component.h"

#include "EngineFiles.h"

#include <algorithm>
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

} // namespace

std::optional<fs::path> find() {
    const char* setting = std::getenv(EngineFiles::componentPath);
    const auto files = EngineFiles::ofIBus(setting ? setting : "");
    const auto found = std::ranges::find_if(files, isFile);
    return found == files.end() ? std::nullopt : std::optional(*found);
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
