#include "screen.h"

#include <algorithm>
#include <iostream>
#include <sstream>

#include "runtime/text.h"

namespace tavoru {
namespace {

constexpr std::size_t kWidth = 78;

/// "&1  C:\Jobs\A.job" as "[1]  C:\Jobs\A.job".
std::string withAccessKey(std::string caption) {
    const std::size_t ampersand = caption.find('&');
    if (ampersand != std::string::npos && ampersand + 1 < caption.size()) {
        caption.replace(ampersand, 2, std::string("[") + caption[ampersand + 1] + "]");
    }
    return caption;
}

}  // namespace

void print(const Lines& lines, std::string_view indent) {
    for (const std::string& line : lines) std::cout << (line.empty() ? "" : indent) << line << '\n';
}

void heading(const std::string& title) { print({"", title, std::string(title.size(), '-'), ""}); }

void tell(const std::string& paragraph) {
    print(wrapped(paragraph));
    print({""});
}

void show(const Lines& lines) {
    print(lines, "    ");
    print({""});
}

std::string padded(const std::string& text, std::ptrdiff_t width) {
    const std::ptrdiff_t missing = std::max<std::ptrdiff_t>(width - t_genproc::text::length(text), 1);
    return text + std::string(static_cast<std::size_t>(missing), ' ');
}

Lines wrapped(const std::string& paragraph) {
    Lines lines(1);
    std::istringstream words(paragraph);
    for (std::string word; words >> word;) {
        if (lines.back().size() + 1 + word.size() > kWidth) lines.emplace_back();
        lines.back() += (lines.back().empty() ? "" : " ") + word;
    }
    return lines;
}

Lines inColumns(const Lines& lines) {
    constexpr std::size_t kGap = 3;
    std::size_t width = 1;
    for (const std::string& line : lines) width = std::max(width, line.size() + kGap);
    const std::size_t columns = std::max<std::size_t>((kWidth + kGap) / width, 1);
    const std::size_t height = (lines.size() + columns - 1) / columns;

    Lines rows(height);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string& row = rows[i % height];
        row.resize(i / height * width, ' ');
        row += lines[i];
    }
    return rows;
}

Lines jobLines(const t_gencvf::JobItem& job, const SurveyJob& survey) {
    return {
        job.jobName + job.jobExtension + ": " + survey.title + ", " + survey.surveyed,
        "  " + survey.kind + ", " + survey.extent,
        "  Check: " + survey.closure,
    };
}

Lines recordLines(const t_gencvf::ProgramState& prog) {
    return {
        "isWin9x             " + std::string(prog.isWin9x ? "True" : "False"),
        "isWinNT             " + std::string(prog.isWinNT ? "True" : "False"),
        "osVersion           " + prog.osVersion,
        "winDir              " + prog.winDir,
        "winSysDir           " + prog.winSysDir,
        "tempPath            " + prog.tempPath,
        "commonAppData       " + prog.commonAppData,
        "AllUserDocuments    " + prog.AllUserDocuments,
        "ThisUsersDocuments  " + prog.ThisUsersDocuments,
        "LocalSettingsTemp   " + prog.LocalSettingsTemp,
        "progPath            " + prog.progPath,
    };
}

Lines menuLines(const Tavoru& tavoru) {
    Lines lines{"File"};
    for (const std::string& caption : tavoru.recentJobs()) lines.push_back("  " + withAccessKey(caption));
    if (lines.size() == 1) lines.emplace_back("  (no recent jobs)");
    return lines;
}

}  // namespace tavoru
