#include "ambiente_e2e.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>

#include "mainwindow/scansione.h"
#include "tests/support/ambiente_chiuso.h"

krt::LetturaScansione Leggi(const QImage& immagine, const krt::AttesaScansione& attesa) {
    const QImage grigia = immagine.convertToFormat(QImage::Format_Grayscale8);
    return krt::LeggiImmagine(grigia.constBits(), grigia.width(), grigia.height(),
                              static_cast<int>(grigia.bytesPerLine()), attesa);
}

QImage PaginaPdf(const QString& pdf, int dpi) {
    QProcess::execute(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QString::number(dpi), QStringLiteral("-gray"),
                                                   QStringLiteral("-singlefile"), QStringLiteral("-png"), pdf, pdf});
    return QImage(pdf + QStringLiteral(".png"));
}

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir casa;
    ChiudiAmbiente(casa, QDir(qEnvironmentVariable("KRT_FONT_TEST")).absolutePath());
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
