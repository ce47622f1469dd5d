#include "Answer.h"

#include <utility>

namespace vanoka::c {

void Items::clear() noexcept {
    texts.clear();
    items.clear();
}

void Reply::add(std::int32_t kind, std::string_view text, std::int64_t number) {
    answer_.next.items.push_back({nullptr, static_cast<std::uint32_t>(text.size()), kind, number});
    answer_.next.texts.append(text).push_back('\0');
}

void Reply::addAll(std::int32_t kind, const std::vector<std::string>& texts) {
    for (const std::string& text : texts)
        add(kind, text);
}

void Reply::finish(vanoka_status status) noexcept {
    if (status != VANOKA_OK)
        answer_.next.clear();
    std::swap(answer_.given, answer_.next);
    const char* text = answer_.given.texts.data();
    for (vanoka_item& item : answer_.given.items) {
        item.text = text;
        text += item.size + std::size_t{1};
    }
}

} // namespace vanoka::c

using namespace vanoka::c;

static_assert(sizeof(vanoka_item) == 24);

vanoka_status vanoka_answer_create(vanoka_answer** answer) {
    return creating(answer, [] { return VANOKA_OK; }, [] { return new vanoka_answer(); });
}

void vanoka_answer_release(vanoka_answer* answer) {
    delete answer;
}

std::size_t vanoka_answer_count(const vanoka_answer* answer) {
    return answer ? answer->given.items.size() : 0;
}

const vanoka_item* vanoka_answer_items(const vanoka_answer* answer) {
    return vanoka_answer_count(answer) > 0 ? answer->given.items.data() : nullptr;
}
