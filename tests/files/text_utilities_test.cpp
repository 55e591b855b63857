#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "runtime/text.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using t_gencvf::Arguments, t_gencvf::MemoryObject;
using test::failureOf;

/// Measures 100 for each character, and tells what is done to it.
struct MeasuringForm : MemoryObject {
    std::string log;

    void let(std::string_view member, const Variant& value, Arguments) override {
        log += std::string(member) + '=' + toText(value) + ' ';
    }
    Variant call(std::string_view member, Arguments arguments) override {
        if (member != "TextWidth") return MemoryObject::call(member, arguments);
        return static_cast<int>(text::length(toText(arguments[0]))) * 100;
    }
};

struct TextUtilitiesTest : testing::Test, test::TestWorld {
    std::shared_ptr<MeasuringForm> measuring = std::make_shared<MeasuringForm>();
    std::shared_ptr<MemoryObject> label = std::make_shared<MemoryObject>();

    TextUtilitiesTest() {
        label->add("FontName", "Arial").add("FontSize", 8.25).add("FontBold", true).add("FontItalic", false);
    }
    std::string abbreviated(const std::string& path, int width) {
        label->add("Width", width);
        return procs.PathAbbreviate(path, label, measuring);
    }
};

TEST_F(TextUtilitiesTest, AbbreviatePaths) {
    const std::string path = R"(C:\a\b\c\d.txt)";
    const std::tuple<std::string, int, std::string> rows[] = {
        {path, 1590, path + ' '},
        {path, 1589, path},
        {path, 1450, path},
        {path, 1449, R"(C:...\d.txt)"},
        {path, 0, R"(C:...\d.txt)"},
        {R"(C:\a\bbbbbbbb\c\d.txt)", 2050, R"(C:\a...\c\d.txt)"},
        {R"(\\\\\)", -100, R"(...\)"},
        {"  no path, " + path.substr(0, 4) + " ", 0, R"(no path, C:\a)"},
        {R"( \öööööööö\é)", 750, R"(...\é)"},
        {"", 50, ""},
        {"", 190, " "},
    };
    for (const auto& [text, width, expected] : rows) EXPECT_EQ(abbreviated(text, width), expected) << width;
    measuring->log.clear();
    abbreviated("", 0);
    EXPECT_EQ(measuring->log, "FontSize=12 FontName=Arial FontSize=8.25 FontBold=True FontItalic=False ");
    const auto bare = std::make_shared<MemoryObject>();
    bare->add("FontName", "Times").add("FontSize", 9).add("FontBold", false).add("FontItalic", false);
    measuring->log.clear();
    EXPECT_EQ(failureOf([&] { procs.PathAbbreviate("", bare, measuring); }) + ' ' + measuring->log,
              "438 (Class Module) cGenProcs::Function PathAbbreviate FontSize=12 FontName=Times FontSize=9 "
              "FontBold=False FontItalic=False ");
    EXPECT_EQ(failureOf([&] { procs.PathAbbreviate("", label, form); }),
              "438 (Class Module) cGenProcs::Function PathAbbreviate");
}

/// As it is described: all positions of a backslash, from 1 on.
std::string shortened(std::string text, int width) {
    while (static_cast<int>(text.size()) * 100 > width - 50) {
        std::vector<std::size_t> p{0};
        for (std::size_t i = 1; i <= text.size(); ++i)
            if (text[i - 1] == '\\') p.push_back(i);
        const std::size_t m = p.size() - 1;
        if (m < 2) break;
        const auto k = static_cast<std::size_t>(std::floor(static_cast<double>(m) / 2 + 0.5));
        text = text.substr(0, p[k] - 1) + "..." + text.substr(p[k + 1] - 1);
    }
    return text;
}

TEST_F(TextUtilitiesTest, AbbreviateLongPathsStepByStep) {
    std::mt19937 random(7);
    for (int i = 0; i < 60; ++i) {
        std::string path = "C:";
        for (int level = 0; level < i * 5; ++level) path += '\\' + std::string(random() % 6, 'f');
        const int width = static_cast<int>(random() % (path.size() * 110));
        const bool hasRoom = static_cast<int>(path.size() + 1) * 100 + 90 <= width;
        EXPECT_EQ(abbreviated(path, width), hasRoom ? path + ' ' : shortened(path, width));
    }
}

/// As it is described, with 16 bits; `before` tells whether the first sorts before the second.
template <class Element, class Before>
void sortSlowly(std::vector<Element>& a, std::int16_t gap, Before before) {
    const int n = static_cast<int>(a.size()) - 1;
    for (; gap > 0; gap = static_cast<std::int16_t>((gap - 1) / 2)) {
        for (int i = 1; i <= n - gap; ++i) {
            for (int j = i; j > 0; j -= gap) {
                const auto low = static_cast<std::size_t>(j),
                           high = static_cast<std::size_t>(j) + static_cast<std::size_t>(gap);
                if (before(a[high], a[low])) std::swap(a[high], a[low]);
            }
        }
    }
}

