#pragma once

#include "Doctor.h"

#include <utility>

namespace vanoka {

/// What has been found so far.
class Findings {
public:
    void good(std::string text) { add(Finding::Kind::good, std::move(text), {}); }
    void note(std::string text, std::string remedy = {}) {
        add(Finding::Kind::note, std::move(text), std::move(remedy));
    }
    void missing(std::string text, std::string remedy) {
        add(Finding::Kind::missing, std::move(text), std::move(remedy));
    }
    std::vector<Finding> take() { return std::move(all_); }

private:
    void add(Finding::Kind kind, std::string text, std::string remedy) {
        all_.push_back({kind, std::move(text), std::move(remedy)});
    }

    std::vector<Finding> all_;
};

} // namespace vanoka
