/// A formatted text, as a rich-text control shows it and a formatter prints it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace t_gencvf {

struct CharacterFormat {
    std::string font{};  ///< its family; empty: the formatter's choice
    double size = 12;    ///< points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    std::uint32_t colour = 0;  ///< 0xRRGGBB

    friend bool operator==(const CharacterFormat&, const CharacterFormat&) = default;
};

enum class Alignment { Left, Centre, Right, Justified };

/// Lengths are twips; indents count from the edges of the page's area.
struct ParagraphFormat {
    Alignment alignment = Alignment::Left;
    std::int32_t leftIndent = 0;
    std::int32_t rightIndent = 0;
    std::int32_t firstLineIndent = 0;  ///< from the left indent; below 0 to its left
    std::int32_t spaceBefore = 0;
    std::int32_t spaceAfter = 0;
    std::vector<std::int32_t> tabs{};  ///< ascending; behind the last one every 720

    friend bool operator==(const ParagraphFormat&, const ParagraphFormat&) = default;
};

/// Text in UTF-8, and how its parts look. Runs and paragraphs follow each other without a gap and end with
/// the text; their ends count bytes from 0, and are where characters end.
struct RichText {
    struct Run {
        std::size_t end = 0;
        CharacterFormat format{};
    };
    struct Paragraph {
        std::size_t end = 0;  ///< behind the character that ends it
        ParagraphFormat format{};
    };

    std::string text{};  ///< "\n" ends a paragraph, "\f" a paragraph and the page, "\v" a line within one
    std::vector<Run> runs{};
    std::vector<Paragraph> paragraphs{};
};

}  // namespace t_gencvf
