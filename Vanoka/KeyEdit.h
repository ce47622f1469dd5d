#pragma once

#include "settings/SinglishSettings.h"

#include <optional>
#include <string>
#include <variant>

namespace vanoka {

/// Gives a key to the letter with this id.
struct AddKey {
    std::string key;
    std::string letter;
    friend bool operator==(const AddKey&, const AddKey&) = default;
};

/// Removes a key of the user's own.
struct RemoveKey {
    std::string key;
    friend bool operator==(const RemoveKey&, const RemoveKey&) = default;
};

/// Switches a built-in key on or off.
struct SetBuiltIn {
    std::string key;
    bool on = true;
    friend bool operator==(const SetBuiltIn&, const SetBuiltIn&) = default;
};

/// Drops every customization.
struct ResetKeys {
    friend bool operator==(const ResetKeys&, const ResetKeys&) = default;
};

/// An edit of the keys as a value, so that a control can carry what it does.
using KeyEdit = std::variant<AddKey, RemoveKey, SetBuiltIn, ResetKeys>;

/// Does the edit. Returns the problem when the settings refuse it; they have changed nothing then.
std::optional<SinglishSettings::KeyProblem> perform(const KeyEdit& edit, SinglishSettings& settings);

} // namespace vanoka
