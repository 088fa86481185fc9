#include "mainwindow/anteprima.h"

#include <set>

#include <QFont>
#include <QFontMetrics>
#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include "support/cp1252.h"

namespace krt {

namespace {

bool HaTutti(const QFontMetrics& metriche, const QString& testo) {
    for (QChar c : testo)
        if (c.unicode() >= 0x80 && !metriche.inFontUcs4(c.unicode())) return false;
    return true;
}

bool LetturaSimbolo(char16_t c) { return (c >= 0x80 && c <= 0x9F) || (c >= 0xF000 && c <= 0xF0FF); }

}  // namespace

QString LeggiGlifi(std::string_view glifi, const QFont& font) {
    QString windows = DaWindows1252(glifi);
    QString latino = QString::fromLatin1(glifi.data(), static_cast<qsizetype>(glifi.size()));
    QString* scelta = &windows;
    if (windows != latino) {
        // Only the bytes 0x80-0x9F read differently; ask the font about those.
        QString diversiWindows, diversiLatino;
        for (qsizetype i = 0; i < windows.size(); ++i) {
            if (windows[i] != latino[i]) {
                diversiWindows += windows[i];
                diversiLatino += latino[i];
            }
        }
        const QFontMetrics metriche(font);
        if (!HaTutti(metriche, diversiWindows) && HaTutti(metriche, diversiLatino)) scelta = &latino;
    }
    scelta->replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return *scelta;
}

std::vector<SegmentoRtf> SegmentiDocumento(const QTextDocument& documento) {
    std::vector<SegmentoRtf> segmenti;
    std::set<std::string> famiglieSimbolo;
    const double puntiPredefiniti = documento.defaultFont().pointSizeF();

    auto segmentoDa = [&](const QTextCharFormat& formato) {
        SegmentoRtf s;
        const QFont font = formato.font();
        s.famiglia = AWindows1252Sostituendo(font.family());
        s.punti = formato.fontPointSize() > 0 ? formato.fontPointSize() : puntiPredefiniti;
        s.grassetto = font.bold();
        s.corsivo = font.italic();
        s.sottolineato = font.underline();
        s.barrato = font.strikeOut();
        return s;
    };

    for (QTextBlock blocco = documento.begin(); blocco.isValid(); blocco = blocco.next()) {
        if (blocco != documento.begin()) segmenti.back().testo += "\r\n";
        bool vuoto = true;
        for (auto it = blocco.begin(); !it.atEnd(); ++it) {
            const QTextFragment frammento = it.fragment();
            if (!frammento.isValid()) continue;
            vuoto = false;
            SegmentoRtf s = segmentoDa(frammento.charFormat());
            bool simbolo = false;
            for (QChar c : frammento.text()) {
                const char16_t u = c.unicode();
                if (LetturaSimbolo(u)) {
                    simbolo = true;
                    s.testo += static_cast<char>(u & 0xFF);
                } else {
                    s.testo += AWindows1252Sostituendo(QStringView(&c, 1));
                }
            }
            if (simbolo) famiglieSimbolo.insert(s.famiglia);
            segmenti.push_back(std::move(s));
        }
        // An empty line still has a paragraph mark with its own format.
        if (vuoto) segmenti.push_back(segmentoDa(blocco.charFormat()));
    }
    for (SegmentoRtf& s : segmenti) s.simbolo = famiglieSimbolo.count(s.famiglia) > 0;
    return segmenti;
}

QString FormatoAppuntiRtf() {
#ifdef Q_OS_WIN
    return QStringLiteral("application/x-qt-windows-mime;value=\"Rich Text Format\"");
#else
    return QStringLiteral("text/rtf");
#endif
}

QMimeData* DatiAppuntiRtf(const std::string& rtf) {
    auto* dati = new QMimeData;
    dati->setData(FormatoAppuntiRtf(), QByteArray(rtf.data(), static_cast<qsizetype>(rtf.size())));
    return dati;
}

}  // namespace krt
