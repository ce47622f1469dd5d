#include "SettingsWindow.h"

namespace vanoka {

SettingsWindow::SettingsWindow(SinglishSettings& settings, WindowToolkit& toolkit)
    : settings_(settings), toolkit_(toolkit) {}

void SettingsWindow::show(bool quitWhenClosed) {
    if (!window_)
        make(quitWhenClosed);
    reload();
    toolkit_.activateApplication();
    window_->makeKeyAndBringToFront();
}

void SettingsWindow::reload() {
    if (view_)
        view_->reload();
}

void SettingsWindow::make(bool quitWhenClosed) {
    view_.emplace(settings_);
    window_ = toolkit_.makeWindow(description, *view_);
    if (quitWhenClosed)
        closeObserver_ = window_->observeWillClose([this] { toolkit_.terminateApplication(); });
}

} // namespace vanoka
