/// A host that has no more than the library asks for.
#pragma once

#include <memory>
#include <string>

#include "host/host.h"
#include "platform/file_system.h"
#include "platform/platform.h"

namespace t_genproc::bench {

class Host : public t_gencvf::Host {
   public:
    /// `platform` must outlive the host.
    explicit Host(const Platform& platform) : platform_(platform) {}

    const t_gencvf::Application& application() override { return names; }
    std::unique_ptr<t_gencvf::Utility> createUtility() override {
        return std::make_unique<Utility>(platform_);
    }
    std::unique_ptr<t_gencvf::ErrorReporter> createErrorReporter() override { return nullptr; }

    t_gencvf::Application names;

   private:
    struct Utility : t_gencvf::Utility {
        explicit Utility(const Platform& of) : platform(of) {}
        bool FolderExists(std::string_view folder) override {
            return folderExists(*platform.files, std::string(folder));
        }
        double Now() override { return 0; }
        double Normalise(double value, std::int16_t /*rule*/) override { return value; }
        const Platform& platform;
    };

    const Platform& platform_;
};

}  // namespace t_genproc::bench
