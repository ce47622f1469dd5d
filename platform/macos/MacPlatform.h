#pragma once

#include "Memory.h"
#include "StartUp.h"

#import <InputMethodKit/InputMethodKit.h>

namespace vanoka::mac {

/// Starting up with the application's own bundle.
class MacPlatform final : public StartUpPlatform {
public:
    std::int32_t registerInputSource() override;
    std::string registrationFailure(std::int32_t status) const override;
    int runSettings() override;
    std::optional<std::string> connectionName() const override;
    bool createServer(const std::string& connectionName) override;
    void runEventLoop() override;

private:
    Owned<IMKServer> server_;
};

} // namespace vanoka::mac
