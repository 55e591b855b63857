#include <gtest/gtest.h>

#include <random>

#include "host/rich_text_control.h"
#include "host/rich_text_format.h"
#include "runtime/text.h"
#include "support/platform_under_test.h"

namespace t_gencvf {
namespace {

using t_genproc::test::errorOf;

/// Where runs start: "[Arial 12 biu FF0000]"; where paragraphs do, unless they are plain: "<c 720 0 -360 0 0
/// t100>".
std::string described(const RichText& rich) {
    const auto number = [](double value) { return t_genproc::toText(value); };
    std::string result;
    std::size_t start = 0, run = 0, paragraph = 0;
    while (start < rich.text.size()) {
        if (start == (paragraph == 0 ? 0 : rich.paragraphs[paragraph - 1].end)) {
            const ParagraphFormat& format = rich.paragraphs[paragraph++].format;
            std::string words(1, "lcrj"[static_cast<int>(format.alignment)]);
            for (const int length : {format.leftIndent, format.rightIndent, format.firstLineIndent,
                                     format.spaceBefore, format.spaceAfter}) {
                words += " " + std::to_string(length);
            }
            for (const int tab : format.tabs) words += " t" + std::to_string(tab);
            if (format != ParagraphFormat()) result += "<" + words + ">";
        }
        if (start == (run == 0 ? 0 : rich.runs[run - 1].end)) {
            const CharacterFormat& format = rich.runs[run++].format;
            char colour[8];
            std::snprintf(colour, sizeof colour, "%06X", format.colour);
            result += "[" + format.font + " " + number(format.size) + (format.bold ? " b" : "") +
                      (format.italic ? " i" : "") + (format.underline ? " u" : "") +
                      (format.colour != 0 ? std::string(" ") + colour : "") + "]";
        }
        result += rich.text[start++];
    }
    return result;
}

/// What every rich text promises.
bool isSound(const RichText& rich) {
    const auto hasEnds = [&rich](const auto& parts) {
        std::size_t last = 0;
        for (const auto& part : parts) {
            const bool isCharacter = part.end == rich.text.size() || (rich.text[part.end] & 0xC0) != 0x80;
            if (part.end <= last || part.end > rich.text.size() || !isCharacter) return false;
            last = part.end;
        }
        return last == rich.text.size();
    };
    bool isValid = true;
    for (std::string_view rest = rich.text; !rest.empty();) {
        isValid = t_genproc::text::takeCharacter(rest) <= 0x10FFFF && isValid;
    }
    for (const RichText::Run& run : rich.runs) {
        isValid = isValid && run.format.size >= 1 && run.format.size <= 1638 && run.format.colour <= 0xFFFFFF;
    }
    for (const RichText::Paragraph& each : rich.paragraphs) {
        isValid = isValid && (each.end == rich.text.size() || rich.text[each.end - 1] == '\n' ||
                              rich.text[each.end - 1] == '\f');
    }
    return isValid && hasEnds(rich.runs) && hasEnds(rich.paragraphs);
}

constexpr std::string_view kGood =
    "{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\froman{\\*\\falt Times} Serif{x};}}"
    "{\\colortbl;\\red255\\green0\\blue16;\\blue999;}{\\stylesheet{\\s0 Normal;}}{\\info{\\title No}}\r\n"
    "\\pard\\qc\\li720\\ri10\\fi-360\\sb20\\sa30\\tx900\\tx100\\tx900 A\\b\\i0 \\ul\\fs31 B\\f0\\cf1 "
    "C{\\plain\\cf2 D}"
    "E\\ulnone\\b0\\par\\pard\\qj F\\line\\tab\\page\\ql G\\u8364?\\'80\\~\\uc2\\u-10179??\\u-8704??\\bin3 "
    "}{\\H}rest";

TEST(RichTextTest, ReadsWhatReportsUse) {
    const std::pair<std::string_view, const char*> cases[] = {
        {kGood,
         "<c 720 10 -360 20 30 t100 t900>[Serifx 12]A[Serifx 15.5 b u]B[Arial 15.5 b u FF0010]C"
         "[Serifx 12 0000FF]D[Arial 15.5 b u FF0010]E[Arial 15.5 FF0010]\n"
         "<j 0 0 0 0 0>F\v\t\fG€€\u00A0😀H"},
        {"{\\rtf1{\\fonttbl\\f0 A;\\f3 B\\'e9;}\\f3 x\\'8z\\u65536 ?\\u55357 "
         "?\\u9?\\par\\page\\_\\{\\\\\\\r\n}",
         "[Bé 12]x\uFFFD"
         "8z\uFFFD\uFFFD\t\f\u2011{\\\n"},
        {"{\\rtf1{\\header h{\\b h}}{\\pict 0a}{\\*\\any a{b}}\\emdash\\bullet\\rquote\\fs99999 \\fs0 "
         "a\\intbl b\\cell c\\row{\\v no}\\pard\\qr\\u8212\\emdash z}",
         "[ 12]—•’[ 1]ab\tc\n<r 0 0 0 0 0>—z"},
        {"plain\r\n\xE9\xC3\xA9\rtext\n\fpage", "[ 12]plain\néé\ntext\fpage"},
        {"", ""},
    };
    for (const auto& [rtf, expected] : cases) {
        const RichText rich = readRichText(rtf);
        EXPECT_EQ(described(rich), expected) << rtf;
        EXPECT_TRUE(isSound(rich)) << rtf;
    }
}

TEST(RichTextTest, SurvivesDamage) {
    const auto repeated = [](std::string_view part, int times) {
        std::string text = "{\\rtf1";
        while (times-- > 0) text += part;
        return text;
    };
    EXPECT_EQ(described(readRichText(repeated("{\\b", 10'000) + " a" + std::string(10'000, '}') + "c")),
              "[ 12 b]a[ 12]c");
    EXPECT_EQ(readRichText(repeated("\\bin0 ", 100'000) + "a").text, "a");
    EXPECT_EQ(readRichText(repeated("{", 100'000) + "a" + std::string(99'999, '}') + "b}c}d").text, "abc");
    for (std::size_t length = 0; length < kGood.size(); ++length) {
        EXPECT_TRUE(isSound(readRichText(kGood.substr(0, length)))) << length;
    }
    std::mt19937 random;
    for (int i = 0; i < 5'000; ++i) {
        std::string bytes(kGood);
        for (auto changes = random() % 8; changes-- > 0;) {
            constexpr std::string_view kLikely = "{}\\'-;u0f9 \x80";
            const bool isLikely = random() % 2 == 0;
            bytes[6 + random() % (bytes.size() - 6)] =
                isLikely ? kLikely[random() % kLikely.size()] : static_cast<char>(random());
        }
        if (i % 10 == 0) bytes.erase(0, 1);
        ASSERT_TRUE(isSound(readRichText(bytes))) << bytes;
    }
}

TEST(RichTextTest, ShowsItselfAsAControl) {
    RichTextWindows windows;
    std::optional<LateBound> held{windows.open(readRichText("{\\rtf1 H\\'f6he\\par m}"))};
    const LateBound& control = *held;
    const LateBound other{windows.open({})};
    EXPECT_EQ(control["TEXT"].text(), "Höhe\nm");
    const std::int32_t window = t_genproc::toInt32(control["hWnd"].get());
    EXPECT_EQ(windows.find(window)->text, "Höhe\nm");
    EXPECT_NE(other["hWnd"].get(), control["hWnd"].get());

    const std::tuple<const char*, int, std::int32_t, std::int32_t> cases[] = {
        {"SelLength", 99, 0, 6}, {"selstart", 2, 2, 0}, {"SelLength", 3, 2, 3}, {"SelStart", 99, 6, 0}};
    for (const auto& [member, value, start, length] : cases) {
        control[member] = value;
        EXPECT_EQ(control["SelStart"].get(), Variant(start)) << member << value;
        EXPECT_EQ(control["SelLength"].get(), Variant(length)) << member << value;
    }
    EXPECT_EQ(errorOf([&] { control["SelStart"] = -1; }), 380);
    EXPECT_EQ(errorOf([&] { control["Text"] = ""; }), 383);
    EXPECT_EQ(errorOf([&] { control["Font"].get(); }), 438);

    held.reset();
    EXPECT_EQ(windows.find(window), nullptr);
}

}  // namespace
}  // namespace t_gencvf
