#include "SettingsWindow.h"

namespace vanoka {

// In a file of its own: a program that never asks for the shared window needs no toolkit.
SettingsWindow& SettingsWindow::shared() {
    static auto* window = new SettingsWindow(SinglishSettings::shared(), WindowToolkit::standard());
    return *window;
}

} // namespace vanoka
