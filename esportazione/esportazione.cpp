// Export and print without the font (see esportazione.h).
#include "esportazione/esportazione.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>
#include <QSaveFile>
#include <QSvgGenerator>

#include "text/codifica_testo.h"

namespace krt {

namespace {

// Glyphs are measured and laid out at this many pixels to the em, then scaled to points.
constexpr double PixelEm = 1000;
// A bar is a contour at least this part of the tallest one: the figures some glyphs carry
// under or between the bars are not bars.
constexpr double QuotaBarra = 0.5;
// Blank above and below the bars, in modules; the gap above the HRC line, in its ems.
constexpr double MargineVerticale = 2;
constexpr double SpazioHRC = 0.2;

QRawFont FontGrezzo(const QString& famiglia) {
    QFont font(famiglia);
    font.setPixelSize(static_cast<int>(PixelEm));
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::NoFontMerging);
    return QRawFont::fromFont(font);
}

// The glyph of a byte: its Windows-1252 character in a Unicode-map font; its Latin-1 or
// private-use character in a symbol-map font.
quint32 GlifoDi(const QRawFont& font, unsigned char byte) {
    const char32_t candidati[] = {CarattereCp1252(byte), byte, 0xF000u + byte};
    for (const char32_t c : candidati) {
        if (!font.supportsCharacter(static_cast<uint>(c))) continue;
        const QList<quint32> indici = font.glyphIndexesForString(QString::fromUcs4(&c, 1));
        if (!indici.isEmpty() && indici.front() != 0) return indici.front();
    }
    return 0;
}

std::vector<std::string> Righe(const std::string& glifi) {
    std::vector<std::string> righe;
    std::size_t inizio = 0;
    for (std::size_t a_capo; (a_capo = glifi.find("\r\n", inizio)) != std::string::npos; inizio = a_capo + 2)
        righe.push_back(glifi.substr(inizio, a_capo - inizio));
    righe.push_back(glifi.substr(inizio));
    return righe;
}

// The glyph string's outlines at PixelEm, lines one under the other, baseline of the first
// at 0; the widest line's advance; the narrowest full-height bar.
struct Sagoma {
    QPainterPath percorso;
    double avanzamento = 0;
    double modulo = 0;
    ErroreDisegno errore = ErroreDisegno::Nessuno;
    QString argomento;
};

Sagoma SagomaGlifi(const std::string& glifi, const QString& famiglia) {
    Sagoma s;
    const QRawFont font = FontGrezzo(famiglia);
    if (!font.isValid() || font.familyName().compare(famiglia, Qt::CaseInsensitive) != 0) {
        s.errore = ErroreDisegno::FamigliaMancante;
        s.argomento = famiglia;
        return s;
    }
    struct Contorno {
        double larghezza, altezza;
    };
    std::vector<Contorno> contorni;
    const double interlinea = font.ascent() + font.descent() + font.leading();
    double y = 0;
    for (const std::string& riga : Righe(glifi)) {
        double x = 0;
        for (const char c : riga) {
            const auto byte = static_cast<unsigned char>(c);
            const quint32 glifo = GlifoDi(font, byte);
            if (glifo == 0) {
                s.errore = ErroreDisegno::GlifoMancante;
                s.argomento = QString::number(byte);
                return s;
            }
            QPainterPath p = font.pathForGlyph(glifo);
            for (const QPolygonF& poligono : p.toSubpathPolygons()) {
                const QRectF r = poligono.boundingRect();
                if (r.width() > 0 && r.height() > 0) contorni.push_back({r.width(), r.height()});
            }
            p.translate(x, y);
            s.percorso.addPath(p);
            const QList<QPointF> avanzamenti = font.advancesForGlyphIndexes(QList<quint32>{glifo});
            x += avanzamenti.isEmpty() ? 0 : avanzamenti.front().x();
        }
        s.avanzamento = std::max(s.avanzamento, x);
        y += interlinea;
    }
    double alta = 0;
    for (const auto& c : contorni) alta = std::max(alta, c.altezza);
    double modulo = std::numeric_limits<double>::infinity();
    for (const auto& c : contorni)
        if (c.altezza >= QuotaBarra * alta) modulo = std::min(modulo, c.larghezza);
    if (!std::isfinite(modulo)) {
        s.errore = ErroreDisegno::SenzaBarre;
        return s;
    }
    s.modulo = modulo;
    return s;
}

}  // namespace

