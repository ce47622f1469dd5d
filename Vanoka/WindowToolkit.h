#pragma once

#include "AttributedText.h"
#include "support/Announcer.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vanoka {

class SettingsView;

/// A window as it is asked for. It is closable, and closing only hides it: it lives until it is destroyed.
struct WindowDescription {
    std::string_view title;
    double width = 0, height = 0; ///< of the content, in points
    bool isTitled = true;
    bool isClosable = true;
    bool isMiniaturizable = true;
    bool isResizable = true;
    bool isReleasedWhenClosed = false;
    bool isCentred = true; ///< on the screen, when it is first shown
    friend bool operator==(const WindowDescription&, const WindowDescription&) = default;
};

/// A window of the platform's toolkit.
class ToolkitWindow {
public:
    virtual ~ToolkitWindow() = default;

    /// Shows the window if it is hidden, in front of all others and with the keyboard.
    virtual void makeKeyAndBringToFront() = 0;

    /// Calls `observer` whenever this window is about to close, on the main thread.
    [[nodiscard]] virtual Subscription observeWillClose(std::function<void()> observer) = 0;

protected:
    ToolkitWindow() = default;
    ToolkitWindow(const ToolkitWindow&) = default;
    ToolkitWindow& operator=(const ToolkitWindow&) = default;
};

/// What the windows need of the platform's toolkit. Everything happens on the main thread.
class WindowToolkit {
public:
    virtual ~WindowToolkit() = default;

    /// Makes the application the one in front.
    virtual void activateApplication() = 0;
    /// Ends the event loop, and with it the process, with status 0.
    virtual void terminateApplication() = 0;

    /// Makes a window, not yet shown, that draws `content` from then on, which outlives it.
    virtual std::unique_ptr<ToolkitWindow> makeWindow(const WindowDescription& description,
                                                      SettingsView& content) = 0;

    /// Opens the platform's standard about panel with these two texts, all else being the application's own;
    /// a panel that is open already comes to the front.
    virtual void openAboutPanel(const std::string& applicationName, const AttributedText& credits) = 0;

    /// The toolkit of this process. Declared here, defined by each platform; a program that never asks for it
    /// links without one.
    static WindowToolkit& standard();

protected:
    WindowToolkit() = default;
    WindowToolkit(const WindowToolkit&) = default;
    WindowToolkit& operator=(const WindowToolkit&) = default;
};

} // namespace vanoka
