#import "AppKitToolkit.h"
#import "Memory.h"
#import "RecordingApplication.h"
#import "Strings.h"

#include "AboutPanel.h"

#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

/// A panel on the screen while it lives.
class ShownPanel {
public:
    explicit ShownPanel(NSString* title)
        : panel_([[NSPanel alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                            styleMask:NSTitledWindowMask
                                              backing:NSBackingStoreBuffered
                                                defer:NO]) {
        [panel_.get() setReleasedWhenClosed:NO];
        [panel_.get() setTitle:title];
        [panel_.get() orderFront:nil];
    }
    ShownPanel(const ShownPanel&) = delete;
    ShownPanel& operator=(const ShownPanel&) = delete;
    ~ShownPanel() { [panel_.get() close]; }

    NSPanel* get() const { return panel_.get(); }

private:
    mac::Owned<NSPanel> panel_;
};

TEST(StandardAboutPanel, ComesToTheFrontAndToWhereTheUserIsWhetherOrNotTheApplicationIsActivated) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    auto& orders = [RecordingApplication shared]->frontOrders;
    {
        const ShownPanel about(@"About"), closed(@"Closed"), sheet(@"Sheet");
        [closed.get() close];
        [sheet.get() setSheet:YES];
        orders.clear();
        mac::AppKitToolkit toolkit;
        AboutPanel::show(toolkit);
        EXPECT_EQ(orders, (std::vector<std::string>{"unhidden application", "application", "about panel",
                                                    "About: front regardless"}));
        EXPECT_EQ([about.get() collectionBehavior], NSWindowCollectionBehaviorMoveToActiveSpace);
    }
    [pool drain];
}

TEST(StandardAboutPanel, GetsTheNameAndTheCreditsAndNothingElse) {
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    RecordingApplication* recording = [RecordingApplication shared];
    [recording->aboutOptions removeAllObjects];
    mac::AppKitToolkit toolkit;
    AboutPanel::show(toolkit);
    ASSERT_EQ([recording->aboutOptions count], 1U);
    NSDictionary* options = [recording->aboutOptions objectAtIndex:0];
    ASSERT_EQ([options count], 2U);
    EXPECT_EQ(mac::utf8([options objectForKey:@"ApplicationName"]), AboutPanel::applicationName());
    NSAttributedString* credits = [options objectForKey:@"Credits"];
    const AttributedText expected = AboutPanel::credits();
    std::string whole;
    NSUInteger at = 0;
    for (const AttributedPiece& piece : expected) {
        NSDictionary* attributes = [credits attributesAtIndex:at effectiveRange:nullptr];
        NSURL* link = [attributes objectForKey:NSLinkAttributeName];
        EXPECT_EQ(mac::utf8([link absoluteString]), piece.attributes.link) << piece.text;
        EXPECT_EQ([(NSFont*)[attributes objectForKey:NSFontAttributeName] pointSize],
                  [NSFont smallSystemFontSize]);
        EXPECT_TRUE(
            [[attributes objectForKey:NSForegroundColorAttributeName] isEqual:[NSColor secondaryLabelColor]]);
        NSParagraphStyle* style = [attributes objectForKey:NSParagraphStyleAttributeName];
        EXPECT_EQ([style alignment], NSTextAlignmentCenter);
        EXPECT_EQ([style paragraphSpacing], 4);
        at += [mac::string(piece.text) length];
        whole += piece.text;
    }
    EXPECT_EQ(mac::utf8([credits string]), whole);
    [pool drain];
}

} // namespace

} // namespace vanoka::test
