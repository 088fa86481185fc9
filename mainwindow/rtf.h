// Rich text of the preview as the clipboard receives it: a plain RTF writer.
#pragma once
#include <string>
#include <vector>

namespace krt {

// One run of text with a single character format. The text is Windows-1252
// bytes (or, for a symbol-map font, the font's own byte codes); "\r\n", "\r"
// or "\n" inside it end the paragraph.
struct SegmentoRtf {
    std::string famiglia;       // font family name
    bool simbolo = false;       // symbol character map: \fcharset2 instead of \fcharset0
    double punti = 12;          // size in points
    bool grassetto = false;
    bool corsivo = false;
    bool sottolineato = false;
    bool barrato = false;
    std::string testo;
};

// A complete RTF document holding the runs in order: one font-table entry per
// family and character map, sizes in half points, bytes above 127 as \'xx.
std::string ComponiRtf(const std::vector<SegmentoRtf>& segmenti);

// A table: one run per cell, every row with the cells of larghezze (in twips). Line breaks
// inside a cell's text become line breaks inside the cell.
std::string ComponiTabellaRtf(const std::vector<std::vector<SegmentoRtf>>& righe, const std::vector<int>& larghezze);

}  // namespace krt
