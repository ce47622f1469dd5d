#include "text/Category.h"

#include <utf8proc.h>

namespace vanoka::text {

bool isControlOrFormat(char32_t scalar) noexcept {
    const utf8proc_category_t category = utf8proc_category(static_cast<utf8proc_int32_t>(scalar));
    return category == UTF8PROC_CATEGORY_CC || category == UTF8PROC_CATEGORY_CF;
}

} // namespace vanoka::text
