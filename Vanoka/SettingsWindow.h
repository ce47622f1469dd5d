#pragma once

#include "SettingsView.h"
#include "WindowToolkit.h"
#include "settings/SinglishSettings.h"
#include "support/Announcer.h"

#include <memory>
#include <optional>

namespace vanoka {

/// The one settings window of a process. It is made when it is first shown and kept from then on: closing it
/// hides it, and showing it again brings it back with the same letter chosen and the same text in its field.
class SettingsWindow {
public:
    static constexpr WindowDescription description = {
        .title = "Vanoka Settings", .width = 720, .height = 520};

    /// A window on `settings`, made by `toolkit`; both must outlive it.
    SettingsWindow(SinglishSettings& settings, WindowToolkit& toolkit);
    SettingsWindow(const SettingsWindow&) = delete;
    SettingsWindow& operator=(const SettingsWindow&) = delete;

    /// The window of this process, on its shared settings and made by its standard toolkit. It is never
    /// destroyed, since the toolkit may be gone before the process is.
    static SettingsWindow& shared();

    /// Opens the window or brings it back, with the keys that are stored by then. `quitWhenClosed` counts
    /// when the window is made: if it is true then, closing the window ends the process; later it changes
    /// nothing.
    void show(bool quitWhenClosed);

    /// Shows the keys that are stored by now, if the window has been shown.
    void reload();

private:
    void make(bool quitWhenClosed);

    SinglishSettings& settings_;
    WindowToolkit& toolkit_;
    std::optional<SettingsView> view_;
    std::unique_ptr<ToolkitWindow> window_;
    Subscription closeObserver_;
};

} // namespace vanoka
