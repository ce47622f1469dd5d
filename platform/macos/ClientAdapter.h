#pragma once

#include "TextInputClient.h"

#import <InputMethodKit/InputMethodKit.h>

#include <optional>

namespace vanoka::mac {

/// A client of the platform, for the duration of one call: clients are used and never kept.
class ClientAdapter final : public TextInputClient {
public:
    /// The adapter of `sender` if that is a text-input client; nothing for any other object and for none.
    static std::optional<ClientAdapter> of(id sender);

    std::optional<std::string> bundleIdentifier() const override;
    void insertText(std::string_view text, TextRange replacementRange) override;
    void setMarkedText(const MarkedText& text, TextRange selectionRange, TextRange replacementRange) override;

private:
    explicit ClientAdapter(id<IMKTextInput> client) : client_(client) {}

    // Not owned: it lives longer than the call that has passed it to us.
    __unsafe_unretained id<IMKTextInput> client_;
};

} // namespace vanoka::mac
