// The RTF writer and the preview's runs (a word processor reading the result: tests/e2e).
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QTextCursor>
#include <QTextDocument>

#include <cctype>
#include <set>

#include "mainwindow/anteprima.h"
#include "mainwindow/rtf.h"

namespace {

using namespace krt;

SegmentoRtf Barre(std::string famiglia, double punti, std::string testo) {
    return {.famiglia = std::move(famiglia), .punti = punti, .testo = std::move(testo)};
}

TEST(Rtf, DocumentoMinimo) {
    EXPECT_EQ(ComponiRtf({Barre("ORB39", 100, "*ABC*")}),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 ORB39;}}\r\n"
              "\\pard \\plain\\f0\\fs200 *ABC*}");
}

struct CasoRtf {
    const char* nome;
    std::vector<SegmentoRtf> segmenti;
    std::vector<std::string> presenti;
    std::vector<std::string> assenti;
};

TEST(Rtf, Regole) {
    const SegmentoRtf simbolo{.famiglia = "ORB128", .simbolo = true, .punti = 72, .testo = "\xCC\x8B"};
    const SegmentoRtf hrc{.famiglia = "Courier", .punti = 10, .grassetto = true, .corsivo = true, .sottolineato = true,
                          .barrato = true, .testo = "*A*"};
    const CasoRtf casi[] = {
        {"specials escaped", {Barre("F", 12, "a\\b{c}d")}, {"a\\\\b\\{c\\}d"}, {}},
        {"bytes above 127 as hex", {Barre("ORB128", 12, "\xCC" "A\x8B\xE9")}, {" \\'cc" "A\\'8b\\'e9}"}, {"\xCC"}},
        {"control bytes as hex, tab as \\tab", {Barre("F", 12, std::string("a\x01\tb", 4))}, {"a\\'01\\tab b"}, {}},
        {"CR LF is a paragraph that keeps the format",
         {Barre("ORB32", 50, "AB\r\nCD")},
         {"AB\\par\r\n\\pard \\plain\\f0\\fs100 CD}"},
         {"\r\nCD"}},
        {"lone LF too", {Barre("F", 12, "A\nB")}, {"A\\par\r\n"}, {}},
        {"sizes in half points, rounded", {Barre("F", 10.5, "x"), Barre("G", 7.25, "y")}, {"\\fs21 x", "\\fs15 y"}, {}},
        {"HRC attributes",
         {Barre("ORB39", 100, "*A*\r\n"), hrc},
         {"{\\f1\\fnil\\fcharset0 Courier;}", "\\plain\\f1\\fs20\\b\\i\\ul\\strike *A*}"},
         {}},
        {"plain HRC sets no attribute", {Barre("Courier", 10, "x")}, {"\\plain\\f0\\fs20 x"}, {"\\b", "\\i ", "\\ul"}},
        {"one table entry per family", {Barre("F", 12, "a"), Barre("F", 14, "b")},
         {"{\\fonttbl{\\f0\\fnil\\fcharset0 F;}}"}, {"\\f1"}},
        {"symbol map font", {simbolo}, {"{\\f0\\fnil\\fcharset2 ORB128;}", "\\'cc\\'8b"}, {"fcharset0"}},
        {"family names are escaped too", {Barre("Caf\xE9", 12, "x")}, {"\\fcharset0 Caf\\'e9;}"}, {}},
        {"a leading space survives the delimiter", {Barre("F", 12, " x")}, {"\\fs24  x"}, {}},
    };
    for (const auto& c : casi) {
        const std::string rtf = ComponiRtf(c.segmenti);
        for (const auto& p : c.presenti)
            EXPECT_NE(rtf.find(p), std::string::npos) << c.nome << ": " << p << "\n" << rtf;
        for (const auto& a : c.assenti) EXPECT_EQ(rtf.find(a), std::string::npos) << c.nome << ": " << a << "\n" << rtf;
        EXPECT_EQ(rtf.back(), '}') << c.nome;
        for (unsigned char ch : rtf) EXPECT_TRUE(ch < 128) << c.nome << ": the document is 7-bit";
    }
}

