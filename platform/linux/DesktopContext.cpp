#include "DesktopContext.h"

#include "SettingsProgram.h"

namespace vanoka {

DesktopContext::DesktopContext(TextInputClient& client, SinglishSettings& settings, FileWatch& storedSettings)
    : client_(client),
      settings_(settings),
      storedSettings_(storedSettings),
      controller_(SettingsProgram::name, settings) {}

std::string_view DesktopContext::candidateHint() const noexcept {
    const CandidateLine& line = candidates();
    return line.isShown() && line.rows[line.highlighted].isLearnt ? "Shift+Delete forgets this word"
                                                                  : std::string_view();
}

void DesktopContext::prepare(const DesktopKey& key, bool shortcutsEndIt) {
    if (storedSettings_.hasChanged())
        settings_.reloadIfChanged();
    if (shortcutsEndIt && !key.isRelease && Keysym::isShortcutModifier(key.keysym))
        commit();
}

void DesktopContext::insertInstead(const std::string& text) {
    commit();
    if (!text.empty())
        client_.insertText(text, VanokaInputController::noReplacement);
}

} // namespace vanoka
