#include "Fcitx5StandIn.h"

#include "PlainSequences.h"
#include "SuggestedLists.h"
#include "VanokaEngine.h"

#include <array>
#include <cstdlib>
#include <fcitx-utils/log.h>
#include <fcitx/addonmanager.h>
#include <fcitx/inputcontextmanager.h>
#include <fstream>
#include <string>
#include <thread>
#include <utility>

namespace vanoka::fuzz {

namespace {

namespace fs = std::filesystem;

class Passing final : public fcitx::InputMethodEngineV2 {
public:
    void keyEvent(const fcitx::InputMethodEntry&, fcitx::KeyEvent&) override {}
};

class PassingFactory final : public fcitx::AddonFactory {
public:
    fcitx::AddonInstance* create(fcitx::AddonManager*) override { return new Passing; }
};

void write(const fs::path& path, std::string_view text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

} // namespace

Fcitx5StandIn& Fcitx5StandIn::shared() {
    static Fcitx5StandIn standIn;
    return standIn;
}

Fcitx5StandIn::Fcitx5StandIn() {
    writeFiles();
    setEnvironment();
    std::thread([this] { serve(); }).detach();
    isDone_.acquire();
}

void Fcitx5StandIn::serve() {
    fcitx5::VanokaEngineFactory factory;
    PassingFactory passingFactory;
    fcitx::StaticAddonRegistry addons = {{vanoka, &factory}, {other, &passingFactory}};
    std::array<std::string, 3> words = {"fcitx5", "--disable=all", "--enable=vanoka,other"};
    std::array<char*, 4> arguments = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    fcitx::Instance instance(static_cast<int>(words.size()), arguments.data());
    instance.addonManager().registerDefaultLoader(&addons);
    instance.initialize();
    fcitx5::KeyThread keys(instance.eventLoop());
    fcitx::FocusGroup display("x11:", instance.inputContextManager());
    instance_ = &instance;
    display_ = &display;
    keys_ = &keys;
    isDone_.release();
    instance.eventLoop().exec();
}

void Fcitx5StandIn::setEnvironment() const {
    const auto set = [this](const char* name, std::string_view path) {
        ::setenv(name, (folder_.path() / path).c_str(), 1);
    };
    set("HOME", "");
    set("XDG_CONFIG_HOME", "configuration");
    set("XDG_DATA_HOME", "data");
    set("XDG_CACHE_HOME", "cache");
    set("XDG_RUNTIME_DIR", "");
    set("FCITX_DATA_DIRS", "framework");
    set("XCOMPOSEFILE", "Compose");
    // A machine that only fuzzes has no keyboards: their files lie beside the program there.
    if (const fs::path keyboards = fs::read_symlink("/proc/self/exe").parent_path() / "xkb";
        fs::exists(keyboards))
        ::setenv("XKB_CONFIG_ROOT", keyboards.c_str(), 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"})
        ::unsetenv(name);
    fcitx::Log::setLogRule("*=0");
}

void Fcitx5StandIn::writeFiles() const {
    for (const std::string name : {vanoka, other}) {
        write(folder_.path() / "framework/addon" / (name + ".conf"),
              "[Addon]\nName=" + name + "\nType=StaticLibrary\nLibrary=" + name + "\nCategory=InputMethod\n");
        write(folder_.path() / "framework/inputmethod" / (name + ".conf"),
              "[InputMethod]\nName=" + name + "\nLangCode=si\nAddon=" + name + "\n");
    }
    write(
        folder_.path() / "configuration/fcitx5/profile",
        "[Groups/0]\nName=Default\nDefault Layout=us\nDefaultIM=vanoka\n\n[Groups/0/Items/0]\nName=other\n\n"
        "[Groups/0/Items/1]\nName=vanoka\n\n[GroupOrder]\n0=Default\n");
    write(folder_.path() / "configuration/fcitx5/config",
          "[Behavior]\nActiveByDefault=True\nShowInputMethodInformation=False\n\n"
          "[Hotkey]\nTriggerKeys=\nAltTriggerKeys=\nEnumerateForwardKeys=\nEnumerateBackwardKeys=\n"
          "EnumerateGroupForwardKeys=\nEnumerateGroupBackwardKeys=\nActivateKeys=\nDeactivateKeys=\n"
          "TogglePreedit=\n");
    // Nothing is learnt: each input finds what the one before it found.
    write(folder_.path() / "configuration/vanoka" / SuggestionChoices::storedName,
          "suggestions=off\nprivate=on\nrows=6\n");
    const SuggestionListTexts texts = suggestedTexts();
    write(folder_.path() / "data/vanoka/si.tsv", texts.sinhala);
    write(folder_.path() / "data/vanoka/en.tsv", texts.english);
    write(folder_.path() / "data/vanoka/emoji.tsv", texts.emoji);
    write(folder_.path() / "data/vanoka/never-offered.txt", texts.neverOffered);
    PlainSequences::write((folder_.path() / "Compose").string());
}

void Fcitx5StandIn::repeat(const Step& step) {
    const std::function<void()> turn = [&] {
        if (step(*instance_, *display_))
            keys_->schedule(turn);
        else
            isDone_.release();
    };
    keys_->schedule(turn);
    isDone_.acquire();
}

void Fcitx5StandIn::setSuggestions(bool areOn) {
    if (std::exchange(areSuggestionsOn_, areOn) == areOn)
        return;
    fcitx::RawConfig choices;
    choices.setValueByPath("Suggestions", areOn ? "True" : "False");
    instance_->addonManager().addon(vanoka)->setConfig(choices);
}

} // namespace vanoka::fuzz
