// krt-encode --export: what the program hands to the drawing of a symbol without the font.
// The drawing needs Qt; this core stays Qt-free and receives it as a function (the program
// built without the window's libraries has none, and says so).
#pragma once
#include <functional>
#include <string>
#include <string_view>

namespace krt {

struct RichiestaEsportazione {
    std::string file;          // .png, .svg or .pdf
    std::string cartellaFont;  // fonts added for this run, "" for the installed ones only
    int dpi = 0;
    double moduloMm = 0;       // > 0: the module width wished
    double punti = 0;          // else this font size, brought to whole dots per module
    std::string glifi;         // Windows-1252 glyph string
    std::string famiglia;      // barcode family (Windows-1252)
    std::string hrc;           // HRC line (Windows-1252), "" for none
    std::string codice;        // symbology code: the quiet zones
    bool addOn = false;
};

// Writes the file. Returns an exit status of krt-encode (0, 2 for a font folder that
// cannot be read, 3 for a missing family or a file that cannot be written) and the
// reason in errore.
using FunzioneEsportazione = std::function<int(const RichiestaEsportazione& richiesta, std::string& errore)>;

// The drawing with Qt (cli/esportazione_qt.cpp, in the build with KRT_WITH_GUI): creates
// an offscreen application when there is none.
int EsportaSimbolo(const RichiestaEsportazione& richiesta, std::string& errore);

// True when the file name ends in .png, .svg or .pdf (case ignored).
bool EstensioneEsportabile(std::string_view file);

}  // namespace krt
