// From typed content to a decoded symbol: the main window draws the preview with the
// reference test fonts (the folder in KRT_FONT_TEST, one character map per run), the
// barcode paragraphs are rendered to an image and read with the barcode reader, and the
// data must be the content plus the check characters the engine adds. The window's own
// scan line must say the same.
#include <gtest/gtest.h>

#include <QDir>
#include <QFontDatabase>
#include <QTest>

#include "ambiente_e2e.h"
#include "mainwindow/scansione.h"
#include "support/stringhe.h"

namespace {

using namespace krt;

struct Riga {
    const char* voce;       // cmbSimbologia text (English)
    const char* contenuto;  // typed in txtCodice
    bool check;             // chkDigit
    const char* formato;    // reader's format name
    const char* atteso;     // data read (UTF-8)
};

// One row per font family and per kind of add-on; check characters worked out by hand.
constexpr Riga Righe[] = {
    {"Code 39", "ABC_12", true, "Code39", "ABC 12V"},
    {"Code 93 Full Ascii", "Krt93", true, "Code93", "Krt93"},
    {"Code 128", "AB1234567", false, "Code128", "AB1234567"},
    {"EAN 128", "10ABC123\\x8117250101", false, "Code128", "10ABC123\x1D" "17250101"},
    {"EAN 8 Add-on 2", "123456712", true, "EAN-8", "12345670 12"},
    {"EAN 13 Add-on 5", "59012341234552495", true, "EAN-13", "5901234123457 52495"},
    {"UPC-A", "03600029145", true, "UPC-A", "036000291452"},
    {"UPC-E Add-on 2", "012345612", true, "UPC-E", "01234565 12"},
    {"ISBN-10", "030640615", true, "EAN-13", "9780306406157"},
    {"Interleaved 2 of 5", "12345", true, "ITF", "123457"},
    {"UCC-ITF 14", "1234567890123", true, "ITF", "12345678901231"},
    {"Codabar/Monarch", "c1234d", false, "Codabar", "C1234D"},
};

void PrintTo(const Riga& r, std::ostream* os) { *os << r.voce << " \"" << r.contenuto << '"'; }

class Scansione : public ::testing::TestWithParam<std::tuple<Riga, const char*>> {
protected:
    void SetUp() override { ASSERT_GT(FontDiProvaCaricati(), 0) << "no test font loaded from KRT_FONT_TEST"; }
    FinestraE2E w;
};

// Every row in both faces: the image of the preview decodes to the hand-worked data, and
// the window's line says so.
TEST_P(Scansione, SiLeggeConIDatiAttesi) {
    const auto& [r, stile] = GetParam();
    w.Genera(r.voce, stile, r.check, r.contenuto);
    const QString famiglia = w.Anteprima().at(0).famiglia;
    ASSERT_TRUE(QFontDatabase::hasFamily(famiglia)) << famiglia.toStdString();
    AttesaScansione attesa;
    for (int f = 0; f <= static_cast<int>(FormatoLettore::Codabar); ++f)
        if (NomeFormato(FormatoLettore(f)) == r.formato) attesa.formato = FormatoLettore(f);
    attesa.addOn = std::string_view(r.voce).find("Add-on") != std::string_view::npos;
    const QImage immagine = ImmagineBarre(*w.rtfContenuto->document(), famiglia);
    const LetturaScansione lettura = LeggiImmagine(immagine.constBits(), immagine.width(), immagine.height(),
                                                   static_cast<int>(immagine.bytesPerLine()), attesa);
    if (!lettura.letto && !qEnvironmentVariableIsEmpty("KRT_SCANSIONE_IMMAGINI"))
        immagine.save(QDir(qEnvironmentVariable("KRT_SCANSIONE_IMMAGINI"))
                          .filePath(QString::fromStdString(testing::UnitTest::GetInstance()->current_test_info()->name())
                                        .replace(QLatin1Char('/'), QLatin1Char('_')) + QStringLiteral(".png")));
    EXPECT_TRUE(lettura.letto) << "family " << famiglia.toStdString();
    EXPECT_EQ(lettura.formato, r.formato);
    EXPECT_EQ(lettura.testo, r.atteso);
    EXPECT_EQ(w.labScansione->text(),
              CaricaStringa(298).arg(QString::fromUtf8(r.formato),
                                     QString::fromUtf8(r.atteso).replace(QChar(0x1D), QLatin1String("<GS>"))));
}

INSTANTIATE_TEST_SUITE_P(Righe, Scansione, testing::Combine(testing::ValuesIn(Righe), testing::Values("Normal", "Short")),
                         [](const auto& info) {
                             std::string nome = std::string(std::get<0>(info.param).voce) + "_" +
                                                std::get<1>(info.param) + "_" + std::to_string(info.index);
                             for (char& c : nome)
                                 if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                             return nome;
                         });

// The lines for what cannot be read (no reader; Code 93 drawn without its checks), an empty
// image is not handed to the reader, and a scan check runs once for the last of several
// quick cycles.
TEST(ScansioneRiga, NonLeggibiliEUltimaRichiesta) {
    AttesaScansione code39;
    code39.formato = FormatoLettore::Code39;
    const std::uint8_t pixel = 0;
    EXPECT_FALSE(LeggiImmagine(&pixel, 0, 1, 1, code39).letto);
    EXPECT_FALSE(LeggiImmagine(&pixel, 1, 0, 1, code39).letto);
    FinestraE2E w;
    const struct {
        const char* voce;
        const char* contenuto;
        bool check;
        int idTesto;
    } casi[] = {
        {"MSI", "123456", true, 975},
        {"Code 32", "12345678", true, 975},
        {"Code 93", "CODE93", false, 977},
    };
    for (const auto& c : casi) {
        SCOPED_TRACE(c.voce);
        w.Genera(c.voce, "Normal", c.check, c.contenuto);
        EXPECT_EQ(w.labScansione->text(), CaricaStringa(c.idTesto));
    }
    w.Genera("Code 39", "Normal", false, "OLD");
    w.cmbSimbologia->setCurrentIndex(w.cmbSimbologia->findText(QStringLiteral("Code 128")));
    for (const char* c : {"A1", "A2", "A3"}) {
        w.txtCodice->setText(QString::fromUtf8(c));
        QTest::keyClick(w.txtCodice, Qt::Key_Return);
    }
    EXPECT_EQ(w.labScansione->text(), CaricaStringa(298).arg(QStringLiteral("Code39"), QStringLiteral("OLD")));
    QCoreApplication::processEvents();
    EXPECT_EQ(w.labScansione->text(), CaricaStringa(298).arg(QStringLiteral("Code128"), QStringLiteral("A3")));
}

}  // namespace
