#import "SidebarView.h"

#import "ExceptionBoundary.h"
#import "GroupTitleView.h"
#import "LetterRowView.h"
#import "Strings.h"
#import "Widgets.h"

#include <algorithm>

namespace mac = vanoka::mac;
using SidebarRow = vanoka::SettingsView::SidebarRow;

namespace {

NSTableView* letterTable() {
    NSTableView* table = mac::autoreleased([[NSTableView alloc] initWithFrame:NSZeroRect]);
    NSTableColumn* column = mac::autoreleased([[NSTableColumn alloc] initWithIdentifier:@"letters"]);
    [column setEditable:NO];
    [column setResizingMask:NSTableColumnAutoresizingMask];
    [table addTableColumn:column];
    [table setHeaderView:nil];
    [table setRowHeight:30];
    [table setStyle:NSTableViewStyleSourceList];
    [table setColumnAutoresizingStyle:NSTableViewLastColumnOnlyAutoresizingStyle];
    [table setAllowsMultipleSelection:NO];
    [table setAllowsEmptySelection:YES];
    [table setFloatsGroupRows:NO];
    return table;
}

} // namespace

@implementation VanokaSidebarView

- (instancetype)initWithFrame:(NSRect)frame content:(vanoka::SettingsView*)content {
    if ((self = [super initWithFrame:frame])) {
        _content = content;
        _rows = content->sidebarRows();
        _table = mac::retained(letterTable());
        [_table.get() setDataSource:self];
        [_table.get() setDelegate:self];
        _scroll = mac::Owned([[NSScrollView alloc] initWithFrame:NSZeroRect]);
        [_scroll.get() setHasVerticalScroller:YES];
        [_scroll.get() setAutohidesScrollers:YES];
        [_scroll.get() setBorderType:NSNoBorder];
        [_scroll.get() setDocumentView:_table.get()];
        _footer = mac::Owned([[VanokaSidebarFooterView alloc] initWithFooter:content->footer()]);
        [self addSubview:_scroll.get()];
        [self addSubview:_footer.get()];
        [self placeSubviews];
        [_table.get() reloadData];
        [self showSelection];
    }
    return self;
}

- (BOOL)isFlipped {
    return YES;
}

- (void)showContent {
    std::vector<SidebarRow> rows = _content->sidebarRows();
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (const auto* row = std::get_if<vanoka::LetterRow>(&rows[i]); row && rows[i] != _rows[i])
            [[self shownLetterRowAt:i] showRow:*row];
    _rows = std::move(rows);
    [self showSelection];
}

/// Nil while the row is out of sight: its view is made when it comes into sight.
- (VanokaLetterRowView*)shownLetterRowAt:(std::size_t)index {
    return (VanokaLetterRowView*)[_table.get() viewAtColumn:0
                                                        row:static_cast<NSInteger>(index)
                                            makeIfNecessary:NO];
}

- (void)showSelection {
    if ([self selectedLetter] == _content->selection())
        return;
    const auto isSelected = [&](const SidebarRow& row) {
        const auto* letter = std::get_if<vanoka::LetterRow>(&row);
        return letter && letter->letter.id == _content->selection();
    };
    const auto found = std::ranges::find_if(_rows, isSelected);
    if (found == _rows.end()) {
        [_table.get() deselectAll:nil];
        return;
    }
    const auto row = static_cast<NSUInteger>(found - _rows.begin());
    [_table.get() selectRowIndexes:[NSIndexSet indexSetWithIndex:row] byExtendingSelection:NO];
    [_table.get() scrollRowToVisible:static_cast<NSInteger>(row)];
}

- (std::optional<std::string>)selectedLetter {
    const NSInteger selected = [_table.get() selectedRow];
    if (selected < 0)
        return std::nullopt;
    const auto* row = std::get_if<vanoka::LetterRow>(&_rows[static_cast<std::size_t>(selected)]);
    return row ? std::optional<std::string>(row->letter.id) : std::nullopt;
}

- (const SidebarRow&)rowAt:(NSInteger)index {
    return _rows[static_cast<std::size_t>(index)];
}

- (NSInteger)numberOfRowsInTableView:(NSTableView*)tableView {
    (void)tableView;
    return static_cast<NSInteger>(_rows.size());
}

- (BOOL)tableView:(NSTableView*)tableView isGroupRow:(NSInteger)row {
    (void)tableView;
    return std::holds_alternative<vanoka::StyledText>([self rowAt:row]);
}

- (BOOL)tableView:(NSTableView*)tableView shouldSelectRow:(NSInteger)row {
    (void)tableView;
    return std::holds_alternative<vanoka::LetterRow>([self rowAt:row]);
}

- (NSView*)tableView:(NSTableView*)tableView
    viewForTableColumn:(NSTableColumn*)tableColumn
                   row:(NSInteger)row {
    (void)tableView;
    (void)tableColumn;
    const SidebarRow& shown = [self rowAt:row];
    if (const auto* letter = std::get_if<vanoka::LetterRow>(&shown))
        return mac::autoreleased([[VanokaLetterRowView alloc] initWithRow:*letter]);
    return mac::autoreleased(
        [[VanokaGroupTitleView alloc] initWithTitle:std::get<vanoka::StyledText>(shown)]);
}

- (void)tableViewSelectionDidChange:(NSNotification*)notification {
    (void)notification;
    mac::guarded([&] { _content->select([self selectedLetter]); });
}

- (void)setFrameSize:(NSSize)size {
    [super setFrameSize:size];
    [self placeSubviews];
}

- (void)placeSubviews {
    const NSSize size = [self bounds].size;
    [_footer.get() setFrameSize:NSMakeSize(size.width, 0)];
    const CGFloat footerHeight = std::min([_footer.get() height], size.height);
    [_footer.get() setFrame:NSMakeRect(0, size.height - footerHeight, size.width, footerHeight)];
    [_scroll.get() setFrame:NSMakeRect(0, 0, size.width, size.height - footerHeight)];
    [_table.get() sizeLastColumnToFit];
}

@end
