#include "display.h"

#include <iomanip>
#include <sstream>

#include "replaced.h"
#include "runtime/number_text.h"
#include "runtime/text.h"
#include "screen.h"

namespace tavoru {
namespace {

using t_gencvf::LateBound;
using t_gencvf::MemoryObject;

// ---- Labels

// The widths of characters, in twips for each point of the font's size
constexpr double kNarrow = 5;
constexpr double kUsual = 10;
constexpr double kWide = 16;
constexpr double kMoreInBold = 1;

constexpr char32_t kFirstOfEastAsia = 0x1100;

double widthOf(char32_t character) {
    constexpr std::u32string_view kNarrowOnes = U" !'(),-./:;I[\\]fijlrt|";
    constexpr std::u32string_view kWideOnes = U"%@MWmw";
    if (kNarrowOnes.find(character) != std::u32string_view::npos) return kNarrow;
    const bool isWide =
        character >= kFirstOfEastAsia || kWideOnes.find(character) != std::u32string_view::npos;
    return isWide ? kWide : kUsual;
}

/// In twips.
double textWidth(std::string_view text, double fontSize, bool isBold) {
    double width = 0;
    while (!text.empty()) {
        width += widthOf(t_genproc::text::takeCharacter(text)) + (isBold ? kMoreInBold : 0);
    }
    return width * fontSize;
}

std::shared_ptr<MemoryObject> withFont(const char* typeName, const char* fontName, double fontSize) {
    auto object = std::make_shared<MemoryObject>(typeName);
    object->add("FontName", fontName).add("FontSize", fontSize);
    object->add("FontBold", false).add("FontItalic", false);
    return object;
}

// ---- The help

/// Writes down what the viewer is asked for, and asks it where there is one.
class NotedRequests final : public t_genproc::HelpViewer {
   public:
    NotedRequests(Lines& lines, HelpViewer* viewer) : lines_(lines), viewer_(viewer) {}

    t_genproc::WindowHandle HtmlHelpA(t_genproc::WindowHandle owner, const std::string& helpFile,
                                      std::uint32_t command, std::int32_t data) override {
        const bool isTopic = command == t_genproc::HelpCommand::Topic;
        lines_.push_back("help file  " + helpFile);
        lines_.push_back("command    " + std::to_string(command) +
                         (isTopic ? ", a topic" : ", the table of contents"));
        lines_.push_back("topic      " + std::to_string(data));
        return viewer_ == nullptr ? 0 : viewer_->HtmlHelpA(owner, helpFile, command, data);
    }

   private:
    Lines& lines_;
    HelpViewer* viewer_;
};

}  // namespace

std::string inBars(const std::string& text) { return "|" + text + "|"; }

Lines labelLines(t_genproc::cGenProcs& procs, const std::string& path, std::int32_t width) {
    constexpr std::ptrdiff_t kColumn = 8;
    Lines lines;
    const auto label = withFont("Label", "Sans", 9);
    const auto form = withFont("Form", "Serif", 8);
    label->add("Width", width);
    form->addMethod("TextWidth", [&lines, &form = *form](t_gencvf::Arguments arguments) {
        const std::string text = t_genproc::toText(arguments[0]);
        const double measured = textWidth(text, t_genproc::toDouble(form.get("FontSize")),
                                          t_genproc::toBoolean(form.get("FontBold")));
        lines.push_back(padded(t_genproc::numberText(measured), kColumn) + inBars(text));
        return measured;
    });
    const std::string shown = procs.PathAbbreviate(path, label, form);
    lines.push_back(padded("result", kColumn) + inBars(shown));
    return lines;
}

Lines promptLines(Tavoru& tavoru, const std::string& prompt) {
    Lines lines;
    const auto look = [&](const std::string& when) {
        lines.push_back(when);
        for (const char* name : {"pnlPrompt", "pnlDatumV", "pnlProjection"}) {
            const LateBound panel = LateBound(tavoru.mainForm)[name];
            std::ostringstream line;
            line << "  " << std::left << std::setw(15) << name << std::setw(8)
                 << (t_genproc::toBoolean(panel["Visible"].get()) ? "shown" : "hidden") << "&H"
                 << std::setw(10) << std::hex << std::uppercase
                 << t_genproc::toInt32(panel["BackColor"].get()) << panel["Caption"].text();
            lines.push_back(std::string(t_genproc::text::trimRight(line.str())));
        }
    };
    look("before");
    tavoru.procs.WindowPrompt(prompt, tavoru.mainForm, true);
    look("with the prompt");
    tavoru.procs.WindowPrompt("", tavoru.mainForm);
    look("after it");
    return lines;
}

Lines topicLines(Tavoru& tavoru, std::int32_t topic, bool open) {
    Lines lines;
    auto& viewer = tavoru.drive.platform.helpViewer;
    const Replaced noted(viewer, std::make_unique<NotedRequests>(lines, open ? viewer.get() : nullptr));
    tavoru.procs.ShowTopicID(topic, 0);
    return lines;
}

}  // namespace tavoru
