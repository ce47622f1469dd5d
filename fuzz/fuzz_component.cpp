#include "Component.h"
#include "Fuzz.h"
#include "text/Utf8.h"

#include <glib.h>
#include <sys/mman.h>
#include <unistd.h>

using namespace vanoka;

namespace {

/// A file that is never on a disk.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : descriptor_(::memfd_create("component", 0)) {
        fuzz::expect(::write(descriptor_, data, size) == static_cast<ssize_t>(size), "the file is written");
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { ::close(descriptor_); }

    std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

private:
    int descriptor_;
};

} // namespace

/// IBus 1.5.32 loses what it has read of a document whose tags do not match. Nothing of GLib's is kept here,
/// and no frame of IBus's own stands in a report.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libglib-2.0.so\n";
}

/// A description of the component that anybody may have written: it has a name or it has none. IBus's reader
/// warns of what it cannot read, which nobody needs to see here.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    g_log_set_default_handler([](const char*, GLogLevelFlags, const char*, void*) {}, nullptr);
    const MemoryFile file(data, size);
    const auto name = ibus::Component::nameIn(file.path());
    fuzz::expect(!name || !name->empty(), "a name is some text");
    fuzz::expect(!name || text::isWellFormed(*name), "and well-formed");
    return 0;
}
