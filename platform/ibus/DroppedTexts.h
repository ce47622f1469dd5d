#pragma once

#include <map>
#include <optional>
#include <string>

namespace vanoka::ibus {

/// The marked texts that the daemon has dropped on the way of the focus from one field straight to another.
/// Nobody can put them in while their field has no focus, so they wait until it has. Fields are known by
/// their paths on the bus, which a daemon never gives twice.
class DroppedTexts {
public:
    /// By their fields. They outlive the engine object, which goes when another engine is chosen meanwhile.
    using Waiting = std::map<std::string, std::string>;

    explicit DroppedTexts(Waiting& waiting) noexcept : waiting_(waiting) {}

    /// The field loses the focus while it shows this text, which may be empty.
    void leave(std::string field, std::string text);

    /// Whether the daemon itself holds the focus, or a field does.
    enum class Holder : bool { daemon, field };

    /// The field gets the focus. True when something waits for it.
    ///
    /// A daemon that is told that a field loses the focus puts the text in and takes the focus itself. One
    /// that is told only which field gets it drops the text.
    bool enter(const std::string& field, Holder holder);

    /// What is to be put into the field, which may be empty. Forgets it.
    std::string take(const std::string& field);

private:
    struct Left {
        std::string field, text;
    };
    Waiting& waiting_;
    std::optional<Left> left_;
};

} // namespace vanoka::ibus
