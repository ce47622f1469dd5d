#pragma once

#include "TextInputClient.h"

#include <benchmark/benchmark.h>

namespace vanoka::bench {

/// A client that costs nothing.
class DoNothingClient final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "client"; }
    void insertText(std::string_view text, TextRange) override { benchmark::DoNotOptimize(text.data()); }
    void setMarkedText(const MarkedText& text, TextRange, TextRange) override {
        benchmark::DoNotOptimize(text.text.data());
    }
};

} // namespace vanoka::bench
