#include "ImportedKeys.h"

#include "settings/SinglishSettings.h"
#include "text/Equivalence.h"
#include "text/Visible.h"

#include <map>
#include <optional>
#include <string_view>

namespace vanoka {

namespace {

/// The places, in the list of wanted keys, of those that are added by now.
using Places = std::map<std::string_view, std::size_t>;

class Import {
public:
    explicit Import(const SinglishCustomization& wanted)
        : wanted_(wanted.addedKeys), disabled_(wanted.disabledKeys) {}

    ImportedKeys result() && {
        for (std::size_t place = 0; place < wanted_.size(); ++place)
            add(place);
        ImportedKeys result = {.keys = {.addedKeys = {}, .disabledKeys = std::move(disabled_)},
                               .problems = std::move(problems_)};
        for (std::size_t place = 0; place < wanted_.size(); ++place)
            if (const auto added = added_.find(wanted_[place].key);
                added != added_.end() && added->second == place)
                result.keys.addedKeys.push_back(wanted_[place]);
        return result;
    }

private:
    /// As the settings add a key.
    void add(std::size_t place) {
        const auto& [key, letter] = wanted_[place];
        if (const auto problem = builtIn_.check(key, {}).problem) {
            problems_ += text::visible(key) + ": " + message(*problem) + "\n";
            return;
        }
        const auto typed = letterTypedBy(key);
        if (typed && text::equal(*typed, letter))
            return;
        added_.erase(key);
        const auto own = builtIn_.transliterator().letterTypedBy(key);
        if (own && text::equal(*own, letter))
            disabled_.erase(key);
        else
            added_.emplace(key, place);
    }

    std::optional<std::string_view> letterTypedBy(std::string_view key) const {
        if (const auto added = added_.find(key); added != added_.end())
            if (const auto* letter = SinglishScheme::letter(wanted_[added->second].letter))
                return letter->id;
        return disabled_.contains(key) ? std::nullopt : builtIn_.transliterator().letterTypedBy(key);
    }

    const std::vector<SinglishCustomization::AddedKey>& wanted_;
    decltype(SinglishCustomization::disabledKeys) disabled_;
    MemoryUserDefaults nothing_;
    SinglishSettings builtIn_{nothing_};
    Places added_;
    std::string problems_;
};

} // namespace

ImportedKeys imported(const SinglishCustomization& wanted) {
    return Import(wanted).result();
}

} // namespace vanoka
