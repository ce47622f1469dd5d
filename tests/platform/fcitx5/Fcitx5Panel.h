#pragma once

#include "RemotePanel.h"

#include <gio/gio.h>
#include <string>
#include <vector>

namespace vanoka::test {

/// A panel of a desktop, as the framework sees it: it is told the entries of the status area and the line of
/// candidates, and tells what the user clicks.
class Fcitx5Panel final : public RemotePanel {
public:
    struct Entry {
        std::string path, label;
    };

    /// The only one, from the first call on.
    static Fcitx5Panel& shared();

    /// The entries of the status area of the field that has the focus, but for the one of the input methods.
    const std::vector<Entry>& entries() const noexcept { return entries_; }
    void clickEntry(const Entry& entry);

    void click(std::size_t row) override;
    void arrowDown() override;
    void arrowUp() override;

private:
    Fcitx5Panel();
    ~Fcitx5Panel() override;
    void exportItself();
    void onSignal(const std::string& name, GVariant* arguments);
    void onEntries(GVariant* arguments);
    void onTable(GVariant* arguments);
    void emit(const char* signal, GVariant* arguments);

    std::vector<Entry> entries_;
    guint subscription_ = 0, object_ = 0, name_ = 0;
    bool hasName_ = false;
};

} // namespace vanoka::test
