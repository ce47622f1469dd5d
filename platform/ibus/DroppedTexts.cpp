#include "DroppedTexts.h"

#include <utility>

namespace vanoka::ibus {

void DroppedTexts::leave(std::string field, std::string text) {
    left_ = {std::move(field), std::move(text)};
}

bool DroppedTexts::enter(const std::string& field, Holder holder) {
    const std::optional<Left> left = std::exchange(left_, std::nullopt);
    if (left && !left->text.empty() && holder == Holder::field && left->field != field)
        waiting_[left->field] += left->text;
    return waiting_.contains(field);
}

std::string DroppedTexts::take(const std::string& field) {
    const auto waiting = waiting_.extract(field);
    return waiting ? waiting.mapped() : std::string();
}

} // namespace vanoka::ibus
