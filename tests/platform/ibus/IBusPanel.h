#pragma once

#include "RemotePanel.h"

#include <ibus.h>

namespace vanoka::test {

/// The panel of the daemon.
class IBusPanel final : public RemotePanel {
public:
    /// The only one, from the first call on.
    static IBusPanel& shared();

    void click(std::size_t row) override;
    void arrowDown() override;
    void arrowUp() override;

    gint orientation() const noexcept { return orientation_; }
    /// Where the client says that its caret is.
    const IBusRectangle& place() const noexcept { return place_; }

private:
    IBusPanel();
    ~IBusPanel() override;
    void connect(const char* signal, GCallback callback);
    void onPlace(gint x, gint y, gint width, gint height);
    void onTable(IBusLookupTable* table, bool isVisible);

    IBusPanelService* service_;
    gint orientation_ = -1;
    IBusRectangle place_{};
};

} // namespace vanoka::test
