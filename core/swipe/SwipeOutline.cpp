#include "swipe/SwipeOutline.h"

#include "swipe/SwipePathSums.h"

#include <algorithm>

namespace vanoka {

namespace {

constexpr float mostRounding = 0.25F / SwipeOutline::lines;

using Sums = std::array<float, SwipePathSums::blocks>;

std::uint8_t middleOnGrid(const Sums& sums, std::size_t quarter) noexcept {
    constexpr std::size_t blocks = SwipePathSums::blocks / SwipeOutline::quarters;
    static_assert(blocks == 2);
    const float sum = sums[quarter * blocks] + sums[quarter * blocks + 1];
    const float middle = sum / static_cast<float>(blocks * SwipePathSums::pointsOfBlock);
    return static_cast<std::uint8_t>(std::clamp(SwipeOutline::onGrid(middle) + 0.5F, 0.0F, 255.0F));
}

} // namespace

SwipeOutline::SwipeOutline(std::string_view spelling, const SwipeLayout& layout) noexcept {
    const auto sums = SwipePathSums::of(spelling, layout);
    if (!sums || !(sums->rounding <= mostRounding))
        return;
    const Sums x = sums->x.numbers(), y = sums->y.numbers();
    for (std::size_t quarter = 0; quarter < quarters; ++quarter) {
        x_[quarter] = middleOnGrid(x, quarter);
        y_[quarter] = middleOnGrid(y, quarter);
    }
}

} // namespace vanoka
