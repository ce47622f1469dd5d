#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

/// The files by which the frameworks of the desktop know the engine, in the order in which they are looked
/// for; the first that is there counts. Besides its own folder each framework has that of the distribution's
/// packages, whichever this program was installed in.
namespace vanoka::EngineFiles {

inline constexpr std::string_view componentName = "vanoka.xml";
/// An environment variable of IBus's daemon: folders with colons between, in place of the usual ones.
inline constexpr const char* componentPath = "IBUS_COMPONENT_PATH";

/// IBus's description of the component; `setting` is the value of `componentPath`, empty when it is not set.
std::vector<std::filesystem::path> ofIBus(std::string_view setting);

/// Fcitx5's description of the input method.
std::vector<std::filesystem::path> ofFcitx5();

} // namespace vanoka::EngineFiles
