#include "platform/papers.h"

#include <algorithm>
#include <cstdlib>

#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr Paper kPapers[] = {
    {9, "A4", {2100, 2970}},           {8, "A3", {2970, 4200}},
    {66, "A2", {4200, 5940}},          {11, "A5", {1480, 2100}},
    {70, "A6", {1050, 1480}},          {1, "Letter", {2159, 2794}},
    {5, "Legal", {2159, 3556}},        {3, "Tabloid", {2794, 4318}},
    {4, "Ledger", {4318, 2794}},       {6, "Statement", {1397, 2159}},
    {7, "Executive", {1842, 2667}},    {14, "Folio", {2159, 3302}},
    {16, "10x14", {2540, 3556}},       {24, "C sheet", {4318, 5588}},
    {25, "D sheet", {5588, 8636}},     {26, "E sheet", {8636, 11176}},
    {12, "B4 (JIS)", {2570, 3640}},    {13, "B5 (JIS)", {1820, 2570}},
    {42, "B4", {2500, 3530}},          {34, "B5", {1760, 2500}},
    {27, "Envelope DL", {1100, 2200}}, {28, "Envelope C5", {1620, 2290}},
    {30, "Envelope C4", {2290, 3240}}, {31, "Envelope C6", {1140, 1620}},
    {20, "Envelope 10", {1048, 2413}}, {37, "Envelope Monarch", {984, 1905}},
};
constexpr std::int32_t kMillimetre = 10;

template <class Fits>
const Paper* find(const Fits& fits) {
    const auto* const found = std::ranges::find_if(kPapers, fits);
    return found == std::end(kPapers) ? nullptr : found;
}

}  // namespace

std::span<const Paper> papers() { return kPapers; }

bool isAlike(PaperSize a, PaperSize b) {
    return std::abs(a.width - b.width) < kMillimetre && std::abs(a.height - b.height) < kMillimetre;
}

const Paper* paperNamed(std::string_view name) {
    return find([name](const Paper& paper) { return text::equalIgnoringCase(paper.name, name); });
}

const Paper* paperNumbered(std::int32_t number) {
    return find([number](const Paper& paper) { return paper.number == number; });
}

const Paper* paperOfSize(PaperSize size) {
    return find([size](const Paper& paper) { return isAlike(paper.size, size); });
}

PaperSize paperSize(const DeviceSettings& settings, PaperSize otherwise) {
    using Member = DeviceSettings::Member;
    PaperSize size = otherwise;
    const auto choose = [&](std::uint32_t field, Member member, auto&& use) {
        const std::int16_t value = settings.get(member);
        if ((settings.fields() & field) != 0 && value > 0) use(value);
    };
    choose(DeviceFields::PaperSize, Member::PaperSize, [&](std::int16_t number) {
        const Paper* const paper = paperNumbered(number);
        if (paper != nullptr) size = paper->size;
    });
    choose(DeviceFields::PaperWidth, Member::PaperWidth, [&](std::int16_t width) { size.width = width; });
    choose(DeviceFields::PaperLength, Member::PaperLength,
           [&](std::int16_t height) { size.height = height; });
    return size;
}

}  // namespace t_genproc
