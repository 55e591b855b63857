#include "support/printed_pages.h"

#include <array>
#include <cstdio>
#include <memory>
#include <regex>
#include <sstream>

namespace t_genproc::test {

std::vector<PrintedPage> printedPages(const std::filesystem::path& file) {
    static const std::regex kPage(R"re( *<page width="(.*)" height="(.*)">)re");
    static const std::regex kWord(
        R"re( *<word xMin="(.*)" yMin="(.*)" xMax="(.*)" yMax="(.*)">(.*)</word>)re");
    std::vector<PrintedPage> pages;
    std::istringstream lines(outputOf("pdftotext -bbox '" + file.string() + "' - 2>/dev/null"));
    std::smatch found;
    for (std::string line; std::getline(lines, line);) {
        if (std::regex_match(line, found, kPage)) {
            pages.push_back({std::stod(found[1]), std::stod(found[2])});
        } else if (std::regex_match(line, found, kWord)) {
            pages.back().words.push_back({std::stod(found[1]), std::stod(found[2]), std::stod(found[3]),
                                          std::stod(found[4]), found[5]});
        }
    }
    return pages;
}

std::string wordsOf(const std::vector<PrintedPage>& pages) {
    std::string text;
    for (const PrintedPage& page : pages) {
        for (const PrintedWord& word : page.words) text += (text.empty() ? "" : " ") + word.text;
    }
    return text;
}

std::string outputOf(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), &::pclose);
    std::string output;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe.get()))
        output.append(buffer.data(), count);
    return output;
}

}  // namespace t_genproc::test
