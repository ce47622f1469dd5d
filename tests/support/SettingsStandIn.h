#pragma once

#include "SettingsProgram.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace vanoka::test {

/// A script in place of the settings program, which writes down the arguments of each start.
class SettingsStandIn {
public:
    /// Puts it into the folder in which the front end looks for the program.
    explicit SettingsStandIn(const std::filesystem::path& folder) : starts_(folder / "settings-starts") {
        const auto program = folder / SettingsProgram::name;
        std::ofstream(program) << "#!/bin/sh\necho \"$*\" >>" << starts_ << '\n';
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }

    std::vector<std::string> starts() const {
        std::vector<std::string> lines;
        std::ifstream file(starts_);
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

private:
    std::filesystem::path starts_;
};

} // namespace vanoka::test