bool FamigliaPresente(const QString& famiglia) {
    return QFontDatabase::families().contains(famiglia, Qt::CaseInsensitive);
}

MisuraGlifi MisuraGlifiFamiglia(const std::string& glifi, const QString& famiglia) {
    if (!FamigliaPresente(famiglia)) return {};
    const Sagoma s = SagomaGlifi(glifi, famiglia);
    if (s.errore != ErroreDisegno::Nessuno) return {};
    return {PixelEm / s.modulo, s.avanzamento / s.modulo};
}

Disegno PreparaDisegno(const SimboloDaDisegnare& simbolo, const MisuraStampa& misura) {
    Disegno d;
    if (!FamigliaPresente(simbolo.famiglia)) {
        d.errore = ErroreDisegno::FamigliaMancante;
        d.argomento = simbolo.famiglia;
        return d;
    }
    Sagoma s = SagomaGlifi(simbolo.glifi, simbolo.famiglia);
    if (s.errore != ErroreDisegno::Nessuno) {
        d.errore = s.errore;
        d.argomento = s.argomento;
        return d;
    }
    d.misura = {PixelEm / s.modulo, s.avanzamento / s.modulo};
    d.dimensionamento = misura.moduloMm > 0
                            ? DimensionaDaModulo(misura.moduloMm, misura.dpi, d.misura.moduliPerEm, d.misura.moduliSimbolo)
                            : DimensionaDaPunti(misura.punti, misura.dpi, d.misura.moduliPerEm, d.misura.moduliSimbolo);
    if (!d.dimensionamento.valido) {
        d.errore = ErroreDisegno::Misura;
        return d;
    }
    d.zone = ZoneRispettoCodice(simbolo.codice, simbolo.addOn);

    // Font units to points; the quiet zones in whole modules from the ink, so that the bars
    // stay on the grid of printer dots.
    const double scala = d.dimensionamento.punti / PixelEm;
    const double modulo = s.modulo * scala;
    const QRectF inchiostro = s.percorso.boundingRect();
    const double biancoSinistro = inchiostro.left() / s.modulo;
    const double biancoDestro = (s.avanzamento - inchiostro.right()) / s.modulo;
    const double sinistra = std::ceil(std::max(0.0, d.zone.sinistra - biancoSinistro) - 1e-6);
    const double destra = std::ceil(std::max(0.0, d.zone.destra - biancoDestro) - 1e-6);
    const double larghezzaBarre = (sinistra + destra) * modulo + s.avanzamento * scala;
    const double alto = MargineVerticale * modulo;

    QTransform t;
    t.translate(sinistra * modulo, alto - inchiostro.top() * scala);
    t.scale(scala, scala);
    d.barre = t.map(s.percorso);
    d.barre.setFillRule(Qt::WindingFill);
    double fondo = alto + inchiostro.height() * scala;

    double larghezza = larghezzaBarre;
    if (!simbolo.hrc.isEmpty()) {
        QFont font = simbolo.fontHRC;
        const double puntiHRC = font.pointSizeF() > 0 ? font.pointSizeF() : 10;
        font.setPixelSize(static_cast<int>(PixelEm));
        font.setHintingPreference(QFont::PreferNoHinting);
        QPainterPath testo;
        testo.addText(0, 0, font, simbolo.hrc);
        const QRectF r = testo.boundingRect();
        const double scalaHRC = puntiHRC / PixelEm;
        larghezza = std::max(larghezza, r.width() * scalaHRC + 2 * MargineVerticale * modulo);
        QTransform th;
        th.translate((larghezza - r.width() * scalaHRC) / 2 - r.left() * scalaHRC,
                     fondo + SpazioHRC * puntiHRC - r.top() * scalaHRC);
        th.scale(scalaHRC, scalaHRC);
        d.testo = th.map(testo);
        fondo += SpazioHRC * puntiHRC + r.height() * scalaHRC;
        // A wider HRC line centres the bars under it, still on whole modules.
        if (larghezza > larghezzaBarre) {
            const double spostamento = std::floor((larghezza - larghezzaBarre) / 2 / modulo) * modulo;
            d.barre.translate(spostamento, 0);
        }
    }
    // Whole modules across, so that the image is a whole number of dots wide.
    d.dimensione = QSizeF(std::ceil(larghezza / modulo - 1e-6) * modulo, fondo + alto);
    return d;
}