std::int16_t firstGap(int n) {
    int gap = 2;
    while (gap < n) gap *= 2;
    return static_cast<std::int16_t>((gap - 1) / 2);
}

TEST_F(TextUtilitiesTest, SortAsTheShellSortDoes) {
    std::mt19937 random(3);
    const char* const letters[] = {"a", "A", "b", "é", "É", "я", "Я", "_", "z\xFF", "ß"};
    for (int n = -1; n <= 300; n += n < 70 ? 1 : 23) {
        std::vector<std::string> texts;
        std::vector<std::int32_t> numbers;
        for (int i = 0; i <= n; ++i) {
            std::string text;
            for (std::size_t length = random() % 4; length > 0; --length) text += letters[random() % 10];
            texts.push_back(text);
            numbers.push_back(static_cast<std::int32_t>(random()) >> random() % 31);
        }
        auto expectedTexts = texts;
        auto expectedNumbers = numbers;
        const std::int16_t gap = firstGap(n);
        sortSlowly(expectedTexts, std::max<std::int16_t>(gap, 1),
                   [](const auto& a, const auto& b) { return text::upper(a) < text::upper(b); });
        sortSlowly(expectedNumbers, gap, std::less<>());
        procs.Shell_Sort(texts);
        procs.ShellSort(numbers);
        EXPECT_EQ(texts, expectedTexts) << n;
        EXPECT_EQ(numbers, expectedNumbers) << n;
    }
    std::vector<std::string> texts{"z", "b", "A", "a"};
    procs.Shell_Sort(texts);
    EXPECT_EQ(texts, (std::vector<std::string>{"z", "A", "a", "b"}));
    for (const auto& [given, expected] :
         {std::pair<std::vector<std::int32_t>, std::vector<std::int32_t>>{{0, 5, 1}, {0, 5, 1}},
          {{9, 3, 2, 1}, {9, 1, 2, 3}}}) {
        auto numbers = given;
        procs.ShellSort(numbers);
        EXPECT_EQ(numbers, expected);
    }

    for (const std::size_t last : {16384U, 16385U, 32767U, 32768U}) {
        std::vector<std::int32_t> numbers(last + 1);
        for (auto& number : numbers) number = static_cast<std::int32_t>(random());
        std::vector<std::string> same(last + 1, "n");
        same[1] = "o";
        const auto before = numbers;
        const bool fits = last <= 16384;
        const std::string in = "6 (Class Module) cGenProcs::";
        EXPECT_EQ(failureOf([&] { procs.ShellSort(numbers); }), fits ? "none" : in + " Sub ShellSort");
        EXPECT_EQ(failureOf([&] { procs.Shell_Sort(same); }), fits ? "none" : in + "Sub Shell_Sort");
        EXPECT_EQ(numbers == before, !fits);
        EXPECT_EQ(std::is_sorted(numbers.begin() + 1, numbers.end()), fits);
        EXPECT_EQ(same[1], fits ? "n" : "o");
    }
}

TEST_F(TextUtilitiesTest, CombineIdentifierAndDescription) {
    struct Row {
        std::string id, description;
        int length;
        bool alphas;
        std::string expected;
    };
    const std::string failure = "5 (Class Module) cGenProcs::Function CombineAlphaDesc";
    const Row rows[] = {
        {"12", "Road", 10, true, "12/Road   "},
        {"Road", "Road", 10, true, "Road      "},
        {" Road", "Road ", 10, true, " Road     "},
        {"road", "Road", 10, true, "road/Road "},
        {"12", "Long road", 6, true, "12/Lon"},
        {"1234", "Road", 6, true, "1234/R"},
        {"1234", "Road", 5, true, "1234 "},
        {"1234", "Road", 3, true, failure},
        {"12", "Road", 6, false, "Road  "},
        {"12", "Road", 3, false, failure},
        {"\xC3\xA9", "\xC3\xA8\xC3\xAA", 3, true, "\xC3\xA9/\xC3\xA8"},
        {"\t", "", 4, true, "\t/  "},
        {"", "Road", 5, true, "/Road"},
        {"", "", 0, true, ""},
        {"", "", -1, true, failure},
        {"", "", -32768, true, "6" + failure.substr(1)},
    };
    for (const auto& [id, description, length, alphas, expected] : rows) {
        std::string combined;
        const std::string failed =
            failureOf([&, &id = id, &description = description, &length = length, alphas = alphas] {
                combined = procs.CombineAlphaDesc(id, description, static_cast<std::int16_t>(length), alphas);
            });
        EXPECT_EQ(failed == "none" ? combined : failed, expected) << id << length;
    }
}

}  // namespace
}  // namespace t_genproc
