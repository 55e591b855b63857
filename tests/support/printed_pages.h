/// PDF files read back, by another program.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace t_genproc::test {

/// In points from the top left of its page; top and bottom are those of its font, not of its letters.
struct PrintedWord {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    std::string text{};
};

struct PrintedPage {
    double width = 0;  // points
    double height = 0;
    std::vector<PrintedWord> words{};
};

/// None where there is no such file, or it is no PDF.
std::vector<PrintedPage> printedPages(const std::filesystem::path& file);

/// The words of some pages, in order, a blank between them.
std::string wordsOf(const std::vector<PrintedPage>& pages);

/// What a command writes to its standard output.
std::string outputOf(const std::string& command);

}  // namespace t_genproc::test
