#include "SettingsView.h"

#include "StoredKeys.h"
#include "product/VanokaCompany.h"
#include "product/VanokaProduct.h"
#include "product/VanokaWebsite.h"

#include <iterator>
#include <utility>

namespace vanoka {

namespace {

constexpr std::string_view resetTitle = "Reset to Defaults";

StyledText sectionTitle(SinglishScheme::Group group) {
    return {std::string(SinglishScheme::title(group)),
            {.role = FontRole::subheadline, .isSemibold = true},
            ColourRole::secondary};
}

Link link(std::string text, const Url& url) {
    return {{std::move(text), {FontRole::footnote}, ColourRole::accent}, url.text()};
}

} // namespace

SettingsView::SettingsView(SinglishSettings& settings)
    : settings_(settings), settingsChanges_(settings.observeWillChange([this] { changes_.announce(); })) {
    if (!SinglishScheme::letters().empty())
        select(std::string(SinglishScheme::letters().front().id));
}

Subscription SettingsView::observe(std::function<void()> observer) {
    return changes_.subscribe(std::move(observer));
}

std::optional<StyledText> SettingsView::notice() const {
    for (const auto& tell : {StoredKeys::storingProblem, StoredKeys::readingProblem})
        if (std::string text = tell(settings_); !text.empty())
            return StyledText{std::move(text), {}, ColourRole::red};
    if (std::string text = StoredKeys::setAside(settings_); !text.empty())
        return StyledText{std::move(text), {}, ColourRole::orange};
    return std::nullopt;
}

/// How the keys are stored may be different though they are the same.
void SettingsView::reload() {
    settings_.reloadIfChanged();
    changes_.announce();
}

std::vector<SettingsView::Section> SettingsView::sidebar() const {
    std::vector<Section> sections;
    for (const auto group : SinglishScheme::allGroups) {
        Section& section = sections.emplace_back(Section{sectionTitle(group), {}});
        for (const auto& letter : SinglishScheme::letters())
            if (letter.group == group)
                section.rows.emplace_back(letter, settings_);
    }
    return sections;
}

std::vector<SettingsView::SidebarRow> SettingsView::sidebarRows() const {
    std::vector<SidebarRow> rows;
    for (Section& section : sidebar()) {
        rows.emplace_back(std::move(section.title));
        rows.insert(rows.end(), std::move_iterator(section.rows.begin()),
                    std::move_iterator(section.rows.end()));
    }
    return rows;
}

SettingsView::Footer SettingsView::footer() const {
    return {.name = {std::string(VanokaProduct::name), {FontRole::headline}},
            .sinhalaName = {std::string(VanokaProduct::sinhalaName()), {FontRole::subheadline}},
            .links = {link("Privacy policy", VanokaWebsite::privacyPolicy()),
                      link("Terms of use", VanokaWebsite::terms()),
                      link("Made by " + std::string(VanokaCompany::name()), VanokaCompany::website())}};
}

void SettingsView::select(std::optional<std::string> letter) {
    if (letter == selection_)
        return;
    selection_ = std::move(letter);
    editor_.reset();
    if (const auto* known = selection_ ? SinglishScheme::letter(*selection_) : nullptr)
        editor_.emplace(*known, settings_);
    changes_.announce();
}

StyledText SettingsView::placeholder() {
    return {"Choose a letter", {}, ColourRole::secondary};
}

void SettingsView::setDraft(std::string draft) {
    if (!editor_ || editor_->draft() == draft)
        return;
    editor_->setDraft(std::move(draft));
    changes_.announce();
}

void SettingsView::addDraft() {
    if (!editor_)
        return;
    const auto edit = settings_.beginEdit();
    editor_->add();
}

void SettingsView::perform(const KeyEdit& edit) {
    const auto begun = settings_.beginEdit();
    vanoka::perform(edit, settings_);
}

Button SettingsView::resetButton() const {
    return {.title = std::string(resetTitle), .isEnabled = !settings_.customization().isEmpty()};
}

SettingsView::Dialog SettingsView::resetDialog() {
    return {"Remove all your keys and switch every built-in key back on?",
            {.title = std::string(resetTitle), .isDestructive = true},
            {.title = "Cancel"}};
}

void SettingsView::askToReset() {
    isConfirmingReset_ = true;
    changes_.announce();
}

void SettingsView::confirmReset() {
    const auto edit = settings_.beginEdit();
    settings_.reset();
    cancelReset();
}

void SettingsView::cancelReset() {
    isConfirmingReset_ = false;
    changes_.announce();
}

} // namespace vanoka