// The preview's document read back as runs: formats, paragraph ends, bytes; the Latin-1
// reading (symbol-map fonts) gives the same bytes and marks the family.
TEST(Rtf, SegmentiDellAnteprima) {
    QTextDocument documento, simbolo;
    QTextCursor cursore(&documento);
    QTextCharFormat barre, hrc;
    barre.setFontFamilies({QStringLiteral("ORB128")});
    barre.setFontPointSize(72);
    cursore.insertText(QString::fromUtf8("\xC3\x8C" "A\xE2\x80\xB9"), barre);  // U+00CC A U+2039
    hrc.setFontFamilies({QStringLiteral("Courier")});
    hrc.setFontWeight(QFont::Bold);
    hrc.setFontStrikeOut(true);
    cursore.insertBlock(QTextBlockFormat(), hrc);
    cursore.insertText(QStringLiteral("(01)123"), hrc);
    QTextCursor(&simbolo).insertText(QString(QChar(0x8B)) + QChar(0xF041) + QStringLiteral("B"), barre);

    const auto segmenti = SegmentiDocumento(documento), s2 = SegmentiDocumento(simbolo);
    ASSERT_EQ(segmenti.size(), 2u);
    ASSERT_EQ(s2.size(), 1u);
    EXPECT_EQ(segmenti[0].famiglia + "|" + segmenti[0].testo + "|" + segmenti[1].famiglia + "|" + segmenti[1].testo,
              "ORB128|\xCC" "A\x8B\r\n|Courier|(01)123");
    EXPECT_EQ(segmenti[0].punti, 72);
    EXPECT_FALSE(segmenti[0].simbolo);
    EXPECT_TRUE(segmenti[1].grassetto && segmenti[1].barrato && !segmenti[1].corsivo);
    EXPECT_EQ(s2[0].testo, "\x8B" "AB");
    EXPECT_TRUE(s2[0].simbolo);
}

// Whatever the family names and the text hold, a reader of the document finds only the
// writer's own control words, one outer group, and one font table entry per family, each
// ended by the only plain ';' of its group (in the text a ';' is just text).
TEST(Rtf, NessunaParolaDiControlloIniettata) {
    const std::string ostile = "A;B}{\\rtf1 \\par\\b1\t\\'3b{\\*\\fonttbl{\\f9 Z;}};";
    std::vector<SegmentoRtf> segmenti;
    for (const char* f : {"X", "Y"}) segmenti.push_back(Barre(f + ostile, 12, ostile));
    const std::string rtf = ComponiRtf(segmenti);
    std::set<std::string> parole;
    int profondita = 0, puntiEVirgola = 0;
    bool tabella = false;
    for (std::size_t i = 0; i < rtf.size(); ++i) {
        const char c = rtf[i];
        if (c == '\\' && std::isalpha(static_cast<unsigned char>(rtf[i + 1]))) {
            std::string parola;
            while (std::isalpha(static_cast<unsigned char>(rtf[i + 1]))) parola += rtf[++i];
            parole.insert(parola);
            tabella = tabella || parola == "fonttbl";
        } else if (c == '\\') {
            ++i;  // an escaped symbol, or the quote of \'xx (its hex digits are plain text)
        } else if (c == '{' || c == '}') {
            profondita += c == '{' ? 1 : -1;
            tabella = tabella && profondita > 1;
            EXPECT_TRUE(profondita > 0 || i + 1 == rtf.size()) << "outer group closed at " << i << "\n" << rtf;
        } else if (c == ';' && tabella) {
            EXPECT_EQ(profondita, 3) << "a plain ';' outside a font entry at " << i << "\n" << rtf;
            EXPECT_EQ(rtf[i + 1], '}') << "a name cut at " << i << "\n" << rtf;
            ++puntiEVirgola;
        }
    }
    EXPECT_EQ(puntiEVirgola, 2);
    EXPECT_EQ(parole, (std::set<std::string>{"rtf", "ansi", "ansicpg", "deff", "fonttbl", "f", "fnil", "fcharset",
                                             "pard", "plain", "fs", "tab"}))
        << rtf;
}

// A font with a Unicode map (any text font) takes the Windows-1252 reading, a symbol-map
// barcode font the Latin-1 one.
TEST(Rtf, LetturaDeiGlifiSecondoLaMappaDelFont) {
    EXPECT_EQ(LeggiGlifi("\xCC" "A\x8B\r\nB", QFont(QStringLiteral("DejaVu Sans"))),
              QString::fromUtf8("\xC3\x8C" "A\xE2\x80\xB9\nB"));
    const int simbolo = QFontDatabase::addApplicationFont(QStringLiteral(KRT_FONT_PROVA "/../symbol/ORB128.ttf"));
    if (simbolo < 0) GTEST_SKIP() << "reference fonts not built";
    const QFont font(QFontDatabase::applicationFontFamilies(simbolo).value(0));
    EXPECT_EQ(LeggiGlifi("\xCC" "A\x8B", font), QString::fromLatin1("\xCC" "A\x8B"));
    QFontDatabase::removeApplicationFont(simbolo);
}

}  // namespace
