// Glyph strings drawn with the reference test fonts (tools/testfonts, symbol character map)
// and read back with the barcode reader: what is read must be the content with the check
// characters the engine adds, and the glyph count shows the shortest encoding was chosen.
#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>

#include "barcodes/codifica.h"

namespace {

// The bars of the last line of a glyph string, 100 pixels to the em (every family's module
// is a whole number of pixels), read with the reader; "" when nothing is read.
std::string Leggi(std::string glifi, const char* famiglia, bool asciiEsteso = false) {
    static int argc = 1;
    static char nome[] = "test_barcodes", *argv[] = {nome, nullptr};
    static const auto app = (qputenv("QT_QPA_PLATFORM", "offscreen"), std::make_unique<QGuiApplication>(argc, argv));
    if (const auto riga = glifi.rfind("\r\n"); riga != std::string::npos) glifi.erase(0, riga + 2);
    const QRawFont font(QStringLiteral(KRT_FONT_TEST "/") + famiglia + ".ttf", 100);
    EXPECT_TRUE(font.isValid()) << famiglia;
    QString testo;
    for (const unsigned char c : glifi) testo += QChar(0xF000 + c);
    const auto indici = font.glyphIndexesForString(testo);
    const auto avanzi = font.advancesForGlyphIndexes(indici);
    QPainterPath barre;
    qreal x = 60;
    for (qsizetype i = 0; i < indici.size(); x += avanzi[i++].x())
        barre.addPath(font.pathForGlyph(indici[i]).translated(x, 100));
    QImage immagine(static_cast<int>(x) + 60, 130, QImage::Format_Grayscale8);
    immagine.fill(Qt::white);
    QPainter(&immagine).fillPath(barre, Qt::black);
    ZXing::DecodeHints hints;
    hints.setTryRotate(false);
    hints.setTryCode39ExtendedMode(asciiEsteso);
    hints.setReturnCodabarStartEnd(true);
    hints.setEanAddOnSymbol(ZXing::EanAddOnSymbol::Read);
    const ZXing::ImageView vista(immagine.constBits(), immagine.width(), immagine.height(), ZXing::ImageFormat::Lum,
                                 static_cast<int>(immagine.bytesPerLine()));
    const auto r = ZXing::ReadBarcode(vista, hints);
    return r.isValid() ? r.text() : std::string();
}

struct Riga {
    const char* codice;
    bool check;
    std::string contenuto, aggiunta;  // the add-on's digits: ADD2 or ADD5 after the symbol
    const char* famiglia;
    std::string letto;
    std::size_t glifi;  // 0: not counted
};

void PrintTo(const Riga& r, std::ostream* os) {
    *os << r.codice << (r.check ? "+check " : " ") << testing::PrintToString(r.contenuto);
}

const std::string Tutti39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";
const std::string Letti39 = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";  // "_" stands for the space
const std::string Ascii("\0\x01\x1B\x1F !/:;@[`az{\x7F", 16);  // one character of each Full ASCII class
const std::string Coppie = [] {  // every pair of digits once
    std::string s;
    for (int n = 100; n < 200; ++n) s += std::to_string(n).substr(1);
    return s;
}();

const Riga Righe[] = {
    {"C39", true, Tutti39, "", "ORB39", Letti39 + "0", 46},  // the values add up to 0 modulo 43
    {"C39", true, "z3", "", "ORB39", "Z3 ", 5},  // place 38 is the space, drawn "_"
    {"C39FULL", false, Ascii + "\\t", "", "ORB39", Ascii + "\t", 0},
    {"C93", true, Tutti39, "", "ORB93", Letti39, 47},
    {"C93FULL", true, Ascii, "", "ORB93", Ascii, 0},
    {"C128", false, "1234", "", "ORB128", "1234", 5},
    {"C128", false, "12345", "", "ORB128", "12345", 7},
    {"C128", false, "AB12345", "", "ORB128", "AB12345", 9},
    {"C128", false, "A1234B", "", "ORB128", "A1234B", 9},
    {"C128", false, "123a", "", "ORB128", "123a", 7},
    {"C128", false, " a", "", "ORB128", " a", 5},
    {"C128", false, "\x01" "AB", "", "ORB128", "\x01" "AB", 6},
    {"C128", false, "AB\x01", "", "ORB128", "AB\x01", 7},
    {"C128", false, "A\x01" "b", "", "ORB128", "A\x01" "b", 7},
    {"C128", false, "a\x01" "b", "", "ORB128", "a\x01" "b", 7},
    {"C128", false, "a~~~\x7F", "", "ORB128", "a~~~\x7F", 8},
    {"C128", false, "A\\d000\x80", "", "ORB128", std::string("A\0\0", 3), 6},
    {"C128", false, "\\x81" "1234", "", "ORB128", "1234", 6},
    {"C128", false, "123\x81" "4567", "", "ORB128", "123\x1D" "4567", 10},
    {"E128", false, "0195012345678903", "", "ORB128", "0195012345678903", 12},
    {"E128", false, "10ABC", "", "ORB128", "10ABC", 9},
    {"E128", false, "10123456\\x81" "217", "", "ORB128", "10123456\x1D" "217", 12},
    {"EAN13", true, "400638133393", "", "ORBEAN", "4006381333931", 0},
    {"EAN13", false, "9999999999994", "52495", "ORBEAN", "9999999999994 52495", 0},
    {"EAN13", true, "590123412345", "12", "ORBEAN", "5901234123457 12", 0},
    {"EAN8", true, "9638507", "00000", "ORBEAN", "96385074 00000", 0},
    {"UPCA", true, "03600029145", "15", "ORBEAN", "036000291452 15", 0},
    {"UPCE", true, "123456", "", "ORBEAN", "01234565", 0},
    {"UPCE", true, "1123456", "13", "ORBEAN", "11234562 13", 0},
    {"UPCE", true, "0", "", "ORBEAN", "00000000", 0},
    {"UPCE", true, "0123450", "", "ORBEAN", "01234505", 0},
    {"UPCE", true, "0123453", "", "ORBEAN", "01234531", 0},
    {"UPCE", true, "0123454", "14", "ORBEAN", "01234543 14", 0},
    {"ISBN", true, "030640615", "", "ORBEAN", "9780306406157", 0},
    {"ISBN13", true, "979030640615", "", "ORBEAN", "9790306406156", 0},
    {"C25", true, Coppie, "", "ORB25_ITF", "0" + Coppie + "0", 0},
    {"C25", true, "1234", "", "ORB25_ITF", "012348", 8},
    {"C25", false, "12345", "", "ORB25_ITF", "012345", 8},
    {"ITF", true, "1", "", "ORBITF14", "00000000000017", 16},
    {"CBAR", true, "a123b", "", "ORBCODABAR", "A1239B", 0},
    {"CBAR", false, "t0123456789-$:/.+e", "", "ORBCODABAR", "A0123456789-$:/.+D", 0},
};

class Rilettura : public testing::TestWithParam<Riga> {};

TEST_P(Rilettura, IlLettoreLeggeIlContenuto) {
    const Riga& r = GetParam();
    std::string glifi = krt::CodificaBarcode(r.contenuto, r.codice, r.check);
    if (!r.aggiunta.empty()) glifi += krt::CodificaBarcode(r.aggiunta, r.aggiunta.size() == 2 ? "ADD2" : "ADD5", true);
    EXPECT_EQ(Leggi(glifi, r.famiglia, r.codice == std::string_view("C39FULL")), r.letto)
        << testing::PrintToString(glifi);
    EXPECT_TRUE(r.glifi == 0 || glifi.size() == r.glifi)
        << glifi.size() << " glyphs: " << testing::PrintToString(glifi);
}

INSTANTIATE_TEST_SUITE_P(Righe, Rilettura, testing::ValuesIn(Righe), [](const auto& i) {
    return i.param.codice + std::to_string(i.index);
});

// Random Code 128 contents of every class of character read back as they were written.
TEST(Rilettura, Code128Casuale) {
    const std::string alfabeto("0123456789012345678901234AZ a~\x01\x1F\x81\x80", 35);  // and NUL
    std::mt19937 rng(128);
    for (int prova = 0; prova < 400; ++prova) {
        std::string t = "Kr";
        for (int i = static_cast<int>(rng() % 24); i > 0; --i) t += alfabeto[rng() % alfabeto.size()];
        std::string atteso;
        for (const char c : t) atteso += c == '\x81' ? '\x1D' : c == '\x80' ? '\0' : c;
        ASSERT_EQ(Leggi(krt::CodificaBarcode(t, "C128", false), "ORB128"), atteso) << testing::PrintToString(t);
    }
}

}  // namespace
