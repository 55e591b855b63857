/// A service of the sample's own in the place of the platform's, as long as this stands.
///
///     const Replaced silence(platform.windows, std::make_unique<BoxesOnPaper>());
#pragma once

#include <memory>
#include <utility>

namespace tavoru {

template <class Service>
class Replaced {
   public:
    Replaced(std::unique_ptr<Service>& service, std::unique_ptr<Service> other)
        : service_(service), original_(std::exchange(service, std::move(other))) {}
    Replaced(const Replaced&) = delete;
    Replaced& operator=(const Replaced&) = delete;
    ~Replaced() { service_ = std::move(original_); }

   private:
    std::unique_ptr<Service>& service_;
    std::unique_ptr<Service> original_;
};

template <class Service, class Other>
Replaced(std::unique_ptr<Service>&, std::unique_ptr<Other>) -> Replaced<Service>;

}  // namespace tavoru
