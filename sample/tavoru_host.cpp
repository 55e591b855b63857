#include "tavoru_host.h"

#include <cmath>

#include "platform/clock_record.h"
#include "platform/file_system.h"

namespace tavoru {
namespace {

class HostUtility : public t_gencvf::Utility {
   public:
    explicit HostUtility(const t_genproc::Platform& platform) : platform_(platform) {}

    bool FolderExists(std::string_view folder) override {
        return t_genproc::folderExists(*platform_.files, std::string(folder));
    }
    double Now() override { return t_genproc::dateValue(platform_.clock->GetLocalTime()); }

    /// Rounded to a power of ten: -5 stands for 0.00001.
    double Normalise(double value, std::int16_t rule) override {
        const double units = std::pow(10, -rule);
        const double scaled = value * units;
        return std::isfinite(scaled) ? std::round(scaled) / units : value;
    }

   private:
    const t_genproc::Platform& platform_;
};

/// Keeps what it hears; a host with windows would show it or write it down.
class HostErrorReporter : public t_gencvf::ErrorReporter {
   public:
    explicit HostErrorReporter(std::vector<ErrorStep>& trail) : trail_(trail) {}

    bool suppressNextReport() override { return suppressNext_; }
    void suppressNextReport(bool suppress) override { suppressNext_ = suppress; }
    void ReportError(const std::string& source, const std::string& procedureName) override {
        trail_.push_back({source, procedureName});
    }

   private:
    std::vector<ErrorStep>& trail_;
    bool suppressNext_ = false;
};

}  // namespace

// The library owns both objects and keeps them as long as it lives: they borrow from the host, which outlives
// it.

std::unique_ptr<t_gencvf::Utility> TavoruHost::createUtility() {
    return std::make_unique<HostUtility>(platform_);
}

std::unique_ptr<t_gencvf::ErrorReporter> TavoruHost::createErrorReporter() {
    return std::make_unique<HostErrorReporter>(errorTrail_);
}

}  // namespace tavoru
