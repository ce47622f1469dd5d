#pragma once

#include "RemoteField.h"

#include <cstdint>
#include <gio/gio.h>
#include <string>

namespace vanoka::test {

/// A text field that is a client of fcitx5.
class Fcitx5Field final : public RemoteField {
public:
    // What the field can do, in the framework's bits.
    static constexpr std::uint64_t showsMarkedText = 0x12;
    static constexpr std::uint64_t isPassword = 1U << 3;
    static constexpr std::uint64_t commitsItself = 1U << 5; ///< as Qt's module has it
    static constexpr std::uint64_t isTerminal = 1ULL << 32;
    static constexpr std::uint64_t isSensitive = 1ULL << 36;

    explicit Fcitx5Field(const std::string& program = "editor", std::uint64_t capabilities = showsMarkedText);
    Fcitx5Field(const Fcitx5Field&) = delete;
    Fcitx5Field& operator=(const Fcitx5Field&) = delete;
    ~Fcitx5Field() override;

    void press(const KeyEvent& event) override;
    void press(std::uint32_t keysym, std::uint32_t state) override;
    void pressAtOnce(const KeyEvent& event) override;
    bool waitUntilFinished(std::size_t count) override;
    void askForComposition() override;
    void leaveAndReturn() override;
    void chooseCandidate(std::size_t row) override;

    /// Where the field says that its caret is.
    void tellPlace(int x, int y, int width, int height);

    /// What fcitx5 knows the field by.
    const std::string& path() const noexcept { return path_; }

    /// What stood marked when the last text came, in whose place it goes.
    const std::string& replaced() const noexcept { return replaced_; }
    /// Whether the field was still to put that in, if it lost the focus just then.
    bool wouldHavePutIn() const noexcept { return wouldHavePutIn_; }

    void focusIn() override;
    void focusOut() override;
    /// As a module does that knows of a click.
    void reset();
    /// As a module does that tells of a click into the marked text.
    void clickMarkedText();
    /// What the field can do from now on.
    void tell(std::uint64_t capabilities);

private:
    bool process(std::uint32_t keysym, std::uint32_t state, bool isRelease);
    void call(const char* method, GVariant* arguments = nullptr);
    void onSignal(const std::string& name, GVariant* arguments);
    void onPreedit(GVariant* arguments);

    std::string path_;
    guint subscription_ = 0;
    std::string replaced_;
    bool mayPutIn_ = false; ///< the marked text
    bool wouldHavePutIn_ = false;
    std::size_t finished_ = 0;
};

} // namespace vanoka::test
