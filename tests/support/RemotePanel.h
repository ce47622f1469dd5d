#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace vanoka::test {

/// A panel of the desktop in this process, which records what it is told to show.
class RemotePanel {
public:
    struct Line {
        std::vector<std::string> rows; ///< empty when none is shown
        std::size_t highlighted = 0;
        std::string hint; ///< the text beside it
        friend bool operator==(const Line&, const Line&) = default;
    };

    virtual ~RemotePanel() = default;

    const Line& line() const noexcept { return line_; }
    virtual void click(std::size_t row) = 0;
    /// The panel's own arrows.
    virtual void arrowDown() = 0;
    virtual void arrowUp() = 0;

protected:
    RemotePanel() = default;
    RemotePanel(const RemotePanel&) = delete;
    RemotePanel& operator=(const RemotePanel&) = delete;

    Line line_;
};

} // namespace vanoka::test
