#include "SettingsProgram.h"

#include <array>
#include <system_error>
#include <unistd.h>

namespace vanoka::SettingsProgram {

namespace {

namespace fs = std::filesystem;

} // namespace

std::optional<fs::path> find(const fs::path& folder) {
    const std::array<fs::path, 4> folders = {folder, VANOKA_LIBEXEC_FOLDER, VANOKA_LIBEXEC_FOLDER "/vanoka",
                                             VANOKA_PROGRAM_FOLDER};
    for (const fs::path& candidate : folders) {
        fs::path program = candidate / name;
        std::error_code error;
        if (!candidate.empty() && fs::is_regular_file(program, error) && ::access(program.c_str(), X_OK) == 0)
            return program;
    }
    return std::nullopt;
}

} // namespace vanoka::SettingsProgram
