/// The two sorts beside std::sort and beside the algorithm that defines their arrangement; a path on a narrow
/// label beside the measures that this takes.
#include <algorithm>
#include <random>

#include "frame/cGenProcs.h"
#include "host/memory_object.h"
#include "ratio_table.h"
#include "runtime/text.h"
#include "world.h"

namespace t_genproc::bench {
namespace {

using t_gencvf::LateBound;
using t_gencvf::MemoryObject;

// ---- Lists, from element 1 on

using Texts = std::vector<std::string>;
using Numbers = std::vector<std::int32_t>;

Texts texts(std::size_t count) {
    constexpr const char* kWords[] = {"Bolt", "Peg", "Pillar", "Church spire", "Quarry", "Harbour wall"};
    std::mt19937 random;
    Texts list(1);
    while (list.size() <= count) {
        const std::string word = kWords[random() % std::size(kWords)];
        list.push_back(word + ' ' + std::to_string(random() % 100'000));
    }
    return list;
}

/// Every third text comes a second time, in capitals.
Texts textsInTwoCases(std::size_t count) {
    Texts list = texts(count * 3 / 4);
    for (std::size_t i = 1; list.size() <= count; i += 3) list.push_back(text::upper(list[i]));
    std::shuffle(list.begin() + 1, list.end(), std::mt19937());
    return list;
}

Numbers numbers(std::size_t count) {
    std::mt19937 random;
    Numbers list(1);
    while (list.size() <= count) list.push_back(static_cast<std::int32_t>(random()));
    return list;
}

// ---- Peers

/// The algorithm word for word: it never leaves a chain at the first pair in order.
template <class Element, class Less>
void sortWordForWord(std::vector<Element>& list, Less less) {
    const std::ptrdiff_t last = std::ssize(list) - 1;
    Element* const a = list.data();
    std::ptrdiff_t gap = 2;
    while (gap < last) gap *= 2;
    for (gap = (gap - 1) / 2; gap > 0; gap = (gap - 1) / 2) {
        for (std::ptrdiff_t i = 1; i <= last - gap; ++i) {
            for (std::ptrdiff_t j = i; j > 0; j -= gap) {
                if (less(a[j + gap], a[j])) std::swap(a[j + gap], a[j]);
            }
        }
    }
}

void sortTextsWordForWord(Texts& list) {
    sortWordForWord(list, [](const auto& a, const auto& b) { return text::upper(a) < text::upper(b); });
}

void sortNumbersWordForWord(Numbers& list) { sortWordForWord(list, std::less<>()); }

void sortByCapitals(Texts& list) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(list.size());
    for (std::string& each : list) keyed.emplace_back(text::upper(each), std::move(each));
    std::sort(keyed.begin() + 1, keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::ranges::transform(keyed, list.begin(), [](auto& each) { return std::move(each.second); });
}

void sortNumbers(Numbers& list) { std::sort(list.begin() + 1, list.end()); }

// ---- Rows

/// Each sort gets a fresh copy. A short list is sorted a thousand times.
template <class Element, class Standard, class Own, class WordForWord>
void sortRow(const std::string& name, const std::vector<Element>& list, Standard standard, Own own,
             WordForWord wordForWord) {
    constexpr std::size_t kShort = 100, kLong = 10'000;
    auto expected = list;
    own(expected);
    const auto work = [&](auto sort) -> Work {
        const Work once = [=] {
            auto copy = list;
            sort(copy);
            benchmark::DoNotOptimize(copy.data());
        };
        return list.size() < kShort ? thousand(once) : once;
    };
    const Work base = work(standard);
    compare(name + "/standard", base, base);
    compare(name + "/own", base, work(own));
    auto* const slow = compare(name + "/word for word", base, work([=](auto& copy) {
                                   wordForWord(copy);
                                   require(copy == expected);
                               }));
    if (list.size() > kLong) slow->Repetitions(1);
}

void sortRows(cGenProcs& procs) {
    const auto textsRow = [&procs](const std::string& name, const Texts& list) {
        const auto own = [&procs](Texts& copy) { procs.Shell_Sort(copy); };
        sortRow(name, list, sortByCapitals, own, sortTextsWordForWord);
    };
    const auto numbersRow = [&procs](const std::string& name, const Numbers& list) {
        const auto own = [&procs](Numbers& copy) { procs.ShellSort(copy); };
        sortRow(name, list, sortNumbers, own, sortNumbersWordForWord);
    };
    textsRow("1000 times 10 texts", texts(10));
    textsRow("1,000 texts", texts(1'000));
    textsRow("16,000 texts", texts(16'000));
    textsRow("1,000 texts in two cases", textsInTwoCases(1'000));
    textsRow("16,000 texts in two cases", textsInTwoCases(16'000));
    numbersRow("1000 times 10 numbers", numbers(10));
    numbersRow("1,000 numbers", numbers(1'000));
    numbersRow("16,000 numbers", numbers(16'000));
}

std::shared_ptr<MemoryObject> withFont() {
    auto object = std::make_shared<MemoryObject>();
    object->add("FontName", "Sans").add("FontSize", 8).add("FontBold", false).add("FontItalic", false);
    return object;
}

void pathRow(cGenProcs& procs) {
    constexpr std::size_t kLength = 4'000;
    std::string path = "C:";
    while (path.size() < kLength) path += "\\Folder" + std::to_string(path.size() % 10);
    const auto form = withFont(), label = withFont();
    label->add("Width", 0);

    Texts measured;
    const auto measures = [&](auto note) {
        return [note](t_gencvf::Arguments arguments) -> Variant {
            const std::string text = toText(arguments[0]);
            note(text);
            return 100.0 * static_cast<double>(text::length(text));
        };
    };
    form->addMethod("TextWidth", measures([&](const std::string& text) { measured.push_back(text); }));
    require(std::ranges::count(procs.PathAbbreviate(path, label, form), '\\') == 1);
    form->addMethod("TextWidth", measures([](const std::string&) {}));

    const auto measure = [=](const std::string& text) {
        benchmark::DoNotOptimize(LateBound(form)["TextWidth"].call(text));
    };
    const Work one = [=] { measure(path); };
    const std::string name = "a path of 4,000 characters";
    compare(name + "/one measure", one, one);
    compare(name + "/all measures", one, [=] { std::ranges::for_each(measured, measure); });
    compare(name + "/own", one, [=, &procs] { procs.PathAbbreviate(path, label, form); });
    printTable("| paths | one measure | the " + std::to_string(measured.size()) +
                   " measures alone | PathAbbreviate |",
               name);
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc;
    using namespace t_genproc::bench;
    benchmark::Initialize(&argc, argv);
    World world;
    cGenProcs procs(world.library);

    sortRows(procs);
    printTable("| lists | std::sort, capitals made once | the library | the algorithm word for word |",
               "texts|numbers");
    pathRow(procs);
}
