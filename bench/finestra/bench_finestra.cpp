// The main window's own figures.
//
//   bench_finestra                 one generate cycle (Google Benchmark), offscreen
//   bench_finestra --avvio T0      start-up: prints the milliseconds from T0 (the
//                                  launcher's clock in ns since the epoch, taken just
//                                  before starting this process) to the first paint
//                                  of the window, then quits. bench/avvio.sh runs it.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>

#include "cycle/voce.h"
#include "mainwindow/configurazione.h"
#include "mainwindow/frmelenco.h"
#include "mainwindow/frmprincipale.h"

namespace {

using namespace krt;

long long AdessoNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

// Options of a user who has worked with the program before: a symbology, a style,
// HRC on, so that start-up runs its first cycle as it would for them.
void PreparaConfigurazione() {
    if (IsFile(UnisciPercorsoNome(CartellaDati(), QLatin1String(kNomeFileConfigurazione)))) return;
    Configurazione c;
    ApplicaPredefiniti(c, "Normal");
    c.Simbologia.Imposta("Code 128");
    c.HRC = 1;
    SalvaConfigurazione(c);
}

class PrimoDisegno : public QObject {
public:
    explicit PrimoDisegno(long long t0) : t0_(t0) {}
    bool eventFilter(QObject*, QEvent* evento) override {
        if (evento->type() == QEvent::Paint && !fatto_) {
            fatto_ = true;
            std::printf("%.1f\n", (AdessoNs() - t0_) / 1e6);
            std::fflush(stdout);
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        }
        return false;
    }

private:
    long long t0_;
    bool fatto_ = false;
};

int Avvio(int argc, char* argv[], long long t0) {
    QApplication app(argc, argv);
    PreparaConfigurazione();
    frmPrincipale finestra;
    PrimoDisegno disegno(t0);
    finestra.installEventFilter(&disegno);
    finestra.Avvia();
    finestra.show();
    return app.exec();
}

// A window on a scratch data folder with a content typed and an entry chosen.
struct FinestraPronta {
    QTemporaryDir cartella;
    frmPrincipale finestra;
    FinestraPronta(const char* voce, const char* contenuto, bool hrc) {
        ImpostaCartellaDati(cartella.path());
        finestra.Avvia();
        auto* cmb = finestra.findChild<QComboBox*>(QStringLiteral("cmbSimbologia"));
        cmb->setCurrentIndex(cmb->findText(QLatin1String(voce)));
        auto* chk = finestra.findChild<QCheckBox*>(QStringLiteral("chkHRC"));
        chk->setChecked(hrc);
        finestra.findChild<QLineEdit*>(QStringLiteral("txtCodice"))->setText(QLatin1String(contenuto));
    }
};

void Ciclo(benchmark::State& stato, const char* voce, const char* contenuto) {
    FinestraPronta pronta(voce, contenuto, true);
    for (auto _ : stato) {
        const bool ok = pronta.finestra.GeneraAnteprima(false);
        if (!ok) stato.SkipWithError("content refused");
        benchmark::DoNotOptimize(ok);
    }
}
BENCHMARK_CAPTURE(Ciclo, Code128, "Code 128", "KRT-2024/0001 Hello")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Ciclo, EAN13, "EAN 13", "5901234123457")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Ciclo, Code39, "Code 39", "ABC-1234567890")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Ciclo, ISBN13, "ISBN-13", "978030640615")->Unit(benchmark::kMicrosecond);

// The cycle as the user sees it: the window shown and repainted after it.
void CicloConDisegno(benchmark::State& stato, const char* voce, const char* contenuto) {
    FinestraPronta pronta(voce, contenuto, true);
    pronta.finestra.show();
    QApplication::processEvents();
    for (auto _ : stato) {
        if (!pronta.finestra.GeneraAnteprima(false)) stato.SkipWithError("content refused");
        if (stato.range(0) == 0)
            pronta.finestra.repaint();
        else
            pronta.finestra.findChild<QWidget*>(QStringLiteral("rtfContenuto"))->repaint();
    }
}
BENCHMARK_CAPTURE(CicloConDisegno, Code128, "Code 128", "KRT-2024/0001 Hello")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(CicloConDisegno, EAN13, "EAN 13", "5901234123457")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// The check-only half that every option change runs first.
void Verifica(benchmark::State& stato) {
    FinestraPronta pronta("Code 128", "KRT-2024/0001 Hello", true);
    for (auto _ : stato) benchmark::DoNotOptimize(pronta.finestra.GeneraAnteprima(true));
}
BENCHMARK(Verifica)->Unit(benchmark::kMicrosecond);

// The list window opening a 100,000-row CSV file: read, every row encoded, the table filled.
void ElencoGrande(benchmark::State& stato) {
    QTemporaryDir cartella;
    const QString percorso = cartella.filePath(QStringLiteral("grande.csv"));
    std::string dati = "code;name\n";
    for (int i = 0; i < 100000; ++i) dati += std::to_string(400000000000 + i) + ";\"item " + std::to_string(i) + "\"\n";
    QFile file(percorso);
    if (!file.open(QIODevice::WriteOnly) || file.write(dati.data(), std::ssize(dati)) != std::ssize(dati)) {
        stato.SkipWithError("cannot write the CSV file");
        return;
    }
    file.close();
    ImpostazioniElenco impostazioni;
    impostazioni.voce = TrovaVoce("EAN 13", 0);
    ServiziElenco servizi;
    servizi.errore = [&stato](const QString&) { stato.SkipWithError("the list window refused the file"); };
    for (auto _ : stato) {
        frmElenco finestra(impostazioni, servizi);
        if (!finestra.ApriFile(percorso) || finestra.Modello().rowCount() != 100000) stato.SkipWithError("not read");
    }
}
BENCHMARK(ElencoGrande)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char* argv[]) {
    if (argc >= 3 && std::strcmp(argv[1], "--avvio") == 0) return Avvio(1, argv, std::stoll(argv[2]));
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
