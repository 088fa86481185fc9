// The RTF writer, the preview's runs, and a word processor reading the result.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>

#include <cctype>
#include <set>

#include "mainwindow/anteprima.h"
#include "mainwindow/rtf.h"

namespace {

using namespace krt;

SegmentoRtf Barre(std::string famiglia, double punti, std::string testo) {
    SegmentoRtf s;
    s.famiglia = std::move(famiglia);
    s.punti = punti;
    s.testo = std::move(testo);
    return s;
}

SegmentoRtf Hrc(std::string testo, bool b, bool i, bool u, bool s) {
    SegmentoRtf r = Barre("Courier", 10, std::move(testo));
    r.grassetto = b;
    r.corsivo = i;
    r.sottolineato = u;
    r.barrato = s;
    return r;
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
    SegmentoRtf simbolo = Barre("ORB128", 72, "\xCC\x8B");
    simbolo.simbolo = true;
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
         {Barre("ORB39", 100, "*A*\r\n"), Hrc("*A*", true, true, true, true)},
         {"{\\f1\\fnil\\fcharset0 Courier;}", "\\plain\\f1\\fs20\\b\\i\\ul\\strike *A*}"},
         {}},
        {"plain HRC sets no attribute", {Hrc("x", false, false, false, false)}, {"\\plain\\f0\\fs20 x"}, {"\\b", "\\i ", "\\ul"}},
        {"one table entry per family", {Barre("F", 12, "a"), Barre("F", 14, "b")}, {"{\\fonttbl{\\f0\\fnil\\fcharset0 F;}}"}, {"\\f1"}},
        {"symbol map font", {simbolo}, {"{\\f0\\fnil\\fcharset2 ORB128;}", "\\'cc\\'8b"}, {"fcharset0"}},
        {"family names are escaped too", {Barre("Caf\xE9", 12, "x")}, {"\\fcharset0 Caf\\'e9;}"}, {}},
        {"a leading space survives the delimiter", {Barre("F", 12, " x")}, {"\\fs24  x"}, {}},
    };
    for (const auto& c : casi) {
        const std::string rtf = ComponiRtf(c.segmenti);
        for (const auto& p : c.presenti) EXPECT_NE(rtf.find(p), std::string::npos) << c.nome << ": " << p << "\n" << rtf;
        for (const auto& a : c.assenti) EXPECT_EQ(rtf.find(a), std::string::npos) << c.nome << ": " << a << "\n" << rtf;
        EXPECT_EQ(rtf.back(), '}') << c.nome;
        for (unsigned char ch : rtf) EXPECT_TRUE(ch < 128) << c.nome << ": the document is 7-bit";
    }
}

