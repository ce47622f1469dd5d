#include "ProcessorTime.h"
#include "VanokaInputController.h"

#include <cstdio>

namespace {

using namespace vanoka;

class DoNothingClient final : public TextInputClient {
public:
    std::optional<std::string> bundleIdentifier() const override { return "client"; }
    void insertText(std::string_view, TextRange) override {}
    void setMarkedText(const MarkedText&, TextRange, TextRange) override {}
};

} // namespace

/// Prints the seconds that a process takes from nothing to its first marked text: the settings, a controller
/// and one key, with every table that they need.
int main() {
    DoNothingClient client;
    const KeyEvent key = {.characters = "k"};
    const double start = processorSeconds();
    MemoryUserDefaults defaults;
    SinglishSettings settings(defaults);
    VanokaInputController controller("own", settings);
    controller.handle(&key, &client);
    std::printf("%.9f\n", processorSeconds() - start);
}
