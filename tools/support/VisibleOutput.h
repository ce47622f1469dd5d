#pragma once

#include <memory>
#include <ostream>
#include <streambuf>

namespace vanoka {

/// A stream while people read it: where `descriptor`, which the stream writes to, is a terminal, all that is
/// written goes through `text::visibleLines`. Anywhere else it stays exact, for another program reads it.
class VisibleOutput {
public:
    VisibleOutput(std::ostream& stream, int descriptor);
    VisibleOutput(const VisibleOutput&) = delete;
    VisibleOutput& operator=(const VisibleOutput&) = delete;
    /// The stream is then as it was.
    ~VisibleOutput();

private:
    std::ostream& stream_;
    std::streambuf* before_;
    std::unique_ptr<std::streambuf> lines_; ///< none where the stream stays exact
};

} // namespace vanoka
