#include "InstalledVersions.h"

#include "AtomicFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <dlfcn.h>
#include <ibus.h>
#include <string>
#include <vector>

namespace vanoka::ibus {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view announcement = "ClientCommitPreedit";
constexpr std::size_t largestModule = 16UL * 1024 * 1024; // in bytes; it has a hundred thousand
constexpr int firstThatCommitsFirst = 528;                // GTK 4's module puts the text in before it resets
constexpr int firstWithThirdWay = 529; // XIM's server asks asynchronously, and waits in its event loop

/// Where distributions keep Qt's module, Qt 6 before Qt 5: where both are there and differ, programs of
/// today are served right.
std::vector<fs::path> qtModules(const fs::path& libraries) {
    constexpr const char* module = "plugins/platforminputcontexts/libibusplatforminputcontextplugin.so";
    std::vector<fs::path> modules;
    for (const char* qt : {"qt6", "qt5", "qt"})
        for (const fs::path& folder : {libraries, fs::path("/usr/lib64"), fs::path("/usr/lib")})
            modules.push_back(folder / qt / module);
    return modules;
}

/// The file of the IBus library that this process runs with.
fs::path libraryFile() {
    Dl_info info{};
    std::error_code error;
    if (::dladdr(reinterpret_cast<const void*>(&ibus_init), &info) == 0 || !info.dli_fname)
        return {};
    return fs::canonical(info.dli_fname, error);
}

Versions find() {
    const fs::path library = libraryFile();
    const int release =
        releaseOfLibrary(library.filename().native()).value_or(100 * IBUS_MINOR_VERSION + IBUS_MICRO_VERSION);
    return {.qtCommitsUnannounced = commitsUnannounced(qtModules(library.parent_path())),
            .gtk4ResetsFirst = release < firstThatCommitsFirst,
            // The daemon has started XIM's server and this process with the same environment.
            .ximAsksSynchronously = ximWaits(std::getenv("IBUS_ENABLE_SYNC_MODE"), release)};
}

} // namespace

const Versions& installedVersions() {
    static const Versions versions = find();
    return versions;
}

std::optional<int> releaseOfLibrary(std::string_view fileName) {
    constexpr std::string_view start = "libibus-1.0.so.5.0.";
    if (!fileName.starts_with(start))
        return std::nullopt;
    int release = 0;
    const char* end = fileName.data() + fileName.size();
    const auto result = std::from_chars(fileName.data() + start.size(), end, release);
    return result.ec == std::errc() && result.ptr == end ? std::optional(release) : std::nullopt;
}

bool ximWaits(const char* setting, int release) {
    constexpr std::array<std::string_view, 5> no = {"", "0", "false", "False", "FALSE"};
    if (!setting)
        return true;
    const bool isThirdWay = release >= firstWithThirdWay && std::string_view(setting) == "2";
    return !isThirdWay && std::ranges::find(no, setting) == no.end();
}

bool commitsUnannounced(std::span<const fs::path> modules) {
    const auto module = std::ranges::find_if(modules, [](const fs::path& path) {
        std::error_code error;
        return fs::is_regular_file(path, error);
    });
    if (module == modules.end())
        return false;
    const auto bytes = AtomicFile::read(*module, largestModule).bytes;
    return bytes && bytes->find(announcement) == std::string::npos;
}

} // namespace vanoka::ibus
