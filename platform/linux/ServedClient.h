#pragma once

#include "TextInputClient.h"

#include <string>

namespace vanoka {

/// A client that has the marked text already, because whoever took it away put it in. A composition that ends
/// with this client is over without being put in a second time.
class ServedClient final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return std::nullopt; }
    void insertText(std::string_view text, TextRange) override { text_ += text; }
    void setMarkedText(const MarkedText&, TextRange, TextRange) override {}

    /// What others have put in.
    const std::string& text() const noexcept { return text_; }

private:
    std::string text_;
};

} // namespace vanoka
