#include "mainwindow/scansione.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <QAbstractTextDocumentLayout>
#include <QLabel>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>

#include "barcodes/codifica.h"
#include "barcodes/controllo.h"
#include "support/cp1252.h"
#include "support/stringhe.h"

namespace krt {

namespace {

// String ids of the scan line.
constexpr int IdLetto = 298;          // %1 format, %2 data
constexpr int IdNonLetto = 299;
constexpr int IdNessunLettore = 975;
constexpr int IdLettoDiverso = 976;   // %1 format, %2 data read, %3 data expected
constexpr int IdNonLetto93 = 977;

struct FormatoZXing {
    FormatoLettore formato;
    ZXing::BarcodeFormat zxing;
};

constexpr std::array<FormatoZXing, 9> FormatiZXing{{
    {FormatoLettore::Code39, ZXing::BarcodeFormat::Code39},
    {FormatoLettore::Code93, ZXing::BarcodeFormat::Code93},
    {FormatoLettore::Code128, ZXing::BarcodeFormat::Code128},
    {FormatoLettore::EAN8, ZXing::BarcodeFormat::EAN8},
    {FormatoLettore::EAN13, ZXing::BarcodeFormat::EAN13},
    {FormatoLettore::UPCA, ZXing::BarcodeFormat::UPCA},
    {FormatoLettore::UPCE, ZXing::BarcodeFormat::UPCE},
    {FormatoLettore::ITF, ZXing::BarcodeFormat::ITF},
    {FormatoLettore::Codabar, ZXing::BarcodeFormat::Codabar},
}};

ZXing::BarcodeFormat InZXing(FormatoLettore formato) {
    for (const FormatoZXing& f : FormatiZXing)
        if (f.formato == formato) return f.zxing;
    return ZXing::BarcodeFormat::None;
}

}  // namespace

std::string NomeFormato(FormatoLettore formato) {
    const ZXing::BarcodeFormat f = InZXing(formato);
    return f == ZXing::BarcodeFormat::None ? std::string() : std::string(ZXing::ToString(f));
}

LetturaScansione LeggiImmagine(const std::uint8_t* grigi, int larghezza, int altezza, int rowStride,
                               const AttesaScansione& attesa) {
    LetturaScansione lettura;
    const ZXing::BarcodeFormat formato = InZXing(attesa.formato);
    if (formato == ZXing::BarcodeFormat::None || larghezza <= 0 || altezza <= 0) return lettura;

    ZXing::DecodeHints hints;
    hints.setFormats(formato);
    hints.setTryHarder(true);
    hints.setTryRotate(false);
    hints.setTryDownscale(false);
    hints.setTryCode39ExtendedMode(attesa.asciiEsteso);
    hints.setValidateCode39CheckSum(false);
    hints.setValidateITFCheckSum(false);
    hints.setReturnCodabarStartEnd(true);
    hints.setEanAddOnSymbol(attesa.addOn ? ZXing::EanAddOnSymbol::Require : ZXing::EanAddOnSymbol::Ignore);

    const ZXing::ImageView vista(grigi, larghezza, altezza, ZXing::ImageFormat::Lum, rowStride);
    const ZXing::Result risultato = ZXing::ReadBarcode(vista, hints);
    if (!risultato.isValid()) return lettura;
    lettura.letto = true;
    lettura.formato = ZXing::ToString(risultato.format());
    lettura.testo = risultato.text();
    return lettura;
}


namespace {

// Control characters shown as <GS>, <NUL>, ... so that the line stays one line.
QString Visibile(const std::string& utf8) {
    static constexpr std::array<const char*, 32> Nomi{
        "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS", "HT", "LF", "VT", "FF", "CR", "SO", "SI",
        "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB", "CAN", "EM", "SUB", "ESC", "FS", "GS", "RS", "US"};
    QString testo;
    for (QChar c : QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()))) {
        if (c.unicode() < 32)
            testo += QLatin1Char('<') + QLatin1String(Nomi[c.unicode()]) + QLatin1Char('>');
        else
            testo += c;
    }
    return testo;
}

}  // namespace

QString TestoScansione(EsitoScansione esito, const AttesaScansione& attesa, const LetturaScansione& lettura) {
    const QString formato = QString::fromStdString(lettura.formato);
    switch (esito) {
        case EsitoScansione::Letto: return CaricaStringa(IdLetto).arg(formato, Visibile(lettura.testo));
        case EsitoScansione::LettoDiverso:
            return CaricaStringa(IdLettoDiverso).arg(formato, Visibile(lettura.testo), Visibile(attesa.testo));
        case EsitoScansione::NonLetto: return CaricaStringa(IdNonLetto);
        case EsitoScansione::NonLetto93: return CaricaStringa(IdNonLetto93);
        case EsitoScansione::NessunLettore: break;
    }
    return CaricaStringa(IdNessunLettore);
}

