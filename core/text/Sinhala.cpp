#include "text/Sinhala.h"

#include "script/SinhalaBlock.h"
#include "text/Utf8.h"

namespace vanoka::text {

bool holdsSinhala(std::string_view text) noexcept {
    for (const Scalar& scalar : Scalars(text))
        if (script::isSinhala(scalar.value))
            return true;
    return false;
}

} // namespace vanoka::text
