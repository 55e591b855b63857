#include <algorithm>
#include <span>

#include "frame/cGenProcs.h"
#include "frame/procedure.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

/// The first of the gaps 2^k - 1 for an array with elements 1 to `last`. Error 6: above 16384.
std::int16_t firstGap(std::int16_t last) {
    std::int16_t gap = 2;
    while (gap < last) gap = checkedMultiply<std::int16_t>(gap, 2);
    return static_cast<std::int16_t>((gap - 1) / 2);
}

template <class Element>
std::int16_t upperBound(const std::vector<Element>& array) {
    return checkedNarrow<std::int16_t>(std::ssize(array) - 1);
}

/// The elements from 1 on.
template <class Element>
std::span<Element> sortedPart(std::vector<Element>& array) {
    return std::span(array).subspan(1);
}

struct Key {
    std::string text;  // in capitals
    std::uint32_t element;
};

struct Rank {
    std::uint32_t rank;  // the same for texts that are equal but for case
    std::uint32_t element;
};

/// Each pass inserts every element into the chain that leads up to it, which is in order by then.
void shellSort(std::span<Rank> ranks, std::size_t gap) {
    for (; gap > 0; gap = (gap - 1) / 2) {
        for (std::size_t i = gap; i < ranks.size(); ++i) {
            for (std::size_t j = i; j >= gap && ranks[j].rank < ranks[j - gap].rank; j -= gap) {
                std::swap(ranks[j], ranks[j - gap]);
            }
        }
    }
}

/// Where texts differ in case alone, their order is what the passes of the Shell sort make of it; otherwise
/// it is plain.
std::vector<std::uint32_t> order(std::span<const std::string> texts, std::size_t gap) {
    std::vector<Key> keys;
    keys.reserve(texts.size());
    for (const std::string& each : texts) {
        keys.push_back({text::upper(each), static_cast<std::uint32_t>(keys.size())});
    }
    std::ranges::sort(keys, {}, &Key::text);

    std::vector<Rank> ranks(keys.size());
    std::vector<std::uint32_t> elements;
    bool isPlain = true;
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::uint32_t element = keys[i].element;
        const bool isNew = i == 0 || keys[i].text != keys[i - 1].text;
        isPlain = isPlain && (isNew || texts[element] == texts[keys[i - 1].element]);
        rank += isNew ? 1 : 0;
        ranks[element] = {rank, element};
        elements.push_back(element);
    }
    if (isPlain) return elements;
    shellSort(ranks, gap);
    std::ranges::transform(ranks, elements.begin(), &Rank::element);
    return elements;
}

}  // namespace

void cGenProcs::Shell_Sort(std::vector<std::string>& a) {
    procedure(library_, "(Class Module) cGenProcs::Sub Shell_Sort", [&] {
        const std::int16_t last = upperBound(a);
        if (last < 1) return;
        const std::int16_t gap = std::max<std::int16_t>(firstGap(last), 1);
        const std::span<std::string> texts = sortedPart(a);
        std::vector<std::string> sorted;
        sorted.reserve(texts.size());
        for (const std::uint32_t element : order(texts, static_cast<std::size_t>(gap))) {
            sorted.push_back(std::move(texts[element]));
        }
        std::ranges::move(sorted, texts.begin());
    });
}

void cGenProcs::ShellSort(std::vector<std::int32_t>& a) {
    procedure(library_, "(Class Module) cGenProcs:: Sub ShellSort", [&] {
        const std::int16_t last = upperBound(a);
        if (last < 1) return;
        if (firstGap(last) > 0) std::ranges::sort(sortedPart(a));  // two elements have no gap
    });
}

}  // namespace t_genproc