// The preview's document read back as runs: formats, paragraph ends, bytes.
TEST(Rtf, SegmentiDellAnteprima) {
    QTextDocument documento;
    QTextCursor cursore(&documento);
    QTextCharFormat barre;
    barre.setFontFamilies({QStringLiteral("ORB128")});
    barre.setFontPointSize(72);
    cursore.setBlockCharFormat(barre);
    cursore.insertText(QString::fromUtf8("\xC3\x8C" "A\xE2\x80\xB9"), barre);  // U+00CC A U+2039
    QTextCharFormat hrc;
    hrc.setFontFamilies({QStringLiteral("Courier")});
    hrc.setFontPointSize(10);
    hrc.setFontWeight(QFont::Bold);
    hrc.setFontStrikeOut(true);
    cursore.insertBlock(QTextBlockFormat(), hrc);
    cursore.insertText(QStringLiteral("(01)123"), hrc);

    const auto segmenti = SegmentiDocumento(documento);
    ASSERT_EQ(segmenti.size(), 2u);
    EXPECT_EQ(segmenti[0].famiglia, "ORB128");
    EXPECT_EQ(segmenti[0].punti, 72);
    EXPECT_EQ(segmenti[0].testo, "\xCC" "A\x8B\r\n");
    EXPECT_FALSE(segmenti[0].simbolo);
    EXPECT_EQ(segmenti[1].famiglia, "Courier");
    EXPECT_EQ(segmenti[1].testo, "(01)123");
    EXPECT_TRUE(segmenti[1].grassetto);
    EXPECT_TRUE(segmenti[1].barrato);
    EXPECT_FALSE(segmenti[1].corsivo);

    // The Latin-1 reading (symbol-map fonts) gives the same bytes and marks the family.
    QTextDocument simbolo;
    QTextCursor c2(&simbolo);
    c2.insertText(QString(QChar(0x8B)) + QChar(0xF041) + QStringLiteral("B"), barre);
    const auto s2 = SegmentiDocumento(simbolo);
    ASSERT_EQ(s2.size(), 1u);
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

TEST(Rtf, LetturaDeiGlifiConFontUnicode) {
    // A font with a Unicode map (any installed text font) takes the Windows-1252 reading.
    const QString letti = LeggiGlifi("\xCC" "A\x8B\r\nB", QFont(QStringLiteral("DejaVu Sans")));
    EXPECT_EQ(letti, QString::fromUtf8("\xC3\x8C" "A\xE2\x80\xB9\nB"));
}

// What LibreOffice makes of the clipboard's RTF: text, families and sizes.
TEST(Rtf, LibreOfficeLoLegge) {
    const QString libreoffice = QStandardPaths::findExecutable(QStringLiteral("libreoffice"));
    const QString unzip = QStandardPaths::findExecutable(QStringLiteral("unzip"));
    const bool writer = !libreoffice.isEmpty() &&
        QFileInfo(QFileInfo(libreoffice).canonicalFilePath()).dir().exists(QStringLiteral("libswlo.so"));
    if (!writer || unzip.isEmpty())
        GTEST_SKIP() << "LibreOffice Writer or unzip is not installed: the RTF is not checked through a word processor";

    SegmentoRtf simbolo = Barre("ORB39 Short", 75, "*A\x8B*\r\n");
    simbolo.simbolo = true;
    const std::string rtf = ComponiRtf(
        {Barre("ORB128", 100, "\xCC\x8B{AB}\r\n\\x\r\n"), simbolo, Hrc("(01)12 \xE9", true, true, true, true)});

    QTemporaryDir cartella;
    ASSERT_TRUE(cartella.isValid());
    QFile file(cartella.filePath(QStringLiteral("anteprima.rtf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(rtf.data(), static_cast<qint64>(rtf.size()));
    file.close();

    QProcess lo;
    lo.start(libreoffice, {QStringLiteral("-env:UserInstallation=file://") + cartella.filePath(QStringLiteral("profilo")),
                           QStringLiteral("--headless"), QStringLiteral("--convert-to"), QStringLiteral("odt"),
                           QStringLiteral("--outdir"), cartella.path(), file.fileName()});
    ASSERT_TRUE(lo.waitForFinished(120000)) << "libreoffice did not finish";
    const QString odt = cartella.filePath(QStringLiteral("anteprima.odt"));
    ASSERT_TRUE(QFile::exists(odt)) << lo.readAllStandardError().toStdString();

    auto estrai = [&](const char* voce) {
        QProcess z;
        z.start(unzip, {QStringLiteral("-p"), odt, QLatin1String(voce)});
        z.waitForFinished(30000);
        return QString::fromUtf8(z.readAllStandardOutput());
    };
    const QString contenuto = estrai("content.xml");
    const QString stili = estrai("styles.xml");

    // Paragraphs and text: Windows-1252 bytes for the ANSI fonts, the symbol
    // font's private-use codes for the symbol-map family.
    const QString atteso[] = {
        QString::fromUtf8("\xC3\x8C\xE2\x80\xB9{AB}"),                     // U+00CC U+2039 {AB}
        QStringLiteral("\\x"),
        QString(QChar(0xF02A)) + QChar(0xF041) + QChar(0xF08B) + QChar(0xF02A),
        QString::fromUtf8("(01)12 \xC3\xA9"),
    };
    for (const QString& t : atteso) EXPECT_TRUE(contenuto.contains(t)) << t.toStdString() << "\n" << contenuto.toStdString();
    EXPECT_EQ(contenuto.count(QStringLiteral("<text:p ")), 4) << "two barcode lines, the symbol-font line, HRC";

    for (const char* famiglia : {"ORB128", "ORB39 Short", "Courier"})
        EXPECT_TRUE(contenuto.contains(QStringLiteral("style:name=\"%1\"").arg(QLatin1String(famiglia))) ||
                    stili.contains(QStringLiteral("style:name=\"%1\"").arg(QLatin1String(famiglia))))
            << famiglia;
    for (const char* proprieta : {"style:font-name=\"ORB128\" fo:font-size=\"100pt\"",
                                  "style:font-name=\"ORB39 Short\" fo:font-size=\"75pt\"", "fo:font-size=\"10pt\"",
                                  "fo:font-weight=\"bold\"", "fo:font-style=\"italic\"", "style:text-underline-style=\"solid\"",
                                  "style:text-line-through-style=\"solid\""})
        EXPECT_TRUE(contenuto.contains(QLatin1String(proprieta))) << proprieta << "\n" << contenuto.toStdString();
}

}  // namespace