void DipingiDisegno(QPainter& pittore, const Disegno& disegno, QPointF origine) {
    pittore.save();
    pittore.translate(origine);
    pittore.fillRect(QRectF(QPointF(0, 0), disegno.dimensione), Qt::white);
    // The bars lie on whole dots: no smoothing that would grey their edges.
    pittore.setRenderHint(QPainter::Antialiasing, false);
    pittore.fillPath(disegno.barre, Qt::black);
    pittore.setRenderHint(QPainter::Antialiasing, true);
    pittore.fillPath(disegno.testo, Qt::black);
    pittore.restore();
}

FormatoFile FormatoDaNome(const QString& percorso) {
    const QString estensione = QFileInfo(percorso).suffix().toLower();
    if (estensione == QLatin1String("png")) return FormatoFile::Png;
    if (estensione == QLatin1String("svg")) return FormatoFile::Svg;
    if (estensione == QLatin1String("pdf")) return FormatoFile::Pdf;
    return FormatoFile::Sconosciuto;
}

bool ScriviDisegno(const QString& percorso, const Disegno& disegno, int dpi, QString& errore) {
    const double scala = dpi / PuntiPerPollice;
    const QSize pixel(static_cast<int>(std::lround(disegno.dimensione.width() * scala)),
                      static_cast<int>(std::lround(disegno.dimensione.height() * scala)));
    const FormatoFile formato = FormatoDaNome(percorso);
    if (formato == FormatoFile::Sconosciuto) {
        errore = QStringLiteral("unknown file type (use .png, .svg or .pdf)");
        return false;
    }
    // Written beside the target and moved over it whole: a failed export leaves no
    // half-written file, and an existing one untouched.
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly)) {
        errore = file.errorString();
        return false;
    }
    bool dipinto = false;
    if (formato == FormatoFile::Png) {
        QImage immagine(pixel, QImage::Format_RGB32);
        immagine.setDotsPerMeterX(static_cast<int>(std::lround(dpi / 0.0254)));
        immagine.setDotsPerMeterY(static_cast<int>(std::lround(dpi / 0.0254)));
        QPainter pittore(&immagine);
        pittore.scale(scala, scala);
        DipingiDisegno(pittore, disegno);
        pittore.end();
        dipinto = immagine.convertToFormat(QImage::Format_Grayscale8).save(&file, "PNG");
    } else if (formato == FormatoFile::Svg) {
        QSvgGenerator svg;
        svg.setOutputDevice(&file);
        svg.setResolution(dpi);
        svg.setSize(pixel);
        svg.setViewBox(QRectF(QPointF(0, 0), disegno.dimensione));
        svg.setTitle(QStringLiteral("barcode"));
        QPainter pittore;
        dipinto = pittore.begin(&svg);
        if (dipinto) {
            DipingiDisegno(pittore, disegno);
            dipinto = pittore.end();
        }
    } else {
        QPdfWriter pdf(&file);
        pdf.setResolution(dpi);
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
        pdf.setPageSize(QPageSize(disegno.dimensione, QPageSize::Point, QString(), QPageSize::ExactMatch));
        pdf.setCreator(QStringLiteral("KRT"));
        QPainter pittore;
        dipinto = pittore.begin(&pdf);
        if (dipinto) {
            pittore.scale(scala, scala);
            DipingiDisegno(pittore, disegno);
            dipinto = pittore.end();
        }
    }
    if (!dipinto) {
        file.cancelWriting();
        errore = QStringLiteral("the drawing could not be written");
        return false;
    }
    if (!file.commit()) {
        errore = file.errorString();
        return false;
    }
    return true;
}

int AggiungiCartellaFont(const QString& cartella) {
    const QDir dir(cartella);
    if (cartella.isEmpty() || !dir.exists() || !dir.isReadable()) return -1;
    int aggiunti = 0;
    const QStringList nomi = dir.entryList({QStringLiteral("*.ttf"), QStringLiteral("*.otf"), QStringLiteral("*.ttc"),
                                            QStringLiteral("*.TTF"), QStringLiteral("*.OTF"), QStringLiteral("*.TTC")},
                                           QDir::Files | QDir::Readable, QDir::Name);
    for (const QString& nome : nomi)
        if (QFontDatabase::addApplicationFont(dir.filePath(nome)) >= 0) ++aggiunti;
    return aggiunti;
}

}  // namespace krt
