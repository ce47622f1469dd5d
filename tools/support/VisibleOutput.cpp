#include "VisibleOutput.h"

#include "text/Utf8.h"
#include "text/Visible.h"

#include <string>
#include <string_view>
#include <unistd.h>

namespace vanoka {

namespace {

/// Holds back what the next bytes may make whole: the beginning of a scalar, the first half of CR LF.
class LinesBuffer final : public std::streambuf {
public:
    explicit LinesBuffer(std::streambuf& target) : target_(target) {}
    LinesBuffer(const LinesBuffer&) = delete;
    LinesBuffer& operator=(const LinesBuffer&) = delete;
    ~LinesBuffer() override { writeFirst(held_.size()); }

private:
    int_type overflow(int_type byte) override {
        if (traits_type::eq_int_type(byte, traits_type::eof()))
            return traits_type::not_eof(byte);
        const char written = traits_type::to_char_type(byte);
        return xsputn(&written, 1) == 1 ? byte : traits_type::eof();
    }

    std::streamsize xsputn(const char* bytes, std::streamsize count) override {
        held_.append(bytes, static_cast<std::size_t>(count));
        const std::size_t unfinished = held_.ends_with('\r') ? 1 : text::unfinishedLength(held_);
        return writeFirst(held_.size() - unfinished) ? count : 0;
    }

    int sync() override { return target_.pubsync(); }

    bool writeFirst(std::size_t length) {
        const std::string shown = text::visibleLines(std::string_view(held_).substr(0, length));
        held_.erase(0, length);
        const auto size = static_cast<std::streamsize>(shown.size());
        return target_.sputn(shown.data(), size) == size;
    }

    std::streambuf& target_;
    std::string held_;
};

} // namespace

VisibleOutput::VisibleOutput(std::ostream& stream, int descriptor)
    : stream_(stream), before_(stream.rdbuf()) {
    if (!::isatty(descriptor))
        return;
    lines_ = std::make_unique<LinesBuffer>(*before_);
    stream_.rdbuf(lines_.get());
}

/// Setting the buffer clears the stream's state, which whoever asks later wants to know.
VisibleOutput::~VisibleOutput() {
    const auto state = stream_.rdstate();
    lines_.reset();
    stream_.rdbuf(before_);
    stream_.setstate(state);
}

} // namespace vanoka
