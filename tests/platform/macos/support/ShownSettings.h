#pragma once

#import "AppKitToolkit.h"

#include "SettingsWindow.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace vanoka::test {

inline constexpr const char* ka = "\u0D9A";

/// A settings window on the screen, all rows of its sidebar made, and what a person finds and does in it.
class ShownSettings : public testing::Test {
protected:
    ShownSettings();
    ~ShownSettings() override;

    /// Lets the event loop turn, so that what is due is drawn.
    void turn();

    /// What there is of this kind and not hidden.
    NSArray* all(Class kind);
    // Nil when there is none.
    NSTextField* label(const std::string& text);
    NSTextField* field();
    NSButton* button(NSString* title);
    NSControl* spoken(const std::string& name);
    NSButton* resetButton();
    NSTableView* table();

    /// Does what the control does when it is used.
    void send(NSControl* control);
    void choose(const std::string& letter);
    void enter(const std::string& text);

    void expectShown(const StyledText& text);
    /// Everything that the editor of the content says is on the screen.
    void expectEditorShown(const LetterEditor& editor);

    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    MemoryUserDefaults defaults;
    SinglishSettings settings{defaults};
    mac::AppKitToolkit toolkit;
    std::optional<SettingsWindow> window;
    NSWindow* shown = nil;
};

} // namespace vanoka::test
