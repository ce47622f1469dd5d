#pragma once

#include "settings/SinglishSettings.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// What a Wayland compositor tells its clients.
struct Compositor {
    /// The interface with which a program becomes the compositor's input method.
    static constexpr const char* inputMethods = "zwp_input_method_manager_v2";

    std::set<std::string, std::less<>> interfaces; ///< that it offers
    bool hasInputMethod = false; ///< where it offers `inputMethods`: a program has become it

    bool offers(std::string_view interface) const { return interfaces.contains(interface); }
};

/// What the doctor can ask of the system. Plain functions, so that a test can stand in for every one.
struct DoctorSystem {
    /// The value of an environment variable, empty when it is not set.
    std::function<std::string(std::string_view name)> variable;
    /// Whether any file matches a pattern of the shell.
    std::function<bool(const std::string& pattern)> hasFile;
    /// Whether the bytes of any file that matches a pattern of the shell hold a text.
    std::function<bool(const std::string& pattern, std::string_view text)> fileHolds;
    /// The compositor of the session; nothing under X, and where it cannot be asked.
    std::function<std::optional<Compositor>()> compositor;
    /// The output of a command; nothing when it is not installed, fails or takes too long.
    std::function<std::optional<std::string>(const std::vector<std::string>& command)> output;
    /// Why the user's own keys cannot be read; empty when they can.
    std::function<std::string()> keysProblem;
    /// What is wrong with the words that were learnt, a sentence each.
    std::function<std::vector<std::string>()> wordProblems;
    /// A sentence for each word list that cannot be read.
    std::function<std::vector<std::string>()> listProblems;

    /// The system that this process runs on, with its user's `settings`, which must outlive it.
    static DoctorSystem real(const SinglishSettings& settings);
};

/// One thing that was looked at.
struct Finding {
    enum class Kind : std::uint8_t {
        good,
        note,   ///< worth knowing; typing works in most programs
        missing ///< without this no Sinhala is typed
    };

    Kind kind;
    std::string text;   ///< what is the case, a sentence
    std::string remedy; ///< what to do about it, a sentence; empty when there is nothing to do
};

/// Looks at everything that typing Sinhala on this desktop needs, in the order in which to mend it.
std::vector<Finding> examine(const DoctorSystem& system);

/// Writes the findings and what follows from them; true when nothing is missing.
bool writeFindings(const std::vector<Finding>& findings, std::ostream& output);

} // namespace vanoka
