/// What the application shows, as lines of text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tavoru.h"

namespace tavoru {

void print(const Lines& lines, std::string_view indent = {});

// How a session is told: a chapter's heading, a paragraph of its text, and what the application shows.
void heading(const std::string& title);
void tell(const std::string& paragraph);
void show(const Lines& lines);

/// With blanks behind it up to `width` characters, and one at least.
std::string padded(const std::string& text, std::ptrdiff_t width);

/// A paragraph in lines of up to 78 characters.
Lines wrapped(const std::string& paragraph);

/// The lines side by side in as many columns as fit, read down each column first.
Lines inColumns(const Lines& lines);

/// The file's name, what was surveyed, and how well it closes.
Lines jobLines(const t_gencvf::JobItem& job, const SurveyJob& survey);

/// What the start has found out about the machine and the user.
Lines recordLines(const t_gencvf::ProgramState& prog);

/// The recent jobs of the File menu. The access key of an entry, behind its "&", stands in brackets.
Lines menuLines(const Tavoru& tavoru);

}  // namespace tavoru
