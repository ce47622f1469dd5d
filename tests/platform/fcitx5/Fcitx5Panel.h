#pragma once

#include <gio/gio.h>
#include <string>
#include <vector>

namespace vanoka::test {

/// A panel of a desktop, as the framework sees it: it is told the entries of the status area and tells which
/// one the user clicks.
class Fcitx5Panel {
public:
    struct Entry {
        std::string path, label;
    };

    Fcitx5Panel();
    Fcitx5Panel(const Fcitx5Panel&) = delete;
    Fcitx5Panel& operator=(const Fcitx5Panel&) = delete;
    ~Fcitx5Panel();

    /// The entries of the status area of the field that has the focus, but for the one of the input methods.
    const std::vector<Entry>& entries() const noexcept { return entries_; }
    void click(const Entry& entry);

private:
    void onEntries(GVariant* arguments);
    void emit(const char* signal, GVariant* arguments);

    std::vector<Entry> entries_;
    guint subscription_ = 0, name_ = 0;
    bool hasName_ = false;
};

} // namespace vanoka::test
