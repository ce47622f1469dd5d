#pragma once

#include "settings/SinglishSettings.h"

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace vanoka {

/// "singlish keys …": shows the user's keys and edits them through the settings, with the settings' own
/// messages. Each call does one thing and returns an exit status.
class KeysCommand {
public:
    /// Shows and edits `settings`, which must outlive it.
    KeysCommand(SinglishSettings& settings, std::istream& input, std::ostream& output, std::ostream& errors);

    /// Runs with the arguments after "keys".
    int run(std::span<const std::string_view> arguments);

private:
    int list();
    int check(std::string_view key, std::string_view letter);
    int add(std::string_view key, std::string_view letter);
    int remove(std::string_view key);
    int setBuiltIn(std::string_view key, bool on);
    int reset();
    int exportDocument();
    int importDocument(const std::string& path);

    const SinglishScheme::Letter* letterOf(std::string_view text);
    int stored();
    int unread();
    int refuse(std::string_view message);
    int tell(std::string_view message, int status);

    SinglishSettings& settings_;
    std::istream& input_;
    std::ostream& output_;
    std::ostream& errors_;
};

} // namespace vanoka
