#include "EngineFiles.h"

#include <algorithm>

namespace vanoka::EngineFiles {

namespace {

constexpr std::string_view componentFolders = VANOKA_DATA_FOLDER "/ibus/component:/usr/share/ibus/component";

} // namespace

std::vector<std::filesystem::path> ofIBus(std::string_view setting) {
    std::vector<std::filesystem::path> files;
    for (std::string_view folders = setting.empty() ? componentFolders : setting; !folders.empty();) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        files.push_back(std::filesystem::path(folders.substr(0, end)) / componentName);
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return files;
}

std::vector<std::filesystem::path> ofFcitx5() {
    return {VANOKA_DATA_FOLDER "/fcitx5/inputmethod/vanoka.conf",
            "/usr/share/fcitx5/inputmethod/vanoka.conf"};
}

} // namespace vanoka::EngineFiles
