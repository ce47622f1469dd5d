#pragma once

#import "LinkButton.h"
#import "Memory.h"
#include "SettingsView.h"

#import <AppKit/AppKit.h>

#include <vector>

/// What is pinned below the sidebar's list: the icon, the product's names and the links.
@interface VanokaSidebarFooterView : NSVisualEffectView {
@private
    vanoka::mac::Owned<NSBox> _divider;
    vanoka::mac::Owned<NSImageView> _icon;
    vanoka::mac::Owned<NSTextField> _name;
    vanoka::mac::Owned<NSTextField> _sinhalaName;
    std::vector<vanoka::mac::Owned<VanokaLinkButton>> _links;
}

- (instancetype)initWithFooter:(const vanoka::SettingsView::Footer&)footer;
/// The height that it needs.
- (CGFloat)height;
@end
