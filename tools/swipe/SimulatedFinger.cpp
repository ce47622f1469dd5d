#include "SimulatedFinger.h"

#include "swipe/SwipeSpellings.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>

namespace vanoka {

namespace {

using Path = std::vector<SwipePoint>;

/// A point that moves along a path at an even speed.
class Aim {
public:
    explicit Aim(const Path& path) : path_(path), at_(path.front()) {}

    SwipePoint at() const { return at_; }
    bool hasArrived() const { return next_ == path_.size(); }

    void advance(double way) {
        while (!hasArrived()) {
            const SwipePoint to = path_[next_];
            const double left = SwipeGeometry::distance(at_, to);
            if (way < left) {
                at_ = {at_.x + (to.x - at_.x) * way / left, at_.y + (to.y - at_.y) * way / left};
                return;
            }
            way -= left;
            at_ = to;
            ++next_;
        }
    }

private:
    const Path& path_;
    std::size_t next_ = 1;
    SwipePoint at_;
};

/// A finger drawn after an aim by a critically damped spring: it never overshoots, and is `lag` seconds
/// behind an aim that moves evenly.
class Follower {
public:
    Follower(SwipePoint at, double lag) : at_(at), pull_(2 / lag) {}

    SwipePoint at() const { return at_; }

    void follow(SwipePoint aim, double seconds) {
        const auto step = [&](double& position, double& speed, double to) {
            speed += seconds * (pull_ * pull_ * (to - position) - 2 * pull_ * speed);
            position += seconds * speed;
        };
        step(at_.x, speed_.x, aim.x);
        step(at_.y, speed_.y, aim.y);
    }

private:
    SwipePoint at_, speed_;
    double pull_;
};

constexpr int ticksPerReport = 16; // the motion is computed so much finer than it is reported
constexpr double settlingLags = 2; // how long the finger rests on its last key before it lifts, in lags

/// The least that two rows of keys are apart; a key's width where all are in one.
double rowHeightOf(const SwipeGeometry::Centers& centers, double keyWidth) {
    double least = std::numeric_limits<double>::infinity();
    for (const auto& [code, center] : centers)
        for (const auto& [other, below] : centers)
            if (const double apart = below.y - center.y; apart > keyWidth / 2)
                least = std::min(least, apart);
    return std::isfinite(least) ? least : keyWidth;
}

double rounded(double coordinate, double keyWidth) {
    const double grain = keyWidth / 100;
    return std::round(coordinate / grain) * grain;
}

} // namespace

/// Where strokes begin or end, on average and as a standard deviation: in key widths across and in rows down.
struct SimulatedFinger::Ending {
    double across, down;
    double scatterAcross, scatterDown;
};

// Facts learnt from the strokes of 637 people over English words ("How We Swipe"), rounded; the data are no
// part of this program.
const SimulatedFinger::Ending SimulatedFinger::start = {0.01, 0.07, 0.27, 0.16};
const SimulatedFinger::Ending SimulatedFinger::end = {0.03, 0.10, 0.47, 0.26};

bool SimulatedFinger::canSwipe(std::string_view word, const SwipeGeometry::Centers& centers) {
    const SwipeSpellings spellings = swipeSpellings(word);
    return !spellings.full.empty() && std::ranges::all_of(spellings.full + spellings.chat, [&](char key) {
        return centers.contains(static_cast<SwipeGeometry::KeyCode>(key));
    });
}

double SimulatedFinger::fraction() {
    return static_cast<double>(random_() >> 11) * 0x1p-53;
}

double SimulatedFinger::normal() {
    const double radius = std::sqrt(-2 * std::log(1 - fraction()));
    return radius * std::cos(2 * std::numbers::pi * fraction());
}

SwipePoint SimulatedFinger::beside(SwipePoint point, double deviation) {
    const double x = deviation * normal(), y = deviation * normal();
    return {point.x + x, point.y + y};
}

/// The offset of the stroke is a part of what was measured.
SwipePoint SimulatedFinger::besideAtEnd(SwipePoint point, const Ending& ending, double keyWidth,
                                        double rowHeight) {
    const auto own = [this, keyWidth](double deviation) {
        const double all = habits_.ends * deviation, offset = habits_.offset * keyWidth;
        return std::sqrt(std::max(0.0, all * all - offset * offset)) * normal();
    };
    const double x = own(ending.scatterAcross * keyWidth), y = own(ending.scatterDown * rowHeight);
    return {point.x + x + habits_.ends * ending.across * keyWidth,
            point.y + y + habits_.ends * ending.down * rowHeight};
}

std::optional<Path> SimulatedFinger::swipe(std::string_view word, const SwipeKeys& keys, double keyWidth) {
    const SwipeSpellings spellings = swipeSpellings(word);
    const bool isChat = fraction() < habits_.chat && !spellings.chat.empty();
    const SwipePoint offset = beside({0, 0}, habits_.offset * keyWidth);
    const auto centers = SwipeGeometry::centers(keys);
    Path aims;
    for (const char key : isChat ? spellings.chat : spellings.full) {
        const auto center = centers.find(static_cast<SwipeGeometry::KeyCode>(key));
        if (center == centers.end())
            return std::nullopt;
        aims.push_back(center->second);
    }
    if (aims.empty())
        return std::nullopt;
    const double rowHeight = rowHeightOf(centers, keyWidth);
    for (std::size_t i = 0; i < aims.size(); ++i) {
        const bool isInner = i > 0 && i + 1 < aims.size();
        const SwipePoint aim = isInner ? beside(aims[i], habits_.scatter * keyWidth)
                                       : besideAtEnd(aims[i], i == 0 ? start : end, keyWidth, rowHeight);
        aims[i] = {aim.x + offset.x, aim.y + offset.y};
    }

    const double speed = habits_.speed * keyWidth * std::exp(habits_.speedSpread * normal());
    // A spring that pulls harder than the ticks are fine would fly apart.
    const double tick = 1 / (habits_.rate * ticksPerReport), lag = std::max(habits_.lag, 4 * tick);
    Aim aim(aims);
    Follower finger(aims.front(), lag);
    Path points;
    double resting = 0;
    for (int ticks = 0; resting < settlingLags * lag || points.size() < 2; ++ticks) {
        if (ticks % ticksPerReport == 0) {
            const SwipePoint seen = beside(finger.at(), habits_.jitter * keyWidth);
            points.push_back({rounded(seen.x, keyWidth), rounded(seen.y, keyWidth)});
        }
        aim.advance(speed * tick);
        finger.follow(aim.at(), tick);
        if (aim.hasArrived())
            resting += tick;
    }
    return points;
}

} // namespace vanoka
