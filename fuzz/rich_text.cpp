#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/require.h"
#include "rich_text/rtf_reader.h"

namespace solvanta::fuzz {
namespace {

void check(const RichDocument& document, const CharacterLook& look) {
    require(!look.font || *look.font < document.fonts.size(), "There is no such font.");
    require(!look.half_points || (*look.half_points >= 2 && *look.half_points <= 400),
            "A size is out of range.");
}

void check(const RichDocument& document, const RichParagraph& paragraph) {
    const ParagraphLayout& layout = paragraph.layout;
    require(layout.left >= 0 && layout.right >= 0 && layout.first_line >= -layout.left,
            "A paragraph reaches beyond the margin.");
    Twips last = 0;
    for (const TabStop& tab : layout.tabs) {
        require(tab.position > 0 && tab.position >= last, "Tab stops are out of order.");
        last = tab.position;
    }
    std::size_t length = 0;
    for (const TextRun& run : paragraph.runs) {
        check(document, run.look);
        length += run.text.size();
    }
    constexpr std::size_t longest_character = 4;
    require(length <= longest_character * 4096, "A paragraph is too long.");
    check(document, paragraph.mark);
}

}  // namespace
}  // namespace solvanta::fuzz

/// Reads the bytes as rich text and holds the document to what the reader promises.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace solvanta;
    const auto document = read_rtf({reinterpret_cast<const char*>(data), size});
    if (!document) return 0;
    fuzz::require(document->paragraphs.size() <= 100'000, "There are too many paragraphs.");
    for (const RichParagraph& paragraph : document->paragraphs)
        fuzz::check(*document, paragraph);
    return 0;
}
