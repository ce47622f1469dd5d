#include "KeyEdit.h"

namespace vanoka {

namespace {

using Outcome = std::optional<SinglishSettings::KeyProblem>;

struct Performer {
    SinglishSettings& settings;

    Outcome operator()(const AddKey& edit) const { return settings.add(edit.key, edit.letter); }
    Outcome operator()(const RemoveKey& edit) const {
        settings.remove(edit.key);
        return std::nullopt;
    }
    Outcome operator()(const SetBuiltIn& edit) const {
        settings.setBuiltIn(edit.key, edit.on);
        return std::nullopt;
    }
    Outcome operator()(const ResetKeys&) const {
        settings.reset();
        return std::nullopt;
    }
};

} // namespace

std::optional<SinglishSettings::KeyProblem> perform(const KeyEdit& edit, SinglishSettings& settings) {
    return std::visit(Performer{settings}, edit);
}

} // namespace vanoka
