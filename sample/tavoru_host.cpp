#include "tavoru_host.h"

#include <ctime>

#include "platform/file_system.h"
#include "runtime/date_value.h"

namespace tavoru {
namespace {

class HostUtility : public t_gencvf::Utility {
   public:
    explicit HostUtility(t_genproc::Files& files) : files_(files) {}

    bool FolderExists(std::string_view folder) override {
        return t_genproc::folderExists(files_, std::string(folder));
    }

    double Now() override {
        const std::time_t now = std::time(nullptr);
        const std::tm local = *std::localtime(&now);  // one thread: nobody else uses the shared buffer
        return t_genproc::dateValue({.year = local.tm_year + 1900,
                                     .month = local.tm_mon + 1,
                                     .day = local.tm_mday,
                                     .hour = local.tm_hour,
                                     .minute = local.tm_min,
                                     .second = local.tm_sec});
    }

   private:
    t_genproc::Files& files_;
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
    return std::make_unique<HostUtility>(*platform_.files);
}

std::unique_ptr<t_gencvf::ErrorReporter> TavoruHost::createErrorReporter() {
    return std::make_unique<HostErrorReporter>(errorTrail_);
}

}  // namespace tavoru
