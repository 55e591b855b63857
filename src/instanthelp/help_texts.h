/// The help texts of a range of help context numbers.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace t_genproc {

class HelpTexts {
   public:
    /// Drops all texts but one, which is empty, of the number `lowest`.
    void startAt(std::int32_t lowest) {
        lowest_ = lowest;
        texts_.assign(1, "");
    }

    /// Numbers up to this one that have no text yet get an empty one. Below the first number: no effect.
    void set(std::int32_t number, std::string text) {
        if (number < lowest_) return;
        const auto position = static_cast<std::size_t>(std::int64_t{number} - lowest_);
        if (position >= texts_.size()) texts_.resize(position + 1);
        texts_[position] = std::move(text);
    }

    /// Null: the number is outside of the range.
    const std::string* find(std::int32_t number) const {
        const std::int64_t position = std::int64_t{number} - lowest_;
        const bool isInside = position >= 0 && position < std::ssize(texts_);
        return isInside ? &texts_[static_cast<std::size_t>(position)] : nullptr;
    }

   private:
    std::int32_t lowest_ = 0;
    std::vector<std::string> texts_;
};

}  // namespace t_genproc
