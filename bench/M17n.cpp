#include "M17n.h"

#include <array>

extern "C" {
#include <m17n.h>
}

namespace vanoka::bench {

struct M17n::Parts {
    MInputMethod* method = nullptr;
    MInputContext* context = nullptr;
    MText* produced = nullptr;
    std::array<MSymbol, 128> symbols = {};
};

M17n::M17n() : parts_(std::make_unique<Parts>()) {
    M17N_INIT();
    parts_->method = minput_open_im(msymbol("hi"), msymbol("itrans"), nullptr);
    if (!parts_->method)
        return;
    parts_->context = minput_create_ic(parts_->method, nullptr);
    parts_->produced = mtext();
    for (std::size_t code = 1; code < parts_->symbols.size(); ++code) {
        const char name[] = {static_cast<char>(code), '\0'};
        parts_->symbols[code] = msymbol(name);
    }
}

M17n::~M17n() {
    if (!parts_->method)
        return;
    m17n_object_unref(parts_->produced);
    minput_destroy_ic(parts_->context);
    minput_close_im(parts_->method);
}

bool M17n::isThere() const noexcept {
    return parts_->method != nullptr;
}

int M17n::press(char key) {
    MSymbol symbol = parts_->symbols[static_cast<unsigned char>(key)];
    if (minput_filter(parts_->context, symbol, nullptr))
        return 0;
    mtext_del(parts_->produced, 0, mtext_len(parts_->produced));
    minput_lookup(parts_->context, symbol, nullptr, parts_->produced);
    return mtext_len(parts_->produced);
}

void M17n::reset() {
    minput_reset_ic(parts_->context);
}

} // namespace vanoka::bench
