#pragma once

#include "TextInputClient.h"

namespace vanoka {

/// A client that has the marked text already, because whoever took it away put it in. A composition that ends
/// with this client is over without being put in a second time.
class ServedClient final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return std::nullopt; }
    void insertText(std::string_view, TextRange) override {}
    void setMarkedText(const MarkedText&, TextRange, TextRange) override {}
};

} // namespace vanoka
