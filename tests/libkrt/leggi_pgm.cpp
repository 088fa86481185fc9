// Reads the barcode of a grey PGM page (pdftoppm -gray) with ZXing and prints
// "FORMAT<TAB>text", the text with control characters as \xHH. Exit 1 when there is none.
// (One symbol a page: this ZXing's many-symbol reader asserts on some linear symbols.)
#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: leggi_pgm PAGE.pgm\n";
        return 2;
    }
    std::ifstream f(argv[1], std::ios::binary);
    std::string magia;
    int larghezza = 0, altezza = 0, massimo = 0;
    f >> magia >> larghezza >> altezza >> massimo;
    f.get();
    if (magia != "P5" || larghezza <= 0 || altezza <= 0 || massimo != 255) {
        std::cerr << argv[1] << ": not an 8-bit binary PGM\n";
        return 2;
    }
    std::vector<unsigned char> grigi(static_cast<std::size_t>(larghezza) * static_cast<std::size_t>(altezza));
    if (!f.read(reinterpret_cast<char*>(grigi.data()), static_cast<std::streamsize>(grigi.size()))) {
        std::cerr << argv[1] << ": short PGM\n";
        return 2;
    }
    ZXing::DecodeHints hints;
    hints.setTryHarder(true);
    hints.setTryRotate(false);
    hints.setReturnCodabarStartEnd(true);
    hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Read);
    const ZXing::Result r =
        ZXing::ReadBarcode(ZXing::ImageView(grigi.data(), larghezza, altezza, ZXing::ImageFormat::Lum), hints);
    if (!r.isValid()) return 1;
    {
        std::string testo;
        for (unsigned char c : r.text()) {
            char esc[8];
            std::snprintf(esc, sizeof esc, "\\x%02X", c);
            testo += c < 0x20 ? std::string(esc) : std::string(1, static_cast<char>(c));
        }
        std::cout << ZXing::ToString(r.format()) << '\t' << testo << '\n';
    }
    return 0;
}