QImage ImmagineBarre(const QTextDocument& documento, const QString& famigliaBarre) {
    std::unique_ptr<QTextDocument> copia(documento.clone());
    copia->setTextWidth(-1);
    QTextOption opzione = copia->defaultTextOption();
    opzione.setWrapMode(QTextOption::NoWrap);
    copia->setDefaultTextOption(opzione);

    // Only the paragraphs drawn in the barcode family: the HRC line stays out.
    double punti = 0;
    for (QTextBlock blocco = copia->lastBlock(); blocco.isValid();) {
        const QTextBlock precedente = blocco.previous();
        bool barre = false;
        for (auto it = blocco.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat formato = it.fragment().charFormat();
            if (formato.fontFamilies().toStringList().value(0) == famigliaBarre) {
                barre = true;
                punti = std::max(punti, formato.fontPointSize());
            }
        }
        if (!barre) {
            QTextCursor cursore(blocco);
            cursore.select(QTextCursor::BlockUnderCursor);
            if (!precedente.isValid() && blocco.next().isValid()) {
                // First paragraph: take its end too, so that no empty line stays on top.
                cursore.setPosition(blocco.position());
                cursore.setPosition(blocco.next().position(), QTextCursor::KeepAnchor);
            }
            cursore.removeSelectedText();
        }
        blocco = precedente;
    }
    if (punti <= 0) punti = copia->defaultFont().pointSizeF();

    // About 100 pixels to the em: a barcode font's module is rarely below 1/30 em, so
    // that is 3 pixels or more, while the image stays small enough to draw quickly.
    constexpr double PixelEm = 100;
    constexpr int LarghezzaMassima = 12000;
    const QSizeF dimensione = copia->size();
    const double pixelEm = punti * 96.0 / 72.0;
    double scala = std::max(1.0, PixelEm / std::max(1.0, pixelEm));
    scala = std::min(scala, LarghezzaMassima / std::max(1.0, dimensione.width()));
    const int margine = static_cast<int>(PixelEm * 0.6);  // quiet zone and more

    QImage immagine(static_cast<int>(std::ceil(dimensione.width() * scala)) + 2 * margine,
                    static_cast<int>(std::ceil(dimensione.height() * scala)) + 2 * margine, QImage::Format_RGB32);
    immagine.fill(Qt::white);
    {
        QPainter pittore(&immagine);
        pittore.translate(margine, margine);
        pittore.scale(scala, scala);
        QAbstractTextDocumentLayout::PaintContext contesto;
        contesto.palette.setColor(QPalette::Text, Qt::black);
        copia->documentLayout()->draw(&pittore, contesto);
    }
    return immagine.convertToFormat(QImage::Format_Grayscale8);
}

ScansioneCompleta Scansiona(const VoceCatalogo& voce, const GenerazioneVoce& generazione,
                            const QTextDocument& documento) {
    ScansioneCompleta s;
    s.attesa = AttesaPerVoce(voce, generazione);
    if (s.attesa.formato != FormatoLettore::Nessuno) {
        const QImage immagine = ImmagineBarre(documento, DaWindows1252(generazione.famiglia));
        s.lettura = LeggiImmagine(immagine.constBits(), immagine.width(), immagine.height(),
                                  static_cast<int>(immagine.bytesPerLine()), s.attesa);
    }
    s.esito = ValutaScansione(s.attesa, s.lettura);
    return s;
}

ControlloScansione::ControlloScansione(QWidget* genitore)
    : QObject(genitore), labScansione_(new QLabel(genitore)) {
    labScansione_->setObjectName(QStringLiteral("labScansione"));
    labScansione_->setTextFormat(Qt::PlainText);
    labScansione_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    labScansione_->setMinimumHeight(labScansione_->fontMetrics().height());
}

void ControlloScansione::Richiedi(const VoceCatalogo& voce, const GenerazioneVoce& generazione,
                                  const QTextDocument& documento) {
    documento_ = &documento;
    voce_ = &voce;
    generazione_ = generazione;
    const unsigned richiesta = ++richiesta_;
    QTimer::singleShot(0, this, [this, richiesta] { Esegui(richiesta); });
}

void ControlloScansione::Esegui(unsigned richiesta) {
    if (richiesta != richiesta_ || documento_ == nullptr || voce_ == nullptr) return;  // a newer one follows
    try {
        ultima_ = Scansiona(*voce_, generazione_, *documento_);
    } catch (const std::exception&) {
        ultima_ = {};
        ultima_.attesa.formato = FormatoPerCodice(voce_->codice);
        ultima_.esito = ValutaScansione(ultima_.attesa, ultima_.lettura);
    }
    eseguita_ = true;
    AggiornaTesti();
}

void ControlloScansione::AggiornaTesti() {
    if (!eseguita_) return;
    labScansione_->setText(TestoScansione(ultima_.esito, ultima_.attesa, ultima_.lettura));
}

}  // namespace krt
