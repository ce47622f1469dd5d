#import "DetailView.h"
#import "DotView.h"
#import "GroupTitleView.h"
#import "LetterRowView.h"
#import "Memory.h"
#import "ReplacedMethod.h"
#import "ShownSettings.h"
#import "SidebarView.h"

namespace vanoka::test {

namespace {

/// The colour in the middle of what a small view draws.
NSColor* middleOf(NSView* view) {
    const NSSize size = [view bounds].size;
    NSImage* image = mac::autoreleased([[NSImage alloc] initWithSize:size]);
    [image lockFocus];
    [view drawRect:[view bounds]];
    NSBitmapImageRep* pixels =
        mac::autoreleased([[NSBitmapImageRep alloc] initWithFocusedViewRect:[view bounds]]);
    [image unlockFocus];
    return [[pixels colorAtX:static_cast<NSInteger>(size.width / 2) y:static_cast<NSInteger>(size.height / 2)]
        colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
}

void expectColour(NSColor* shown, NSColor* wanted) {
    wanted = [wanted colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    EXPECT_NEAR([shown redComponent], [wanted redComponent], 0.02);
    EXPECT_NEAR([shown greenComponent], [wanted greenComponent], 0.02);
    EXPECT_NEAR([shown blueComponent], [wanted blueComponent], 0.02);
}

TEST_F(ShownSettings, GroupTitlesAreInTheMiddleOfTheirRows) {
    NSArray* titles = all([VanokaGroupTitleView class]);
    ASSERT_EQ([titles count], SettingsView(settings).sidebar().size());
    for (NSView* title in titles) {
        EXPECT_GT([title frame].size.height, 24);
        const NSRect text = [[[title subviews] objectAtIndex:0] frame];
        EXPECT_GT(text.size.height, 10);
        EXPECT_NEAR(NSMidY(text), NSMidY([title bounds]), 1);
    }
}

void doNothing(NSView*, SEL, NSSize) {}

/// A layout by constraints gives views their sizes; it need not tell them to resize their subviews.
TEST_F(ShownSettings, ViewsPlaceWhatIsInThemWhereverTheirSizeComesFrom) {
    Class const kinds[] = {[VanokaDetailView class],  [VanokaGroupTitleView class],
                           [VanokaKeyRowView class],  [VanokaLetterRowView class],
                           [VanokaSidebarView class], [VanokaSidebarFooterView class]};
    for (Class kind : kinds) {
        NSView* view = [all(kind) lastObject];
        ASSERT_NE(view, nil) << [NSStringFromClass(kind) UTF8String];
        const auto end = [view] {
            CGFloat right = 0;
            for (NSView* inner in [view subviews])
                right = std::max(right, NSMaxX([inner frame]));
            return right;
        };
        const ReplacedMethod resizing(kind, @selector(resizeSubviewsWithOldSize:), doNothing);
        const CGFloat before = end();
        [view setFrameSize:NSMakeSize([view frame].size.width + 40, [view frame].size.height)];
        EXPECT_NEAR(end(), before + 40, 1) << [NSStringFromClass(kind) UTF8String];
    }
}

TEST_F(ShownSettings, TheDotIsSeenOnASelection) {
    settings.add("zw", ka);
    turn();
    ASSERT_EQ([all([VanokaDotView class]) count], 1U);
    VanokaDotView* dot = [all([VanokaDotView class]) lastObject];
    VanokaLetterRowView* row = (VanokaLetterRowView*)[dot superview];
    expectColour(middleOf(dot), [NSColor controlAccentColor]);
    [row setBackgroundStyle:NSBackgroundStyleEmphasized];
    expectColour(middleOf(dot), [NSColor alternateSelectedControlTextColor]);

    settings.add("zv", ka); // the selected row is shown anew
    turn();
    dot = [all([VanokaDotView class]) lastObject];
    expectColour(middleOf(dot), [NSColor alternateSelectedControlTextColor]);
    [row setBackgroundStyle:NSBackgroundStyleNormal];
    expectColour(middleOf(dot), [NSColor controlAccentColor]);
}

} // namespace

} // namespace vanoka::test
